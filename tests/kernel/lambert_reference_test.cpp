// The conformal conics, compared with their published form.
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

#include "kernel/reference_forms.h"
#include "numerics/special_values.h"
#include "support/random.h"

namespace tessara::lambert_reference_test {
namespace {

using ::tessara::testing::Random;

constexpr int TRIALS = 20000;

// Parallels on one side of the equator, at least a degree apart.
LambertCC RandomCone(Random& random) {
    const double side = random.Below(2) == 0 ? 1.0 : -1.0;
    const double parallel1 = side * random.Between(5.0, 70.0);
    const double parallel2 = parallel1 + side * random.Between(1.0, 15.0);
    LambertCC cone;
    LambertCC_Init(random.Below(DATUM_COUNT), parallel1, parallel2, 1.0, random.Between(0.0, 1e6),
                   random.Between(0.0, 1e6), side * random.Between(0.0, 80.0), random.Between(-180.0, 180.0),
                   &cone);
    return cone;
}

// In parts of the value: the roundings of a few operations.
void ExpectClose(double actual, long double expected, double unitsOfTheLastPlace) {
    EXPECT_LE(std::fabs(actual / expected - 1.0L), unitsOfTheLastPlace * DBL_EPSILON);
}

TEST(LambertCCInit, IsItsWrittenForm) {
    Random random(1772);
    for (int i = 0; i < TRIALS; ++i) {
        const LambertCC cone = RandomCone(random);
        const long double e = cone.e;
        // The quotient of two differences loses as many digits as these are smaller than their terms, which
        // are below 3; the differences are at least a degree in radians times the tangent of 5 degrees.
        const long double n = reference::ConeConstant<long double>(cone.parallel1, cone.parallel2, e);
        ExpectClose(cone.n, n, 4.0 * 3.0 / (0.0174 * 0.0875));
        const long double t1 = reference::LambertExponential<long double>(cone.parallel1, e);
        const long double t0 = reference::LambertExponential<long double>(cone.lat0, e);
        // The doubles of a latitude up to 85 degrees are as coarse as 11 units of its exponential's last
        // place.
        ExpectClose(cone.t0, t0, 16.0);
        ExpectClose(cone.t1, t1, 16.0);
        ExpectClose(cone.t2, reference::LambertExponential<long double>(cone.parallel2, e), 16.0);
        ExpectClose(cone.F, cone.m1 / (std::pow(t1, static_cast<long double>(cone.n)) * cone.n), 16.0);
        ExpectClose(cone.rho0, cone.a * cone.F * std::pow(t0, static_cast<long double>(cone.n)), 16.0);
        if (::testing::Test::HasFailure()) return;
    }
}

// A nanometre, and the rounding error of the radius after a few operations.
TEST(LambertCCForward, IsItsWrittenForm) {
    Random random(1395);
    for (int i = 0; i < TRIALS; ++i) {
        const LambertCC cone = RandomCone(random);
        const double latLon[2] = {random.Between(-60.0, 85.0) * (cone.n < 0.0 ? -1.0 : 1.0),
                                  random.Between(-180.0, 180.0)};
        double easting, northing;
        LambertCC_Forward(latLon, &easting, &northing, &cone);
        long double expectedEasting, expectedNorthing;
        reference::LambertForward(latLon, &expectedEasting, &expectedNorthing, cone);
        const double radius =
            std::hypot(easting - cone.falseEasting, cone.rho0 - northing + cone.falseNorthing);
        const double tolerance = 1e-9 + 8.0 * DBL_EPSILON * (radius + std::fabs(cone.rho0) + 2e6);
        EXPECT_LE(std::fabs(easting - expectedEasting), tolerance) << latLon[0] << ' ' << latLon[1];
        EXPECT_LE(std::fabs(northing - expectedNorthing), tolerance) << latLon[0] << ' ' << latLon[1];
        if (::testing::Test::HasFailure()) return;
    }
}

// 1e-13 degrees, and the rounding error of the radius, which exceeds that of the latitude where the cone is
// steep.
TEST(LambertCCInverse, IsItsWrittenForm) {
    Random random(15);
    for (int i = 0; i < TRIALS; ++i) {
        const LambertCC cone = RandomCone(random);
        const double latLon[2] = {random.Between(-60.0, 85.0) * (cone.n < 0.0 ? -1.0 : 1.0),
                                  random.Between(-180.0, 180.0)};
        double easting, northing;
        LambertCC_Forward(latLon, &easting, &northing, &cone);
        double actual[2];
        LambertCC_Inverse(easting, northing, actual, &cone);
        long double expected[2];
        reference::LambertInverse(easting, northing, expected, cone);
        const double radius =
            std::hypot(easting - cone.falseEasting, cone.rho0 - northing + cone.falseNorthing);
        const double coarse =
            DBL_EPSILON * (1.0 + std::fabs(cone.rho0) / radius) / std::fabs(cone.n) * DEGREES_PER_RADIAN;
        EXPECT_LE(std::fabs(actual[0] - expected[0]), 1e-13 + 4.0 * DBL_EPSILON * 90.0 + 4.0 * coarse);
        EXPECT_LE(std::fabs(actual[1] - expected[1]), 1e-13 + 4.0 * DBL_EPSILON * 360.0 + 4.0 * coarse);
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(LambertCC, IsNotANumberWhereItsWrittenFormIsNot) {
    const double latitudes[] = {0.0,  -0.0,  47.0,  89.9999999999, 90.0,     -90.0,
                                91.0, 180.0, 269.0, 1e300,         INFINITE, NOT_A_NUMBER};
    for (const double parallel2 : {50.0, -30.0}) {
        LambertCC cone;
        LambertCC_Init(DATUM_WGS84, parallel2 - 5.0, parallel2, 1.0, 0.0, 0.0, parallel2, 10.0, &cone);
        for (const double lat : latitudes) {
            for (const double lon : {0.0, 10.0, -180.0, 1e300, -INFINITE, NOT_A_NUMBER}) {
                const double latLon[2] = {lat, lon};
                double easting, northing;
                LambertCC_Forward(latLon, &easting, &northing, &cone);
                double expectedEasting, expectedNorthing;
                reference::LambertForward(latLon, &expectedEasting, &expectedNorthing, cone);
                EXPECT_EQ(std::isnan(easting), std::isnan(expectedEasting)) << lat << ' ' << lon;
                EXPECT_EQ(std::isnan(northing), std::isnan(expectedNorthing)) << lat << ' ' << lon;
                EXPECT_EQ(std::isinf(easting), std::isinf(expectedEasting)) << lat << ' ' << lon;
                EXPECT_EQ(std::isinf(northing), std::isinf(expectedNorthing)) << lat << ' ' << lon;
            }
        }
        for (const double easting : {0.0, 1.0, -1e7, 1e300, INFINITE, NOT_A_NUMBER}) {
            for (const double northing : {0.0, cone.rho0, 1e8, -1e300, -INFINITE, NOT_A_NUMBER}) {
                double actual[2];
                LambertCC_Inverse(easting, northing, actual, &cone);
                double expected[2];
                reference::LambertInverse(easting, northing, expected, cone);
                EXPECT_EQ(std::isnan(actual[0]), std::isnan(expected[0])) << easting << ' ' << northing;
            }
        }
    }
}

// The formulas use the sine of a latitude only, so a pole is exact and a latitude beyond it is reflected.
TEST(LambertCCForward, ThePolesAreExactAndLatitudesBeyondThemAreReflected) {
    LambertCC cone;
    LambertCC_Init(DATUM_WGS84, 44.0, 49.0, 1.0, 1000.0, 2000.0, 46.5, 3.0, &cone);
    double easting, northing, beyondEasting, beyondNorthing;
    const double pole[2] = {90.0, 40.0};
    LambertCC_Forward(pole, &easting, &northing, &cone);
    EXPECT_EQ(easting, 1000.0);
    EXPECT_EQ(northing, cone.rho0 + 2000.0);
    const double before[2] = {80.0, 5.0};
    const double beyond[2] = {100.0, 5.0};
    LambertCC_Forward(before, &easting, &northing, &cone);
    LambertCC_Forward(beyond, &beyondEasting, &beyondNorthing, &cone);
    EXPECT_NEAR(beyondEasting, easting, 1e-7);  // metres: the two angles are rounded by themselves
    EXPECT_NEAR(beyondNorthing, northing, 1e-7);
}

}  // namespace
}  // namespace tessara::lambert_reference_test

#include "tessara/kernel/transverse_mercator.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "kernel/angles.h"
#include "kernel/datums.h"
#include "numerics/special_values.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/tm_constants.h"
#include "support/tm_grids.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara::transverse_mercator_test {
namespace {

using ::tessara::testing::DEGREE;
using ::tessara::testing::ForwardConstants;
using ::tessara::testing::GER;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::KUGEL;
using ::tessara::testing::METRES_PER_DEGREE;
using ::tessara::testing::Random;
using ::tessara::testing::ReadReferenceFile;
using ::tessara::testing::REFERENCE_TOLERANCE;
using ::tessara::testing::ReferenceRow;
using ::tessara::testing::ROUND_TRIP_TOLERANCE;

struct Grid {
    double easting;
    double northing;
};

struct Geodetic {
    double lat;
    double lon;
};

Grid Forward(double dLonDegrees, double latDegrees, const TmConstants& c, double k = 1.0) {
    Grid grid{};
    TM_Forward(dLonDegrees * DEGREE, latDegrees * DEGREE, k, 0.0, 0.0, &grid.easting, &grid.northing, &c);
    return grid;
}

Geodetic Inverse(double easting, double northing, const TmConstants& c, double k = 1.0) {
    Geodetic position{};
    TM_Inverse(easting, northing, k, 0.0, 0.0, 0.0, &position.lon, &position.lat, &c);
    return position;
}

TEST(TmForward, HasNoEastingOnTheCentralMeridian) {
    for (const std::int32_t datum : {KUGEL, DATUM_WGS84, GER}) {
        const TmConstants c = ForwardConstants(datum);
        for (const double lat : {-84.0, -1.0, 0.0, 45.0, 84.0}) {
            double easting = 0.0;
            double northing = 0.0;
            TM_Forward(0.0, lat * DEGREE, 0.9996, 500000.0, 0.0, &easting, &northing, &c);
            EXPECT_EQ(easting, 500000.0);
        }
    }
}

// tan(pi/4) in doubles is 1 - 1e-16, which is 7e-10 m.
TEST(TmForward, HasTheFalseNorthingAtTheEquator) {
    double easting = 0.0;
    double northing = 0.0;
    const TmConstants c = ForwardConstants(DATUM_WGS84);
    TM_Forward(0.0, 0.0, 1.0, 500000.0, 300000.0, &easting, &northing, &c);
    EXPECT_NEAR(northing, 300000.0, 1e-8);
}

// J. P. Snyder, "Map Projections - A Working Manual", 1987, equations 8-1 to 8-3, for the sphere.
TEST(TmForward, IsTheClosedFormOnTheSphere) {
    const TmConstants c = ForwardConstants(KUGEL);
    for (double lat = -88.0; lat <= 88.0; lat += 8.0) {
        for (double dLon = -80.0; dLon <= 80.0; dLon += 10.0) {
            const double b = std::cos(lat * DEGREE) * std::sin(dLon * DEGREE);
            const Grid grid = Forward(dLon, lat, c, 0.9996);
            EXPECT_NEAR(grid.easting, 0.9996 * 6371000.0 * std::atanh(b), 2e-8) << lat << ' ' << dLon;
            EXPECT_NEAR(grid.northing,
                        0.9996 * 6371000.0 * std::atan(std::tan(lat * DEGREE) / std::cos(dLon * DEGREE)),
                        2e-8)
                << lat << ' ' << dLon;
        }
    }
}

// The accuracy that transverse_mercator.h states, metres.
TEST(TmForward, IsExactToMicrometresFarFromTheMeridian) {
    const TmConstants c = ForwardConstants(DATUM_WGS84);
    for (const ReferenceRow& row : ReadReferenceFile("kernel/transverse_mercator_far.txt")) {
        SCOPED_TRACE(row.place);
        const Grid grid = Forward(row.Number(1), row.Number(0), c);
        const double tolerance = row.Number(1) <= 10.0 ? 1e-6 : 1e-5;
        EXPECT_NEAR(grid.easting, row.Number(2), tolerance);
        EXPECT_NEAR(grid.northing, row.Number(3), tolerance);
    }
}

TEST(TmForward, IsSymmetricToTheMeridianAndTheEquator) {
    const TmConstants c = ForwardConstants(GER);
    const Grid grid = Forward(2.5, 51.0, c);
    EXPECT_EQ(Forward(-2.5, 51.0, c).easting, -grid.easting);
    EXPECT_EQ(Forward(-2.5, 51.0, c).northing, grid.northing);
    // Metres, ten units of the last place of the northing.
    EXPECT_NEAR(Forward(2.5, -51.0, c).easting, grid.easting, 1e-8);
    EXPECT_NEAR(Forward(2.5, -51.0, c).northing, -grid.northing, 1e-8);
}

TEST(TmForward, IsNotANumberAtThePole) {
    const TmConstants c = ForwardConstants(GER);
    EXPECT_TRUE(std::isnan(Forward(1.0, 90.0, c).easting));
    EXPECT_TRUE(std::isnan(Forward(1.0, 90.0, c).northing));
    EXPECT_TRUE(std::isnan(Forward(1.0, -90.0, c).northing));
}

// Longitude differences beyond 90 degrees are outside the range of the projection: the arctangent returns
// the other quadrant.
TEST(TmForward, GivesTheWrongQuadrantBeyondNinetyDegrees) {
    const TmConstants c = ForwardConstants(DATUM_WGS84);
    EXPECT_LT(Forward(100.0, 50.0, c).northing, 0.0);
    EXPECT_GT(Forward(80.0, 50.0, c).northing, 0.0);
}

TEST(TmInverse, ReturnsFromFiveDegreesOffTheMeridian) {
    const TmConstants forward = ForwardConstants(GER);
    const TmConstants inverse = InverseConstants(GER);
    for (double lat = -84.0; lat <= 84.0; lat += 7.0) {
        const Grid grid = Forward(5.0, lat, forward);
        const Geodetic position = Inverse(grid.easting, grid.northing, inverse);
        EXPECT_NEAR(position.lat, lat, ROUND_TRIP_TOLERANCE / METRES_PER_DEGREE);
        EXPECT_NEAR(position.lon, 5.0, ROUND_TRIP_TOLERANCE / METRES_PER_DEGREE / std::cos(lat * DEGREE));
    }
}

// (1/61440 + 17/184320) e2^4 is 2.16e-13 radians or 1.24e-11 degrees on Bessel, times the sine of twice the
// latitude.
TEST(TmInverse, MissesTheLatitudeSteadilyByItsCoefficient) {
    const TmConstants forward = ForwardConstants(GER);
    const TmConstants inverse = InverseConstants(GER);
    const Grid north = Forward(0.0, 45.0, forward);
    EXPECT_NEAR(Inverse(north.easting, north.northing, inverse).lat - 45.0, -1.24e-11, 2e-12);
    const Grid south = Forward(0.0, -45.0, forward);
    EXPECT_NEAR(Inverse(south.easting, south.northing, inverse).lat + 45.0, 1.24e-11, 2e-12);
}

TEST(TmInverse, IsTheClosedFormOnTheSphere) {
    const TmConstants c = InverseConstants(KUGEL);
    for (double x = -0.6; x <= 0.6; x += 0.1) {
        for (double d = -1.5; d <= 1.5; d += 0.25) {
            const Geodetic position = Inverse(x * 6371000.0, d * 6371000.0, c);
            // Radians, some units of the last place.
            EXPECT_NEAR(position.lat / 57.29577951308232, std::asin(std::sin(d) / std::cosh(x)), 1e-14);
            EXPECT_NEAR(position.lon / 57.29577951308232, std::atan(std::sinh(x) / std::cos(d)), 1e-14);
        }
    }
}

TEST(TmInverse, AddsTheCentralMeridian) {
    const TmConstants inverse = InverseConstants(GER);
    double lon = 0.0;
    double lat = 0.0;
    TM_Inverse(500000.0, 5540000.0, 1.0, 500000.0, 0.0, -69.0, &lon, &lat, &inverse);
    // Degrees, some units of the last place.
    EXPECT_NEAR(lon, -69.0, 1e-12);
}

TEST(TmInverse, EndsOnGridValuesThatAreNone) {
    const TmConstants inverse = InverseConstants(DATUM_WGS84);
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_TRUE(std::isnan(Inverse(bad, 5000000.0, inverse).lat));
        EXPECT_TRUE(std::isnan(Inverse(100000.0, bad, inverse).lat));
    }
    for (const double absurd : {6e8, 1e12, 1e300, -1e300}) {
        Inverse(absurd, 5000000.0, inverse);
        Inverse(100000.0, absurd, inverse);
    }
    EXPECT_TRUE(std::isnan(Inverse(0.0, 0.0, inverse, 0.0).lat));
}

TEST(TmForward, IsNotANumberForConstantsOfNoDatum) {
    for (const std::int32_t datum : {-1, 239, INT32_MIN, INT32_MAX}) {
        TmConstants c = ForwardConstants(GER);
        c.datum = datum;
        EXPECT_TRUE(std::isnan(Forward(1.0, 50.0, c).easting));
        EXPECT_TRUE(std::isnan(Inverse(1.0, 50.0, c).lat));
    }
}

}  // namespace
}  // namespace tessara::transverse_mercator_test

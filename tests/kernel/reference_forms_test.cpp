#include "kernel/reference_forms.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "support/random.h"
#include "support/tm_constants.h"

// The references are computed in long double, which has more digits than double here.
static_assert(LDBL_MANT_DIG > DBL_MANT_DIG);

namespace tessara {
namespace {

using ::tessara::testing::ForwardConstants;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::Random;

constexpr int TRIALS = 20000;
constexpr double DEGREE = RADIANS_PER_DEGREE;
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

// A nanometre, and what the doubles of this size can't tell apart after a few operations.
double Metres(long double value) {
    return 1e-9 + 8.0 * DBL_EPSILON * std::fabs(static_cast<double>(value));
}

// 1e-13 degrees, likewise.
double Degrees(long double value) {
    return 1e-13 + 4.0 * DBL_EPSILON * std::fabs(static_cast<double>(value));
}

void ExpectNear(double actual, long double expected, double tolerance, const char* what) {
    if (std::isnan(expected)) {
        EXPECT_TRUE(std::isnan(actual)) << what;
        return;
    }
    // A NaN must not pass.
    EXPECT_TRUE(std::fabs(actual - expected) <= tolerance)
        << what << ": " << actual << " differs by " << static_cast<double>(actual - expected);
}

void ExpectSameBits(const TmConstants& loaded, const TmConstants& computed) {
    EXPECT_EQ(loaded.polarRadius, computed.polarRadius);
    EXPECT_EQ(loaded.secondEcc2, computed.secondEcc2);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(loaded.arcCoef[i], computed.arcCoef[i]) << loaded.datum << ' ' << i;
        EXPECT_EQ(loaded.seriesCoef[i], computed.seriesCoef[i]) << loaded.datum << ' ' << i;
    }
}

TEST(TmConstants, OfTheTablesAreThoseComputedFromTheDatumToTheLastBit) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        ExpectSameBits(ForwardConstants(datum), reference::TmForwardConstantsOf(datum));
        ExpectSameBits(InverseConstants(datum), reference::TmInverseConstantsOf(datum));
    }
}

void CompareForward(double dLon, double lat, double k, const TmConstants& c) {
    double easting = 0.0;
    double northing = 0.0;
    TM_Forward(dLon, lat, k, 500000.0, 1e5, &easting, &northing, &c);
    long double e = 0.0L;
    long double n = 0.0L;
    reference::TmForward<long double>(dLon, lat, k, 500000.0L, 1e5L, &e, &n, c);
    ExpectNear(easting, e, Metres(e), "easting");
    ExpectNear(northing, n, Metres(n), "northing");
}

TEST(TmForward, IsItsWrittenForm) {
    Random random(1912);
    for (int i = 0; i < TRIALS; ++i) {
        const TmConstants c = ForwardConstants(random.Below(DATUM_COUNT));
        const double lat = random.Between(-89.999, 89.999) * DEGREE;
        const double dLon = random.Between(-75.0, 75.0) * DEGREE;
        const double k = random.Between(0.9, 1.1);
        SCOPED_TRACE(::testing::Message() << "datum " << c.datum << " lat " << lat << " dLon " << dLon);
        CompareForward(dLon, lat, k, c);
        CompareForward(dLon / 20.0, lat, k, c);
        CompareForward(dLon * 1e-9, lat, k, c);
        CompareForward(dLon, lat * 1e-9, k, c);
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(TmInverse, IsItsWrittenForm) {
    Random random(1913);
    for (int i = 0; i < TRIALS; ++i) {
        const TmConstants forward = ForwardConstants(random.Below(DATUM_COUNT));
        const TmConstants inverse = InverseConstants(forward.datum);
        const double lat = random.Between(-89.99, 89.99);
        const double dLon = random.Between(-1.0, 1.0) * (i % 2 == 0 ? 60.0 : 4.0);
        double easting = 0.0;
        double northing = 0.0;
        TM_Forward(dLon * DEGREE, lat * DEGREE, 0.9996, 0.0, 0.0, &easting, &northing, &forward);
        SCOPED_TRACE(::testing::Message() << "datum " << forward.datum << " lat " << lat << " dLon " << dLon);
        double actualLon = 0.0;
        double actualLat = 0.0;
        TM_Inverse(easting, northing, 0.9996, 0.0, 0.0, 9.0, &actualLon, &actualLat, &inverse);
        long double expectedLon = 0.0L;
        long double expectedLat = 0.0L;
        reference::TmInverse<long double>(easting, northing, 0.9996, 0.0L, 0.0L, 9.0L, &expectedLon,
                                          &expectedLat, inverse);
        ExpectNear(actualLat, expectedLat, Degrees(expectedLat), "lat");
        // The meridians close up: the same shift on the ground is more of longitude.
        ExpectNear(actualLon, expectedLon, Degrees(expectedLon) / std::cos(lat * DEGREE), "lon");
        if (::testing::Test::HasFailure()) return;
    }
}

// What isn't a number in the written form isn't one in the kernel, and the other way round; infinite ones
// don't occur.
TEST(TmForward, IsNotANumberWhereItsWrittenFormIsNot) {
    const TmConstants c = ForwardConstants(3);
    const double pole = 90.0 * DEGREE;
    for (const double lat : {0.0,
                             -0.0,
                             0.5,
                             pole,
                             -pole,
                             std::nextafter(pole, 0.0),
                             std::nextafter(-pole, 0.0),
                             HALF_PI,
                             -HALF_PI,
                             std::nextafter(HALF_PI, 0.0),
                             1.6,
                             -1.6,
                             3.2,
                             -3.2,
                             4.8,
                             -4.8,
                             1e300,
                             INFINITE,
                             -INFINITE,
                             NOT_A_NUMBER}) {
        for (const double dLon : {0.0, -0.0, 0.05, 1.5, 1.7, 3.2, -7.0, 1e300, INFINITE, NOT_A_NUMBER}) {
            double easting = 0.0, northing = 0.0, e = 0.0, n = 0.0;
            TM_Forward(dLon, lat, 1.0, 0.0, 0.0, &easting, &northing, &c);
            reference::TmForward(dLon, lat, 1.0, 0.0, 0.0, &e, &n, c);
            EXPECT_EQ(std::isnan(easting), std::isnan(e)) << lat << ' ' << dLon;
            EXPECT_EQ(std::isnan(northing), std::isnan(n)) << lat << ' ' << dLon;
            EXPECT_EQ(std::isinf(easting), std::isinf(e)) << lat << ' ' << dLon;
        }
    }
}

TEST(TmInverse, IsNotANumberWhereItsWrittenFormIsNot) {
    const TmConstants c = InverseConstants(3);
    for (const double north :
         {0.0, 1e5, -5e6, 1e7, 1.2e7, 3e7, 1e12, 1e300, -INFINITE, INFINITE, NOT_A_NUMBER}) {
        for (const double east : {0.0, 1e5, -4e5, 2e6, 1e7, 1e300, -1e300, INFINITE, NOT_A_NUMBER}) {
            for (const double k : {1.0, -1.0, 0.0, INFINITE, NOT_A_NUMBER}) {
                double lon = 0.0, lat = 0.0, refLon = 0.0, refLat = 0.0;
                TM_Inverse(east, north, k, 0.0, 0.0, 9.0, &lon, &lat, &c);
                reference::TmInverse(east, north, k, 0.0, 0.0, 9.0, &refLon, &refLat, c);
                EXPECT_EQ(std::isnan(lon), std::isnan(refLon)) << north << ' ' << east << ' ' << k;
                EXPECT_EQ(std::isnan(lat), std::isnan(refLat)) << north << ' ' << east << ' ' << k;
            }
        }
    }
}

}  // namespace
}  // namespace tessara

#include "kernel/reference_forms.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>

#include "numerics/special_values.h"
#include "support/random.h"
#include "support/tm_constants.h"
#include "tessara/kernel/dutch_grid.h"
#include "tessara/kernel/ecef.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/swiss_grid.h"
#include "tessara/kernel/ups.h"

// The references are computed in long double, which has more digits than double here.
static_assert(LDBL_MANT_DIG > DBL_MANT_DIG);

namespace tessara::reference_forms_test {
namespace {

using ::tessara::testing::ForwardConstants;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::Random;

constexpr int TRIALS = 20000;
constexpr double DEGREE = RADIANS_PER_DEGREE;

// A nanometre, and the rounding error of doubles of this size after a few operations.
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

// A tangent has two angles: beyond a quarter turn the written form gives the wrong one, and so does the
// kernel. Of a latitude beyond half a turn its tangent sees the direction.
TEST(TmForward, IsItsWrittenFormFarFromTheMeridianAndFromTheGlobe) {
    Random random(1913);
    for (int i = 0; i < TRIALS; ++i) {
        const TmConstants c = ForwardConstants(random.Below(DATUM_COUNT));
        const double lat = (random.Between(-89.0, 89.0) + 360.0 * (random.Below(5) - 2)) * DEGREE;
        const double dLon = (random.Between(-75.0, 75.0) + 180.0 * (random.Below(9) - 4)) * DEGREE;
        SCOPED_TRACE(::testing::Message() << "datum " << c.datum << " lat " << lat << " dLon " << dLon);
        CompareForward(dLon, lat, 0.9996, c);
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

// Northings of up to a turn and a half around the meridian, and eastings of up to 20 degrees.
TEST(TmInverse, IsItsWrittenFormBeyondThePoles) {
    Random random(1914);
    for (int i = 0; i < TRIALS; ++i) {
        const TmConstants c = InverseConstants(random.Below(DATUM_COUNT));
        const double easting = random.Between(-2.2e6, 2.2e6);
        const double northing = random.Between(-6e7, 6e7);
        long double expectedLon = 0.0L;
        long double expectedLat = 0.0L;
        reference::TmInverse<long double>(easting, northing, 0.9996, 0.0L, 0.0L, 9.0L, &expectedLon,
                                          &expectedLat, c);
        const double atPole = std::cos(static_cast<double>(expectedLat) * DEGREE);
        if (atPole < 0.01) continue;
        double lon = 0.0;
        double lat = 0.0;
        TM_Inverse(easting, northing, 0.9996, 0.0, 0.0, 9.0, &lon, &lat, &c);
        SCOPED_TRACE(::testing::Message() << "datum " << c.datum << ' ' << easting << ' ' << northing);
        // The angle of the northing is a double of up to a turn and a half.
        ExpectNear(lat, expectedLat, Degrees(540.0), "lat");
        ExpectNear(lon, expectedLon, Degrees(540.0) / atPole, "lon");
        if (::testing::Test::HasFailure()) return;
    }
}

// The kernel returns NaN exactly where the published form does; infinities don't occur.
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
        for (const double east :
             {0.0, 1e5, -4e5, 2e6, 1e7, 3e7, -1e8, 4e8, 1e300, -1e300, INFINITE, NOT_A_NUMBER}) {
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

// Angles as far apart as they are on the circle, at most 180 degrees.
double Turn(double actual, long double expected) {
    return static_cast<double>(std::fabs(std::remainder(actual - expected, 360.0L)));
}

TEST(GeodesicInverseCore, IsItsWrittenForm) {
    Random random(1975);
    for (int i = 0; i < TRIALS; ++i) {
        double axes[2];
        Geodesic_LoadAxes(axes, random.Below(DATUM_COUNT));
        const double lat1 = random.Between(-90.0, 90.0);
        const double lon1 = random.Between(-180.0, 180.0);
        // Every third pair lies close together. Toward the antipode the problem itself loses digits.
        const double reach = i % 3 == 0 ? 0.01 : 1.0;
        const double lat2 = lat1 + reach * (random.Between(-90.0, 90.0) - lat1);
        const double lon2 = lon1 + reach * random.Between(-150.0, 150.0);
        SCOPED_TRACE(::testing::Message() << lat1 << ' ' << lon1 << ' ' << lat2 << ' ' << lon2);
        const GeodesicResult actual = Geodesic_InverseCore(lat1, lon1, lat2, lon2, axes[0], axes[1]);
        const auto expected =
            reference::GeodesicInverse<long double>(lat1, lon1, lat2, lon2, axes[0], axes[1]);
        if (expected.isClose) continue;
        ExpectNear(actual.distance, expected.first, Metres(expected.first) + Metres(axes[0]), "distance");
        // The accuracy of an azimuth follows from the last place of the positions.
        const double arc = std::sin(static_cast<double>(expected.first) / axes[0]);
        const double tolerance = 1e-13 + 2e-13 / arc;
        EXPECT_TRUE(Turn(actual.azimuth12, expected.second) <= tolerance) << actual.azimuth12;
        EXPECT_TRUE(Turn(actual.azimuth21, expected.third) <= tolerance) << actual.azimuth21;
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(GeodesicInverseCore, HasASolutionWhereItsWrittenFormHas) {
    const double special[] = {0.0, -0.0, 1e-300, 1e-9, -1e-9, 30.0, 85.0, 90.0, -90.0, 179.0, 179.5, 180.0};
    for (const double lat1 : {0.0, 1e-9, 10.0, -40.0, 90.0}) {
        for (const double lat2 : special) {
            if (std::fabs(lat2) > 90.0) continue;
            for (const double lon2 : special) {
                // Latitudes of one sign leave no search to go on with.
                if (lat1 * lat2 < 0.0 || std::fabs(lat1 + lat2) < 5.0) continue;
                const double a = WGS84_A;
                const double b = a - a * WGS84_F;
                const GeodesicResult actual = Geodesic_InverseCore(lat1, 0.0, lat2, lon2, a, b);
                const auto expected = reference::GeodesicInverse(lat1, 0.0, lat2, lon2, a, b);
                ASSERT_EQ(actual.distance < 0.0, expected.first < 0.0) << lat1 << ' ' << lat2 << ' ' << lon2;
            }
        }
    }
}

TEST(GeodesicDirectCore, IsItsWrittenForm) {
    Random random(1976);
    for (int i = 0; i < TRIALS; ++i) {
        double axes[2];
        Geodesic_LoadAxes(axes, random.Below(DATUM_COUNT));
        const double lat = random.Between(-89.9, 89.9);
        const double azimuth = random.Between(-360.0, 360.0);
        const double distance = random.Between(-1.9e7, 1.9e7) * (i % 3 == 0 ? 1e-4 : 1.0);
        SCOPED_TRACE(::testing::Message() << lat << ' ' << azimuth << ' ' << distance);
        const GeodesicResult actual = Geodesic_DirectCore(lat, 9.0, distance, azimuth, axes[0], axes[1]);
        const auto expected =
            reference::GeodesicDirect<long double>(lat, 9.0L, distance, azimuth, axes[0], axes[1]);
        // The meridians close up at the poles, and the azimuths turn with them.
        const double atPole = std::cos(static_cast<double>(expected.first) * DEGREE);
        ExpectNear(actual.latitude, expected.first, 2.0 * Degrees(expected.first), "latitude");
        EXPECT_TRUE(Turn(actual.longitude, expected.second) <= 2e-13 / atPole) << actual.longitude;
        EXPECT_TRUE(Turn(actual.backAzimuth, expected.third) <= 2e-13 / atPole) << actual.backAzimuth;
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(GeodesicDirectCore, IsNotANumberWhereItsWrittenFormIsNot) {
    const double values[] = {0.0, -0.0, 45.0, 90.0, -90.0, 1e10, 1e300, INFINITE, NOT_A_NUMBER};
    for (const double lat : values) {
        for (const double azimuth : values) {
            for (const double distance : values) {
                const GeodesicResult actual =
                    Geodesic_DirectCore(lat, 9.0, distance, azimuth, 6378137.0, 6356752.0);
                const auto expected =
                    reference::GeodesicDirect(lat, 9.0, distance, azimuth, 6378137.0, 6356752.0);
                EXPECT_EQ(std::isnan(actual.latitude), std::isnan(expected.first));
                EXPECT_EQ(std::isnan(actual.longitude), std::isnan(expected.second));
                EXPECT_EQ(std::isnan(actual.backAzimuth), std::isnan(expected.third));
            }
        }
    }
}

// `moved` is the result of the published form for a position that differs in the last bit, which near a pole
// changes the longitude noticeably.
void ExpectNearPosition(const double actual[2], const long double expected[2], const long double moved[2]) {
    for (int i = 0; i < 2; ++i) {
        const double lastBit = Turn(static_cast<double>(moved[i]), expected[i]);
        EXPECT_TRUE(Turn(actual[i], expected[i]) <= Degrees(180.0) + 64.0 * lastBit) << actual[i];
    }
}

// Into the hub and out of it.
struct Hubs {
    HubParams to, from;
};

Hubs HubsOf(std::int32_t datum) {
    Hubs hubs{};
    EXPECT_EQ(Datum_LoadToHub(datum, &hubs.to), KOORD_OK);
    EXPECT_EQ(Datum_LoadFromHub(datum, &hubs.from), KOORD_OK);
    return hubs;
}

TEST(Molodensky, IsItsWrittenForm) {
    Random random(8350);
    for (int i = 0; i < TRIALS; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const auto [toHub, fromHub] = HubsOf(datum);
        // Every fourth position lies within a shift of a pole, where latitudes are reflected.
        const double lat = i % 4 == 0 ? 90.0 - random.Between(0.0, 0.01) : random.Between(-90.0, 90.0);
        const double lon = random.Between(-180.0, 180.0);
        SCOPED_TRACE(::testing::Message() << "datum " << datum << ' ' << lat << ' ' << lon);

        double in[2] = {lat, lon};
        long double expectedIn[2] = {lat, lon};
        long double movedIn[2] = {std::nextafter(lat, 0.0), lon};
        Molodensky_ToHub(in, &toHub);
        reference::MolodenskyApply(toHub, movedIn, true);
        reference::MolodenskyApply(toHub, expectedIn, true);
        ExpectNearPosition(in, expectedIn, movedIn);

        double out[2] = {lat, lon};
        long double expectedOut[2] = {lat, lon};
        long double movedOut[2] = {std::nextafter(lat, 0.0), lon};
        Molodensky_FromHub(out, &fromHub, datum);
        reference::MolodenskyFromHub(movedOut, fromHub, toHub);
        reference::MolodenskyFromHub(expectedOut, fromHub, toHub);
        ExpectNearPosition(out, expectedOut, movedOut);
        if (::testing::Test::HasFailure()) return;
    }
}

// The last place of a longitude is 2.8e-14 degrees.
TEST(Molodensky, OffThePolesIsItsWrittenFormToTheLastPlaces) {
    constexpr double lastPlaces = 5e-14;
    Random random(8351);
    for (int i = 0; i < TRIALS; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const auto [toHub, fromHub] = HubsOf(datum);
        const double lat = random.Between(-89.0, 89.0);
        const double lon = random.Between(-180.0, 180.0);
        double in[2] = {lat, lon};
        long double expectedIn[2] = {lat, lon};
        Molodensky_ToHub(in, &toHub);
        reference::MolodenskyApply(toHub, expectedIn, true);
        double out[2] = {lat, lon};
        long double expectedOut[2] = {lat, lon};
        Molodensky_FromHub(out, &fromHub, datum);
        reference::MolodenskyFromHub(expectedOut, fromHub, toHub);
        SCOPED_TRACE(::testing::Message() << "datum " << datum << ' ' << lat << ' ' << lon);
        for (int k = 0; k < 2; ++k) {
            ExpectNear(in[k], expectedIn[k], lastPlaces, "in");
            ExpectNear(out[k], expectedOut[k], lastPlaces, "out");
        }
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(Molodensky, IsNotANumberWhereItsWrittenFormIsNot) {
    const auto [toHub, fromHub] = HubsOf(3);
    for (const double lat : {0.0, -0.0, 90.0, -90.0, 89.9999995, 91.0, -1e9, 1e300, INFINITE, NOT_A_NUMBER}) {
        for (const double lon : {0.0, -0.0, 180.0, -180.0, 400.0, 1e300, -INFINITE, NOT_A_NUMBER}) {
            double actual[2] = {lat, lon};
            double expected[2] = {lat, lon};
            Molodensky_FromHub(actual, &fromHub, 3);
            reference::MolodenskyFromHub(expected, fromHub, toHub);
            for (int i = 0; i < 2; ++i) {
                EXPECT_EQ(std::isnan(actual[i]), std::isnan(expected[i])) << lat << ' ' << lon;
                EXPECT_EQ(std::isinf(actual[i]), std::isinf(expected[i])) << lat << ' ' << lon;
            }
        }
    }
}

TEST(UpsFromGeodetic, IsItsWrittenForm) {
    Random random(1989);
    for (int i = 0; i < TRIALS; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const double reach = i % 4 == 0 ? 0.01 : 90.0;
        const double side = i % 2 == 0 ? 1.0 : -1.0;
        const double latLon[2] = {side * (90.0 - random.Between(0.0, reach)), random.Between(-180.0, 180.0)};
        UpsPayload payload{};
        ASSERT_EQ(UPS_FromGeodetic(latLon, &payload, datum), KOORD_OK);
        long double easting = 0.0L;
        long double northing = 0.0L;
        reference::UpsForward(latLon, &easting, &northing, datum);
        SCOPED_TRACE(::testing::Message() << "datum " << datum << ' ' << latLon[0] << ' ' << latLon[1]);
        const double tolerance = Metres(2e6L + std::hypot(easting - 2e6L, northing - 2e6L));
        ExpectNear(payload.easting, easting, tolerance, "easting");
        ExpectNear(payload.northing, northing, tolerance, "northing");
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(UpsToGeodetic, IsItsWrittenForm) {
    Random random(1990);
    for (int i = 0; i < TRIALS; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const double reach = i % 4 == 0 ? 10.0 : 1e7;
        UpsPayload payload{};
        payload.hemisphere = i % 2 == 0 ? 'S' : 'N';
        payload.easting = 2e6 + random.Between(-reach, reach);
        payload.northing = 2e6 + random.Between(-0.15 * reach, reach);
        double actual[2];
        ASSERT_EQ(UPS_ToGeodetic(&payload, actual, datum), KOORD_OK);
        long double expected[2];
        reference::UpsInverse<long double>(payload.easting, payload.northing, i % 2 == 0, expected, datum);
        SCOPED_TRACE(::testing::Message()
                     << "datum " << datum << ' ' << payload.easting << ' ' << payload.northing);
        ExpectNear(actual[0], expected[0], Degrees(expected[0]), "latitude");
        ExpectNear(actual[1], expected[1], Degrees(expected[1]), "longitude");
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(UpsToGeodetic, IsNotANumberWhereItsWrittenFormIsNot) {
    for (const double easting : {2e6, 2e6 + 1.0, 0.0, 1e9, 1e200, 1e300, INFINITE, -INFINITE, NOT_A_NUMBER}) {
        for (const double northing : {2e6 + 1.0, -2e6 - 1.0, 1e200, INFINITE, -INFINITE, NOT_A_NUMBER}) {
            const UpsPayload payload{'N', {}, easting, northing};
            double actual[2];
            double expected[2];
            UPS_ToGeodetic(&payload, actual, 2);
            reference::UpsInverse(easting, northing, false, expected, 2);
            EXPECT_EQ(std::isnan(actual[0]), std::isnan(expected[0])) << easting << ' ' << northing;
            EXPECT_EQ(std::isnan(actual[1]), std::isnan(expected[1])) << easting << ' ' << northing;
        }
    }
}

GeodezPayload FromEcef(double x, double y, double z, std::int32_t datum) {
    tagKOORD source = MakeKoord(datum, KOORD_ECEF);
    Store(source, EcefPayload{x, y, z});
    tagKOORD work = MakeKoord(datum, KOORD_GEODEZ);
    EXPECT_EQ(ECEF_ToGeodetic(&source, &work), KOORD_OK);
    return Load<GeodezPayload>(work);
}

TEST(EcefToGeodetic, IsItsWrittenForm) {
    Random random(1985);
    for (int i = 0; i < TRIALS; ++i) {
        const DatumRow& row = *Datum_Row(random.Below(DATUM_COUNT));
        // From the ground to the satellites, every fourth point near the axis.
        const double radius = random.Between(6.3e6, i % 3 == 0 ? 4.5e7 : 6.4e6);
        const double angle = (i % 4 == 0 ? random.Between(89.9, 90.0) : random.Between(-90.0, 90.0)) * DEGREE;
        const double p = radius * std::cos(angle);
        const double z = radius * std::sin(angle);
        const GeodezPayload actual = FromEcef(p, 0.0, z, static_cast<std::int32_t>(row.id));
        long double latitude = 0.0L;
        long double height = 0.0L;
        reference::EcefInverse<long double>(p, z, row, &latitude, &height);
        SCOPED_TRACE(::testing::Message() << "datum " << row.id << ' ' << p << ' ' << z);
        ExpectNear(actual.latitude, latitude, Degrees(latitude), "latitude");
        // Toward the axis the height is a quotient of two small numbers.
        ExpectNear(actual.height, height, Metres(radius) / std::cos(angle), "height");
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(EcefToGeodetic, IsNotANumberWhereItsWrittenFormIsNot) {
    const double values[] = {1e-320, 1e-300, 1e-9, 1.0, 6.4e6, 1e160, 1e300, INFINITE, NOT_A_NUMBER};
    for (const double p : values) {
        for (const double z : values) {
            const GeodezPayload actual = FromEcef(p, 0.0, z, 2);
            const double across = std::sqrt(p * p);
            if (across == 0.0) continue;
            double latitude = 0.0;
            double height = 0.0;
            reference::EcefInverse(across, z, *Datum_Row(2), &latitude, &height);
            EXPECT_EQ(std::isnan(actual.latitude), std::isnan(latitude)) << p << ' ' << z;
            EXPECT_EQ(std::isnan(actual.height), std::isnan(height)) << p << ' ' << z;
        }
    }
}

TEST(CHFromGeodetic, IsItsWrittenForm) {
    const reference::Swiss<long double> swiss;
    Random random(1903);
    for (int i = 0; i < TRIALS; ++i) {
        const double reach = i % 2 == 0 ? 1.0 : 0.05;
        const double latLon[2] = {47.0 + reach * random.Between(-60.0, 35.0),
                                  7.4 + reach * random.Between(-60.0, 60.0)};
        GridPayload payload;
        CH_FromGeodetic(latLon, &payload);
        long double easting = 0.0L;
        long double northing = 0.0L;
        swiss.Forward(latLon[0], latLon[1], &easting, &northing);
        SCOPED_TRACE(::testing::Message() << latLon[0] << ' ' << latLon[1]);
        ExpectNear(payload.easting, easting, Metres(6.4e6), "easting");
        ExpectNear(payload.northing, northing, Metres(6.4e6), "northing");
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(CHToGeodetic, IsItsWrittenForm) {
    const reference::Swiss<long double> swiss;
    Random random(1904);
    for (int i = 0; i < TRIALS; ++i) {
        const double reach = i % 3 == 0 ? 25.0 : i % 3 == 1 ? 10.0 : 1.0;
        const GridPayload payload{6e5 + reach * random.Between(-4e5, 4e5),
                                  2e5 + reach * random.Between(-4e5, 4e5)};
        double actual[2];
        CH_ToGeodetic(&payload, actual);
        long double expected[2];
        swiss.Inverse(payload.easting, payload.northing, expected);
        SCOPED_TRACE(::testing::Message() << payload.easting << ' ' << payload.northing);
        const double atPole = std::cos(static_cast<double>(expected[0]) * DEGREE);
        ExpectNear(actual[0], expected[0], Degrees(90.0) / atPole, "latitude");
        ExpectNear(actual[1], expected[1], Degrees(90.0) / atPole, "longitude");
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(RDFromGeodetic, IsItsWrittenForm) {
    Random random(1918);
    for (int i = 0; i < TRIALS; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const reference::Dutch<long double> dutch(datum);
        const double reach = i % 2 == 0 ? 1.0 : 0.05;
        const double latLon[2] = {52.0 + reach * random.Between(-60.0, 37.9),
                                  5.4 + reach * random.Between(-60.0, 60.0)};
        GridPayload payload;
        RD_FromGeodetic(latLon, &payload, datum);
        long double easting = 0.0L;
        long double northing = 0.0L;
        dutch.Forward(latLon[0], latLon[1], &easting, &northing);
        SCOPED_TRACE(::testing::Message() << "datum " << datum << ' ' << latLon[0] << ' ' << latLon[1]);
        ExpectNear(payload.easting, easting, Metres(6.4e6), "easting");
        ExpectNear(payload.northing, northing, Metres(6.4e6), "northing");
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(RDToGeodetic, IsItsWrittenForm) {
    Random random(1919);
    for (int i = 0; i < TRIALS; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        const reference::Dutch<long double> dutch(datum);
        const double reach = i % 2 == 0 ? 10.0 : 1.0;
        const GridPayload payload{155000.0 + reach * random.Between(-3e5, 3e5),
                                  463000.0 + reach * random.Between(-3e5, 3e5)};
        double actual[2];
        RD_ToGeodetic(&payload, actual, datum);
        long double expected[2];
        dutch.Inverse(payload.easting, payload.northing, expected);
        SCOPED_TRACE(::testing::Message()
                     << "datum " << datum << ' ' << payload.easting << ' ' << payload.northing);
        const double atPole = std::cos(static_cast<double>(expected[0]) * DEGREE);
        ExpectNear(actual[0], expected[0], Degrees(90.0) / atPole, "latitude");
        ExpectNear(actual[1], expected[1], Degrees(90.0) / atPole, "longitude");
        if (::testing::Test::HasFailure()) return;
    }
}

TEST(CHToGeodetic, IsNotANumberWhereItsWrittenFormIsNot) {
    const reference::Swiss<double> swiss;
    for (const double easting : {6e5, 2e6, 1e7, 1e12, 1e300, INFINITE, NOT_A_NUMBER}) {
        for (const double northing :
             {2e5, -4e6, 3e7, 1e8, -1e8, 1e9, 3e9, 1e300, -INFINITE, INFINITE, NOT_A_NUMBER}) {
            const GridPayload payload{easting, northing};
            double actual[2];
            double expected[2];
            CH_ToGeodetic(&payload, actual);
            swiss.Inverse(easting, northing, expected);
            EXPECT_EQ(std::isnan(actual[0]), std::isnan(expected[0])) << easting << ' ' << northing;
            EXPECT_EQ(std::isnan(actual[1]), std::isnan(expected[1])) << easting << ' ' << northing;
        }
    }
}

TEST(RDToGeodetic, IsNotANumberWhereItsWrittenFormIsNot) {
    const reference::Dutch<double> dutch(3);
    for (const double easting :
         {2e5, 2e6, 1e7, -1e7, 1e12, 1e200, 1e300, INFINITE, -INFINITE, NOT_A_NUMBER}) {
        for (const double northing : {463000.0, -4e6, 3e7, 1e12, 1e200, -INFINITE, INFINITE, NOT_A_NUMBER}) {
            const GridPayload payload{easting, northing};
            double actual[2];
            double expected[2];
            RD_ToGeodetic(&payload, actual, 3);
            dutch.Inverse(easting, northing, expected);
            EXPECT_EQ(std::isnan(actual[0]), std::isnan(expected[0])) << easting << ' ' << northing;
            EXPECT_EQ(std::isnan(actual[1]), std::isnan(expected[1])) << easting << ' ' << northing;
        }
    }
}

TEST(ConformalGrids, AreNotANumberWhereTheirWrittenFormsAreNot) {
    const reference::Swiss<double> swiss;
    const reference::Dutch<double> dutch(3);
    for (const double lat :
         {0.0, 89.999999, 90.0, -90.0, 90.1, -90.1, 200.0, 1e300, INFINITE, NOT_A_NUMBER}) {
        for (const double lon : {5.0, 100.0, -170.0, 1e300, -INFINITE, NOT_A_NUMBER}) {
            const double latLon[2] = {lat, lon};
            GridPayload payload;
            double easting = 0.0;
            double northing = 0.0;
            CH_FromGeodetic(latLon, &payload);
            swiss.Forward(lat, lon, &easting, &northing);
            EXPECT_EQ(std::isnan(payload.easting), std::isnan(easting)) << lat << ' ' << lon;
            EXPECT_EQ(std::isnan(payload.northing), std::isnan(northing)) << lat << ' ' << lon;
            RD_FromGeodetic(latLon, &payload, 3);
            dutch.Forward(lat, lon, &easting, &northing);
            EXPECT_EQ(std::isnan(payload.easting), std::isnan(easting)) << lat << ' ' << lon;
            EXPECT_EQ(std::isnan(payload.northing), std::isnan(northing)) << lat << ' ' << lon;
        }
    }
}

}  // namespace
}  // namespace tessara::reference_forms_test

#include "tessara/kernel/ecef.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>

#include "numerics/special_values.h"
#include "support/records.h"
#include "support/reference_file.h"

namespace tessara::ecef_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr double GRID_TOLERANCE = 1e-5;     // metres
constexpr double DEGREE_TOLERANCE = 1e-10;  // degrees, 1e-5 m on the ground
constexpr double WGS84_B = 6356752.314245;  // metres, published to the micrometre

EcefPayload FromGeodetic(double lat, double lon, double height, std::int32_t datum = DATUM_WGS84) {
    const tagKOORD work = GeodezRecord(lat, lon, height, datum);
    tagKOORD target = MakeKoord(datum, KOORD_ECEF);
    EXPECT_EQ(ECEF_FromGeodetic(&work, &target), KOORD_OK);
    return Load<EcefPayload>(target);
}

GeodezPayload ToGeodetic(double x, double y, double z, std::int32_t datum = DATUM_WGS84) {
    const tagKOORD source = Record(KOORD_ECEF, EcefPayload{x, y, z}, datum);
    tagKOORD work = MakeKoord(datum, KOORD_GEODEZ);
    EXPECT_EQ(ECEF_ToGeodetic(&source, &work), KOORD_OK);
    return Load<GeodezPayload>(work);
}

TEST(EcefFromGeodetic, AgreesWithAnIndependentProgramForHeightZero) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/ecef.txt")) {
        if (row.Number(3) != 0.0) continue;
        const EcefPayload p = FromGeodetic(row.Number(1), row.Number(2), 0.0, std::stoi(row.Text(0)));
        EXPECT_NEAR(p.x, row.Number(4), GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.y, row.Number(5), GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.z, row.Number(6), GRID_TOLERANCE) << row.place;
    }
}

TEST(EcefToGeodetic, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/ecef.txt")) {
        const GeodezPayload p =
            ToGeodetic(row.Number(4), row.Number(5), row.Number(6), std::stoi(row.Text(0)));
        // A negative step ends the iteration, which costs up to 0.7 mm within 10 km of height.
        const double error = row.Number(3) == 0.0 ? GRID_TOLERANCE : 1e-3;
        EXPECT_NEAR(p.latitude, row.Number(1), error * DEGREE_TOLERANCE / GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.longitude, row.Number(2), DEGREE_TOLERANCE / std::cos(p.latitude * RADIANS_PER_DEGREE))
            << row.place;
        EXPECT_NEAR(p.height, row.Number(3), error) << row.place;
    }
}

// OGP Publication 373-7-2, "Geographic/Geocentric conversions", printed to 1 mm and 1 mm on the ground.
TEST(EcefToGeodetic, SolvesAPublishedExample) {
    const GeodezPayload p = ToGeodetic(3771793.968, 140253.342, 5124304.349);
    EXPECT_NEAR(p.latitude, 53.0 + 48.0 / 60.0 + 33.820 / 3600.0, 2e-7);
    EXPECT_NEAR(p.longitude, 2.0 + 7.0 / 60.0 + 46.380 / 3600.0, 2e-7);
    EXPECT_NEAR(p.height, 73.0, 0.01);
}

TEST(EcefFromGeodetic, IgnoresTheHeight) {
    const EcefPayload low = FromGeodetic(48.0, 11.0, 0.0);
    const EcefPayload high = FromGeodetic(48.0, 11.0, 8848.0);
    EXPECT_EQ(low.x, high.x);
    EXPECT_EQ(low.y, high.y);
    EXPECT_EQ(low.z, high.z);
}

TEST(EcefFromGeodetic, TakesTheEllipsoidOfTheTarget) {
    const tagKOORD work = GeodezRecord(0.0, 0.0, 0.0, DATUM_SPHERE);
    tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_ECEF);
    EXPECT_EQ(ECEF_FromGeodetic(&work, &target), KOORD_OK);
    EXPECT_EQ(Load<EcefPayload>(target).x, WGS84_A);
}

TEST(Ecef, RoundTripGivesThePositionAndHeightZero) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> latitude(-89.9, 89.9);
    std::uniform_real_distribution<double> longitude(-180.0, 180.0);
    for (int i = 0; i < 5000; ++i) {
        const std::int32_t datum = i % DATUM_COUNT;
        const double lat = latitude(random);
        const double lon = longitude(random);
        const EcefPayload p = FromGeodetic(lat, lon, 500.0, datum);
        const GeodezPayload back = ToGeodetic(p.x, p.y, p.z, datum);
        ASSERT_NEAR(back.latitude, lat, DEGREE_TOLERANCE);
        ASSERT_NEAR(back.longitude, lon, DEGREE_TOLERANCE);
        ASSERT_NEAR(back.height, 0.0, GRID_TOLERANCE);
    }
}

TEST(EcefToGeodetic, TheLongitudeFallsIntoItsQuadrant) {
    const double r = 4e6;
    // Degrees, some units of the last place.
    EXPECT_NEAR(ToGeodetic(r, r, r).longitude, 45.0, 1e-12);
    EXPECT_NEAR(ToGeodetic(-r, r, r).longitude, 135.0, 1e-12);
    EXPECT_NEAR(ToGeodetic(-r, -r, r).longitude, -135.0, 1e-12);
    EXPECT_NEAR(ToGeodetic(r, -r, r).longitude, -45.0, 1e-12);
    EXPECT_NEAR(ToGeodetic(0.0, r, r).longitude, 90.0, 1e-12);
    EXPECT_NEAR(ToGeodetic(0.0, -r, r).longitude, -90.0, 1e-12);
    EXPECT_NEAR(ToGeodetic(-r, 0.0, r).longitude, 180.0, 1e-12);
}

TEST(Ecef, Longitude180ComesBackAsItsNegative) {
    // 180 degrees are a little more than pi in radians, so that y is negative.
    const EcefPayload p = FromGeodetic(48.0, 180.0, 0.0);
    EXPECT_LT(p.y, 0.0);
    EXPECT_NEAR(ToGeodetic(p.x, p.y, p.z).longitude, -180.0, 1e-12);
}

TEST(EcefToGeodetic, OnTheAxisHasNoLongitude) {
    const GeodezPayload north = ToGeodetic(0.0, 0.0, 6356852.314245);
    EXPECT_EQ(north.latitude, HALF_PI * DEGREES_PER_RADIAN);
    EXPECT_TRUE(std::isnan(north.longitude));
    // Metres; the axis is given to the micrometre.
    EXPECT_NEAR(north.height, 100.0, 1e-6);
}

TEST(EcefToGeodetic, OnTheSouthernAxisTheHeightCountsFromTheNorthPole) {
    const GeodezPayload south = ToGeodetic(0.0, 0.0, -WGS84_B);
    EXPECT_EQ(south.latitude, -HALF_PI * DEGREES_PER_RADIAN);
    EXPECT_TRUE(std::isnan(south.longitude));
    // Metres, as GRID_TOLERANCE.
    EXPECT_NEAR(south.height, -2.0 * WGS84_B, 1e-5);
}

TEST(EcefToGeodetic, TheCentreIsOnTheNorthernAxis) {
    const GeodezPayload centre = ToGeodetic(0.0, 0.0, 0.0);
    EXPECT_GT(centre.latitude, 0.0);
    // Metres, as GRID_TOLERANCE.
    EXPECT_NEAR(centre.height, -WGS84_B, 1e-5);
}

TEST(EcefToGeodetic, OnTheSpheresAxisThereIsNoHeight) {
    const GeodezPayload pole = ToGeodetic(0.0, 0.0, 6371000.0, DATUM_SPHERE);
    // Degrees, some units of the last place.
    EXPECT_NEAR(pole.latitude, 90.0, 1e-12);
    EXPECT_TRUE(std::isnan(pole.height));
}

TEST(EcefToGeodetic, TheErrorGrowsWithTheHeight) {
    // A point at latitude 45: N + h along the normal, with N written out.
    const double sin45 = std::sqrt(0.5);
    const double e2 = WGS84_F * (2.0 - WGS84_F);
    const double N = WGS84_A / std::sqrt(1.0 - e2 / 2.0);
    const auto errorAt = [&](double h) {
        const GeodezPayload p = ToGeodetic((N + h) * sin45, 0.0, ((1.0 - e2) * N + h) * sin45);
        return std::fabs(p.latitude - 45.0) * 111132.0;  // metres along the meridian
    };
    EXPECT_LT(errorAt(0.0), GRID_TOLERANCE);
    EXPECT_LT(errorAt(10e3), 0.001);
    EXPECT_LT(errorAt(100e3), 0.1);
    EXPECT_LT(errorAt(1000e3), 10.0);
}

TEST(Ecef, AnUnknownDatumFailsAndWritesNothing) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        const tagKOORD geodez = GeodezRecord(48.0, 11.0);
        const tagKOORD ecef = Record(KOORD_ECEF, EcefPayload{1.0, 2.0, 3.0}, datum);
        tagKOORD target = ecef;
        EXPECT_EQ(ECEF_FromGeodetic(&geodez, &target), KOORD_ERR_DATUM) << datum;
        EXPECT_TRUE(SameBytes(target, ecef));
        tagKOORD work = geodez;
        EXPECT_EQ(ECEF_ToGeodetic(&ecef, &work), KOORD_ERR_DATUM) << datum;
        EXPECT_TRUE(SameBytes(work, geodez));
    }
}

TEST(Ecef, WritesNothingButItsPayload) {
    const tagKOORD ecef = Record(KOORD_ECEF, EcefPayload{4e6, 1e6, 4.8e6});
    tagKOORD work;
    std::memset(&work, 0x5A, sizeof work);
    const tagKOORD before = work;
    ASSERT_EQ(ECEF_ToGeodetic(&ecef, &work), KOORD_OK);
    EXPECT_EQ(work.datum, before.datum);
    EXPECT_EQ(work.type, before.type);
    EXPECT_EQ(std::memcmp(work.payload + 24, before.payload + 24, 32), 0);
}

TEST(Ecef, EndsForAnyDoubles) {
    const double values[] = {0.0,  -0.0,  5e-324, 1e-300,   1.0,       -6.4e6,
                             1e15, 1e300, -1e300, INFINITE, -INFINITE, NOT_A_NUMBER};
    for (const double x : values) {
        for (const double y : values) {
            for (const double z : values) {
                ToGeodetic(x, y, z);
                ToGeodetic(x, y, z, DATUM_SPHERE);
                FromGeodetic(x, y, z);
            }
        }
    }
    EXPECT_TRUE(std::isnan(ToGeodetic(NOT_A_NUMBER, 1.0, 1.0).latitude));
    EXPECT_TRUE(std::isnan(FromGeodetic(NOT_A_NUMBER, 1.0, 0.0).x));
}

}  // namespace
}  // namespace tessara::ecef_test

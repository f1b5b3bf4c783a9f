#include "tessara/kernel/ups.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "numerics/special_values.h"
#include "support/reference_file.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara::ups_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr double GRID_TOLERANCE = 1e-5;     // metres
constexpr double DEGREE_TOLERANCE = 1e-10;  // degrees, 1e-5 m on the ground
constexpr double FALSE_ORIGIN = 2000000.0;

UpsPayload FromGeodetic(double lat, double lon, std::int32_t datum = DATUM_WGS84) {
    const double latLon[2] = {lat, lon};
    UpsPayload payload{};
    EXPECT_EQ(UPS_FromGeodetic(latLon, &payload, datum), KOORD_OK);
    return payload;
}

struct Position {
    double latitude, longitude;
};

Position ToGeodetic(char hemisphere, double easting, double northing, std::int32_t datum = DATUM_WGS84) {
    const UpsPayload payload{hemisphere, {}, easting, northing};
    double latLon[2] = {7.0, 7.0};
    EXPECT_EQ(UPS_ToGeodetic(&payload, latLon, datum), KOORD_OK);
    return {latLon[0], latLon[1]};
}

TEST(UpsFromGeodetic, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/ups.txt")) {
        const UpsPayload p = FromGeodetic(row.Number(1), row.Number(2), std::stoi(row.Text(0)));
        EXPECT_EQ(std::string(1, p.hemisphere), row.Text(3)) << row.place;
        EXPECT_NEAR(p.easting, row.Number(4), GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.northing, row.Number(5), GRID_TOLERANCE) << row.place;
    }
}

TEST(UpsToGeodetic, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/ups.txt")) {
        const Position p = ToGeodetic(row.Text(3)[0], row.Number(4), row.Number(5), std::stoi(row.Text(0)));
        const double parallel = std::cos(p.latitude * RADIANS_PER_DEGREE);
        EXPECT_NEAR(p.latitude, row.Number(1), DEGREE_TOLERANCE) << row.place;
        EXPECT_NEAR(p.longitude, row.Number(2), DEGREE_TOLERANCE / parallel) << row.place;
    }
}

// OGP Publication 373-7-2, "Polar Stereographic (variant A)", printed to 1 cm.
TEST(Ups, SolvesAPublishedExample) {
    const UpsPayload p = FromGeodetic(73.0, 44.0);
    EXPECT_NEAR(p.easting, 3320416.75, 0.01);
    EXPECT_NEAR(p.northing, 632668.43, 0.01);
    const Position back = ToGeodetic('N', 3320416.75, 632668.43);
    EXPECT_NEAR(back.latitude, 73.0, 1e-7);
    EXPECT_NEAR(back.longitude, 44.0, 3e-7);
}

TEST(Ups, RoundTripGivesThePosition) {
    std::mt19937_64 random(15);
    std::uniform_real_distribution<double> latitude(79.5, 89.999);
    std::uniform_real_distribution<double> longitude(-179.999, 179.999);
    for (int i = 0; i < 5000; ++i) {
        const std::int32_t datum = i % DATUM_COUNT;
        const double lat = i % 2 == 0 ? latitude(random) : -latitude(random);
        const double lon = longitude(random);
        const UpsPayload p = FromGeodetic(lat, lon, datum);
        const Position back = ToGeodetic(p.hemisphere, p.easting, p.northing, datum);
        ASSERT_NEAR(back.latitude, lat, DEGREE_TOLERANCE);
        ASSERT_NEAR((back.longitude - lon) * std::cos(lat * RADIANS_PER_DEGREE), 0.0, DEGREE_TOLERANCE);
    }
}

TEST(Ups, ThePoleIsTheOrigin) {
    for (const double lat : {90.0, -90.0}) {
        for (const double lon : {0.0, 33.0, -179.0}) {
            const UpsPayload p = FromGeodetic(lat, lon);
            // 90 degrees are a little more than a right angle in radians.
            EXPECT_NEAR(p.easting, FALSE_ORIGIN, 1e-8);
            EXPECT_NEAR(p.northing, FALSE_ORIGIN, 1e-8);
        }
    }
    const Position north = ToGeodetic('N', FALSE_ORIGIN, FALSE_ORIGIN);
    EXPECT_EQ(north.latitude, 90.0);
    EXPECT_EQ(north.longitude, 180.0);
    const Position south = ToGeodetic('S', FALSE_ORIGIN, FALSE_ORIGIN);
    EXPECT_EQ(south.latitude, -90.0);
    EXPECT_EQ(south.longitude, 0.0);
}

TEST(UpsFromGeodetic, TheEquatorAndNotANumberAreNorth) {
    EXPECT_EQ(FromGeodetic(0.0, 0.0).hemisphere, 'N');
    EXPECT_EQ(FromGeodetic(-0.0, 0.0).hemisphere, 'N');
    EXPECT_EQ(FromGeodetic(-1e-300, 0.0).hemisphere, 'S');
    EXPECT_EQ(FromGeodetic(NOT_A_NUMBER, 0.0).hemisphere, 'N');
}

TEST(UpsFromGeodetic, GridNorthIsAlong180InTheNorthAndAlong0InTheSouth) {
    EXPECT_GT(FromGeodetic(85.0, 180.0).northing, FALSE_ORIGIN + 5e5);
    EXPECT_LT(FromGeodetic(85.0, 0.0).northing, FALSE_ORIGIN - 5e5);
    EXPECT_GT(FromGeodetic(-85.0, 0.0).northing, FALSE_ORIGIN + 5e5);
    EXPECT_LT(FromGeodetic(-85.0, 180.0).northing, FALSE_ORIGIN - 5e5);
    EXPECT_GT(FromGeodetic(85.0, 90.0).easting, FALSE_ORIGIN + 5e5);
    EXPECT_GT(FromGeodetic(-85.0, 90.0).easting, FALSE_ORIGIN + 5e5);
}

TEST(UpsToGeodetic, OnlyACapitalSIsSouth) {
    for (const char letter : {'N', 'n', 's', 'X', '\0', '\xFF'}) {
        const Position p = ToGeodetic(letter, 2100000.0, 2300000.0);
        const Position north = ToGeodetic('N', 2100000.0, 2300000.0);
        EXPECT_EQ(p.latitude, north.latitude) << letter;
        EXPECT_EQ(p.longitude, north.longitude) << letter;
    }
    EXPECT_LT(ToGeodetic('S', 2100000.0, 2300000.0).latitude, -80.0);
}

TEST(UpsToGeodetic, ANegativeNorthingIsReadByItsMagnitude) {
    const Position p = ToGeodetic('S', 2100000.0, -2300000.0);
    const Position mirrored = ToGeodetic('S', 2100000.0, 2300000.0);
    EXPECT_EQ(p.latitude, mirrored.latitude);
    EXPECT_EQ(p.longitude, mirrored.longitude);
}

TEST(Ups, FarOutsideItsCapANegativeNorthingReadsBackElsewhere) {
    const UpsPayload p = FromGeodetic(50.0, 0.0);
    EXPECT_LT(p.northing, 0.0);
    EXPECT_GT(std::fabs(ToGeodetic('N', p.easting, p.northing).latitude - 50.0), 1.0);
}

TEST(UpsToGeodetic, ATenthOfAMillimetreFromAnAxisIsOnIt) {
    EXPECT_EQ(ToGeodetic('S', FALSE_ORIGIN + 0.00009, 2300000.0).longitude, 0.0);
    EXPECT_NE(ToGeodetic('S', FALSE_ORIGIN + 0.00011, 2300000.0).longitude, 0.0);
    EXPECT_EQ(ToGeodetic('S', 2300000.0, FALSE_ORIGIN - 0.00009).longitude, HALF_PI * DEGREES_PER_RADIAN);
    EXPECT_NE(ToGeodetic('S', 2300000.0, FALSE_ORIGIN - 0.00011).longitude, HALF_PI * DEGREES_PER_RADIAN);
    EXPECT_EQ(ToGeodetic('S', FALSE_ORIGIN - 0.00009, FALSE_ORIGIN + 0.00009).latitude, -90.0);
    EXPECT_NE(ToGeodetic('S', FALSE_ORIGIN - 0.00011, FALSE_ORIGIN).latitude, -90.0);
}

TEST(UpsToGeodetic, ALatitudeWithin1e7thOf80DegreesIs80) {
    // 1e-7 degrees are 11 mm.
    for (const double lat : {80.0, 80.0 + 9e-8, 80.0 - 9e-8}) {
        const UpsPayload north = FromGeodetic(lat, 30.0);
        EXPECT_EQ(ToGeodetic('N', north.easting, north.northing).latitude, 80.0) << lat;
        const UpsPayload south = FromGeodetic(-lat, 30.0);
        EXPECT_EQ(ToGeodetic('S', south.easting, south.northing).latitude, -80.0) << lat;
    }
    const UpsPayload inside = FromGeodetic(80.0 + 1.1e-7, 30.0);
    EXPECT_GT(ToGeodetic('N', inside.easting, inside.northing).latitude, 80.0);
    const UpsPayload outside = FromGeodetic(80.0 - 1.1e-7, 30.0);
    EXPECT_LT(ToGeodetic('N', outside.easting, outside.northing).latitude, 80.0);
}

TEST(Ups, AnUnknownDatumFailsAndWritesNothing) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        UpsConstants c{};
        c.a = 7.0;
        EXPECT_EQ(UPS_LoadConstants(datum, &c), KOORD_ERR_DATUM);
        EXPECT_EQ(c.a, 7.0);
        double latLon[2] = {85.0, 11.0};
        UpsPayload payload{'x', {}, 7.0, 8.0};
        EXPECT_EQ(UPS_FromGeodetic(latLon, &payload, datum), KOORD_ERR_DATUM);
        EXPECT_TRUE(payload.hemisphere == 'x' && payload.easting == 7.0 && payload.northing == 8.0);
        EXPECT_EQ(UPS_ToGeodetic(&payload, latLon, datum), KOORD_ERR_DATUM);
        EXPECT_TRUE(latLon[0] == 85.0 && latLon[1] == 11.0);
    }
}

TEST(Ups, WhatIsntFiniteIsNoPosition) {
    EXPECT_TRUE(std::isnan(FromGeodetic(NOT_A_NUMBER, 0.0).easting));
    EXPECT_TRUE(std::isnan(FromGeodetic(85.0, INFINITE).easting));
    EXPECT_TRUE(std::isnan(ToGeodetic('N', NOT_A_NUMBER, 2e6).latitude));
    EXPECT_TRUE(std::isnan(ToGeodetic('N', 2e6, NOT_A_NUMBER).latitude));
    // Endlessly far out lies the other pole.
    EXPECT_NEAR(ToGeodetic('N', INFINITE, 2e6).latitude, -90.0, 1e-9);
    EXPECT_NEAR(ToGeodetic('N', 1e300, 2e6).latitude, -90.0, 1e-9);
}

}  // namespace
}  // namespace tessara::ups_test

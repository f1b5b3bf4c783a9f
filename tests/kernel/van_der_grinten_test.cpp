#include "tessara/kernel/van_der_grinten.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "numerics/special_values.h"
#include "support/reference_file.h"
#include "tessara/kernel/constants.h"

namespace tessara::van_der_grinten_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr double GRID_TOLERANCE = 1e-5;    // metres
constexpr double DEGREE_TOLERANCE = 1e-9;  // degrees: the cubic's root by cosines loses a few digits
constexpr double RADIUS = PI * WGS84_A;    // of the map's circle, metres

VdgPayload FromGeodetic(double lat, double lon, double originLatitude = 0.0, double originLongitude = 0.0,
                        std::int32_t datum = DATUM_WGS84) {
    const double latLon[2] = {lat, lon};
    VdgPayload payload{originLongitude, originLatitude, 7.0, 7.0};
    EXPECT_EQ(VDG_FromGeodetic(latLon, &payload, datum), KOORD_OK);
    EXPECT_EQ(payload.originLongitude, originLongitude);
    EXPECT_EQ(payload.originLatitude, originLatitude);
    return payload;
}

struct Position {
    double latitude, longitude;
};

Position ToGeodetic(const VdgPayload& payload, std::int32_t datum = DATUM_WGS84) {
    double latLon[2] = {7.0, 7.0};
    EXPECT_EQ(VDG_ToGeodetic(&payload, datum, latLon), KOORD_OK) << payload.x << ' ' << payload.y;
    return {latLon[0], latLon[1]};
}

TEST(VdgFromGeodetic, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/van_der_grinten.txt")) {
        const VdgPayload p =
            FromGeodetic(row.Number(2), row.Number(3), 0.0, row.Number(1), std::stoi(row.Text(0)));
        EXPECT_NEAR(p.x, row.Number(4), GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.y, row.Number(5), GRID_TOLERANCE) << row.place;
    }
}

TEST(VdgToGeodetic, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/van_der_grinten.txt")) {
        const Position p =
            ToGeodetic({row.Number(1), 0.0, row.Number(4), row.Number(5)}, std::stoi(row.Text(0)));
        EXPECT_NEAR(p.latitude, row.Number(2), DEGREE_TOLERANCE) << row.place;
        EXPECT_NEAR(p.longitude, row.Number(3), DEGREE_TOLERANCE) << row.place;
    }
}

// J. P. Snyder, "Map Projections: A Working Manual", 1987, appendix A, printed to seven decimals for the unit
// sphere.
TEST(Vdg, SolvesAPublishedExample) {
    const VdgPayload p = FromGeodetic(-50.0, -160.0, 0.0, -85.0);
    EXPECT_NEAR(p.x / WGS84_A, -1.1954154, 5e-8);
    EXPECT_NEAR(p.y / WGS84_A, -0.9960733, 5e-8);
    const Position back = ToGeodetic({-85.0, 0.0, -1.1954154 * WGS84_A, -0.9960733 * WGS84_A});
    EXPECT_NEAR(back.latitude, -50.0, 5e-6);
    EXPECT_NEAR(back.longitude, -160.0, 5e-6);
}

TEST(Vdg, RoundTripGivesThePosition) {
    std::mt19937_64 random(18);
    std::uniform_real_distribution<double> latitude(-89.0, 89.0);
    std::uniform_real_distribution<double> longitude(-179.0, 179.0);
    for (int i = 0; i < 5000; ++i) {
        const std::int32_t datum = i % DATUM_COUNT;
        const double lat = latitude(random);
        const double lon = longitude(random);
        const Position back = ToGeodetic(FromGeodetic(lat, lon, 0.0, 0.0, datum), datum);
        ASSERT_NEAR(back.latitude, lat, DEGREE_TOLERANCE) << lat << ' ' << lon;
        ASSERT_NEAR(back.longitude, lon, DEGREE_TOLERANCE) << lat << ' ' << lon;
    }
}

TEST(Vdg, TheOriginIsAtZero) {
    const VdgPayload p = FromGeodetic(12.0, 34.0, 12.0, 34.0);
    EXPECT_EQ(p.x, 0.0);
    EXPECT_EQ(p.y, 0.0);
    const Position back = ToGeodetic(p);
    EXPECT_EQ(back.latitude, 12.0);
    EXPECT_EQ(back.longitude, 34.0);
}

TEST(Vdg, ALatitudeOfOriginShiftsAllLatitudes) {
    const VdgPayload shifted = FromGeodetic(30.0, 50.0, 10.0);
    const VdgPayload plain = FromGeodetic(20.0, 50.0);
    EXPECT_EQ(shifted.x, plain.x);
    EXPECT_EQ(shifted.y, plain.y);
    EXPECT_NEAR(ToGeodetic(shifted).latitude, 30.0, DEGREE_TOLERANCE);
}

TEST(Vdg, TheEquatorIsAStraightLineTrueToScale) {
    for (const double lon : {-180.0, -90.0, 1.0, 180.0}) {
        const VdgPayload p = FromGeodetic(0.0, lon);
        EXPECT_EQ(p.y, 0.0) << lon;
        // Metres, some units of the last place of the radius.
        EXPECT_NEAR(p.x, RADIUS * lon / 180.0, 1e-6) << lon;
        const Position back = ToGeodetic(p);
        EXPECT_EQ(back.latitude, 0.0) << lon;
        EXPECT_NEAR(back.longitude, lon, DEGREE_TOLERANCE) << lon;
    }
}

TEST(Vdg, TheCentralMeridianIsAStraightLine) {
    // y = (pi - sqrt(pi^2 - 4 phi^2)) pi a / (2 phi); at 45 degrees pi a (2 - sqrt 3).
    const VdgPayload p = FromGeodetic(-45.0, 0.0);
    EXPECT_EQ(p.x, 0.0);
    EXPECT_NEAR(p.y, -RADIUS * (2.0 - std::sqrt(3.0)), 1e-6);
    const Position back = ToGeodetic(p);
    EXPECT_NEAR(back.latitude, -45.0, DEGREE_TOLERANCE);
    EXPECT_EQ(back.longitude, 0.0);
}

TEST(VdgFromGeodetic, KeepsItsDigitsBesideTheCentralMeridian) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/van_der_grinten_meridian.txt")) {
        const VdgPayload p = FromGeodetic(row.Number(0), row.Number(1));
        EXPECT_NEAR(p.x, row.Number(2), GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.y, row.Number(3), GRID_TOLERANCE) << row.place;
    }
}

TEST(Vdg, WithinATenMillionthOfAnAxisAPointIsOnIt) {
    const double inside = 0.9e-7 * DEGREES_PER_RADIAN;
    const double outside = 1.1e-7 * DEGREES_PER_RADIAN;
    EXPECT_EQ(FromGeodetic(inside, 20.0).y, 0.0);
    EXPECT_NE(FromGeodetic(outside, 20.0).y, 0.0);
    EXPECT_EQ(FromGeodetic(20.0, -inside).x, 0.0);
    EXPECT_NE(FromGeodetic(20.0, -outside).x, 0.0);
    EXPECT_EQ(FromGeodetic(0.0, inside).x, 0.0);
    EXPECT_EQ(ToGeodetic({0.0, 0.0, 1e6, 0.9e-7 * RADIUS}).latitude, 0.0);
    EXPECT_NE(ToGeodetic({0.0, 0.0, 1e6, 1.1e-7 * RADIUS}).latitude, 0.0);
    EXPECT_EQ(ToGeodetic({0.0, 0.0, 0.9e-7 * RADIUS, 1e6}).longitude, 0.0);
    EXPECT_NE(ToGeodetic({0.0, 0.0, 1.1e-7 * RADIUS, 1e6}).longitude, 0.0);
}

// Degrees that are exactly a ten-millionth of a radian.
TEST(VdgFromGeodetic, AtATenMillionthOfAnAxisAPointIsBesideIt) {
    const double limit = 1e-7 / RADIANS_PER_DEGREE;
    ASSERT_EQ(limit * RADIANS_PER_DEGREE, 1e-7);
    for (const double side : {1.0, -1.0}) {
        EXPECT_NE(FromGeodetic(20.0, side * limit).x, 0.0);
        EXPECT_NE(FromGeodetic(side * limit, 20.0).y, 0.0);
    }
}

TEST(Vdg, TheFourQuadrantsAreMirrored) {
    const VdgPayload p = FromGeodetic(50.0, 70.0);
    for (const double ns : {1.0, -1.0}) {
        for (const double ew : {1.0, -1.0}) {
            const VdgPayload q = FromGeodetic(ns * 50.0, ew * 70.0);
            EXPECT_EQ(q.x, ew * p.x);
            EXPECT_EQ(q.y, ns * p.y);
            const Position back = ToGeodetic(q);
            EXPECT_NEAR(back.latitude, ns * 50.0, DEGREE_TOLERANCE);
            EXPECT_NEAR(back.longitude, ew * 70.0, DEGREE_TOLERANCE);
        }
    }
}

TEST(VdgFromGeodetic, ThePoleItselfGivesNoPosition) {
    // 90 degrees are a little more than a right angle in radians, so that the root is of a negative number.
    EXPECT_TRUE(std::isnan(FromGeodetic(90.0, 0.0).y));
    EXPECT_TRUE(std::isnan(FromGeodetic(-90.0, 50.0).y));
    EXPECT_NEAR(FromGeodetic(89.9999999, 0.0).y, RADIUS, RADIUS * 1e-4);
}

TEST(VdgToGeodetic, ThePoleReadsBack) {
    // Degrees: three roots of the cubic meet there, and half of the digits are lost.
    EXPECT_NEAR(ToGeodetic({0.0, 0.0, 0.0, RADIUS}).latitude, 90.0, 1e-5);
    EXPECT_NEAR(ToGeodetic({0.0, 0.0, 0.0, -RADIUS}).latitude, -90.0, 1e-5);
}

// Where the three roots meet, rounding may leave the cosine of their angle a little above 1.
TEST(VdgToGeodetic, PointsAroundAPoleReadBackAsThePole) {
    std::mt19937_64 random(8);
    std::uniform_real_distribution<double> metres(-1e-4, 1e-4);
    for (int i = 0; i < 20000; ++i) {
        const double pole = i % 2 == 0 ? RADIUS : -RADIUS;
        const Position p = ToGeodetic({0.0, 0.0, metres(random), pole + metres(random)});
        ASSERT_NEAR(p.latitude, std::copysign(90.0, pole), 1e-3) << i;
    }
}

TEST(VdgToGeodetic, TheCubicHasARootForEveryPointOfThePlane) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> exponent(-9.0, 30.0);
    std::uniform_real_distribution<double> sign(-1.0, 1.0);
    for (int i = 0; i < 20000; ++i) {
        const double x = RADIUS * std::copysign(std::pow(10.0, exponent(random)), sign(random));
        const double y = RADIUS * std::copysign(std::pow(10.0, exponent(random)), sign(random));
        const Position p = ToGeodetic({0.0, 0.0, x, y});
        ASSERT_TRUE(std::isfinite(p.latitude)) << x << ' ' << y;
    }
}

TEST(Vdg, AnUnknownDatumFailsAndWritesNothing) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        double latLon[2] = {48.0, 11.0};
        VdgPayload payload{1.0, 2.0, 3.0, 4.0};
        EXPECT_EQ(VDG_FromGeodetic(latLon, &payload, datum), KOORD_ERR_DATUM);
        EXPECT_TRUE(payload.x == 3.0 && payload.y == 4.0);
        EXPECT_EQ(VDG_ToGeodetic(&payload, datum, latLon), KOORD_ERR_DATUM);
        EXPECT_TRUE(latLon[0] == 48.0 && latLon[1] == 11.0);
    }
}

TEST(Vdg, NotANumberIsNoPosition) {
    EXPECT_TRUE(std::isnan(FromGeodetic(NOT_A_NUMBER, 11.0).y));
    EXPECT_TRUE(std::isnan(FromGeodetic(48.0, NOT_A_NUMBER).x));
    EXPECT_TRUE(std::isnan(FromGeodetic(48.0, INFINITE).x));
    EXPECT_TRUE(std::isnan(ToGeodetic({0.0, 0.0, NOT_A_NUMBER, 1e6}).longitude));
    // A cosine that is no number isn't above 1, so that it is no failure of the cubic.
    EXPECT_TRUE(std::isnan(ToGeodetic({0.0, 0.0, 1e6, NOT_A_NUMBER}).latitude));
    EXPECT_FALSE(std::isfinite(ToGeodetic({0.0, 0.0, 1e6, INFINITE}).latitude));
}

}  // namespace
}  // namespace tessara::van_der_grinten_test

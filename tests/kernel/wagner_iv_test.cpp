#include "tessara/kernel/wagner_iv.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>

#include "numerics/special_values.h"
#include "support/records.h"
#include "support/reference_file.h"

namespace tessara::wagner_iv_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr double GRID_TOLERANCE = 1e-5;     // metres
constexpr double DEGREE_TOLERANCE = 1e-10;  // degrees, 1e-5 m on the ground
constexpr double SPHERE_RADIUS = 6371000.0;

// 2 sqrt(2 pi sqrt 3 / (3 sqrt 3 + 4 pi)) and that times sqrt 3 / pi, worked out by hand:
// 10.882796185405 / 17.762523037066 = 0.612683016, its root 0.782740708.
constexpr double HEIGHT = 1.565481416;
constexpr double WIDTH = 0.863095140;

struct Plane {
    double y, x;
};

Plane Forward(double lat, double lon, double lon0 = 0.0, std::int32_t datum = DATUM_SPHERE) {
    const tagKOORD geodez = GeodezRecord(lat, lon, 0.0, datum);
    Plane p{7.0, 7.0};
    EXPECT_EQ(WagnerIV_Forward(&geodez, lon0, &p.y, &p.x), KOORD_OK) << lat << ' ' << lon;
    return p;
}

GeodezPayload Inverse(double y, double x, double lon0 = 0.0, std::int32_t datum = DATUM_SPHERE) {
    tagKOORD geodez = GeodezRecord(7.0, 7.0, 123.0, datum);
    EXPECT_EQ(WagnerIV_Inverse(y, x, lon0, &geodez), KOORD_OK) << y << ' ' << x;
    const auto position = Load<GeodezPayload>(geodez);
    EXPECT_EQ(position.height, 123.0);
    return position;
}

TEST(WagnerIVForward, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/wagner_iv.txt")) {
        const Plane p = Forward(row.Number(2), row.Number(3), row.Number(1), std::stoi(row.Text(0)));
        EXPECT_NEAR(p.x, row.Number(4), GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.y, row.Number(5), GRID_TOLERANCE) << row.place;
    }
}

TEST(WagnerIVInverse, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/wagner_iv.txt")) {
        const GeodezPayload p = Inverse(row.Number(5), row.Number(4), row.Number(1), std::stoi(row.Text(0)));
        const double parallel = std::cos(p.latitude * RADIANS_PER_DEGREE);
        EXPECT_NEAR(p.latitude, row.Number(2), DEGREE_TOLERANCE / parallel) << row.place;
        EXPECT_NEAR(p.longitude, row.Number(3), DEGREE_TOLERANCE / parallel) << row.place;
    }
}

TEST(WagnerIV, RoundTripGivesThePosition) {
    std::mt19937_64 random(4);
    std::uniform_real_distribution<double> latitude(-89.0, 89.0);
    std::uniform_real_distribution<double> longitude(-180.0, 180.0);
    for (int i = 0; i < 5000; ++i) {
        const std::int32_t datum = i % DATUM_COUNT;
        const double lat = latitude(random);
        const double lon = longitude(random);
        const Plane p = Forward(lat, lon, 10.0, datum);
        const GeodezPayload back = Inverse(p.y, p.x, 10.0, datum);
        // Near the pole's line a latitude hangs on the last digits of y.
        ASSERT_NEAR(back.latitude, lat, DEGREE_TOLERANCE / std::cos(lat * RADIANS_PER_DEGREE)) << lat;
        ASSERT_NEAR(back.longitude, lon, DEGREE_TOLERANCE) << lat << ' ' << lon;
    }
}

TEST(WagnerIVForward, TheOriginIsAtZeroAndTheEquatorToOneScale) {
    EXPECT_EQ(Forward(0.0, 30.0, 30.0).x, 0.0);
    EXPECT_EQ(Forward(0.0, 30.0, 30.0).y, 0.0);
    const Plane east = Forward(0.0, 180.0);
    EXPECT_EQ(east.y, 0.0);
    EXPECT_NEAR(east.x, SPHERE_RADIUS * WIDTH * PI, 0.02);  // the width is worked out to 5e-10
    EXPECT_EQ(Forward(0.0, -180.0).x, -east.x);
}

TEST(WagnerIV, ThePolesAreLinesOfHalfTheEquatorsLength) {
    const Plane pole = Forward(90.0, 180.0);
    // Metres, and degrees: near 1 an arc sine loses half of its digits.
    EXPECT_NEAR(pole.x, Forward(0.0, 180.0).x / 2.0, GRID_TOLERANCE);
    EXPECT_NEAR(pole.y, SPHERE_RADIUS * HEIGHT * std::sqrt(0.75), 0.01);
    EXPECT_EQ(Forward(-90.0, 180.0).y, -pole.y);
    EXPECT_NEAR(Inverse(pole.y, pole.x).latitude, 90.0, 1e-5);
    EXPECT_NEAR(Inverse(pole.y, pole.x).longitude, 180.0, 1e-9);
}

TEST(WagnerIVForward, IsTrueToArea) {
    // A zone's area on the sphere is 2 pi R^2 sin(lat); on the map it is the integral of the width.
    const int steps = 2000;
    double area = 0.0;
    Plane last = Forward(0.0, 180.0);
    for (int i = 1; i <= steps; ++i) {
        const Plane next = Forward(60.0 * i / steps, 180.0);
        area += (next.y - last.y) * (next.x + last.x);  // both sides of the central meridian
        last = next;
    }
    const double expected = 2.0 * PI * SPHERE_RADIUS * SPHERE_RADIUS * std::sin(PI / 3.0);
    EXPECT_NEAR(area / expected, 1.0, 1e-6);  // the trapezium rule with 2000 steps
}

TEST(WagnerIVInverse, BeyondAPolesLineThereIsThePole) {
    const double pole = SPHERE_RADIUS * HEIGHT * std::sqrt(0.75);
    for (const double y : {pole * 1.001, pole * 1.1}) {
        // Degrees, some units of the last place.
        EXPECT_NEAR(Inverse(y, 0.0).latitude, 90.0, 1e-12) << y;
        EXPECT_NEAR(Inverse(-y, 0.0).latitude, -90.0, 1e-12) << y;
    }
}

TEST(WagnerIVInverse, MirrorsWhatLiesBeyondTheGlobe) {
    const double B = SPHERE_RADIUS * HEIGHT;  // to 1 cm, 1e-7 degrees
    const double tolerance = 1e-6;
    const double y = 3e6;
    const double lat = Inverse(y, 0.0).latitude;
    ASSERT_GT(lat, 20.0);
    EXPECT_NEAR(Inverse(2.0 * B - y, 0.0).latitude, lat, tolerance);
    EXPECT_NEAR(Inverse(2.0 * B + y, 0.0).latitude, -lat, tolerance);
    EXPECT_NEAR(Inverse(4.0 * B + y, 0.0).latitude, lat, tolerance);
    EXPECT_NEAR(Inverse(6.0 * B - y, 0.0).latitude, lat, tolerance);
    EXPECT_NEAR(Inverse(y - 4.0 * B, 0.0).latitude, lat, tolerance);
    EXPECT_NEAR(Inverse(-2.0 * B - y, 0.0).latitude, lat, tolerance);
    EXPECT_NEAR(Inverse(-2.0 * B + y, 0.0).latitude, -lat, tolerance);
}

TEST(WagnerIVInverse, AHugeYEndsAndGivesALatitude) {
    for (const double y : {1e12, -1e18, 1e300, -1.7e308}) {
        const double latitude = Inverse(y, 0.0).latitude;
        EXPECT_TRUE(std::fabs(latitude) <= 90.0 + 1e-12) << y;
    }
}

bool Fails(double y, double x, KoordStatus status, tagKOORD geodez) {
    const tagKOORD before = geodez;
    return WagnerIV_Inverse(y, x, 0.0, &geodez) == status &&
           std::memcmp(&geodez, &before, sizeof before) == 0;
}

TEST(WagnerIVInverse, AYThatIsntFiniteFailsAndWritesNothing) {
    const tagKOORD geodez = GeodezRecord(1.0, 2.0, 3.0);
    EXPECT_TRUE(Fails(INFINITE, 0.0, KOORD_ERR_GENERAL, geodez));
    EXPECT_TRUE(Fails(-INFINITE, 0.0, KOORD_ERR_GENERAL, geodez));
    EXPECT_TRUE(Fails(NOT_A_NUMBER, 0.0, KOORD_ERR_GENERAL, geodez));
    EXPECT_TRUE(std::isnan(Inverse(0.0, NOT_A_NUMBER).longitude));
}

TEST(WagnerIV, TakesNoOtherTypeThanGeodez) {
    for (std::int32_t type = -1; type <= KOORD_TYPE_COUNT; ++type) {
        if (type == KOORD_GEODEZ) continue;
        const tagKOORD record = Record(type, GeodezPayload{48.0, 11.0, 0.0});
        Plane p{7.0, 7.0};
        EXPECT_EQ(WagnerIV_Forward(&record, 0.0, &p.y, &p.x), KOORD_ERR_GENERAL) << type;
        EXPECT_TRUE(p.y == 7.0 && p.x == 7.0);
        EXPECT_TRUE(Fails(1e6, 1e6, KOORD_ERR_GENERAL, record)) << type;
    }
}

TEST(WagnerIV, AnUnknownDatumFailsAndWritesNothing) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        const tagKOORD record = GeodezRecord(48.0, 11.0, 0.0, datum);
        Plane p{7.0, 7.0};
        EXPECT_EQ(WagnerIV_Forward(&record, 0.0, &p.y, &p.x), KOORD_ERR_DATUM);
        EXPECT_TRUE(p.y == 7.0 && p.x == 7.0);
        EXPECT_TRUE(Fails(1e6, 1e6, KOORD_ERR_DATUM, record));
    }
}

TEST(WagnerIVForward, NotANumberIsNoPosition) {
    EXPECT_TRUE(std::isnan(Forward(NOT_A_NUMBER, 0.0).y));
    EXPECT_TRUE(std::isnan(Forward(INFINITE, 0.0).y));
    EXPECT_TRUE(std::isnan(Forward(0.0, NOT_A_NUMBER).x));
    EXPECT_EQ(Forward(0.0, NOT_A_NUMBER).y, 0.0);
}

}  // namespace
}  // namespace tessara::wagner_iv_test

#include "tessara/kernel/lambert.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

#include "numerics/special_values.h"
#include "support/reference_file.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara::lambert_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;

constexpr double GRID_TOLERANCE = 1e-5;     // metres
constexpr double DEGREE_TOLERANCE = 1e-10;  // degrees, 1e-5 m on the ground
constexpr std::int32_t DATUM_NAD27 = 4;     // on Clarke's ellipsoid of 1866
constexpr std::int32_t DATUM_NTF = 236;

LambertCC Cone(double parallel1, double parallel2, double lat0, double lon0, double scale = 1.0,
               double falseEasting = 0.0, double falseNorthing = 0.0, std::int32_t datum = DATUM_WGS84) {
    LambertCC lcc;
    EXPECT_EQ(
        LambertCC_Init(datum, parallel1, parallel2, scale, falseEasting, falseNorthing, lat0, lon0, &lcc),
        KOORD_OK);
    return lcc;
}

LambertCC ConeOf(const ReferenceRow& row) {
    return Cone(row.Number(1), row.Number(2), row.Number(6), row.Number(7), row.Number(3), row.Number(4),
                row.Number(5), std::stoi(row.Text(0)));
}

struct Plane {
    double easting, northing;
};

struct Position {
    double latitude, longitude;
};

Plane Forward(const LambertCC& lcc, double lat, double lon) {
    const double latLon[2] = {lat, lon};
    Plane p{};
    LambertCC_Forward(latLon, &p.easting, &p.northing, &lcc);
    return p;
}

Position Inverse(const LambertCC& lcc, double easting, double northing) {
    double latLon[2] = {};
    LambertCC_Inverse(easting, northing, latLon, &lcc);
    return {latLon[0], latLon[1]};
}

TEST(LambertCCForward, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/lambert_cc.txt")) {
        const Plane p = Forward(ConeOf(row), row.Number(8), row.Number(9));
        EXPECT_NEAR(p.easting, row.Number(10), GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.northing, row.Number(11), GRID_TOLERANCE) << row.place;
    }
}

TEST(LambertCCInverse, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/lambert_cc.txt")) {
        const Position p = Inverse(ConeOf(row), row.Number(10), row.Number(11));
        EXPECT_NEAR(p.latitude, row.Number(8), DEGREE_TOLERANCE) << row.place;
        EXPECT_NEAR(p.longitude, row.Number(9), DEGREE_TOLERANCE) << row.place;
    }
}

// J. P. Snyder, "Map Projections: A Working Manual", 1987, appendix A: Clarke 1866, printed to 0.1 m.
TEST(LambertCC, SolvesAPublishedExampleWithTwoParallels) {
    const LambertCC lcc = Cone(33.0, 45.0, 23.0, -96.0, 1.0, 0.0, 0.0, DATUM_NAD27);
    EXPECT_NEAR(lcc.n, 0.6304965, 5e-8);
    const Plane p = Forward(lcc, 35.0, -75.0);
    EXPECT_NEAR(p.easting, 1894410.9, 0.05);
    EXPECT_NEAR(p.northing, 1564649.5, 0.05);
    const Position back = Inverse(lcc, 1894410.9, 1564649.5);
    EXPECT_NEAR(back.latitude, 35.0, 1e-6);
    EXPECT_NEAR(back.longitude, -75.0, 1e-6);
}

// OGP Publication 373-7-2, "Lambert Conic Conformal (1SP)": Jamaica, Clarke 1866, printed to 1 cm.
TEST(LambertCC, SolvesAPublishedExampleWithOneParallel) {
    const LambertCC lcc = Cone(18.0, 18.0, 18.0, -77.0, 1.0, 250000.0, 150000.0, DATUM_NAD27);
    const double lat = 17.0 + 55.0 / 60.0 + 55.80 / 3600.0;
    const double lon = -(76.0 + 56.0 / 60.0 + 37.26 / 3600.0);
    const Plane p = Forward(lcc, lat, lon);
    EXPECT_NEAR(p.easting, 255966.58, 0.006);
    EXPECT_NEAR(p.northing, 142493.51, 0.006);
}

TEST(LambertCCInit, KeepsTheParametersInDegreesAndRadians) {
    const LambertCC lcc = Cone(44.0, 49.0, 46.5, 3.0, 0.9, 700000.0, 6600000.0);
    EXPECT_EQ(lcc.datum, DATUM_WGS84);
    EXPECT_EQ(lcc.parallel1Deg, 44.0);
    EXPECT_EQ(lcc.parallel2Deg, 49.0);
    EXPECT_EQ(lcc.lon0Deg, 3.0);
    EXPECT_EQ(lcc.a, 6378137.0);
    EXPECT_EQ(lcc.e2, lcc.e * lcc.e);
    EXPECT_EQ(lcc.parallel1, 44.0 * RADIANS_PER_DEGREE);
    EXPECT_EQ(lcc.parallel2, 49.0 * RADIANS_PER_DEGREE);
    EXPECT_EQ(lcc.lat0, 46.5 * RADIANS_PER_DEGREE);
    EXPECT_EQ(lcc.lon0, 3.0 * RADIANS_PER_DEGREE);
    EXPECT_EQ(lcc.falseEasting, 700000.0);
    EXPECT_EQ(lcc.falseNorthing, 6600000.0);
    EXPECT_EQ(lcc.scale, 0.9);
}

TEST(LambertCC, TheOriginIsAtTheFalseCoordinates) {
    const LambertCC lcc = Cone(44.0, 49.0, 46.5, 3.0, 1.0, 700000.0, 6600000.0);
    const Plane p = Forward(lcc, 46.5, 3.0);
    // Metres, ten units of the last place of the northing.
    EXPECT_NEAR(p.easting, 700000.0, 1e-8);
    EXPECT_NEAR(p.northing, 6600000.0, 1e-8);
}

TEST(LambertCC, EqualParallelsMakeATangentConeWithAScale) {
    const LambertCC plain = Cone(29.65, 29.65, 29.65, 45.0, 1.0);
    const LambertCC scaled = Cone(29.65, 29.65, 29.65, 45.0, 0.5, 1000.0, 2000.0);
    // Of 1, and metres: ten units of the last place of the radius.
    EXPECT_NEAR(plain.n, std::sin(29.65 / 180.0 * PI), 1e-14);
    const Plane p = Forward(plain, 33.0, 47.0);
    const Plane q = Forward(scaled, 33.0, 47.0);
    EXPECT_NEAR(q.easting, p.easting * 0.5 + 1000.0, 1e-8);
    EXPECT_NEAR(q.northing, p.northing * 0.5 + 2000.0, 1e-8);
    EXPECT_NEAR(Inverse(scaled, q.easting, q.northing).latitude, 33.0, DEGREE_TOLERANCE);
    EXPECT_NEAR(Inverse(scaled, q.easting, q.northing).longitude, 47.0, DEGREE_TOLERANCE);
}

TEST(LambertCC, UnequalParallelsIgnoreTheScale) {
    const LambertCC plain = Cone(44.0, 49.0, 46.5, 3.0, 1.0);
    const LambertCC scaled = Cone(44.0, 49.0, 46.5, 3.0, 0.5);
    const Plane p = Forward(plain, 48.0, 7.0);
    EXPECT_EQ(Forward(scaled, 48.0, 7.0).easting, p.easting);
    EXPECT_EQ(Forward(scaled, 48.0, 7.0).northing, p.northing);
    EXPECT_EQ(Inverse(scaled, p.easting, p.northing).latitude,
              Inverse(plain, p.easting, p.northing).latitude);
}

TEST(LambertCC, ParallelsInTheSouthMirrorThoseInTheNorth) {
    const LambertCC north = Cone(33.0, 45.0, 40.0, 0.0);
    const LambertCC south = Cone(-33.0, -45.0, -40.0, 0.0);
    EXPECT_LT(south.n, 0.0);
    const Plane p = Forward(north, 37.0, 8.0);
    const Plane q = Forward(south, -37.0, 8.0);
    // Metres: powers of numbers that are each other's inverse, rounded by themselves.
    EXPECT_NEAR(q.easting, p.easting, 1e-7);
    EXPECT_NEAR(q.northing, -p.northing, 1e-7);
}

TEST(LambertCC, RoundTripGivesThePosition) {
    std::mt19937_64 random(23);
    std::uniform_real_distribution<double> parallel(10.0, 70.0);
    std::uniform_real_distribution<double> latitude(-60.0, 89.0);
    std::uniform_real_distribution<double> longitude(-179.0, 179.0);
    for (int i = 0; i < 5000; ++i) {
        const double side = i % 2 == 0 ? 1.0 : -1.0;
        const double parallel1 = side * parallel(random);
        const double parallel2 = i % 3 == 0 ? parallel1 : side * parallel(random);
        const LambertCC lcc = Cone(parallel1, parallel2, side * 30.0, 0.0, 0.9996, 5e5, 1e6, i % DATUM_COUNT);
        const double lat = side * latitude(random);
        const double lon = longitude(random);
        const Plane p = Forward(lcc, lat, lon);
        const Position back = Inverse(lcc, p.easting, p.northing);
        // Far from the parallels a metre of the grid is much less on the ground, never more.
        ASSERT_NEAR(back.latitude, lat, DEGREE_TOLERANCE) << parallel1 << ' ' << parallel2;
        ASSERT_NEAR((back.longitude - lon) * std::cos(lat * RADIANS_PER_DEGREE), 0.0, DEGREE_TOLERANCE)
            << parallel1 << ' ' << parallel2;
    }
}

TEST(LambertCCInverse, TheApexIsThePole) {
    const LambertCC lcc = Cone(44.0, 49.0, 46.5, 3.0);
    EXPECT_NEAR(Inverse(lcc, 0.0, lcc.rho0).latitude, 90.0, 1e-12);
    EXPECT_NEAR(Inverse(lcc, 0.0, lcc.rho0).longitude, 3.0, 1e-12);
    // Straight beyond it lies the seam of the cone.
    EXPECT_NEAR(Inverse(lcc, 0.0, lcc.rho0 + 1e5).longitude, 3.0 + 180.0 / lcc.n, 1e-9);
}

TEST(LambertCCInit, AnUnknownDatumFailsAndLeavesZeros) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        LambertCC lcc = Cone(44.0, 49.0, 46.5, 3.0);
        EXPECT_EQ(LambertCC_Init(datum, 44.0, 49.0, 1.0, 0.0, 0.0, 46.5, 3.0, &lcc), KOORD_ERR_DATUM);
        EXPECT_TRUE(lcc.n == 0.0 && lcc.a == 0.0 && lcc.F == 0.0);
        EXPECT_TRUE(std::isnan(Inverse(lcc, 1e5, 1e5).latitude));
    }
}

TEST(LambertCCInverse, AConeOfAnUnknownDatumGivesNoPosition) {
    LambertCC lcc = Cone(30.0, 60.0, 45.0, 10.0);
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        lcc.datum = datum;
        const Position position = Inverse(lcc, 1000.0, 2000.0);
        EXPECT_TRUE(std::isnan(position.latitude)) << datum;
        EXPECT_TRUE(std::isnan(position.longitude)) << datum;
    }
}

TEST(LambertCC, WithoutAConeThereIsNoPosition) {
    const LambertCC cones[] = {LambertCC{},                  // nothing set
                               Cone(30.0, -30.0, 0.0, 0.0),  // opposite parallels
                               Cone(0.0, 0.0, 0.0, 0.0),     // the equator
                               Cone(NOT_A_NUMBER, 45.0, 40.0, 0.0), Cone(INFINITE, 45.0, 40.0, 0.0)};
    for (const LambertCC& lcc : cones) {
        const Position p = Inverse(lcc, 1e5, 1e5);
        EXPECT_FALSE(std::isfinite(p.latitude) && std::isfinite(p.longitude)) << lcc.n;
    }
}

TEST(LambertCC, EndsForAnyDoubles) {
    const double values[] = {0.0,  -0.0,  5e-324, 1e-300, 1e-5,     30.0,      -45.0,
                             90.0, -90.0, 1e15,   1e300,  INFINITE, -INFINITE, NOT_A_NUMBER};
    const LambertCC good = Cone(44.0, 49.0, 46.5, 3.0);
    for (const double u : values) {
        for (const double v : values) {
            Forward(good, u, v);
            Inverse(good, u, v);
            const LambertCC odd = Cone(u, v, u, v, v, u, v);
            Forward(odd, 48.0, 11.0);
            Inverse(odd, 1e5, 1e5);
        }
    }
    EXPECT_TRUE(std::isnan(Inverse(good, NOT_A_NUMBER, 0.0).latitude));
    EXPECT_TRUE(std::isnan(Forward(good, NOT_A_NUMBER, 0.0).northing));
}

LambertFR Zone(std::int32_t zone, std::int32_t datum = DATUM_NTF) {
    LambertFR lambert{};
    LambertFR_Init(zone, datum, &lambert);
    return lambert;
}

Plane Forward(const LambertFR& lambert, double lat, double lon) {
    const double latLon[2] = {lat, lon};
    Plane p{};
    LambertFR_Forward(latLon, &p.easting, &p.northing, &lambert);
    return p;
}

Position Inverse(const LambertFR& lambert, double x, double y) {
    double latLon[2] = {};
    LambertFR_Inverse(x, y, latLon, &lambert);
    return {latLon[0], latLon[1]};
}

TEST(LambertFRInit, LoadsTheConstantsOfEachZone) {
    struct {
        std::int32_t zone;
        double lat0, radius0, x0, y0;
    } const zones[] = {
        {1, 49.5, 5457616.68, 600000.0, 1200000.0},
        {2, 46.8, 5999695.77, 600000.0, 2200000.0},
        {3, 44.1, 6591905.08, 600000.0, 3200000.0},
        {4, 42.165, 7053300.18, 234.358, 4185861.369},
    };
    for (const auto& z : zones) {
        const LambertFR lambert = Zone(z.zone);
        EXPECT_EQ(lambert.zone, z.zone);
        EXPECT_EQ(lambert.datum, DATUM_NTF);
        EXPECT_EQ(lambert.lat0, z.lat0);
        EXPECT_EQ(lambert.radius0, z.radius0);
        EXPECT_EQ(lambert.x0, z.x0);
        EXPECT_EQ(lambert.y0, z.y0);
        EXPECT_EQ(lambert.lon0, 2.33722917);
        EXPECT_NEAR(lambert.n, std::sin(z.lat0 / 180.0 * PI), 1e-14);
        EXPECT_NEAR(lambert.e, 0.082483, 1e-6);  // Clarke 1880
    }
}

TEST(LambertFRForward, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/lambert_fr.txt")) {
        const Plane p = Forward(Zone(std::stoi(row.Text(0))), row.Number(1), row.Number(2));
        EXPECT_NEAR(p.easting, row.Number(3), GRID_TOLERANCE) << row.place;
        EXPECT_NEAR(p.northing, row.Number(4), GRID_TOLERANCE) << row.place;
    }
}

TEST(LambertFRInverse, AgreesWithAnIndependentProgram) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/lambert_fr.txt")) {
        const Position p = Inverse(Zone(std::stoi(row.Text(0))), row.Number(3), row.Number(4));
        EXPECT_NEAR(p.latitude, row.Number(1), DEGREE_TOLERANCE) << row.place;
        EXPECT_NEAR(p.longitude, row.Number(2), DEGREE_TOLERANCE) << row.place;
    }
}

// Institut Geographique National, NTG 71, "Projection cartographique conique conforme de Lambert": zone I
// without the leading million of the northing. Its constants are printed to nine digits, which makes up to 3
// mm.
TEST(LambertFR, SolvesThePublishedExample) {
    const Plane p = Forward(Zone(1), 0.872664626 * DEGREES_PER_RADIAN, 0.145512099 * DEGREES_PER_RADIAN);
    EXPECT_NEAR(p.easting, 1029705.0818, 0.003);
    EXPECT_NEAR(p.northing, 1272723.8510, 0.003);
}

TEST(LambertFR, TheOriginOfEachZoneIsAtItsFalseCoordinates) {
    for (std::int32_t zone = 1; zone <= 4; ++zone) {
        const LambertFR lambert = Zone(zone);
        const Plane p = Forward(lambert, lambert.lat0, lambert.lon0);
        // Metres: a power of the isometric latitude, back to the radius it came from.
        EXPECT_NEAR(p.easting, lambert.x0, 1e-7) << zone;
        EXPECT_NEAR(p.northing, lambert.y0, 1e-7) << zone;
    }
}

TEST(LambertFR, RoundTripGivesThePosition) {
    std::mt19937_64 random(5);
    std::uniform_real_distribution<double> latitude(30.0, 60.0);
    std::uniform_real_distribution<double> longitude(-20.0, 25.0);
    for (int i = 0; i < 5000; ++i) {
        const LambertFR lambert = Zone(1 + i % 4, i % DATUM_COUNT);
        const double lat = latitude(random);
        const double lon = longitude(random);
        const Plane p = Forward(lambert, lat, lon);
        const Position back = Inverse(lambert, p.easting, p.northing);
        ASSERT_NEAR(back.latitude, lat, DEGREE_TOLERANCE);
        ASSERT_NEAR(back.longitude, lon, DEGREE_TOLERANCE);
    }
}

TEST(LambertFRInit, AnUnknownZoneKeepsTheParallelOfOriginThatIsThere) {
    for (const std::int32_t zone : {0, 5, -1, INT32_MIN, INT32_MAX}) {
        LambertFR lambert{};
        lambert.lat0 = 30.0;
        lambert.x0 = 1.0;
        lambert.y0 = 2.0;
        lambert.radius0 = 3.0;
        LambertFR_Init(zone, DATUM_NTF, &lambert);
        EXPECT_TRUE(lambert.lat0 == 30.0 && lambert.x0 == 1.0 && lambert.y0 == 2.0 && lambert.radius0 == 3.0);
        EXPECT_EQ(lambert.zone, zone);
        EXPECT_EQ(lambert.datum, DATUM_NTF);
        EXPECT_EQ(lambert.lon0, 2.33722917);
        EXPECT_EQ(lambert.e, std::sqrt(Datum_EccentricitySquared(DATUM_NTF)));
        EXPECT_NEAR(lambert.n, 0.5, 1e-15);  // sin 30 degrees
    }
}

// Setting a record up for another datum by a number that is no zone keeps the zone it was set up for.
TEST(LambertFRInit, AnUnknownZoneAfterAKnownOneProjectsLikeIt) {
    LambertFR lambert = Zone(2);
    LambertFR_Init(9, DATUM_NTF, &lambert);
    const Plane expected = Forward(Zone(2), 48.0, 3.0);
    EXPECT_EQ(Forward(lambert, 48.0, 3.0).easting, expected.easting);
    EXPECT_EQ(Forward(lambert, 48.0, 3.0).northing, expected.northing);
}

TEST(LambertFRInit, AnUnknownZoneInAnEmptyRecordGivesNoPosition) {
    for (const std::int32_t zone : {0, 5, -1, INT32_MIN, INT32_MAX}) {
        const LambertFR lambert = Zone(zone);
        EXPECT_EQ(lambert.zone, zone);
        EXPECT_EQ(lambert.lon0, 2.33722917);
        EXPECT_TRUE(lambert.n == 0.0 && lambert.radius0 == 0.0 && lambert.x0 == 0.0 && lambert.y0 == 0.0);
        EXPECT_FALSE(std::isfinite(Inverse(lambert, 1e5, 1e5).latitude)) << zone;
        Forward(lambert, 48.0, 3.0);
    }
}

TEST(LambertFRInit, AnUnknownDatumGivesNoPosition) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
        const LambertFR lambert = Zone(2, datum);
        EXPECT_TRUE(std::isnan(Forward(lambert, 48.0, 3.0).northing));
        EXPECT_TRUE(std::isnan(Inverse(lambert, 6e5, 2.2e6).latitude));
    }
}

TEST(LambertFRInverse, TheApexEndsWithoutAPosition) {
    const LambertFR lambert = Zone(1);
    const Position apex = Inverse(lambert, lambert.x0, lambert.y0 + lambert.radius0);
    EXPECT_TRUE(std::isnan(apex.latitude) || std::fabs(apex.latitude - 90.0) < 1e-9);
}

TEST(LambertFR, EndsForAnyDoubles) {
    const double values[] = {0.0, 5e-324, 1.0,    45.0,     90.0,      -90.0,
                             6e5, 1e15,   -1e300, INFINITE, -INFINITE, NOT_A_NUMBER};
    for (std::int32_t zone = 0; zone <= 4; ++zone) {
        for (const double u : values) {
            for (const double v : values) {
                Forward(Zone(zone), u, v);
                Inverse(Zone(zone), u, v);
            }
        }
    }
    EXPECT_TRUE(std::isnan(Inverse(Zone(1), NOT_A_NUMBER, 0.0).latitude));
    EXPECT_TRUE(std::isnan(Forward(Zone(1), NOT_A_NUMBER, 0.0).easting));
}

}  // namespace
}  // namespace tessara::lambert_test

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/maps.h"

namespace tessara::testing::lambert_maps_test {
namespace {

constexpr double PIXELS = 1e-5;  // figures rounded to 1e-6 m, a tenth of that at five metres a pixel and more

MapParam AustriaMap() {
    return WithReference(Map(MAP_LAMBERT2, MapLambert2Params{46.0, 49.0, 13.333333333333334}),
                         GeodezRecord(0.0, 0.0), 4000, 3000, 500000, 10.0);
}

TEST(Lambert2Map, TheReferencePixelIsTheOriginOfTheProjection) {
    const GeodezPayload at = ToWorld(AustriaMap(), 4000.0, 3000.0).Degrees();
    // Degrees: a micrometre, the rounding of the cone's radius.
    EXPECT_NEAR(at.latitude, 47.5, 1e-11);
    EXPECT_NEAR(at.longitude, 13.333333333333334, 1e-11);
}

TEST(Lambert2Map, ThePositionOfTheReferencePlaysNoPart) {
    MapParam map = AustriaMap();
    const PixelResult before = ToPixel(map, GeodezRecord(48.0, 16.0));
    map.reference.world = MakeKoord(999, 77);
    const PixelResult after = ToPixel(map, GeodezRecord(48.0, 16.0));
    EXPECT_EQ(after.status, KOORD_OK);
    EXPECT_EQ(after.x, before.x);
    EXPECT_EQ(after.y, before.y);
}

// cs2cs ... +proj=lcc +lat_1=48 +lat_0=48 +lon_0=15 +ellps=WGS84
TEST(Lambert2Map, TakesOneParallelToo) {
    const MapParam map = WithReference(Map(MAP_LAMBERT2, MapLambert2Params{48.0, 48.0, 15.0}),
                                       GeodezRecord(0.0, 0.0), 100, 200, 100000, 10.0);
    const PixelResult pixel = ToPixel(map, GeodezRecord(49.0, 16.0));
    EXPECT_NEAR(pixel.x, 100.0 + 73180.927775 / 10.0, PIXELS);
    EXPECT_NEAR(pixel.y, 200.0 - 111680.290790 / 10.0, PIXELS);
}

// cs2cs ... +proj=lcc +lat_1=-18 +lat_2=-36 +lat_0=-27 +lon_0=134 +ellps=GRS80
TEST(Lambert2Map, TakesAConeOverTheSouthPole) {
    const MapParam map = WithReference(Map(MAP_LAMBERT2, MapLambert2Params{-18.0, -36.0, 134.0}, 9),
                                       GeodezRecord(0.0, 0.0), 0, 0, 1000000, 10.0);
    const PixelResult pixel = ToPixel(map, GeodezRecord(-30.0, 140.0, 0.0, 9));
    EXPECT_NEAR(pixel.x, 572328.773514 / 100.0, PIXELS);
    EXPECT_NEAR(pixel.y, 342205.848124 / 100.0, PIXELS);
    EXPECT_NEAR(ToWorld(map, 5723.28773514, 3422.05848124).Degrees().latitude, -30.0, 1e-9);
    EXPECT_NEAR(ToWorld(map, 5723.28773514, 3422.05848124).Degrees().longitude, 140.0, 1e-9);
}

TEST(LambertMap, EndsOnAConeThatIsNone) {
    const MapParam opposite = WithReference(Map(MAP_LAMBERT2, MapLambert2Params{30.0, -30.0, 0.0}),
                                            GeodezRecord(0.0, 0.0), 0, 0, 500000, 10.0);
    EXPECT_TRUE(std::isnan(ToWorld(opposite, 10.0, 10.0).Degrees().latitude));
    EXPECT_TRUE(std::isnan(ToPixel(opposite, GeodezRecord(48.0, 16.0)).y));
    MapParam noResolution = AustriaMap();
    noResolution.resolution = 0.0;
    EXPECT_TRUE(std::isnan(ToWorld(noResolution, 10.0, 10.0).Degrees().longitude));
    const MapLambertCcParams empty{};
    EXPECT_TRUE(std::isnan(ToWorld(Map(MAP_LAMBERTCC, empty), 10.0, 10.0).Degrees().latitude));
    EXPECT_EQ(ToPixel(Map(MAP_LAMBERTCC, empty), GeodezRecord(48.0, 16.0)).status, KOORD_OK);
}

// The false origin of LAMBERTCC lies on a floating pixel, whatever the reference says.
TEST(LambertCcMap, TheFalseOriginLiesOnItsOwnPixel) {
    const MapLambertCcParams params{49.0, 44.0, 3.0, 46.5, 700000.0, 6600000.0, 50.0, 25.0, 10.5, 20.25};
    const MapParam map = WithReference(Map(MAP_LAMBERTCC, params, 9), MakeKoord(999, 77), 1234, 5678, 1, 0.0);
    const GeodezPayload at = ToWorld(map, 10.5, 20.25).Degrees();
    EXPECT_NEAR(at.latitude, 46.5, 1e-11);
    EXPECT_NEAR(at.longitude, 3.0, 1e-11);
    const PixelResult pixel = ToPixel(map, GeodezRecord(46.5, 3.0, 0.0, 9));
    EXPECT_NEAR(pixel.x, 10.5, PIXELS);
    EXPECT_NEAR(pixel.y, 20.25, PIXELS);
}

TEST(LambertFrMap, AZoneThatDoesNotExistHasNoPixelsAndNoPositions) {
    for (std::int32_t zone : {0, 5, -1, INT32_MIN, INT32_MAX}) {
        const MapParam map =
            WithReference(Map(MAP_LAMBERTFR, MapLambertFrParams{zone, 500000.0, 2300000.0}, 236),
                          GeodezRecord(0.0, 0.0), 0, 0, 25000, 10.0);
        EXPECT_EQ(ToWorld(map, 1.0, 1.0).status, KOORD_ERR_TYPE) << zone;
        EXPECT_EQ(ToPixel(map, GeodezRecord(47.0, 3.0, 0.0, 236)).status, KOORD_ERR_GENERAL) << zone;
    }
}

// Each zone's own origin: its latitude on the meridian of Paris has the false values of the zone.
TEST(LambertFrMap, TakesTheFourZones) {
    const struct {
        std::int32_t zone;
        double latitude, x, y;
    } rows[] = {{1, 49.5, 600000.0, 1200000.0},
                {2, 46.8, 600000.0, 2200000.0},
                {3, 44.1, 600000.0, 3200000.0},
                {4, 42.165, 234.358, 4185861.369}};
    for (const auto& row : rows) {
        const MapParam map =
            WithReference(Map(MAP_LAMBERTFR, MapLambertFrParams{row.zone, row.x, row.y}, 236),
                          GeodezRecord(0.0, 0.0), 700, 800, 25000, 10.0);
        const PixelResult pixel = ToPixel(map, GeodezRecord(row.latitude, 2.33722917, 0.0, 236));
        EXPECT_EQ(pixel.status, KOORD_OK);
        EXPECT_NEAR(pixel.x, 700.0, PIXELS) << row.zone;
        EXPECT_NEAR(pixel.y, 800.0, PIXELS) << row.zone;
        EXPECT_NEAR(ToWorld(map, 700.0, 800.0).Degrees().latitude, row.latitude, 1e-11) << row.zone;
        EXPECT_NEAR(ToWorld(map, 700.0, 800.0).Degrees().longitude, 2.33722917, 1e-11) << row.zone;
    }
}

}  // namespace
}  // namespace tessara::testing::lambert_maps_test

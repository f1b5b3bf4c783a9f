#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "support/maps.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing::world_maps_test {
namespace {

constexpr double PIXELS = 1e-9;  // figures rounded to 1e-6 m, ten kilometres a pixel, and rounding

// The whole world on a sheet of 1:100 million, ten kilometres a pixel.
MapParam VdgMap(double originLongitude, double originLatitude, const tagKOORD& reference) {
    return WithReference(Map(MAP_VAN_DER_GRINTEN, MapVdgParams{originLongitude, originLatitude}), reference,
                         2000, 1000, 100000000, 10.0);
}

MapParam VdgMap() {
    return VdgMap(0.0, 0.0, GeodezRecord(0.0, 0.0));
}

// cs2cs ... +proj=vandg +R=6378137
TEST(VanDerGrintenMap, APositionOnTheCentralMeridianLiesAboveTheReference) {
    const PixelResult pixel = ToPixel(VdgMap(), GeodezRecord(45.0, 0.0));
    EXPECT_EQ(pixel.x, 2000.0);
    EXPECT_NEAR(pixel.y, 1000.0 - 536.9034178782, PIXELS);
    EXPECT_EQ(ToPixel(VdgMap(), GeodezRecord(45.0, 1e-9)).x, 2000.0);
}

TEST(VanDerGrintenMap, APositionOnTheParallelOfOriginLiesBesideTheReference) {
    const PixelResult pixel = ToPixel(VdgMap(), GeodezRecord(0.0, 90.0));
    EXPECT_NEAR(pixel.x, 2000.0 + 1001.8754171395, PIXELS);
    EXPECT_EQ(pixel.y, 1000.0);
    EXPECT_EQ(ToPixel(VdgMap(), GeodezRecord(1e-9, 90.0)).y, 1000.0);
    EXPECT_EQ(ToPixel(VdgMap(), GeodezRecord(0.0, 0.0)).y, 1000.0);
}

// The two lines are 1e-7 radians wide on either side, 5.7296e-6 degrees.
TEST(VanDerGrintenMap, TheCentralMeridianAndTheParallelOfOriginHaveAWidth) {
    for (double side : {1.0, -1.0}) {
        EXPECT_EQ(ToPixel(VdgMap(), GeodezRecord(45.0, side * 5.729e-6)).x, 2000.0);
        EXPECT_GT((ToPixel(VdgMap(), GeodezRecord(45.0, side * 5.730e-6)).x - 2000.0) * side, 0.0);
        for (double longitude : {0.0, 90.0}) {
            EXPECT_EQ(ToPixel(VdgMap(), GeodezRecord(side * 5.729e-6, longitude)).y, 1000.0);
            EXPECT_GT((1000.0 - ToPixel(VdgMap(), GeodezRecord(side * 5.730e-6, longitude)).y) * side, 0.0);
        }
    }
}

// There is no parallel further from that of the origin than a pole is.
TEST(VanDerGrintenMap, APlaceMoreThan90DegreesOfLatitudeFromTheOriginHasNoPixel) {
    const MapParam map = VdgMap(10.0, 45.0, GeodezRecord(45.0, 10.0));
    EXPECT_TRUE(std::isfinite(ToPixel(map, GeodezRecord(-44.999, 20.0)).y));
    for (const double longitude : {-170.0, 10.0, 20.0}) {
        const PixelResult pixel = ToPixel(map, GeodezRecord(-45.001, longitude));
        EXPECT_EQ(pixel.status, KOORD_OK);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(pixel.y), 0x7FF8000000000000) << longitude;
    }
}

TEST(VanDerGrintenMap, TheFourQuadrantsAreSymmetric) {
    const PixelResult northEast = ToPixel(VdgMap(), GeodezRecord(48.0, 16.0));
    EXPECT_NEAR(northEast.x, 2000.0 + 163.2914135996, PIXELS);
    EXPECT_NEAR(northEast.y, 1000.0 - 580.0777122441, PIXELS);
    for (double north : {1.0, -1.0}) {
        for (double east : {1.0, -1.0}) {
            const PixelResult pixel = ToPixel(VdgMap(), GeodezRecord(48.0 * north, 16.0 * east));
            EXPECT_NEAR(pixel.x - 2000.0, (northEast.x - 2000.0) * east, PIXELS);
            EXPECT_NEAR(pixel.y - 1000.0, (northEast.y - 1000.0) * north, PIXELS);
        }
    }
}

// A latitude of origin shifts all latitudes: 58 on a map about 10 lies where 48 lies on a map about 0.
TEST(VanDerGrintenMap, TheOriginShiftsThePositions) {
    const MapParam map = VdgMap(100.0, 10.0, GeodezRecord(10.0, 100.0));
    const PixelResult pixel = ToPixel(map, GeodezRecord(58.0, 116.0));
    EXPECT_NEAR(pixel.x, 2000.0 + 163.2914135996, PIXELS);
    EXPECT_NEAR(pixel.y, 1000.0 - 580.0777122441, PIXELS);
    EXPECT_NEAR(ToWorld(map, pixel.x, pixel.y).Degrees().latitude, 58.0, 1e-9);
    EXPECT_NEAR(ToWorld(map, pixel.x, pixel.y).Degrees().longitude, 116.0, 1e-9);
}

// One metre per pixel. The squares of the circles' radii are so large here that the distance is lost in
// their rounding.
TEST(VanDerGrintenMap, IsPreciseBesideItsTwoLines) {
    constexpr double METRES = 2e-3;  // the height of the parallel itself is a difference of numbers near pi
    const MapParam map = WithReference(Map(MAP_VAN_DER_GRINTEN, MapVdgParams{0.0, 0.0}),
                                       GeodezRecord(0.0, 0.0), 0, 0, 10000, 10.0);
    for (const char* file : {"kernel/van_der_grinten_meridian.txt", "maps/van_der_grinten_parallel.txt"}) {
        for (const ReferenceRow& row : ReadReferenceFile(file)) {
            const PixelResult pixel = ToPixel(map, GeodezRecord(row.Number(0), row.Number(1)));
            EXPECT_EQ(pixel.status, KOORD_OK) << row.place;
            EXPECT_NEAR(pixel.x, row.Number(2), METRES) << row.place;
            EXPECT_NEAR(pixel.y, -row.Number(3), METRES) << row.place;
        }
    }
}

// The outline's radius is 2003.7508342789 pixels of ten kilometres.
TEST(VanDerGrintenMap, ThePolesAreTheEndsOfTheCentralMeridian) {
    const MapParam map = VdgMap();
    for (double side : {1.0, -1.0}) {
        for (double longitude = -179.0; longitude < 180.0; longitude += 1.0) {
            const PixelResult pixel = ToPixel(map, GeodezRecord(90.0 * side, longitude));
            ASSERT_EQ(pixel.status, KOORD_OK) << longitude;
            EXPECT_NEAR(pixel.x, 2000.0, 1e-3) << longitude;  // the root of a rounding error of 1e-16
            EXPECT_NEAR(pixel.y, 1000.0 - side * 2003.7508342789, 1e-9) << longitude;
        }
    }
}

// Half a turn and more from the central meridian there is still a crossing, and on the position's side.
TEST(VanDerGrintenMap, EveryPositionLiesOnItsSideOfTheMeridian) {
    const MapParam map = VdgMap();
    for (double latitude = -89.5; latitude < 90.0; latitude += 4.3) {
        for (double longitude = 1e-5; longitude < 1e12; longitude *= 1.7) {
            for (double side : {1.0, -1.0}) {
                const PixelResult pixel = ToPixel(map, GeodezRecord(latitude, side * longitude));
                EXPECT_EQ(pixel.status, KOORD_OK) << latitude << " " << longitude;
                EXPECT_GE((pixel.x - 2000.0) * side, 0.0) << latitude << " " << longitude;
                EXPECT_GE((1000.0 - pixel.y) * latitude, 0.0) << latitude << " " << longitude;
            }
        }
    }
}

TEST(VanDerGrintenMap, EveryFailureOnTheWayToThePixelIsTheSame) {
    const auto status = [](const MapParam& map, const tagKOORD& world) { return ToPixel(map, world).status; };
    EXPECT_EQ(status(VdgMap(), MakeKoord(999, KOORD_GEODEZ)), KOORD_ERR_OUTSIDE);
    EXPECT_EQ(status(VdgMap(), MakeKoord(DATUM_WGS84, KOORD_LONGPIXEL)), KOORD_ERR_OUTSIDE);
    EXPECT_EQ(status(VdgMap(0.0, 0.0, MakeKoord(DATUM_WGS84, 0)), GeodezRecord(48.0, 16.0)),
              KOORD_ERR_OUTSIDE);
    EXPECT_EQ(status(VdgMap(0.0, 0.0, MakeKoord(999, KOORD_GEODEZ)), GeodezRecord(48.0, 16.0)),
              KOORD_ERR_OUTSIDE);
    tagKOORD pixel = FloatPixel(5.0, 6.0);
    const MapParam map = VdgMap();
    const tagKOORD world = MakeKoord(DATUM_WGS84, KOORD_LONGPIXEL);
    EXPECT_EQ(MapWorldToPixel(&map, &world, &pixel), KOORD_ERR_OUTSIDE);
    EXPECT_EQ(Load<FloatPixelPayload>(pixel).y, 6.0);
}

TEST(VanDerGrintenMap, AReferenceWithoutAPlaceLeavesNothing) {
    EXPECT_EQ(ToWorld(VdgMap(0.0, 0.0, MakeKoord(DATUM_WGS84, 0)), 0.0, 0.0).status, KOORD_ERR_TYPE);
}

TEST(VanDerGrintenMap, YieldsVdgRecordsWithTheMapsOrigin) {
    tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_VDG);
    Store(target, VdgPayload{30.0, 0.0, 0.0, 0.0});
    const MapParam map = VdgMap(30.0, 0.0, GeodezRecord(0.0, 30.0));
    const WorldResult world = ToWorld(map, 2100.0, 900.0, target);
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_NEAR(Load<VdgPayload>(world.world).x, 1000000.0, 0.01);  // the way back's precision
    EXPECT_NEAR(Load<VdgPayload>(world.world).y, 1000000.0, 0.01);
    EXPECT_EQ(Load<VdgPayload>(world.world).originLongitude, 30.0);
}

// Ten kilometres a pixel on the sphere.
MapParam WagnerMap(const tagKOORD& reference, double stretchX = 1.0, double stretchY = 1.0) {
    return WithReference(Map(MAP_WAGNER_IV, MapWagnerIvParams{0.0, stretchX, stretchY}), reference, 1000, 500,
                         100000000, 10.0);
}

tagKOORD OnSphere(double latitude, double longitude) {
    return GeodezRecord(latitude, longitude, 0.0, DATUM_SPHERE);
}

tagKOORD SphereTarget() {
    return MakeKoord(DATUM_SPHERE, KOORD_GEODEZ);
}

// cs2cs ... +proj=wag4 +R=6371000
TEST(WagnerMap, StretchesTheAxesApart) {
    const MapParam map = WagnerMap(OnSphere(48.0, 16.0), 2.0, 0.5);
    const PixelResult pixel = ToPixel(map, OnSphere(49.0, 17.0));
    EXPECT_EQ(pixel.status, KOORD_OK);
    EXPECT_NEAR(pixel.x, 1000.0 + (1310055.711708 - 1244919.240306) / 10000.0 * 2.0, PIXELS);
    EXPECT_NEAR(pixel.y, 500.0 - (5944561.139635 - 5838761.705124) / 10000.0 * 0.5, PIXELS);
    const GeodezPayload at = ToWorld(map, pixel.x, pixel.y, SphereTarget()).Degrees();
    EXPECT_NEAR(at.latitude, 49.0, 1e-9);
    EXPECT_NEAR(at.longitude, 17.0, 1e-9);
}

TEST(WagnerMap, IsDrawnOnTheSphereWhateverItsDatum) {
    MapParam map = WagnerMap(OnSphere(0.0, 0.0));
    const PixelResult expected = ToPixel(map, OnSphere(48.0, 16.0));
    for (std::uint32_t datum : {2u, 6u, 999u}) {
        map.datum = datum;
        EXPECT_EQ(ToPixel(map, OnSphere(48.0, 16.0)).y, expected.y) << datum;
        EXPECT_EQ(ToWorld(map, 1000.0, 400.0, SphereTarget()).status, KOORD_OK) << datum;
    }
    // A position of another datum goes through the shift to the sphere.
    const tagKOORD wgs84 = GeodezRecord(48.0, 16.0);
    tagKOORD sphere = SphereTarget();
    ASSERT_EQ(KoordConvert(&wgs84, &sphere), KOORD_OK);
    EXPECT_GT(std::fabs(Load<GeodezPayload>(sphere).latitude - 48.0), 0.1);
    EXPECT_EQ(ToPixel(map, wgs84).y, ToPixel(map, sphere).y);
}

// The way to the pixel and back in metres on the ground.
double WagnerError(const MapParam& map, std::int32_t datum, double latitude, double longitude) {
    const PixelResult pixel = ToPixel(map, GeodezRecord(latitude, longitude, 0.0, datum));
    const WorldResult world = ToWorld(map, pixel.x, pixel.y, MakeKoord(datum, KOORD_GEODEZ));
    EXPECT_EQ(pixel.status, KOORD_OK);
    EXPECT_EQ(world.status, KOORD_OK);
    const auto back = Load<GeodezPayload>(world.world);
    const double along = std::remainder(back.longitude - longitude, 360.0) * std::cos(latitude * PI / 180.0);
    return 111320.0 * std::hypot(back.latitude - latitude, along);
}

// Between the sphere and an ellipsoid the two ways of a shift differ by 1.12 % of its length, from which a
// round of refining takes as much again. Below 0.001 degrees there is none: 1.2e-5 degrees. Refining ends
// with a round of at most 0.0001 degrees, whose rest is 0.13 m, and toward the poles with 0.1 m along the
// parallel, which the shift's own two ways may exceed.
TEST(WagnerMap, OffTheSphereAPositionReturnsAsItsShiftDoes) {
    Random random(514);
    const MapParam map = WagnerMap(OnSphere(10.0, 20.0));
    double nearEquator = 0.0;
    for (int i = 0; i < 20000; ++i) {
        const std::int32_t datum = 1 + random.Below(DATUM_COUNT - 1);
        const double longitude = random.Between(-179.5, 179.5);
        const double sign = i % 2 == 0 ? 1.0 : -1.0;
        const double error = WagnerError(map, datum, sign * random.Between(0.0, 0.1666), longitude);
        EXPECT_LT(error, 1.34) << datum;
        nearEquator = std::fmax(nearEquator, error);
        EXPECT_LT(WagnerError(map, datum, sign * random.Between(0.1667, 75.0), longitude), 0.15) << datum;
        EXPECT_LT(WagnerError(map, datum, sign * random.Between(75.0, 89.9), longitude), 1.0) << datum;
        // The arc sine takes a rounding 600 times at 89.9 degrees: 4e-7 m each.
        EXPECT_LT(WagnerError(map, DATUM_SPHERE, sign * random.Between(0.0, 89.9), longitude), 1e-5);
    }
    EXPECT_GT(nearEquator, 1.0) << "what map.h says isn't so any more";
}

TEST(WagnerMap, AReferenceThatCannotBeConvertedGivesLatitudeAndLongitudeZero) {
    const MapParam map = WagnerMap(MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL));
    const WorldResult world = ToWorld(map, 10.0, 20.0, SphereTarget());
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_EQ(world.Degrees().latitude, 0.0);
    EXPECT_EQ(world.Degrees().longitude, 0.0);
    EXPECT_EQ(ToPixel(map, OnSphere(1.0, 2.0)).status, KOORD_ERR_TYPE);
}

TEST(WagnerMap, ItsPixelsHaveTheHeightOfTheReference) {
    const MapParam map = WagnerMap(GeodezRecord(30.0, 20.0, 123.0, DATUM_SPHERE));
    EXPECT_EQ(ToWorld(map, 10.0, 20.0, SphereTarget()).Degrees().height, 123.0);
}

TEST(WagnerMap, APixelWithoutAPlaceGivesTheReference) {
    MapParam map = WagnerMap(OnSphere(30.0, 20.0));
    map.resolution = 0.0;
    const WorldResult world = ToWorld(map, 10.0, 20.0, SphereTarget());
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_EQ(world.Degrees().latitude, 30.0);
    EXPECT_EQ(world.Degrees().longitude, 20.0);
}

}  // namespace
}  // namespace tessara::testing::world_maps_test

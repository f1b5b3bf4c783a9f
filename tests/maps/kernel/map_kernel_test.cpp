#include "tessara/kernel/map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "numerics/special_values.h"
#include "support/maps.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing::map_kernel_test {
namespace {

// One degree a pixel: column and row are the longitude and the negative latitude.
MapParam DegreeMap() {
    return Map(MAP_DD, MapDdParams{0.0, 0.0, 1.0, 1.0});
}

MapParam MunichMap() {
    return Map(MAP_UTM, MapUtmParams{'N', 32, 675000.0, 5345000.0, 2.5, 2.5});
}

std::int32_t WholeColumn(double column) {
    const MapParam map = DegreeMap();
    tagKOORD pixel = LongPixel(0, 0);
    const tagKOORD world = GeodezRecord(0.0, column);
    EXPECT_EQ(MapWorldToPixel(&map, &world, &pixel), KOORD_OK);
    return Load<LongPixelPayload>(pixel).x;
}

TEST(MapParam, DescribesNoMapAtFirst) {
    const MapParam map;
    EXPECT_EQ(map.referenceCount, 0u);
    EXPECT_EQ(map.reference.next, nullptr);
    EXPECT_EQ(map.scaleDenominator, 0);
    EXPECT_EQ(map.resolution, 0.0);
    EXPECT_EQ(map.datum, 999u);
    EXPECT_EQ(map.reserved1, 0u);
    EXPECT_EQ(map.reserved2, 0u);
    EXPECT_EQ(map.worldType, -1);
    EXPECT_EQ(map.type, 0u);
}

TEST(MapPixelToWorld, ReadsBothFormsOfPixels) {
    const MapParam map = DegreeMap();
    const tagKOORD whole = LongPixel(11, -48);
    tagKOORD world = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    EXPECT_EQ(MapPixelToWorld(&map, &whole, &world), KOORD_OK);
    EXPECT_EQ(Load<GeodezPayload>(world).latitude, 48.0);
    EXPECT_EQ(Load<GeodezPayload>(world).longitude, 11.0);
    EXPECT_EQ(ToWorld(map, 11.5, -48.25).Degrees().latitude, 48.25);
    EXPECT_EQ(ToWorld(map, 11.5, -48.25).Degrees().longitude, 11.5);
}

TEST(MapPixelToWorld, RefusesARecordThatIsNoPixelBeforeTheMap) {
    for (std::int32_t mapType : {0, 2, 12, 22}) {
        MapParam map = DegreeMap();
        map.type = static_cast<std::uint32_t>(mapType);
        for (std::int32_t type : {-1, 2, 4, 23}) {
            const tagKOORD pixel = MakeKoord(DATUM_WGS84, type);
            tagKOORD world = GeodezRecord(1.0, 2.0);
            const tagKOORD before = world;
            EXPECT_EQ(MapPixelToWorld(&map, &pixel, &world), KOORD_ERR_PIXEL_TYPE) << mapType << " " << type;
            EXPECT_TRUE(SameBytes(world, before));
        }
    }
}

TEST(MapPixelToWorld, RefusesTypesThatAreNoMaps) {
    MapParam map = DegreeMap();
    for (std::uint32_t type : {0u, 1u, 22u, 0x80000000u, 0xFFFFFFFFu}) {
        map.type = type;
        EXPECT_EQ(ToWorld(map, 0.0, 0.0).status, KOORD_ERR_MAP_TYPE) << type;
    }
}

TEST(MapWorldToPixel, RefusesTypesThatAreNoMapsBeforeThePixel) {
    MapParam map = DegreeMap();
    const tagKOORD world = GeodezRecord(1.0, 2.0);
    for (std::uint32_t type : {0u, 1u, 22u, 0x80000000u, 0xFFFFFFFFu}) {
        map.type = type;
        tagKOORD pixel = MakeKoord(DATUM_WGS84, KOORD_UTM);
        EXPECT_EQ(MapWorldToPixel(&map, &world, &pixel), KOORD_ERR_MAP_TYPE) << type;
    }
}

TEST(MapWorldToPixel, RefusesARecordThatIsNoPixelAfterTheCalculation) {
    const MapParam map = MunichMap();
    const tagKOORD munich = GeodezRecord(48.14, 11.58);
    const tagKOORD pole = GeodezRecord(90.0, 0.0);
    tagKOORD pixel = MakeKoord(DATUM_WGS84, KOORD_UTM);
    const tagKOORD before = pixel;
    EXPECT_EQ(MapWorldToPixel(&map, &munich, &pixel), KOORD_ERR_PIXEL_TYPE);
    EXPECT_EQ(MapWorldToPixel(&map, &pole, &pixel), KOORD_ERR_NORTH_HIGH);
    EXPECT_TRUE(SameBytes(pixel, before));
}

TEST(MapWorldToPixel, RoundsWholePixelsHalfAwayFromZero) {
    EXPECT_EQ(WholeColumn(-0.4), 0);
    EXPECT_EQ(WholeColumn(-0.5), -1);
    EXPECT_EQ(WholeColumn(-0.0), 0);
    EXPECT_EQ(WholeColumn(0.5), 1);
    EXPECT_EQ(WholeColumn(2.5), 3);
    EXPECT_EQ(WholeColumn(-2.5), -3);
    // The sum with a half is exactly 1.
    EXPECT_EQ(WholeColumn(0.49999999999999994), 1);
}

TEST(MapWorldToPixel, GivesTheSmallestNumberForAWholePixelThatDoesNotFit) {
    MapParam map = DegreeMap();
    for (double pixelsPerDegree : {1e9, -1e9, INFINITE, NOT_A_NUMBER}) {
        Store(map, MapDdParams{0.0, 0.0, pixelsPerDegree, 1.0});
        const tagKOORD world = GeodezRecord(0.0, 100.0);
        tagKOORD pixel = LongPixel(0, 0);
        EXPECT_EQ(MapWorldToPixel(&map, &world, &pixel), KOORD_OK);
        EXPECT_EQ(Load<LongPixelPayload>(pixel).x, INT32_MIN) << pixelsPerDegree;
    }
}

TEST(MapWorldToPixel, KeepsTheDatumOfThePixel) {
    const MapParam map = DegreeMap();
    const tagKOORD world = GeodezRecord(0.0, 1.0);
    tagKOORD pixel = FloatPixel(0.0, 0.0);
    pixel.datum = 777;
    EXPECT_EQ(MapWorldToPixel(&map, &world, &pixel), KOORD_OK);
    EXPECT_EQ(pixel.datum, 777u);
    EXPECT_EQ(Load<FloatPixelPayload>(pixel).x, 1.0);
}

TEST(MapPixelToWorld, ShiftsToTheDatumOfTheTarget) {
    MapParam map = DegreeMap();
    map.datum = 6;
    const tagKOORD mgi = GeodezRecord(48.0, 16.0, 0.0, 6);
    tagKOORD expected = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    ASSERT_EQ(KoordConvert(&mgi, &expected), KOORD_OK);
    const WorldResult world = ToWorld(map, 16.0, -48.0, MakeKoord(DATUM_WGS84, KOORD_GEODEZ));
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_TRUE(SameBytes(world.world, expected));
}

// Geographic targets and the map's own system accept positions beyond the limits of a system; other grids
// don't.
TEST(MapPixelToWorld, ChecksTheRangeOfForeignGridsOnly) {
    const MapParam degrees = DegreeMap();
    for (std::int32_t type : {KOORD_GEODEZ, KOORD_GEOGRAD, KOORD_GEODEZMIN}) {
        EXPECT_EQ(ToWorld(degrees, 400.0, -89.0, MakeKoord(DATUM_WGS84, type)).status, KOORD_OK) << type;
    }
    EXPECT_EQ(ToWorld(degrees, 10.0, -89.0, MakeKoord(DATUM_WGS84, KOORD_UTM)).status, KOORD_ERR_NORTH_HIGH);
    EXPECT_EQ(ToWorld(degrees, 190.0, -50.0, MakeKoord(DATUM_WGS84, KOORD_UTM)).status, KOORD_ERR_EAST_HIGH);

    // 1000 km above a sheet of 84 degrees.
    const MapParam utm = Map(MAP_UTM, MapUtmParams{'N', 32, 500000.0, 9900000.0, 100.0, 100.0});
    EXPECT_EQ(ToWorld(utm, 0.0, 0.0, MakeKoord(DATUM_WGS84, KOORD_UTM)).status, KOORD_OK);
    EXPECT_EQ(ToWorld(utm, 0.0, 0.0).status, KOORD_OK);
    EXPECT_EQ(ToWorld(utm, 0.0, 0.0, NaturalTarget(KOORD_GK)).status, KOORD_ERR_NORTH_HIGH);
}

TEST(MapPixelToWorld, FindsABadDatumBeforeABadType) {
    const MapParam map = DegreeMap();
    EXPECT_EQ(ToWorld(map, 0.0, 0.0, MakeKoord(239, KOORD_FLOATPIXEL)).status, KOORD_ERR_DATUM);
    EXPECT_EQ(ToWorld(map, 0.0, 0.0, MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL)).status, KOORD_ERR_TYPE);
}

TEST(MapKernel, EveryTypeRefusesABadDatumInBothDirections) {
    for (std::uint32_t type = MAP_UTM; type < MAP_TYPE_COUNT; ++type) {
        // WAGNER-IV doesn't read the datum.
        if (type == MAP_WAGNER_IV) continue;
        for (std::uint32_t datum : {239u, 999u, 0xFFFFFFFFu}) {
            MapParam map;
            map.type = type;
            map.datum = datum;
            map = WithReference(map, GeodezRecord(48.0, 16.0), 10, 20, 50000, 10.0);
            MapPolynomParams polynom{};
            polynom.order = 3;
            if (type == MAP_POLYNOM) Store(map, polynom);
            if (type == MAP_LAMBERTFR) Store(map, MapLambertFrParams{2, 0.0, 0.0});
            const bool isVdg = type == MAP_VAN_DER_GRINTEN;
            // What has no position yet has no datum yet either.
            const bool givesUp = isVdg || type == MAP_MERCATOR;
            EXPECT_EQ(ToWorld(map, 10.0, 20.0, MakeKoord(DATUM_WGS84, KOORD_GEODEZ)).status,
                      givesUp ? KOORD_ERR_TYPE : KOORD_ERR_DATUM)
                << type;
            EXPECT_EQ(ToPixel(map, GeodezRecord(48.0, 16.0)).status,
                      isVdg ? KOORD_ERR_OUTSIDE : KOORD_ERR_DATUM)
                << type;
        }
    }
}

TEST(MapKernel, EveryTypeRefusesAPixelForAPosition) {
    for (std::uint32_t type = MAP_UTM; type < MAP_TYPE_COUNT; ++type) {
        MapParam map;
        map.type = type;
        map.datum = DATUM_WGS84;
        map = WithReference(map, GeodezRecord(48.0, 16.0), 10, 20, 50000, 10.0);
        EXPECT_EQ(ToPixel(map, FloatPixel(1.0, 2.0)).status,
                  type == MAP_VAN_DER_GRINTEN ? KOORD_ERR_OUTSIDE : KOORD_ERR_TYPE)
            << type;
    }
}

TEST(MapKernel, RefusesNull) {
    const MapParam map = DegreeMap();
    tagKOORD pixel = FloatPixel(0.0, 0.0);
    tagKOORD world = GeodezRecord(0.0, 0.0);
    EXPECT_EQ(MapPixelToWorld(nullptr, &pixel, &world), KOORD_ERR_GENERAL);
    EXPECT_EQ(MapPixelToWorld(&map, nullptr, &world), KOORD_ERR_GENERAL);
    EXPECT_EQ(MapPixelToWorld(&map, &pixel, nullptr), KOORD_ERR_GENERAL);
    EXPECT_EQ(MapWorldToPixel(nullptr, &world, &pixel), KOORD_ERR_GENERAL);
    EXPECT_EQ(MapWorldToPixel(&map, nullptr, &pixel), KOORD_ERR_GENERAL);
    EXPECT_EQ(MapWorldToPixel(&map, &world, nullptr), KOORD_ERR_GENERAL);
}

}  // namespace
}  // namespace tessara::testing::map_kernel_test

// The two operations of CoordinateTransfer that go through a map.
#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/objects.h"
#include "tessara/coordinate_transfer.h"

namespace tessara::testing {
namespace {

class MapTransferTest : public BalancedTest {
  protected:
    IRef<ICoordinateTransfer> transfer{CreateClassCoordinateTransfer()};
    IRef<IUnknown> stranger = MakeStranger();
};

// One degree a pixel, shifted by ten degrees.
MapParam DegreeMap(std::int32_t datum = DATUM_WGS84) {
    return Map(MAP_DD, MapDdParams{10.0, 50.0, 1.0, 1.0}, datum);
}

// The system depends on the type of the projection alone, so the parameters are arbitrary.
TEST_F(MapTransferTest, BringsAPositionIntoTheSystemOfEachMap) {
    const struct {
        std::uint32_t type;
        std::int32_t system;
        double latitude, longitude;  // where the system exists
    } rows[] = {{2, 2, 48.0, 11.0},  {3, 7, 48.0, 11.0},   {4, 4, 48.0, 11.0},   {5, 4, 48.0, 11.0},
                {6, 4, 48.0, 11.0},  {7, 4, 48.0, 11.0},   {8, 4, 48.0, 11.0},   {9, 8, 48.0, 14.0},
                {10, 10, 47.0, 8.0}, {11, 4, 48.0, 11.0},  {12, 4, 48.0, 11.0},  {13, 13, 48.0, 11.0},
                {14, 15, 85.0, 0.0}, {15, 17, 48.0, 11.0}, {16, 16, 39.0, -8.0}, {17, 18, 48.0, 11.0},
                {18, 21, 52.0, 5.0}, {19, 4, 48.0, 11.0},  {20, 22, 49.7, 6.1},  {21, 4, 48.0, 11.0}};
    for (const auto& row : rows) {
        MapParam map;
        map.type = row.type;
        map.datum = 3;
        const IRef<ICoord> source = CoordOf(GeodezRecord(row.latitude, row.longitude, 0.0, 3));
        const IRef<ICoord> target(CreateClassCoord());
        EXPECT_TRUE(transfer->TransferToMap(MapOf(map).Get(), source.Get(), target.Get())) << row.type;
        EXPECT_EQ(KoordOf(target).type, static_cast<std::uint32_t>(row.system)) << row.type;
        EXPECT_EQ(KoordOf(target).datum, 3u) << row.type;
        EXPECT_TRUE(HoldsPosition(target)) << row.type;
    }
}

TEST_F(MapTransferTest, BringsAPixelOfTheMapIntoItsSystem) {
    const IRef<IMapCoordOperations> map = MapOf(MunichSheet());
    for (const tagKOORD& pixel : {LongPixel(4000, 2000), FloatPixel(4000.0, 2000.0)}) {
        const IRef<ICoord> target(CreateClassCoord());
        ASSERT_TRUE(transfer->TransferToMap(map.Get(), CoordOf(pixel).Get(), target.Get()));
        EXPECT_EQ(KoordOf(target).type, static_cast<std::uint32_t>(KOORD_UTM));
        // Metres: the position goes through degrees.
        EXPECT_NEAR(PayloadOf<UtmPayload>(target).easting, 685000.0, 1e-4);
        EXPECT_NEAR(PayloadOf<UtmPayload>(target).northing, 5340000.0, 1e-4);
    }
}

TEST_F(MapTransferTest, APixelMayBecomeItsOwnPosition) {
    const IRef<IMapCoordOperations> map = MapOf(MunichSheet());
    for (const tagKOORD& pixel : {LongPixel(4000, 2000), FloatPixel(4000.0, 2000.0)}) {
        const IRef<ICoord> coord = CoordOf(pixel);
        ASSERT_TRUE(transfer->TransferToMap(map.Get(), coord.Get(), coord.Get()));
        EXPECT_EQ(KoordOf(coord).type, static_cast<std::uint32_t>(KOORD_UTM));
        EXPECT_TRUE(HoldsPosition(coord));
        // Metres: the position goes through degrees.
        EXPECT_NEAR(PayloadOf<UtmPayload>(coord).easting, 685000.0, 1e-4);
        EXPECT_NEAR(PayloadOf<UtmPayload>(coord).northing, 5340000.0, 1e-4);
    }
}

TEST_F(MapTransferTest, ToAMapThatIsNoneItFails) {
    const IRef<ICoord> source = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<ICoord> pixel = CoordOf(LongPixel(1, 2));
    for (std::uint32_t type : {0u, 1u, 22u}) {
        MapParam map;
        map.type = type;
        const IRef<ICoord> target = CoordOf(GeodezRecord(1.0, 2.0));
        EXPECT_FALSE(transfer->TransferToMap(MapOf(map).Get(), source.Get(), target.Get())) << type;
        EXPECT_FALSE(transfer->TransferToMap(MapOf(map).Get(), pixel.Get(), target.Get())) << type;
    }
}

// Such a map asks for no system, and a target without a position takes that for any.
TEST_F(MapTransferTest, ToAMapThatIsNoneATargetWithoutAPositionTakesTheSourceAsItIs) {
    for (std::uint32_t type : {0u, 1u, 22u}) {
        MapParam map;
        map.type = type;
        const IRef<ICoord> target(CreateClassCoord());
        EXPECT_TRUE(
            transfer->TransferToMap(MapOf(map).Get(), CoordOf(GeodezRecord(48.0, 11.0)).Get(), target.Get()));
        EXPECT_EQ(KoordOf(target).datum, 2u) << type;
        EXPECT_EQ(PayloadOf<GeodezPayload>(target).latitude, 48.0) << type;
        const IRef<ICoord> other(CreateClassCoord());
        EXPECT_FALSE(transfer->TransferToMap(MapOf(map).Get(), CoordOf(LongPixel(1, 2)).Get(), other.Get()));
    }
}

TEST_F(MapTransferTest, APositionThatTheSystemOfTheMapRefusesFails) {
    const IRef<ICoord> target(CreateClassCoord());
    EXPECT_FALSE(transfer->TransferToMap(MapOf(MunichSheet()).Get(), CoordOf(GeodezRecord(89.0, 11.0)).Get(),
                                         target.Get()));
}

TEST_F(MapTransferTest, NeedsAMapAndTwoCoordinates) {
    const IRef<IMapCoordOperations> map = MapOf(DegreeMap());
    const IRef<ICoord> source = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<ICoord> target(CreateClassCoord());
    EXPECT_FALSE(transfer->TransferToMap(nullptr, source.Get(), target.Get()));
    EXPECT_FALSE(transfer->TransferToMap(map.Get(), nullptr, target.Get()));
    EXPECT_FALSE(transfer->TransferToMap(map.Get(), source.Get(), nullptr));
    EXPECT_FALSE(
        transfer->TransferToMap(Disguised<IMapCoordOperations>(stranger), source.Get(), target.Get()));
    EXPECT_FALSE(transfer->TransferToMap(map.Get(), Disguised<ICoord>(stranger), target.Get()));
    EXPECT_FALSE(transfer->TransferToMap(map.Get(), source.Get(), Disguised<ICoord>(stranger)));
}

// Pixel (1, 2) of the first map is 48 N, 11 E: column 55, row -240 of a map of five pixels a degree.
TEST_F(MapTransferTest, CarriesAPixelFromMapToMap) {
    const IRef<IMapCoordOperations> from = MapOf(DegreeMap());
    const IRef<IMapCoordOperations> to = MapOf(Map(MAP_DD, MapDdParams{0.0, 0.0, 5.0, 5.0}));
    const IRef<ICoord> source = CoordOf(LongPixel(1, 2));
    for (std::int32_t system : {KOORD_LONGPIXEL, KOORD_FLOATPIXEL}) {
        const IRef<ICoord> target = EmptyCoord(DATUM_WGS84, system);
        ASSERT_TRUE(transfer->TransferBetweenMaps(from.Get(), source.Get(), to.Get(), target.Get()));
        EXPECT_EQ(KoordOf(target).type, static_cast<std::uint32_t>(system));
        double x = 0.0, y = 0.0;
        ASSERT_TRUE(target->GetPixel(&x, &y));
        EXPECT_EQ(x, 55.0);
        EXPECT_EQ(y, -240.0);
    }
    EXPECT_EQ(PayloadOf<LongPixelPayload>(source).x, 1);
}

TEST_F(MapTransferTest, ATargetThatIsNoPixelOfTheMapBecomesOne) {
    const IRef<IMapCoordOperations> from = MapOf(DegreeMap());
    const IRef<IMapCoordOperations> to = MapOf(DegreeMap(6));
    const IRef<ICoord> source = CoordOf(LongPixel(1, 2));
    const IRef<ICoord> world = CoordOf(GeodezRecord(1.0, 2.0));
    ASSERT_TRUE(transfer->TransferBetweenMaps(from.Get(), source.Get(), to.Get(), world.Get()));
    EXPECT_EQ(KoordOf(world).type, static_cast<std::uint32_t>(KOORD_FLOATPIXEL));
    EXPECT_EQ(KoordOf(world).datum, 6u);
    // A pixel of another datum keeps its form and takes the map's datum.
    const IRef<ICoord> pixel = CoordOf(LongPixel(7, 8));
    ASSERT_TRUE(transfer->TransferBetweenMaps(from.Get(), source.Get(), to.Get(), pixel.Get()));
    EXPECT_EQ(KoordOf(pixel).type, static_cast<std::uint32_t>(KOORD_LONGPIXEL));
    EXPECT_EQ(KoordOf(pixel).datum, 6u);
}

TEST_F(MapTransferTest, CarriesPixelsOnly) {
    const IRef<IMapCoordOperations> map = MapOf(DegreeMap());
    const IRef<ICoord> target = CoordOf(LongPixel(7, 8));
    EXPECT_FALSE(transfer->TransferBetweenMaps(map.Get(), CoordOf(GeodezRecord(48.0, 11.0)).Get(), map.Get(),
                                               target.Get()));
    EXPECT_EQ(PayloadOf<LongPixelPayload>(target).x, 7);
}

TEST_F(MapTransferTest, APixelThatTheOtherMapRefusesFails) {
    const IRef<ICoord> target(CreateClassCoord());
    // Row -38 is 88 degrees north.
    EXPECT_FALSE(transfer->TransferBetweenMaps(MapOf(DegreeMap()).Get(), CoordOf(LongPixel(1, -38)).Get(),
                                               MapOf(MunichSheet()).Get(), target.Get()));
}

TEST_F(MapTransferTest, NeedsTwoMapsAndTwoCoordinates) {
    const IRef<IMapCoordOperations> map = MapOf(DegreeMap());
    const IRef<ICoord> source = CoordOf(LongPixel(1, 2));
    const IRef<ICoord> target(CreateClassCoord());
    EXPECT_FALSE(transfer->TransferBetweenMaps(nullptr, source.Get(), map.Get(), target.Get()));
    EXPECT_FALSE(transfer->TransferBetweenMaps(map.Get(), nullptr, map.Get(), target.Get()));
    EXPECT_FALSE(transfer->TransferBetweenMaps(map.Get(), source.Get(), nullptr, target.Get()));
    EXPECT_FALSE(transfer->TransferBetweenMaps(map.Get(), source.Get(), map.Get(), nullptr));
    IMapCoordOperations* const wrong = Disguised<IMapCoordOperations>(stranger);
    EXPECT_FALSE(transfer->TransferBetweenMaps(wrong, source.Get(), map.Get(), target.Get()));
    EXPECT_FALSE(transfer->TransferBetweenMaps(map.Get(), source.Get(), wrong, target.Get()));
}

TEST_F(MapTransferTest, FailsWithoutMemory) {
    const IRef<IMapCoordOperations> map = MapOf(DegreeMap());
    const IRef<ICoord> pixel = CoordOf(LongPixel(1, 2));
    const IRef<ICoord> source = CoordOf(GeodezRecord(48.0, 11.0));
    for (int nth = 1;; ++nth) {
        const IRef<ICoord> world(CreateClassCoord());
        const IRef<ICoord> target(CreateClassCoord());
        bool hasFailed = false;
        bool result = false;
        {
            const FailAllocation fail(nth);
            result = transfer->TransferToMap(map.Get(), source.Get(), world.Get()) &&
                     transfer->TransferBetweenMaps(map.Get(), pixel.Get(), map.Get(), target.Get());
            hasFailed = fail.HasFailed();
        }
        EXPECT_EQ(result, !hasFailed) << "allocation " << nth;
        if (!hasFailed) break;
    }
}

}  // namespace
}  // namespace tessara::testing

#include "areas/helper_map.h"

#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/positions.h"

namespace tessara {
namespace {

using testing::RecordOf;

class HelperMap : public testing::BalancedTest {
  protected:
    static void ExpectPixel(const IRef<IMapCoordOperations>& map, const tagKOORD& position, double x,
                            double y, double tolerance) {
        double column = 0.0;
        double row = 0.0;
        ASSERT_TRUE(map->CoordToFloatPixel(CoordOf(position).Get(), &column, &row));
        EXPECT_NEAR(column, x, tolerance);
        EXPECT_NEAR(row, y, tolerance);
    }
};

TEST_F(HelperMap, HasThePositionAtItsFirstPixel) {
    for (const testing::Region& region : testing::REGIONS) {
        const tagKOORD position =
            testing::RecordIn(region, (region.south + region.north) / 2.0, (region.west + region.east) / 2.0);
        const IRef<IMapCoordOperations> map = MakeHelperMap(CKoord(position));
        ASSERT_TRUE(map.IsValid()) << region.type;
        // 1e-6 pixels are 10 micrometres.
        ExpectPixel(map, position, 0.0, 0.0, 1e-6);
    }
}

TEST_F(HelperMap, IsWagnersFourthWithTenMetresAPixel) {
    const MapParam record = RecordOf(MakeHelperMap(CKoord(GeodezRecord(48, 16, 0.0, 3))));
    EXPECT_EQ(record.type, static_cast<std::uint32_t>(MAP_WAGNER_IV));
    EXPECT_EQ(record.datum, static_cast<std::uint32_t>(DATUM_WGS84));
    EXPECT_EQ(record.scaleDenominator, 100000);
    EXPECT_EQ(record.resolution, 10.0);
    const auto params = Load<MapWagnerIvParams>(record);
    EXPECT_EQ(params.originLongitude, 0.0);
    EXPECT_EQ(params.stretchX, 1.0);
    EXPECT_EQ(params.stretchY, 1.0);
}

TEST_F(HelperMap, IsTheGridForAPolarPosition) {
    for (const char hemisphere : {'N', 'S'}) {
        UpsPayload at{};
        at.hemisphere = hemisphere;
        at.easting = 2100000.0;
        at.northing = 1950000.0;
        const IRef<IMapCoordOperations> map = MakeHelperMap(CKoord(Record(KOORD_UPS, at)));
        EXPECT_EQ(RecordOf(map).type, static_cast<std::uint32_t>(MAP_UPS));
        // Rows run southward on the grid, 10 metres each.
        at.easting += 1000.0;
        at.northing += 500.0;
        ExpectPixel(map, Record(KOORD_UPS, at), 100.0, -50.0, 1e-6);
    }
}

TEST_F(HelperMap, IsEmptyForPixels) {
    EXPECT_FALSE(MakeHelperMap(CKoord(MakeKoord(DATUM_WGS84, KOORD_LONGPIXEL))).IsValid());
    EXPECT_FALSE(MakeHelperMap(CKoord(MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL))).IsValid());
}

}  // namespace
}  // namespace tessara

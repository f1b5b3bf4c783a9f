#include "geometry/map_plane.h"

#include <gtest/gtest.h>

#include "support/lines.h"
#include "support/live_objects.h"
#include "support/objects.h"

namespace tessara {
namespace {

using testing::DegreeMap;
using testing::FloatPixel;
using testing::LongPixel;

class MapPlaneTest : public testing::BalancedTest {
  protected:
    IRef<IMapCoordOperations> map = DegreeMap(6.0, 50.0, 100.0);
    MapPlane plane{map.Get()};
};

TEST_F(MapPlaneTest, PixelsLieWhereTheirNumbersSay) {
    PlanePoint point{};
    EXPECT_TRUE(plane.ToPlane(LongPixel(3, -4), &point));
    EXPECT_EQ(point, (PlanePoint{3, -4}));
    EXPECT_TRUE(plane.ToPlane(FloatPixel(1.5, 2.5), &point));
    EXPECT_EQ(point, (PlanePoint{1.5, 2.5}));
}

TEST_F(MapPlaneTest, PositionsLieWhereTheMapSays) {
    PlanePoint point{};
    EXPECT_TRUE(plane.ToPlane(GeodezRecord(49, 8), &point));
    // Pixels: degrees of the map, times a hundred.
    EXPECT_NEAR(point.x, 200.0, 1e-9);
    EXPECT_NEAR(point.y, 100.0, 1e-9);
    EXPECT_FALSE(plane.ToPlane(testing::Nowhere(), &point));
    EXPECT_NEAR(point.x, 200.0, 1e-9) << "unchanged";
}

TEST_F(MapPlaneTest, PointsHaveAPositionInTheRecordsReference) {
    CKoord koord(GeodezRecord(0, 0, 70.0));
    EXPECT_TRUE(plane.ToWorld({200, 100}, &koord));
    // Degrees, some units of the last place.
    EXPECT_NEAR(Load<GeodezPayload>(koord).latitude, 49.0, 1e-12);
    EXPECT_NEAR(Load<GeodezPayload>(koord).longitude, 8.0, 1e-12);
    EXPECT_EQ(koord.GetHeight(), 70.0);
    CKoord pixel(FloatPixel(7, 8));
    EXPECT_FALSE(plane.ToWorld({200, 100}, &pixel));
    EXPECT_EQ(Load<FloatPixelPayload>(pixel).x, 7.0);
}

TEST_F(MapPlaneTest, KnowsTheMapsDatum) {
    std::int32_t datum = 0;
    EXPECT_TRUE(plane.GetDatum(&datum));
    EXPECT_EQ(datum, 2);
}

TEST_F(MapPlaneTest, IsIncompleteWithoutAMap) {
    EXPECT_TRUE(plane.IsComplete());
    EXPECT_FALSE(MapPlane(nullptr).IsComplete());
    const IRef<IUnknown> stranger = testing::MakeStranger();
    EXPECT_FALSE(MapPlane(testing::Disguised<IMapCoordOperations>(stranger)).IsComplete());
}

}  // namespace
}  // namespace tessara

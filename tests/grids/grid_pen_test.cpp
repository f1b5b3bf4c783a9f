#include "grids/grid_pen.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/host_map.h"
#include "support/lines.h"
#include "support/records.h"
#include "support/zoned_records.h"

namespace tessara {
namespace {

// Pixels need no map.
CKoord Pixel(double x, double y = 0.0) {
    CKoord koord(MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL));
    Store(koord, FloatPixelPayload{x, y});
    return koord;
}

// The points of all lines count, a straight line's two ends among them.
TEST(GridPen, EndsAfterTwentyMillionPoints) {
    const MapPlane plane(nullptr);
    int count = 0;
    GridPen pen(plane, {0, 0, 10, 10},
                [&count](const GridLine& line) { return line.size() == 2 && ++count > 0; });
    EXPECT_TRUE(pen.Spend(19999990));
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(pen.DrawNearWindow(Pixel(0.0), Pixel(1.0))) << i;
    EXPECT_FALSE(pen.DrawNearWindow(Pixel(0.0), Pixel(1.0)));
    EXPECT_EQ(count, 5);
}

TEST(GridPen, EndsAlsoWhereNoLineComesOfTheWork) {
    const MapPlane plane(nullptr);
    GridPen pen(plane, {0, 0, 10, 10}, [](const GridLine&) { return true; });
    EXPECT_TRUE(pen.Spend(19999999));
    EXPECT_TRUE(pen.Spend(1));
    EXPECT_FALSE(pen.Spend(1));
    EXPECT_FALSE(pen.DrawNearWindow(Pixel(0.0), Pixel(1.0)));
}

TEST(GridPen, AppendsNoPieceAndDrawsNoBorderBeyondItsLimit) {
    const MapPlane plane(nullptr);
    int count = 0;
    GridPen pen(plane, {0, 0, 10, 10}, [&count](const GridLine&) { return ++count > 0; });
    GridLine line;
    EXPECT_TRUE(pen.Spend(19999997));
    EXPECT_TRUE(pen.Append(Pixel(0.0), Pixel(1.0), DensifyMode::CoordStraight, &line));
    EXPECT_FALSE(pen.Append(Pixel(1.0), Pixel(2.0), DensifyMode::CoordStraight, &line));
    EXPECT_EQ(line.size(), 2u);
    EXPECT_FALSE(pen.DrawBorder(Pixel(0.0), Pixel(1.0)));
    EXPECT_EQ(count, 0);
}

TEST(GridPen, HandsOnWhetherALineIsTaken) {
    const MapPlane plane(nullptr);
    GridPen pen(plane, {0, 0, 10, 10}, [](const GridLine& line) { return line.empty(); });
    EXPECT_TRUE(pen.Finish({}));
    EXPECT_FALSE(pen.Finish({CKoord()}));
}

// The window of columns and rows 0 to 10, half a pixel wider on each side.
TEST(GridPen, DrawsBordersThatTouchTheWindow) {
    const MapPlane plane(nullptr);
    int count = 0;
    GridPen pen(plane, {0, 0, 10, 10}, [&count](const GridLine&) { return ++count > 0; });
    const struct {
        CKoord from, to;
        bool touches;
    } lines[] = {
        {Pixel(-5.0, 10.4), Pixel(20.0, 10.4), true},   {Pixel(-5.0, 10.6), Pixel(20.0, 10.6), false},
        {Pixel(-0.4, -50.0), Pixel(-0.4, 50.0), true},  {Pixel(-0.6, -50.0), Pixel(-0.6, 50.0), false},
        {Pixel(3.0, 4.0), Pixel(5.0, 6.0), true},       {Pixel(12.0, 4.0), Pixel(15.0, 6.0), false},
        {Pixel(20.9, 0.0), Pixel(0.0, 20.9), true},     {Pixel(21.1, 0.0), Pixel(0.0, 21.1), false},
        {Pixel(-20.0, 19.2), Pixel(19.2, -20.0), true}, {Pixel(-20.0, 18.8), Pixel(18.8, -20.0), false},
    };
    for (const auto& [from, to, touches] : lines) {
        count = 0;
        EXPECT_TRUE(pen.DrawBorder(from, to));
        EXPECT_EQ(count, touches ? 1 : 0);
        EXPECT_EQ(pen.IsBorderInWindow(from, to), touches);
    }
    // Another line may lie a quarter of a pixel beside its polyline.
    count = 0;
    EXPECT_TRUE(pen.DrawNearWindow(Pixel(-5.0, 10.7), Pixel(20.0, 10.7)));
    EXPECT_EQ(count, 1);
    EXPECT_TRUE(pen.DrawNearWindow(Pixel(-5.0, 10.8), Pixel(20.0, 10.8)));
    EXPECT_EQ(count, 1);
}

TEST(GridPen, ABorderWithoutAPlaceOnTheMapIsntInTheWindow) {
    const auto map = testing::DegreeMap(0.0, 10.0, 10.0);
    const MapPlane plane(map.Get());
    GridPen pen(plane, {0, 0, 100, 100}, [](const GridLine&) { return true; });
    const CKoord inside(testing::UtmRecord(DATUM_WGS84, 'N', 31, 166000.0, 500000.0));
    const CKoord nowhere(testing::Nowhere());
    EXPECT_FALSE(pen.IsBorderInWindow(nowhere, nowhere));
    EXPECT_FALSE(pen.IsBorderInWindow(inside, nowhere));
    EXPECT_FALSE(pen.DrawBorder(inside, nowhere));
}

TEST(GridPen, PlacesAreWithinAPixelIfTheyAreOnBothAxes) {
    const auto map = testing::DegreeMap(0.0, 10.0, 10.0);
    const MapPlane plane(map.Get());
    const GridPen pen(plane, {0, 0, 10, 10}, [](const GridLine&) { return true; });
    EXPECT_TRUE(pen.IsWithinAPixel(Pixel(3.0, 4.0), Pixel(4.0, 3.0)));
    EXPECT_FALSE(pen.IsWithinAPixel(Pixel(3.0, 4.0), Pixel(4.25, 4.0)));
    EXPECT_FALSE(pen.IsWithinAPixel(Pixel(3.0, 4.0), Pixel(3.0, 2.75)));
    EXPECT_FALSE(pen.IsWithinAPixel(Pixel(3.0, 4.0), CKoord(testing::Nowhere())));
    EXPECT_FALSE(pen.IsWithinAPixel(CKoord(testing::Nowhere()), Pixel(3.0, 4.0)));
}

// A window of 30 by 40 pixels has a diagonal of 50.
TEST(GridPen, AWayCountsAPlaceThatIsFarAwayOrNowhereAsADiagonal) {
    const auto map = testing::DegreeMap(0.0, 10.0, 10.0);
    const MapPlane plane(map.Get());
    const GridPen pen(plane, {0, 0, 30, 40}, [](const GridLine&) { return true; });
    EXPECT_EQ(pen.WayThrough({Pixel(0.0), Pixel(3.0, 4.0), Pixel(3.0, 10.0)}), 5.0 + 6.0);
    EXPECT_EQ(pen.WayThrough({Pixel(0.0), Pixel(1000.0), Pixel(1001.0)}), 50.0 + 1.0);
    EXPECT_EQ(pen.WayThrough({Pixel(0.0), CKoord(testing::Nowhere()), Pixel(3.0, 4.0)}), 50.0 + 50.0);
}

// Shows what lies south of the equator on top of what lies north of it.
class FoldedMap : public testing::HostMap {
  public:
    FoldedMap() : HostMap(testing::DegreeMap(0.0, 0.0, 10.0)) {}

    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override {
        if (!HostMap::CoordToFloatPixel(in, x, y)) return false;
        *y = std::fabs(*y);
        return true;
    }

  protected:
    ~FoldedMap() = default;
};

// A meridian from 10 degrees north to 10 south comes back to the pixel where it begins, 100 from its middle,
// and may bend by half of that.
TEST(GridPen, ALineBackToItsBeginningBendsByTheWayToItsMiddle) {
    const IRef<IMapCoordOperations> map(NewObject<FoldedMap>());
    const MapPlane plane(map.Get());
    const auto isDrawn = [&](std::int32_t beside) {
        int count = 0;
        GridPen pen(plane, {100 + beside, 0, 200, 100}, [&count](const GridLine&) { return ++count > 0; });
        EXPECT_TRUE(pen.DrawNearWindow(CKoord(GeodezRecord(10.0, 10.0)), CKoord(GeodezRecord(-10.0, 10.0))));
        return count == 1;
    };
    EXPECT_TRUE(isDrawn(50));
    EXPECT_FALSE(isDrawn(51));
}

// A circle of about 1000 pixels around a pole at pixel (1000, 1000), halved six times. Between the vertices,
// 5.625 degrees apart, it is 1000 (1 - cos 2.8125) = 1.2 pixels beside its chords, and each vertex is
// 1000 (1 - cos 5.625) = 4.8 pixels beside the chord of its neighbours.
TEST(GridPen, DrawsALineThatMayBendIntoTheWindowButNoOther) {
    const auto map =
        testing::MapOf(testing::Map(MAP_UPS, MapUpsParams{'N', 1000000.0, 3000000.0, 1000.0, 1000.0}));
    const MapPlane plane(map.Get());
    const CKoord from(GeodezRecord(81.0, -180.0));
    const CKoord to(GeodezRecord(81.0, 180.0));
    PlanePoint lowest{};
    ASSERT_TRUE(plane.ToPlane(CKoord(GeodezRecord(81.0, 0.0)), &lowest));
    const auto bottom = static_cast<std::int32_t>(lowest.y);
    ASSERT_NEAR(bottom, 2000, 30);
    const auto isDrawn = [&](std::int32_t below) {
        int count = 0;
        GridPen pen(plane, {900, bottom + below, 1100, bottom + 100},
                    [&count](const GridLine&) { return ++count > 0; });
        EXPECT_TRUE(pen.DrawNearWindow(from, to));
        return count == 1;
    };
    EXPECT_TRUE(isDrawn(1)) << "by half a pixel and 1.2 the circle may touch the window";
    EXPECT_FALSE(isDrawn(6));
}

}  // namespace
}  // namespace tessara

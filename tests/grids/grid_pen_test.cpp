#include "grids/grid_pen.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace tessara

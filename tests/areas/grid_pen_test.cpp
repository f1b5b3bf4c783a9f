#include "areas/grid_pen.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

// Pixels need no map.
CKoord Pixel(double x) {
    CKoord koord(MakeKoord(DATUM_WGS84, KOORD_FLOATPIXEL));
    Store(koord, FloatPixelPayload{x, 0.0});
    return koord;
}

// The points of all lines count, a straight line's two ends among them.
TEST(GridPen, EndsAfterTwentyMillionPoints) {
    const MapPlane plane(nullptr);
    int count = 0;
    GridPen pen(plane, {0, 0, 10, 10}, [&count](const GridLine& line) { return line.size() == 2 && ++count > 0; });
    EXPECT_TRUE(pen.Spend(19999990));
    for (int i = 0; i < 5; ++i)
        EXPECT_TRUE(pen.Draw(Pixel(0.0), Pixel(1.0))) << i;
    EXPECT_FALSE(pen.Draw(Pixel(0.0), Pixel(1.0)));
    EXPECT_EQ(count, 5);
}

TEST(GridPen, EndsAlsoWhereNoLineComesOfTheWork) {
    const MapPlane plane(nullptr);
    GridPen pen(plane, {0, 0, 10, 10}, [](const GridLine&) { return true; });
    EXPECT_TRUE(pen.Spend(19999999));
    EXPECT_TRUE(pen.Spend(1));
    EXPECT_FALSE(pen.Spend(1));
    EXPECT_FALSE(pen.Draw(Pixel(0.0), Pixel(1.0)));
}

TEST(GridPen, HandsOnWhetherALineIsTaken) {
    const MapPlane plane(nullptr);
    GridPen pen(plane, {0, 0, 10, 10}, [](const GridLine& line) { return line.empty(); });
    EXPECT_TRUE(pen.Finish({}));
    EXPECT_FALSE(pen.Finish({CKoord()}));
}

}  // namespace
}  // namespace tessara

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

TEST(GridPen, EndsAfterAMillionStraightLines) {
    const MapPlane plane(nullptr);
    int count = 0;
    GridPen pen(plane, [&count](const GridLine& line) { return line.size() == 2 && ++count > 0; });
    while (count < 1000000)
        ASSERT_TRUE(pen.Draw(Pixel(0.0), Pixel(1.0))) << count;
    EXPECT_FALSE(pen.Draw(Pixel(0.0), Pixel(1.0)));
    EXPECT_EQ(count, 1000000);
}

TEST(GridPen, EndsAlsoWhereNoLineComesOfTheWork) {
    const MapPlane plane(nullptr);
    GridPen pen(plane, [](const GridLine&) { return true; });
    EXPECT_TRUE(pen.Spend(1999998));
    EXPECT_TRUE(pen.Draw(Pixel(0.0), Pixel(1.0)));
    EXPECT_FALSE(pen.Spend(1));
    EXPECT_FALSE(pen.Draw(Pixel(0.0), Pixel(1.0)));
}

TEST(GridPen, HandsOnWhetherALineIsTaken) {
    const MapPlane plane(nullptr);
    GridPen pen(plane, [](const GridLine& line) { return line.empty(); });
    EXPECT_TRUE(pen.Finish({}));
    EXPECT_FALSE(pen.Finish({CKoord()}));
}

}  // namespace
}  // namespace tessara

#include "areas/grid_pen.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

TEST(GridPen, EndsAfterAMillionLines) {
    const MapPlane plane(nullptr);
    GridPen pen(plane, [](const GridLine&) { return true; });
    const GridLine line;
    for (int i = 0; i < 1000000; ++i)
        ASSERT_TRUE(pen.Finish(line)) << i;
    EXPECT_FALSE(pen.Finish(line));
}

TEST(GridPen, HandsOnWhetherALineIsTaken) {
    const MapPlane plane(nullptr);
    GridPen pen(plane, [](const GridLine& line) { return line.empty(); });
    EXPECT_TRUE(pen.Finish({}));
    EXPECT_FALSE(pen.Finish({CKoord()}));
}

}  // namespace
}  // namespace tessara

#include "kernel/numeric.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"

namespace tessara::numeric_test {
namespace {

TEST(WrapTurns, LeavesWhatIsWithinBothEnds) {
    for (const double value : {-180.0, -0.5, 0.0, 179.5, 180.0})
        EXPECT_EQ(WrapTurns(value, 360.0), value);
}

TEST(WrapTurns, StopsAtTheFirstTurnInside) {
    EXPECT_EQ(WrapTurns(180.5, 360.0), -179.5);
    EXPECT_EQ(WrapTurns(-180.5, 360.0), 179.5);
    EXPECT_EQ(WrapTurns(360.0, 360.0), 0.0);
    EXPECT_EQ(WrapTurns(540.0, 360.0), 180.0);
    EXPECT_EQ(WrapTurns(-540.0, 360.0), -180.0);
    EXPECT_EQ(WrapTurns(36000012.0, 360.0), 12.0);
}

TEST(WrapTurns, EndsForAnyDouble) {
    EXPECT_LE(std::fabs(WrapTurns(1.7e308, 360.0)), 180.0);
    EXPECT_TRUE(std::isnan(WrapTurns(INFINITE, 360.0)));
    EXPECT_TRUE(std::isnan(WrapTurns(-INFINITE, 360.0)));
    EXPECT_TRUE(std::isnan(WrapTurns(std::nan(""), 360.0)));
}

TEST(LowerByTurns, GoesDownToTheLimitAndNoFurther) {
    EXPECT_EQ(LowerByTurns(5.0, 5.0, 360.0), 5.0);
    EXPECT_EQ(LowerByTurns(-1000.0, 5.0, 360.0), -1000.0);
    EXPECT_EQ(LowerByTurns(6.0, 5.0, 360.0), -354.0);
    EXPECT_EQ(LowerByTurns(365.0, 5.0, 360.0), 5.0);
    EXPECT_EQ(LowerByTurns(365.5, 5.0, 360.0), -354.5);
}

TEST(RaiseByTurns, GoesUpToTheLimitAndNoFurther) {
    EXPECT_EQ(RaiseByTurns(5.0, 5.0, 360.0), 5.0);
    EXPECT_EQ(RaiseByTurns(1000.0, 5.0, 360.0), 1000.0);
    EXPECT_EQ(RaiseByTurns(4.0, 5.0, 360.0), 364.0);
    EXPECT_EQ(RaiseByTurns(-355.0, 5.0, 360.0), 5.0);
    EXPECT_EQ(RaiseByTurns(-355.5, 5.0, 360.0), 364.5);
}

}  // namespace
}  // namespace tessara::numeric_test

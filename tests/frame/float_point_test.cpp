#include "frame/float_point.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/live_objects.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

class FloatPointTest : public testing::BalancedTest {};

TEST_F(FloatPointTest, StartsAtTheOrigin) {
    const IRef<IFloatPoint> point(CreateClassFloatPoint());
    EXPECT_EQ(point->GetX(), 0.0);
    EXPECT_EQ(point->GetY(), 0.0);
    EXPECT_EQ(point->GetZ(), 0.0);
}

TEST_F(FloatPointTest, IsMadeFromThreeValues) {
    const IRef<IFloatPoint> point(NewObject<FloatPoint>(1.0, 2.0, 3.0));
    EXPECT_EQ(point->GetX(), 1.0);
    EXPECT_EQ(point->GetY(), 2.0);
    EXPECT_EQ(point->GetZ(), 3.0);
}

TEST_F(FloatPointTest, EachSetterSetsItsOwnValue) {
    const IRef<IFloatPoint> point(CreateClassFloatPoint());
    point->SetX(1.5);
    EXPECT_EQ(point->GetX(), 1.5);
    EXPECT_EQ(point->GetY(), 0.0);
    EXPECT_EQ(point->GetZ(), 0.0);
    point->SetY(-2.5);
    point->SetZ(3.5);
    EXPECT_EQ(point->GetX(), 1.5);
    EXPECT_EQ(point->GetY(), -2.5);
    EXPECT_EQ(point->GetZ(), 3.5);
}

TEST_F(FloatPointTest, StoresAnything) {
    const IRef<IFloatPoint> point(CreateClassFloatPoint());
    point->SetX(std::numeric_limits<double>::quiet_NaN());
    point->SetY(std::numeric_limits<double>::infinity());
    point->SetZ(-std::numeric_limits<double>::infinity());
    EXPECT_TRUE(std::isnan(point->GetX()));
    EXPECT_EQ(point->GetY(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(point->GetZ(), -std::numeric_limits<double>::infinity());
}

}  // namespace
}  // namespace tessara

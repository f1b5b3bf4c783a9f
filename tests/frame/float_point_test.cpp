#include "frame/float_point.h"

#include <gtest/gtest.h>

#include <limits>

namespace tessara {
namespace {

TEST(FloatPoint, StartsAtTheOrigin) {
    IFloatPoint* point = CreateClassFloatPoint();
    EXPECT_EQ(point->AddRef(), 1u);
    EXPECT_EQ(point->GetX(), 0.0);
    EXPECT_EQ(point->GetY(), 0.0);
    EXPECT_EQ(point->GetZ(), 0.0);
    EXPECT_EQ(point->Release(), 0u);
}

}  // namespace
}  // namespace tessara

#include "frame/fresh.h"

#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "tessara/coord.h"

namespace tessara {
namespace {

using FreshTest = testing::BalancedTest;

TEST_F(FreshTest, DeletesWhatIsNotHandedOut) {
    const Fresh<ICoord> coord(CreateClassCoord());
    ASSERT_TRUE(coord.IsValid());
    EXPECT_TRUE(coord->SetPixel(1.0, 2.0));
}

TEST_F(FreshTest, HandsOutAnObjectOfCountZero) {
    Fresh<ICoord> coord(CreateClassCoord());
    ICoord* const out = coord.HandOut();
    EXPECT_FALSE(coord.IsValid());
    EXPECT_EQ(out->AddRef(), 1u);
    EXPECT_EQ(out->Release(), 0u);
}

TEST_F(FreshTest, MayBeEmpty) {
    Fresh<ICoord> nothing(nullptr);
    EXPECT_FALSE(nothing.IsValid());
    EXPECT_EQ(nothing.HandOut(), nullptr);
}

}  // namespace
}  // namespace tessara

#include "tessara/host/rect.h"

#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

class HostRect : public testing::BalancedTest {};

TEST_F(HostRect, GivesItsFourEdges) {
    const IRef<IRect> rect(NewObject<host::Rect>(1, INT32_MIN, INT32_MAX, -4));
    EXPECT_EQ(rect->GetLeft(), 1);
    EXPECT_EQ(rect->GetTop(), INT32_MIN);
    EXPECT_EQ(rect->GetRight(), INT32_MAX);
    EXPECT_EQ(rect->GetBottom(), -4);
}

}  // namespace
}  // namespace tessara

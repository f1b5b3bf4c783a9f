#include "grids/grid_line_array.h"

#include <gtest/gtest.h>

#include <new>

#include "support/grids.h"
#include "support/live_objects.h"
#include "support/objects.h"

namespace tessara::testing {
namespace {

// Ten lines of the grid of a kilometre on a sheet of Munich.
class GridLineArrayTest : public BalancedTest {
  protected:
    void SetUp() override {
        const auto grid = GridOf(KOORD_UTM, MapOf(MunichSheet()), 1000.0, 1000.0);
        ASSERT_TRUE(SetWindow(grid, 0, 0, 8000, 6000));
        ASSERT_TRUE(grid->GetEastLines(lines.Get()));
        ASSERT_GT(lines->GetCount(), 0u);
        line = LineAt(lines, 0);
        ASSERT_GE(line->GetCount(), 2u);
    }

    IRef<IArray> lines{CreateClassArray()};
    IRef<IArray> line;
};

TEST_F(GridLineArrayTest, GivesTheSameObjectsEachTime) {
    IUnknown* const first = line->GetAt(0);
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(line->GetAt(0), first);
    EXPECT_NE(line->GetAt(1), first);
    EXPECT_EQ(line->GetAt(line->GetCount()), nullptr);
    IRef<ICoord>(first)->SetHeight(7.0);
    EXPECT_EQ(IRef<ICoord>(line->GetAt(0))->GetHeight(), 7.0);
}

TEST_F(GridLineArrayTest, GrowsAndShrinksAsAnyList) {
    const std::uint32_t count = line->GetCount();
    const IRef<ICoord> more(CreateClassCoord());
    line->Add(more.Get());
    line->Add(nullptr);
    ASSERT_EQ(line->GetCount(), count + 2);
    EXPECT_EQ(IRef<ICoord>(line->GetAt(count)).Get(), more.Get());
    EXPECT_EQ(line->GetAt(count + 1), nullptr);
    line->RemoveAt(count + 5);
    EXPECT_EQ(line->GetCount(), count + 2);
    line->RemoveAt(0);
    ASSERT_EQ(line->GetCount(), count + 1);
    EXPECT_EQ(IRef<ICoord>(line->GetAt(count - 1)).Get(), more.Get());
    line->Clear();
    EXPECT_EQ(line->GetCount(), 0u);
    line->Add(more.Get());
    EXPECT_EQ(line->GetCount(), 1u);

    const IRef<IArray> other = LineAt(lines, 1);
    other->Clear();
    EXPECT_EQ(other->GetCount(), 0u);
    EXPECT_EQ(other->GetAt(0), nullptr);
}

TEST_F(GridLineArrayTest, KeepsItsPointsWhereThereIsNoMemoryForThem) {
    const std::uint32_t count = line->GetCount();
    for (int nth = 1; nth <= 3; ++nth) {
        const FailAllocation failure(nth);
        EXPECT_EQ(line->GetAt(0), nullptr) << nth;
        EXPECT_TRUE(failure.HasFailed());
    }
    {
        const FailAllocation failure(1);
        EXPECT_THROW(line->Add(nullptr), std::bad_alloc);
    }
    {
        const FailAllocation failure(1);
        line->RemoveAt(0);
        EXPECT_TRUE(failure.HasFailed());
    }
    EXPECT_EQ(line->GetCount(), count);
    EXPECT_NE(line->GetAt(count - 1), nullptr);
}

TEST_F(GridLineArrayTest, KeepsItsPixelsWhereThereIsNoMemoryForThem) {
    const auto grid = GridOf(KOORD_UTM, MapOf(MunichSheet()), 1000.0, 1000.0);
    ASSERT_TRUE(SetWindow(grid, 0, 0, 8000, 6000));
    ASSERT_TRUE(grid->GetEastLinePixels(lines.Get()));
    line = LineAt(lines, 0);
    const std::uint32_t count = line->GetCount();
    for (int nth = 1; nth <= 3; ++nth) {
        const FailAllocation failure(nth);
        EXPECT_EQ(line->GetAt(0), nullptr) << nth;
        EXPECT_TRUE(failure.HasFailed());
    }
    EXPECT_EQ(line->GetCount(), count);
    EXPECT_TRUE(IRef<IFloatPoint>(line->GetAt(count - 1)).IsValid());
}

}  // namespace
}  // namespace tessara::testing

#include "tessara/intersection_results.h"

#include <gtest/gtest.h>

#include <new>
#include <vector>

#include "geometry/creation.h"
#include "support/live_objects.h"
#include "support/managed_library.h"
#include "support/objects.h"
#include "tessara/line_intersection_parameters.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::Disguised;

IRef<ILineIntersectionParameters> MakeRecord() {
    return IRef<ILineIntersectionParameters>(NewLineIntersectionParameters());
}

class IntersectionResultsTest : public testing::BalancedTest {
  protected:
    testing::ManagedLibrary library;
    IRef<IIntersectionResults> results{CreateClassIntersectionResults()};
    IRef<ILineIntersectionParameters> first = MakeRecord();
    IRef<ILineIntersectionParameters> second = MakeRecord();
};

TEST_F(IntersectionResultsTest, ANewListIsEmpty) {
    EXPECT_EQ(results->GetCount(), 0);
    EXPECT_EQ(results->GetFirstAt(0), nullptr);
    EXPECT_EQ(results->GetSecondAt(0), nullptr);
    EXPECT_FALSE(results->RemoveAt(0));
}

TEST_F(IntersectionResultsTest, KeepsPairs) {
    EXPECT_TRUE(results->Add(first.Get(), second.Get()));
    EXPECT_TRUE(results->Add(second.Get(), second.Get()));
    EXPECT_EQ(results->GetCount(), 2);
    EXPECT_EQ(results->GetFirstAt(0), first.Get());
    EXPECT_EQ(results->GetSecondAt(0), second.Get());
    EXPECT_EQ(results->GetFirstAt(1), second.Get());
    EXPECT_EQ(CountOf(first), 2u);
    EXPECT_EQ(CountOf(second), 4u);
    EXPECT_EQ(results->GetFirstAt(2), nullptr);
    EXPECT_EQ(results->GetSecondAt(99), nullptr);
}

TEST_F(IntersectionResultsTest, RemovingShiftsBothLists) {
    ASSERT_TRUE(results->Add(first.Get(), second.Get()));
    ASSERT_TRUE(results->Add(second.Get(), first.Get()));
    EXPECT_FALSE(results->RemoveAt(2));
    EXPECT_EQ(results->GetCount(), 2);
    EXPECT_TRUE(results->RemoveAt(0));
    EXPECT_EQ(results->GetCount(), 1);
    EXPECT_EQ(results->GetFirstAt(0), second.Get());
    EXPECT_EQ(results->GetSecondAt(0), first.Get());
    EXPECT_EQ(CountOf(first), 2u);
}

TEST_F(IntersectionResultsTest, ClearingEmptiesBothLists) {
    ASSERT_TRUE(results->Add(first.Get(), second.Get()));
    results->Clear();
    EXPECT_EQ(results->GetCount(), 0);
    EXPECT_EQ(CountOf(first), 1u);
    EXPECT_EQ(CountOf(second), 1u);
}

TEST_F(IntersectionResultsTest, HalfAPairIsNotAdded) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    auto* const foreign = Disguised<ILineIntersectionParameters>(stranger);
    EXPECT_FALSE(results->Add(first.Get(), nullptr));
    EXPECT_FALSE(results->Add(nullptr, second.Get()));
    EXPECT_FALSE(results->Add(first.Get(), foreign));
    EXPECT_FALSE(results->Add(foreign, second.Get()));
    EXPECT_EQ(results->GetCount(), 0);
    EXPECT_EQ(CountOf(first), 1u);
    EXPECT_EQ(CountOf(stranger), 1u);
}

TEST_F(IntersectionResultsTest, WithoutMemoryForTheSecondTheFirstGoesAgain) {
    // The first pair may find room in the lists, a later one must grow them; whichever allocation fails, the
    // lists stay equally long.
    for (int nth = 1; nth <= 2; ++nth) {
        for (int pair = 0; pair < 20; ++pair) {
            const std::int32_t before = results->GetCount();
            const auto add = [&] { return results->Add(first.Get(), second.Get()); };
            const bool isAdded = [&] {
                const testing::FailAllocation failure(nth);
                return add();
            }();
            EXPECT_EQ(results->GetCount(), isAdded ? before + 1 : before);
            ASSERT_TRUE(isAdded || add());
        }
    }
}

TEST_F(IntersectionResultsTest, AreUselessWithoutMemoryForBothLists) {
    int useless = 0;
    for (int nth = 1; nth <= 4; ++nth) {
        IRef<IIntersectionResults> halfMade;
        {
            const testing::FailAllocation failure(nth);
            halfMade = IRef<IIntersectionResults>(CreateClassIntersectionResults());
        }
        if (!halfMade.IsValid() || halfMade->GetCount() == 0) continue;
        ++useless;
        EXPECT_EQ(halfMade->GetCount(), -1) << nth;
        EXPECT_FALSE(halfMade->Add(first.Get(), second.Get())) << nth;
        EXPECT_FALSE(halfMade->RemoveAt(0)) << nth;
        halfMade->Clear();
    }
    EXPECT_EQ(useless, 2) << "the first list, and the second";
}

TEST(IntersectionResults, HaveListsOfTheirOwnWithoutAnObjectManager) {
    const IRef<IIntersectionResults> results(CreateClassIntersectionResults());
    const auto first = MakeRecord();
    const auto second = MakeRecord();
    EXPECT_EQ(results->GetCount(), 0);
    ASSERT_TRUE(results->Add(first.Get(), second.Get()));
    EXPECT_EQ(results->GetCount(), 1);
    EXPECT_EQ(IRef<ILineIntersectionParameters>(results->GetFirstAt(0)).Get(), first.Get());
    EXPECT_EQ(IRef<ILineIntersectionParameters>(results->GetSecondAt(0)).Get(), second.Get());
}

TEST(IntersectionResults, AreUselessWithAManagerThatGivesNoList) {
    const testing::ManagedLibrary library{testing::MakeEmptyHandedManager()};
    const IRef<IIntersectionResults> results(CreateClassIntersectionResults());
    const auto record = MakeRecord();
    ASSERT_TRUE(results.IsValid());
    EXPECT_FALSE(results->Add(record.Get(), record.Get()));
    EXPECT_FALSE(results->RemoveAt(0));
    EXPECT_EQ(results->GetCount(), -1);
    EXPECT_EQ(results->GetFirstAt(0), nullptr);
    EXPECT_EQ(results->GetSecondAt(0), nullptr);
    results->Clear();
    EXPECT_EQ(results->GetCount(), -1);
    EXPECT_EQ(CountOf(record), 1u);
}

// Lists that a manager of a host makes are the host's, too.
TEST(IntersectionResults, RemoveNothingFromListsOfDifferentLengths) {
    std::vector<IRef<IArray>> lists;
    const testing::ManagedLibrary library{testing::Substituting(CLSID_HostArray, [&lists] {
        lists.emplace_back(CreateClassArray());
        return IRef<IUnknown>(lists.back());
    })};
    const IRef<IIntersectionResults> results(CreateClassIntersectionResults());
    const auto record = MakeRecord();
    ASSERT_EQ(lists.size(), 2u);
    for (const IRef<IArray>& shortened : lists) {
        results->Clear();
        ASSERT_TRUE(results->Add(record.Get(), record.Get()));
        shortened->Clear();
        EXPECT_EQ(results->GetCount(), -1);
        EXPECT_FALSE(results->RemoveAt(0));
        EXPECT_EQ(lists[0]->GetCount() + lists[1]->GetCount(), 1u);
    }
}

}  // namespace
}  // namespace tessara

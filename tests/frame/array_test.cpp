#include "frame/array.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>
#include <vector>

#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/float_point.h"

namespace tessara {
namespace {

using testing::CountOf;

class ArrayTest : public testing::BalancedTest {
  protected:
    IRef<IArray> array{CreateClassArray()};
};

IRef<IFloatPoint> MakePoint(double x) {
    IRef<IFloatPoint> point(CreateClassFloatPoint());
    point->SetX(x);
    return point;
}

double XAt(const IRef<IArray>& array, std::uint32_t index) {
    return IRef<IFloatPoint>(array->GetAt(index))->GetX();
}

TEST_F(ArrayTest, StartsEmpty) {
    EXPECT_EQ(array->GetCount(), 0u);
}

TEST_F(ArrayTest, KeepsItsObjectsAlive) {
    array->Add(MakePoint(7.0).Get());
    ASSERT_EQ(array->GetCount(), 1u);
    EXPECT_EQ(XAt(array, 0), 7.0);
    EXPECT_EQ(CountOf(array->GetAt(0)), 1u);
}

TEST_F(ArrayTest, GetAtCountsNothing) {
    const auto point = MakePoint(1.0);
    array->Add(point.Get());
    EXPECT_EQ(CountOf(point), 2u) << "the list and this test";
    EXPECT_EQ(array->GetAt(0), point.Get());
    EXPECT_EQ(array->GetAt(0), point.Get());
    EXPECT_EQ(CountOf(point), 2u);
}

TEST_F(ArrayTest, GivesTheIdentityOfAnObjectWhateverFaceWasAdded) {
    const IRef<ICoord> coord(CreateClassCoord());
    const IRef<ICoordInternal> internal(coord);
    ASSERT_NE(static_cast<IUnknown*>(internal.Get()), static_cast<IUnknown*>(coord.Get()));
    array->Add(coord.Get());
    array->Add(internal.Get());
    EXPECT_EQ(array->GetAt(0), coord.Get());
    EXPECT_EQ(array->GetAt(1), coord.Get());
}

TEST_F(ArrayTest, NullTakesUpAPlace) {
    array->Add(nullptr);
    array->Add(MakePoint(2.0).Get());
    EXPECT_EQ(array->GetCount(), 2u);
    EXPECT_EQ(array->GetAt(0), nullptr);
    EXPECT_EQ(XAt(array, 1), 2.0);
}

// Answers not even IUnknown.
class Mute final : public IUnknown {
  public:
    ResultCode QueryInterface(const GUID*, void** out) override {
        *out = nullptr;
        return RESULT_NO_INTERFACE;
    }
    std::uint32_t AddRef() override { return 2; }
    std::uint32_t Release() override { return 1; }
};

TEST_F(ArrayTest, AnObjectThatDoesntAnswerTakesUpAPlace) {
    Mute mute;
    array->Add(&mute);
    EXPECT_EQ(array->GetCount(), 1u);
    EXPECT_EQ(array->GetAt(0), nullptr);
}

TEST_F(ArrayTest, RemoveAtClosesTheGapAndKeepsTheOrder) {
    const auto removed = MakePoint(1.0);
    array->Add(MakePoint(0.0).Get());
    array->Add(removed.Get());
    array->Add(MakePoint(2.0).Get());
    array->RemoveAt(1);
    ASSERT_EQ(array->GetCount(), 2u);
    EXPECT_EQ(XAt(array, 0), 0.0);
    EXPECT_EQ(XAt(array, 1), 2.0);
    EXPECT_EQ(CountOf(removed), 1u);
}

TEST_F(ArrayTest, RemoveAtAtOrPastTheCountDoesNothing) {
    array->RemoveAt(0);
    array->Add(MakePoint(1.0).Get());
    array->RemoveAt(1);
    array->RemoveAt(std::numeric_limits<std::uint32_t>::max());
    ASSERT_EQ(array->GetCount(), 1u);
    EXPECT_EQ(XAt(array, 0), 1.0);
}

TEST_F(ArrayTest, GetAtPastTheCountIsNull) {
    EXPECT_EQ(array->GetAt(0), nullptr);
    array->Add(MakePoint(1.0).Get());
    EXPECT_EQ(array->GetAt(1), nullptr);
    EXPECT_EQ(array->GetAt(std::numeric_limits<std::uint32_t>::max()), nullptr);
}

TEST_F(ArrayTest, GrowsAndShrinksWithAllCountsRight) {
    std::vector<IRef<IFloatPoint>> points;
    for (int i = 0; i < 1000; ++i) {
        points.push_back(MakePoint(i));
        array->Add(points.back().Get());
    }
    for (const auto& point : points)
        ASSERT_EQ(CountOf(point), 2u);
    for (int i = 0; i < 500; ++i)
        array->RemoveAt(0);
    ASSERT_EQ(array->GetCount(), 500u);
    for (std::uint32_t i = 0; i < 500; ++i) {
        ASSERT_EQ(XAt(array, i), 500.0 + i);
        ASSERT_EQ(CountOf(points[i]), 1u);
    }
    array->Clear();
    EXPECT_EQ(array->GetCount(), 0u);
    for (const auto& point : points)
        ASSERT_EQ(CountOf(point), 1u);
}

TEST_F(ArrayTest, HoldsAnObjectAsOftenAsItWasAdded) {
    const auto point = MakePoint(1.0);
    for (int i = 0; i < 3; ++i)
        array->Add(point.Get());
    EXPECT_EQ(CountOf(point), 4u);
    array->RemoveAt(2);
    EXPECT_EQ(CountOf(point), 3u);
}

TEST_F(ArrayTest, StaysAsItWasWithoutMemory) {
    const auto point = MakePoint(1.0);
    array->Add(point.Get());
    {
        const testing::FailAllocation failure(1);
        EXPECT_THROW(array->Add(point.Get()), std::bad_alloc);
    }
    EXPECT_EQ(array->GetCount(), 1u);
    EXPECT_EQ(CountOf(point), 2u);
}

// An element that calls its list while it dies.
class Reporter : public IUnknown {
  public:
    using Faces = FaceList<IUnknown>;

    Reporter(IArray* list, std::uint32_t* countAtItsEnd) : list_(list), countAtItsEnd_(countAtItsEnd) {}

  protected:
    ~Reporter() {
        *countAtItsEnd_ = list_->GetCount();
        list_->Add(nullptr);
    }

  private:
    IArray* list_;
    std::uint32_t* countAtItsEnd_;
};

TEST_F(ArrayTest, AnElementMayComeBackToTheListWhileItDies) {
    std::uint32_t count = 99;
    array->Add(NewObject<Reporter>(array.Get(), &count));
    array->Add(MakePoint(1.0).Get());
    array->RemoveAt(0);
    EXPECT_EQ(count, 1u) << "the gap is closed already";
    EXPECT_EQ(array->GetCount(), 2u);

    array->Add(NewObject<Reporter>(array.Get(), &count));
    array->Clear();
    EXPECT_EQ(count, 0u) << "the list is empty already";
    EXPECT_EQ(array->GetCount(), 1u);
}

TEST_F(ArrayTest, HoldsListsToo) {
    const IRef<IArray> inner(CreateClassArray());
    array->Add(inner.Get());
    EXPECT_EQ(IRef<IArray>(array->GetAt(0)).Get(), inner.Get());
    EXPECT_FALSE(IRef<ICoord>(array->GetAt(0)).IsValid())
        << "a reader sees a wrong element as an empty handle";
}

}  // namespace
}  // namespace tessara

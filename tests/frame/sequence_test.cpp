#include "frame/sequence.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support/live_objects.h"

namespace tessara {
namespace {

class SequenceTest : public testing::BalancedTest {};

// Room for three items.
template <class T>
struct SmallAllocator : std::allocator<T> {
    template <class U>
    struct rebind {
        using other = SmallAllocator<U>;
    };
    [[nodiscard]] std::size_t max_size() const noexcept { return 3; }
};

// The text of the exception that an action throws; empty if it throws none.
template <class Exception, class Action>
std::string MessageOf(Action action) {
    try {
        action();
    } catch (const Exception& exception) {
        return exception.what();
    }
    return {};
}

TEST_F(SequenceTest, GrowsAtItsEnd) {
    Sequence<std::string> sequence;
    EXPECT_EQ(sequence.Size(), 0u);
    for (int i = 0; i < 100; ++i)
        sequence.Append(std::to_string(i));
    ASSERT_EQ(sequence.Size(), 100u);
    EXPECT_EQ(sequence[0], "0");
    EXPECT_EQ(std::as_const(sequence)[99], "99");
}

TEST_F(SequenceTest, ExtractClosesTheGap) {
    Sequence<int> sequence;
    for (int i = 0; i < 4; ++i)
        sequence.Append(i);
    EXPECT_EQ(sequence.Extract(1), 1);
    ASSERT_EQ(sequence.Size(), 3u);
    EXPECT_EQ(sequence[0], 0);
    EXPECT_EQ(sequence[1], 2);
    EXPECT_EQ(sequence[2], 3);
}

TEST_F(SequenceTest, SwapExchangesTheItems) {
    Sequence<int> one;
    Sequence<int> other;
    one.Append(7);
    one.Swap(other);
    EXPECT_EQ(one.Size(), 0u);
    EXPECT_EQ(other[0], 7);
}

TEST_F(SequenceTest, ASubscriptPastTheEndThrowsItsText) {
    Sequence<int> sequence;
    sequence.Append(7);
    const auto message = [](auto action) { return MessageOf<std::out_of_range>(action); };
    EXPECT_EQ(message([&] { sequence[1] = 0; }), "invalid vector<T> subscript");
    EXPECT_EQ(message([&] { (void)std::as_const(sequence)[1]; }), "invalid vector<T> subscript");
    EXPECT_EQ(message([&] { sequence.Extract(1); }), "invalid vector<T> subscript");
    EXPECT_EQ(sequence.Size(), 1u);
}

TEST_F(SequenceTest, GrowingBeyondAllBoundsThrowsItsText) {
    Sequence<int, SmallAllocator<int>> sequence;
    for (int i = 0; i < 3; ++i)
        sequence.Append(i);
    EXPECT_EQ(MessageOf<std::length_error>([&] { sequence.Append(3); }), "vector<T> too long");
    ASSERT_EQ(sequence.Size(), 3u);
    EXPECT_EQ(sequence[2], 2);
}

TEST_F(SequenceTest, StaysAsItWasWithoutMemory) {
    Sequence<int> sequence;
    sequence.Append(7);
    {
        const testing::FailAllocation failure(1);
        EXPECT_THROW(sequence.Append(8), std::bad_alloc);
    }
    ASSERT_EQ(sequence.Size(), 1u);
    EXPECT_EQ(sequence[0], 7);
}

}  // namespace
}  // namespace tessara

#include "tessara/vector.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

namespace tessara {
namespace {

// What a subscript throws, or an empty text.
template <class V>
std::string SubscriptError(V& v, std::uint32_t index) {
    try {
        static_cast<void>(v[index]);
    } catch (const std::out_of_range& error) {
        return error.what();
    }
    return {};
}

TEST(Vector, IsAValueOfSizeAndElements) {
    const Vector v{1.0, 2.5, -3.0};
    ASSERT_EQ(v.Size(), 3u);
    EXPECT_EQ(v[0], 1.0);
    EXPECT_EQ(v[1], 2.5);
    EXPECT_EQ(v[2], -3.0);
    EXPECT_EQ(Vector().Size(), 0u);
    EXPECT_EQ(Vector{7.0}.Size(), 1u);
}

TEST(Vector, SubscriptAtOrPastTheSizeThrowsItsFixedText) {
    Vector v{1.0, 2.0, 3.0};
    const Vector& constant = v;
    EXPECT_EQ(SubscriptError(v, 2), "");
    EXPECT_EQ(SubscriptError(v, 3), "invalid vector<T> subscript");
    EXPECT_EQ(SubscriptError(constant, 3), "invalid vector<T> subscript");
    EXPECT_EQ(SubscriptError(constant, UINT32_MAX), "invalid vector<T> subscript");
    Vector empty;
    EXPECT_EQ(SubscriptError(empty, 0), "invalid vector<T> subscript");
}

TEST(Vector, GrownRoomIsNoElement) {
    Vector v;
    for (int i = 0; i < 5; ++i)
        v.Append(i);
    EXPECT_EQ(SubscriptError(v, 5), "invalid vector<T> subscript");
}

TEST(Vector, GrowsByAppendAndKeepsItsElements) {
    Vector v;
    for (int i = 0; i < 1000; ++i)
        v.Append(0.5 * i);
    ASSERT_EQ(v.Size(), 1000u);
    for (std::uint32_t i = 0; i < 1000; ++i)
        ASSERT_EQ(v[i], 0.5 * i);
}

TEST(Vector, CopiesAreIndependent) {
    Vector original{1.0, 2.0};
    Vector copy = original;
    copy[0] = 5.0;
    EXPECT_EQ(original[0], 1.0);
    original = copy;
    copy[1] = 6.0;
    EXPECT_EQ(original, (Vector{5.0, 2.0}));
}

TEST(Vector, AssignmentToItselfKeepsTheElements) {
    Vector v{1.0, 2.0};
    const Vector& same = v;
    v = same;
    EXPECT_EQ(v, (Vector{1.0, 2.0}));
}

TEST(Vector, AMovedFromVectorIsEmptyAndUsable) {
    Vector from{1.0, 2.0};
    const Vector to = std::move(from);
    EXPECT_EQ(to, (Vector{1.0, 2.0}));
    EXPECT_EQ(from.Size(), 0u);
    from.Append(3.0);
    EXPECT_EQ(from, Vector{3.0});
}

TEST(Vector, ClearEmptiesAndZerosMakesZeros) {
    Vector v{1.0};
    v.Clear();
    EXPECT_EQ(v.Size(), 0u);
    v = Vector::Zeros(3);
    EXPECT_EQ(v, (Vector{0.0, 0.0, 0.0}));
    EXPECT_EQ(Vector::Zeros(0).Size(), 0u);
}

TEST(Vector, EqualityComparesSizesAndElements) {
    EXPECT_EQ((Vector{1.0, 2.0}), (Vector{1.0, 2.0}));
    EXPECT_NE((Vector{1.0, 2.0}), (Vector{1.0, 2.0, 0.0}));
    EXPECT_NE((Vector{1.0, 2.0}), (Vector{1.0, 3.0}));
    EXPECT_NE(Vector{std::numeric_limits<double>::quiet_NaN()},
              Vector{std::numeric_limits<double>::quiet_NaN()});
}

TEST(Vector, IteratesOverItsElements) {
    double sum = 0.0;
    for (const double element : Vector{1.0, 2.0, 4.0})
        sum += element;
    EXPECT_EQ(sum, 7.0);
}

// The layout is part of the binary contract: nothing that another standard library would lay out otherwise.
TEST(Vector, IsAPlainLayoutWithoutStandardLibraryTypes) {
    EXPECT_TRUE(std::is_standard_layout_v<Vector>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Vector>);
    EXPECT_EQ(sizeof(Vector), 2 * sizeof(void*) + 8);
}

}  // namespace
}  // namespace tessara

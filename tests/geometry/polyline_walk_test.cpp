#include "geometry/polyline_walk.h"

#include <gtest/gtest.h>

#include <vector>

namespace tessara {
namespace {

// Halves pieces of numbers while `isBent(left, right, depth)`.
template <class Test>
std::vector<double> Ends(const Test& isBent) {
    std::vector<double> ends;
    const auto divide = [&](double left, double right, std::size_t depth, double* middle) {
        *middle = (left + right) / 2.0;
        return isBent(left, right, depth) ? Division::Split : Division::Finished;
    };
    EXPECT_TRUE(WalkPolyline<4>(0.0, 1.0, divide, [&](double end) { ends.push_back(end); }));
    return ends;
}

TEST(WalkPolyline, APieceThatIsStraightIsOne) {
    EXPECT_EQ(Ends([](double, double, std::size_t) { return false; }), std::vector<double>{1.0});
}

TEST(WalkPolyline, WalksAllHalvesFromLeftToRight) {
    const auto ends = Ends([](double, double, std::size_t depth) { return depth < 4; });
    ASSERT_EQ(ends.size(), 16u);
    for (std::size_t i = 0; i < ends.size(); ++i)
        EXPECT_EQ(ends[i], static_cast<double>(i + 1) / 16.0);
}

TEST(WalkPolyline, TheDepthIsThatOfThePiece) {
    // Only the piece at 0.3 is halved: its depth follows from its length.
    const auto ends = Ends([](double left, double right, std::size_t depth) {
        EXPECT_EQ(right - left, 1.0 / static_cast<double>(std::size_t{1} << depth));
        return left <= 0.3 && right > 0.3 && depth < 4;
    });
    EXPECT_EQ(ends, (std::vector<double>{0.25, 0.3125, 0.375, 0.5, 1.0}));
}

TEST(WalkPolyline, EndsAtTheFirstFailure) {
    int divisions = 0;
    int finished = 0;
    const auto fail = [&](double, double, std::size_t depth, double*) {
        ++divisions;
        return depth == 2 ? Division::Failed : Division::Split;
    };
    EXPECT_FALSE(WalkPolyline<4>(0.0, 1.0, fail, [&](double) { ++finished; }));
    EXPECT_EQ(divisions, 3);
    EXPECT_EQ(finished, 0);
}

}  // namespace
}  // namespace tessara

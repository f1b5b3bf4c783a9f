#include "polygons/box_tree.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "support/random.h"

namespace tessara::box_tree_test {
namespace {

constexpr double INF = std::numeric_limits<double>::infinity();

bool Meet(const Box& a, const Box& b) {
    return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

// The numbers of the boxes that meet a window, and how many boxes and groups the search looked at.
struct Found {
    std::multiset<std::size_t> numbers;
    std::size_t looks = 0;
};

Found Search(const BoxTree& tree, const Box& window) {
    Found found;
    const auto passes = [&](const Box& box) {
        ++found.looks;
        return Meet(window, box);
    };
    tree.Search(passes, [&](std::size_t number) { found.numbers.insert(number); });
    return found;
}

TEST(BoxTree, FindsEachBoxThatPassesOnce) {
    testing::Random random(21);
    for (int k = 0; k < 300; ++k) {
        std::vector<Box> boxes(static_cast<std::size_t>(random.Below(200)));
        for (Box& box : boxes) {
            const double left = random.Below(30);
            const double top = random.Below(30);
            box = {left, top, left + random.Below(9), top + random.Below(9)};
        }
        const Box window{5, 5, 5.0 + random.Below(12), 5.0 + random.Below(12)};
        std::multiset<std::size_t> expected;
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            if (Meet(window, boxes[i])) expected.insert(i);
        }
        EXPECT_EQ(Search(BoxTree(boxes), window).numbers, expected) << k;
    }
}

TEST(BoxTree, FindsBoxesWithoutBorders) {
    std::vector<Box> boxes(20, Box{0, 0, 1, 1});
    boxes.push_back({-INF, -INF, INF, INF});
    boxes.push_back({INF, INF, -INF, -INF});  // around nothing
    EXPECT_EQ(Search(BoxTree(boxes), {7, 7, 8, 8}).numbers, (std::multiset<std::size_t>{20}));
}

// A search that finds one of n boxes looks at a few groups of each level: of 10 000 there are five levels.
TEST(BoxTree, LooksAtFewOfBoxesThatLieSideBySide) {
    constexpr std::size_t COUNT = 10000;
    std::vector<Box> rows, columns, crowd;
    for (std::size_t i = 0; i < COUNT; ++i) {
        const auto at = static_cast<double>(i);
        rows.push_back({0, at, COUNT, at + 0.5});
        columns.push_back({at, 0, at + 0.5, COUNT});
        // Half of them in a millionth of the width.
        const double x = i < COUNT / 2 ? at : COUNT + 1e-6 * at;
        crowd.push_back({x, x, x, x});
    }
    for (const auto* boxes : {&rows, &columns, &crowd}) {
        const BoxTree tree(*boxes);
        for (const std::size_t number : {std::size_t{0}, COUNT / 3, COUNT - 1}) {
            const Found found = Search(tree, (*boxes)[number]);
            EXPECT_EQ(found.numbers, (std::multiset<std::size_t>{number}));
            EXPECT_LT(found.looks, 1000u);
        }
    }
}

}  // namespace
}  // namespace tessara::box_tree_test

#include "polygons/polygon_pairs.h"

#include <gtest/gtest.h>

#include <limits>
#include <set>
#include <utility>

#include "support/random.h"

namespace tessara::polygon_pairs_test {
namespace {

using Pairs = std::multiset<std::pair<std::size_t, std::size_t>>;

Pairs NearPairs(const std::vector<Box>& boxes) {
    Pairs pairs;
    VisitNearPairs(boxes, [&](std::size_t i, std::size_t j) { pairs.emplace(i, j); });
    return pairs;
}

TEST(VisitNearPairs, VisitsEachPairThatMeetsOnce) {
    testing::Random random(1);
    for (int k = 0; k < 200; ++k) {
        std::vector<Box> boxes(static_cast<std::size_t>(random.Below(30)));
        for (Box& box : boxes) {
            // Whole numbers, so that many just touch.
            const double left = random.Below(20);
            const double top = random.Below(20);
            box = {left, top, left + random.Below(6), top + random.Below(6)};
        }
        Pairs expected;
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            for (std::size_t j = i + 1; j < boxes.size(); ++j) {
                const bool meetInX = boxes[i].left <= boxes[j].right && boxes[j].left <= boxes[i].right;
                const bool meetInY = boxes[i].top <= boxes[j].bottom && boxes[j].top <= boxes[i].bottom;
                if (meetInX && meetInY) expected.emplace(i, j);
            }
        }
        EXPECT_EQ(NearPairs(boxes), expected);
    }
}

TEST(VisitNearPairs, FindsEdgesThatARoundingKeepsApart) {
    // The intersection is on the end of the first edge, one rounding beside the second.
    const double third = 1e9 / 3.0;
    const std::vector<Box> boxes{BoxOfEdge({0, 0}, {third, 1}),
                                 BoxOfEdge({std::nextafter(third, 1e10), 0}, {1e9, 1})};
    EXPECT_EQ(NearPairs(boxes).size(), 1u);
}

TEST(VisitNearPairs, EndsForNumbersThatAreNone) {
    constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
    constexpr double INF = std::numeric_limits<double>::infinity();
    constexpr double LARGEST = std::numeric_limits<double>::max();
    std::vector<PlanePoint> points;
    for (const double x : {NONE, INF, -INF, LARGEST, -LARGEST, 0.0}) {
        for (const double y : {NONE, INF, -INF, LARGEST, 0.0})
            points.push_back({x, y});
    }
    std::vector<Box> boxes;
    for (const PlanePoint& a : points) {
        for (const PlanePoint& b : points) {
            boxes.push_back(BoxOfEdge(a, b));
            EXPECT_FALSE(std::isnan(boxes.back().left)) << "the order of boxes needs numbers";
        }
    }
    EXPECT_LE(NearPairs(boxes).size(), boxes.size() * boxes.size() / 2);
}

TEST(BoxesOfEdges, AreOneFewerThanTheVertices) {
    EXPECT_EQ(BoxesOfEdges({}).size(), 0u);
    const std::vector<PlanePoint> chain{{0, 0}, {4, 1}, {2, 5}};
    const std::vector<Box> boxes = BoxesOfEdges(chain);
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_TRUE(boxes[1].Holds({2, 5}) && boxes[1].Holds({4, 1}));
    EXPECT_FALSE(boxes[1].Holds({0, 0}));
    EXPECT_LT(boxes[1].left, 2);
    EXPECT_GT(boxes[1].left, 2 - 1e-13);
}

}  // namespace
}  // namespace tessara::polygon_pairs_test

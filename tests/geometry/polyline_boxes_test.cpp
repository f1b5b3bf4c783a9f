#include "geometry/polyline_boxes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "geometry/plane_intersections.h"
#include "numerics/special_values.h"
#include "support/random.h"

namespace tessara {
namespace {

using testing::Random;

using Polyline = std::vector<PlanePoint>;
using Pair = std::pair<std::size_t, std::size_t>;

// Each pair of segments that IntersectSegments finds an intersection on, by trying all of them.
std::vector<Pair> IntersectionPairs(const Polyline& a, const Polyline& b) {
    std::vector<Pair> pairs;
    for (std::size_t i = 1; i < a.size(); ++i) {
        for (std::size_t j = 1; j < b.size(); ++j) {
            if (IntersectSegments(a[i - 1], a[i], b[j - 1], b[j]).count > 0) pairs.push_back({i, j});
        }
    }
    return pairs;
}

std::vector<Pair> IntersectionPairsByBoxes(const Polyline& a, const Polyline& b) {
    const PolylineBoxes boxesA(a);
    const PolylineBoxes boxesB(b);
    std::vector<Pair> pairs;
    std::vector<std::size_t> near;
    for (std::size_t block = 0; block < boxesA.BlockCount(); ++block) {
        boxesB.FindNear(boxesA, block, &near);
        for (std::size_t i = boxesA.FirstOf(block); i < boxesA.EndOf(block); ++i) {
            for (const std::size_t j : near) {
                if (IntersectSegments(a[i - 1], a[i], b[j - 1], b[j]).count > 0) pairs.push_back({i, j});
            }
        }
    }
    return pairs;
}

// Polylines of 1 to 60 segments whose intersections roundings decide: on a coarse grid, along one sloped
// line, far from (0, 0) and nearly parallel, all over the place, and walking.
Polyline RandomPolyline(Random& random, int kind, double size) {
    Polyline polyline;
    double x = 0.0, y = 0.0;
    const int points = 2 + random.Below(60);
    for (int i = 0; i < points; ++i) {
        switch (kind) {
            case 0:
                x = random.Below(7), y = random.Below(7);
                break;
            case 1:
                x = random.Between(-size, size), y = x * 0.3;
                break;
            case 2:
                x += 0.1, y = 1e7 + 0.1 * x + 1e-9 * random.Below(3);
                break;
            case 3:
                x = random.Between(-size, size), y = random.Between(-size, size);
                break;
            default:
                x += random.Between(-size, size), y += random.Between(-size, size);
        }
        polyline.push_back({x, y});
    }
    return polyline;
}

TEST(PolylineBoxes, LeaveNoSegmentOutThatIsCrossed) {
    Random random(1962);
    std::size_t intersections = 0;
    for (int i = 0; i < 3000; ++i) {
        const double size = std::pow(10.0, random.Between(-300.0, 150.0) * (i % 10 == 0 ? 1.0 : 0.02));
        Polyline a = RandomPolyline(random, i % 5, size);
        const Polyline b = RandomPolyline(random, i % 5, size);
        if (i % 7 == 0) a.push_back(a.front());
        const std::vector<Pair> expected = IntersectionPairs(a, b);
        ASSERT_EQ(IntersectionPairsByBoxes(a, b), expected) << "kind " << i % 5 << ", size " << size;
        intersections += expected.size();
    }
    EXPECT_GT(intersections, 100000u);
}

TEST(PolylineBoxes, PointsThatArentFiniteHideNothingAroundThem) {
    Random random(1963);
    for (const double odd : {NOT_A_NUMBER, INFINITE, -INFINITE, 1e308, -1e308}) {
        for (int i = 0; i < 200; ++i) {
            Polyline a = RandomPolyline(random, 3, 10.0);
            Polyline b = RandomPolyline(random, 4, 10.0);
            PlanePoint& point =
                b[static_cast<std::size_t>(random.Below(static_cast<std::int32_t>(b.size())))];
            // A huge y lets products overflow, of which IntersectSegments makes intersections.
            (i % 4 < 2 || std::isfinite(odd) ? point.x : point.y) = odd;
            if (i % 2 == 0)
                a[static_cast<std::size_t>(random.Below(static_cast<std::int32_t>(a.size())))].y = odd;
            ASSERT_EQ(IntersectionPairsByBoxes(a, b), IntersectionPairs(a, b)) << odd;
        }
    }
}

// Two blocks of segments: eight far above the line, and eight of which one crosses it.
TEST(PolylineBoxes, APointWithOneFiniteCoordinateHidesNothingInItsBlock) {
    const Polyline line{{-1.0, 0.0}, {1.0, 0.0}};
    for (const double odd : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        for (const PlanePoint point : {PlanePoint{9.0, odd}, PlanePoint{odd, 9.0}}) {
            Polyline polyline;
            for (int i = 0; i <= 8; ++i)
                polyline.push_back({i * 1.0, 100.0 + i});
            polyline.insert(polyline.end(), {point, {9.0, 9.0}, {0.5, 5.0}, {0.5, -5.0}});
            EXPECT_EQ(IntersectionPairsByBoxes(line, polyline), (std::vector<Pair>{{1, 12}})) << odd;
        }
    }
}

TEST(PolylineBoxes, LeaveOutTheSegmentsBesideALine) {
    const Polyline line{{0.0, 0.0}, {1.0, 0.0}, {2.0, 0.0}};
    const Polyline beside{{0.0, 1.0}, {1.0, 1.0}, {2.0, 2.0}};
    std::vector<std::size_t> near{7};
    PolylineBoxes(beside).FindNear(PolylineBoxes(line), 0, &near);
    EXPECT_TRUE(near.empty());
}

TEST(PolylineBoxes, LeaveMostSegmentsOut) {
    Polyline straight, wave;
    for (int i = 0; i <= 1000; ++i) {
        straight.push_back({0.1 * i, 0.0});
        wave.push_back({0.1 * i, 10.0 * std::sin(0.3 * i)});
    }
    const PolylineBoxes boxesA(straight);
    const PolylineBoxes boxesB(wave);
    std::vector<std::size_t> near;
    std::size_t pairs = 0;
    for (std::size_t block = 0; block < boxesA.BlockCount(); ++block) {
        boxesB.FindNear(boxesA, block, &near);
        pairs += near.size() * (boxesA.EndOf(block) - boxesA.FirstOf(block));
    }
    EXPECT_LT(pairs, 100000u) << "of 1000 times 1000";
}

}  // namespace
}  // namespace tessara

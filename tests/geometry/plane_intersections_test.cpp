#include "geometry/plane_intersections.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "support/random.h"

namespace tessara {
namespace {

using testing::Random;

using Polyline = std::vector<PlanePoint>;

std::vector<PolylineIntersection> IntersectionsOf(const Polyline& a, const Polyline& b) {
    std::vector<PolylineIntersection> intersections;
    EXPECT_TRUE(VisitIntersections(a, b, [&](const PolylineIntersection& intersection) {
        intersections.push_back(intersection);
        return true;
    }));
    return intersections;
}

void ExpectIntersection(const PolylineIntersection& intersection, std::size_t i, std::size_t j, double t,
                        double s, const PlanePoint& place) {
    EXPECT_EQ(intersection.i, i);
    EXPECT_EQ(intersection.j, j);
    EXPECT_EQ(intersection.t, t);
    EXPECT_EQ(intersection.s, s);
    EXPECT_EQ(intersection.place, place);
}

const Polyline SQUARE = {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}};

TEST(VisitIntersections, AClosedPolylineGivesItsLastPointThroughItsFirst) {
    const auto intersections = IntersectionsOf(SQUARE, {{-1, 0}, {5, 0}});
    ASSERT_EQ(intersections.size(), 2u);
    ExpectIntersection(intersections[0], 1, 1, 0.0, 1.0 / 6.0, {0, 0});
    ExpectIntersection(intersections[1], 2, 1, 0.0, 5.0 / 6.0, {4, 0});
}

TEST(VisitIntersections, AnInnerVertexCountsOnceWithTheSegmentThatStartsThere) {
    const auto intersections = IntersectionsOf({{0, 0}, {2, 2}, {4, 0}}, {{2, 0}, {2, 4}});
    ASSERT_EQ(intersections.size(), 1u);
    ExpectIntersection(intersections[0], 2, 1, 0.0, 0.5, {2, 2});
    EXPECT_EQ(IntersectionsOf({{0, 0}, {2, 2}, {4, 0}}, {{0, 2}, {4, 2}}).size(), 1u);
}

TEST(VisitIntersections, TheLastVertexOfAnOpenPolylineCounts) {
    const auto intersections = IntersectionsOf({{0, 0}, {2, 2}}, {{2, 0}, {2, 4}});
    ASSERT_EQ(intersections.size(), 1u);
    ExpectIntersection(intersections[0], 1, 1, 1.0, 0.5, {2, 2});
}

TEST(VisitIntersections, AnOverlapGivesItsTwoEnds) {
    const auto inner = IntersectionsOf({{0, 0}, {10, 0}}, {{3, 0}, {7, 0}});
    ASSERT_EQ(inner.size(), 2u);
    ExpectIntersection(inner[0], 1, 1, 0.3, 0.0, {3, 0});
    ExpectIntersection(inner[1], 1, 1, 0.7, 1.0, {7, 0});
    const auto outer = IntersectionsOf({{3, 0}, {7, 0}}, {{10, 0}, {0, 0}});
    ASSERT_EQ(outer.size(), 2u);
    ExpectIntersection(outer[0], 1, 1, 0.0, 0.7, {3, 0});
    ExpectIntersection(outer[1], 1, 1, 1.0, 0.3, {7, 0});
    const auto partial = IntersectionsOf({{0, 0}, {0, 4}}, {{0, 1}, {0, 9}});
    ASSERT_EQ(partial.size(), 2u);
    ExpectIntersection(partial[0], 1, 1, 1.0, 0.375, {0, 4});
    ExpectIntersection(partial[1], 1, 1, 0.25, 0.0, {0, 1});
}

TEST(VisitIntersections, TheVertexRuleHoldsForOverlapsToo) {
    // The overlap ends in (4, 0), an inner vertex of the first polyline, where its second segment starts.
    const auto intersections = IntersectionsOf({{0, 0}, {4, 0}, {4, 4}}, {{2, 0}, {9, 0}});
    ASSERT_EQ(intersections.size(), 2u);
    ExpectIntersection(intersections[0], 1, 1, 0.5, 0.0, {2, 0});
    ExpectIntersection(intersections[1], 2, 1, 0.0, 2.0 / 7.0, {4, 0});
}

TEST(VisitIntersections, CollinearSegmentsThatTouchInAnEndShareThatPoint) {
    const auto intersections = IntersectionsOf({{0, 0}, {4, 0}}, {{4, 0}, {9, 0}});
    ASSERT_EQ(intersections.size(), 1u);
    ExpectIntersection(intersections[0], 1, 1, 1.0, 0.0, {4, 0});
}

TEST(VisitIntersections, ParallelAndDistantSegmentsGiveNothing) {
    EXPECT_TRUE(IntersectionsOf({{0, 0}, {4, 0}}, {{0, 1}, {4, 1}}).empty());
    EXPECT_TRUE(IntersectionsOf({{0, 0}, {4, 0}}, {{5, 0}, {9, 0}}).empty());
    EXPECT_TRUE(IntersectionsOf({{0, 0}, {4, 0}}, {{5, -1}, {5, 1}}).empty());
    EXPECT_TRUE(IntersectionsOf({{0, 0}, {4, 0}}, {{2, 1}, {2, 2}}).empty());
}

TEST(VisitIntersections, SegmentsWithoutLengthAreTheirPoints) {
    const auto one = IntersectionsOf({{2, 2}, {2, 2}}, {{0, 0}, {4, 4}});
    ASSERT_EQ(one.size(), 1u);
    ExpectIntersection(one[0], 1, 1, 0.0, 0.5, {2, 2});
    const auto other = IntersectionsOf({{0, 0}, {4, 4}}, {{1, 1}, {1, 1}});
    ASSERT_EQ(other.size(), 1u);
    ExpectIntersection(other[0], 1, 1, 0.25, 0.0, {1, 1});
    EXPECT_EQ(IntersectionsOf({{1, 1}, {1, 1}}, {{1, 1}, {1, 1}}).size(), 1u);
    EXPECT_TRUE(IntersectionsOf({{1, 1}, {1, 1}}, {{1, 2}, {1, 2}}).empty());
    EXPECT_TRUE(IntersectionsOf({{5, 5}, {5, 5}}, {{0, 0}, {4, 4}}).empty());  // on the line, off the segment
}

TEST(VisitIntersections, EndsAtTheFirstFalse) {
    const Polyline line{{-1, 2}, {5, 2}};
    int visits = 0;
    EXPECT_FALSE(VisitIntersections(SQUARE, line, [&](const PolylineIntersection&) { return ++visits < 2; }));
    EXPECT_EQ(visits, 2);
}

TEST(VisitIntersections, NumbersThatArentCrossNothing) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {std::numeric_limits<double>::quiet_NaN(), infinity, -infinity}) {
        for (const PlanePoint& point : {PlanePoint{bad, 1}, PlanePoint{1, bad}, PlanePoint{bad, bad}}) {
            EXPECT_TRUE(IntersectionsOf({{1, -1}, point}, {{0, 0}, {4, 0}}).empty())
                << point.x << ' ' << point.y;
            EXPECT_TRUE(IntersectionsOf({{0, 0}, {4, 0}}, {point, {1, -1}}).empty())
                << point.x << ' ' << point.y;
        }
    }
}

TEST(VisitIntersections, SlopedOverlapsGiveTheirEnds) {
    Random random(21);
    for (int round = 0; round < 1000; ++round) {
        // Four multiples of one direction, all different, so that a and b have lengths.
        const PlanePoint start{static_cast<double>(random.Below(100)),
                               static_cast<double>(random.Below(100))};
        const double dx = 1 + random.Below(30);
        const double dy = (random.Below(2) == 0 ? 1 : -1) * (1 + random.Below(30));
        const auto at = [&](int k) { return PlanePoint{start.x + k * dx, start.y + k * dy}; };
        int k[4];
        do {
            for (int& value : k)
                value = random.Below(20);
        } while (k[0] == k[1] || k[2] == k[3]);
        const int low = std::max(std::min(k[0], k[1]), std::min(k[2], k[3]));
        const int high = std::min(std::max(k[0], k[1]), std::max(k[2], k[3]));

        auto intersections = IntersectionsOf({at(k[0]), at(k[1])}, {at(k[2]), at(k[3])});
        ASSERT_EQ(intersections.size(), low > high ? 0u : low == high ? 1u : 2u);
        if (low > high) continue;
        if (intersections.front().place.x > intersections.back().place.x)
            std::swap(intersections.front(), intersections.back());
        // Pixels; a few roundings of numbers below 1000.
        EXPECT_NEAR(intersections.front().place.x, at(low).x, 1e-12);
        EXPECT_NEAR(intersections.front().place.y, at(low).y, 1e-12);
        EXPECT_NEAR(intersections.back().place.x, at(high).x, 1e-12);
        EXPECT_NEAR(intersections.back().place.y, at(high).y, 1e-12);
    }
}

// Brute force on whole coordinates, where every sign and every fraction is exact.
struct Whole {
    std::int64_t x, y;
    bool operator==(const Whole&) const = default;
};

struct Fraction {
    std::int64_t numerator, denominator;

    [[nodiscard]] bool IsOne() const { return numerator == denominator; }
    [[nodiscard]] double Value() const {
        return static_cast<double>(numerator) / static_cast<double>(denominator);
    }
};

struct ExactIntersection {
    std::size_t i, j;
    Fraction t, s;
};

std::int64_t Cross(const Whole& origin, const Whole& p, const Whole& q) {
    return (p.x - origin.x) * (q.y - origin.y) - (p.y - origin.y) * (q.x - origin.x);
}

std::int64_t Dot(const Whole& origin, const Whole& p, const Whole& q) {
    return (p.x - origin.x) * (q.x - origin.x) + (p.y - origin.y) * (q.y - origin.y);
}

bool IsOn(const Whole& p, const Whole& a, const Whole& b) {
    return Cross(a, b, p) == 0 && Dot(p, a, b) <= 0;
}

// The parameter of a point of the segment.
Fraction ParameterOf(const Whole& p, const Whole& a, const Whole& b) {
    return a == b ? Fraction{0, 1} : Fraction{Dot(a, p, b), Dot(a, b, b)};
}

std::vector<ExactIntersection> ExactIntersections(const std::vector<Whole>& a, const std::vector<Whole>& b) {
    std::vector<ExactIntersection> intersections;
    for (std::size_t i = 1; i < a.size(); ++i) {
        for (std::size_t j = 1; j < b.size(); ++j) {
            const Whole &a1 = a[i - 1], &a2 = a[i], &b1 = b[j - 1], &b2 = b[j];
            const auto emit = [&](Fraction t, Fraction s) {
                if (t.IsOne() && (i + 1 < a.size() || a.front() == a.back())) return;
                if (s.IsOne() && (j + 1 < b.size() || b.front() == b.back())) return;
                intersections.push_back({i, j, t, s});
            };
            const std::int64_t fromA1 = Cross(b1, b2, a1), fromA2 = Cross(b1, b2, a2);
            const std::int64_t fromB1 = Cross(a1, a2, b1), fromB2 = Cross(a1, a2, b2);
            if (fromA1 != fromA2) {  // not parallel: t = fromA1 / (fromA1 - fromA2), s likewise
                const bool isOnA = (fromA1 <= 0 && fromA2 >= 0) || (fromA1 >= 0 && fromA2 <= 0);
                const bool isOnB = (fromB1 <= 0 && fromB2 >= 0) || (fromB1 >= 0 && fromB2 <= 0);
                if (isOnA && isOnB) emit({fromA1, fromA1 - fromA2}, {fromB1, fromB1 - fromB2});
                continue;
            }
            std::vector<Whole> common;
            for (const Whole& p : {a1, a2, b1, b2}) {
                const bool isKnown = std::find(common.begin(), common.end(), p) != common.end();
                if (isKnown || !IsOn(p, a1, a2) || !IsOn(p, b1, b2)) continue;
                common.push_back(p);
                emit(ParameterOf(p, a1, a2), ParameterOf(p, b1, b2));
            }
        }
    }
    return intersections;
}

// Few columns and rows, so that vertices, overlaps and points without length are common.
std::vector<Whole> RandomPolyline(Random* random, std::int32_t size) {
    std::vector<Whole> polyline;
    const int count = 2 + random->Below(8);
    while (static_cast<int>(polyline.size()) < count)
        polyline.push_back({random->Below(size), random->Below(size)});
    if (random->Below(3) == 0) polyline.push_back(polyline.front());
    return polyline;
}

Polyline PlanePolyline(const std::vector<Whole>& polyline) {
    Polyline plane;
    for (const Whole& p : polyline)
        plane.push_back({static_cast<double>(p.x), static_cast<double>(p.y)});
    return plane;
}

TEST(VisitIntersections, AgreesWithExactArithmetic) {
    Random random(22);
    std::size_t total = 0;
    for (int round = 0; round < 10000; ++round) {
        const std::int32_t size = round % 2 == 0 ? 6 : 1000;
        const auto a = RandomPolyline(&random, size);
        const auto b = RandomPolyline(&random, size);
        const auto exact = ExactIntersections(a, b);
        const auto intersections = IntersectionsOf(PlanePolyline(a), PlanePolyline(b));
        ASSERT_EQ(intersections.size(), exact.size()) << round;
        total += exact.size();
        for (std::size_t k = 0; k < exact.size(); ++k) {
            EXPECT_EQ(intersections[k].i, exact[k].i);
            EXPECT_EQ(intersections[k].j, exact[k].j);
            // A quotient of exact whole numbers is rounded once.
            EXPECT_EQ(intersections[k].t, exact[k].t.Value());
            EXPECT_EQ(intersections[k].s, exact[k].s.Value());
            const Whole &start = a[exact[k].i - 1], &end = a[exact[k].i];
            const double t = exact[k].t.Value();
            // Pixels; a few roundings of numbers up to 1000.
            EXPECT_NEAR(intersections[k].place.x,
                        static_cast<double>(start.x) + t * static_cast<double>(end.x - start.x), 1e-12);
            EXPECT_NEAR(intersections[k].place.y,
                        static_cast<double>(start.y) + t * static_cast<double>(end.y - start.y), 1e-12);
        }
    }
    EXPECT_GT(total, 50000u);
}

// The length of the first segment overflows, and so does the distance of (8e307, 0.001) from its start. They
// are parallel within rounding.
TEST(IntersectSegments, ParametersThatOverflowAreNoIntersections) {
    const PlanePoint a1{-1e308, 0.0}, a2{1.5e308, 1e17}, b1{0.7976931348623157e308, 0.0}, b2{8e307, 1e-3};
    for (const auto& [t, s] : IntersectSegments(a1, a2, b1, b2)) {
        EXPECT_TRUE(t >= 0.0 && t <= 1.0) << t;
        EXPECT_TRUE(s >= 0.0 && s <= 1.0) << s;
    }
}

}  // namespace
}  // namespace tessara

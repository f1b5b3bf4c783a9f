#include "polygons/polygon_inside.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <numeric>

#include "polygons/polygon_split.h"
#include "support/rings.h"

namespace tessara::polygon_inside_test {
namespace {

using testing::Closed;
using testing::Random;
using testing::RandomStar;
using testing::Rectangle;
using testing::Reversed;
using testing::StartingAt;

constexpr double TOLERANCE = 2.220446049250313e-11;
constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

const Ring BOW_TIE{{0, 0}, {2, 2}, {2, 0}, {0, 2}};

__extension__ typedef __int128 Wide;

// Whole numbers, of which a coordinate is `unit` times one. Products of three stay far below 2 to the 127.
struct WholePoint {
    std::int64_t x, y;

    bool operator==(const WholePoint&) const = default;
};

using WholeRing = std::vector<WholePoint>;

// Twice the area of a, b, p: positive if p is to the left of a-b in axes with y upward. Exact.
int SideOf(const WholePoint& a, const WholePoint& b, const WholePoint& p) {
    const auto area = static_cast<Wide>(b.x - a.x) * (p.y - a.y) - static_cast<Wide>(b.y - a.y) * (p.x - a.x);
    return (area > 0) - (area < 0);
}

bool IsOnEdge(const WholePoint& a, const WholePoint& b, const WholePoint& p) {
    return SideOf(a, b, p) == 0 && std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) &&
           std::min(a.y, b.y) <= p.y && p.y <= std::max(a.y, b.y);
}

struct ExactPlace {
    bool isOnRing;
    bool isInsideEvenOdd;
    int winding;
};

// Counts the edges that cross the row of p to its right. An edge has its upper end and not its lower one, so
// that each intersection counts once; no division is needed to see on which side of p it lies.
ExactPlace PlaceOf(const WholePoint& p, const WholeRing& ring) {
    ExactPlace place{};
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const WholePoint& a = ring[i];
        const WholePoint& b = ring[(i + 1) % ring.size()];
        if (IsOnEdge(a, b, p)) place.isOnRing = true;
        if ((a.y > p.y) == (b.y > p.y)) continue;
        const bool isUpward = b.y > a.y;
        const bool isRight = SideOf(a, b, p) == (isUpward ? 1 : -1);
        if (!isRight) continue;
        place.isInsideEvenOdd = !place.isInsideEvenOdd;
        place.winding += isUpward ? 1 : -1;
    }
    return place;
}

// Whether no two edges meet but neighbours in their common vertex.
bool IsSimple(const WholeRing& ring) {
    const std::size_t n = ring.size();
    const auto at = [&](std::size_t i) { return ring[i % n]; };
    for (std::size_t i = 0; i < n; ++i) {
        if (at(i) == at(i + 1) || IsOnEdge(at(i), at(i + 1), at(i + 2))) return false;
        if (IsOnEdge(at(i + 1), at(i + 2), at(i))) return false;
        for (std::size_t j = i + 2; j < n && (i > 0 || j + 1 < n); ++j) {
            const int a = SideOf(at(i), at(i + 1), at(j));
            const int b = SideOf(at(i), at(i + 1), at(j + 1));
            const int c = SideOf(at(j), at(j + 1), at(i));
            const int d = SideOf(at(j), at(j + 1), at(i + 1));
            if (a * b < 0 && c * d < 0) return false;
            if (IsOnEdge(at(i), at(i + 1), at(j)) || IsOnEdge(at(i), at(i + 1), at(j + 1))) return false;
            if (IsOnEdge(at(j), at(j + 1), at(i)) || IsOnEdge(at(j), at(j + 1), at(i + 1))) return false;
        }
    }
    return true;
}

// Whole coordinates and tenths, from crowded rings to wide ones.
struct Raster {
    int perUnit;
    std::int32_t size;
};
constexpr std::array RASTERS{Raster{1, 6},   Raster{1, 40},   Raster{1, 20000},
                             Raster{10, 12}, Raster{10, 300}, Raster{10, 200000}};

class ExactCases {
  public:
    explicit ExactCases(const Raster& raster, std::uint64_t seed) : raster_(raster), random_(seed) {}

    WholePoint Point() { return {Coordinate(), Coordinate()}; }

    WholeRing Ring() {
        WholeRing ring(static_cast<std::size_t>(3 + random_.Below(10)));
        for (WholePoint& vertex : ring)
            vertex = Point();
        return ring;
    }

    // Anywhere, on a vertex, in the row of one or in the middle of an edge.
    WholePoint Probe(const WholeRing& ring) {
        const auto i = static_cast<std::size_t>(random_.Below(static_cast<std::int32_t>(ring.size())));
        const WholePoint& a = ring[i];
        const WholePoint& b = ring[(i + 1) % ring.size()];
        switch (random_.Below(8)) {
            case 0:
                return a;
            case 1:
                return {Coordinate(), a.y};
            case 2:
                return {(a.x + b.x) / 2, (a.y + b.y) / 2};
            default:
                return Point();
        }
    }

    [[nodiscard]] PlanePoint Pixel(const WholePoint& p) const {
        return {static_cast<double>(p.x) / raster_.perUnit, static_cast<double>(p.y) / raster_.perUnit};
    }

    [[nodiscard]] tessara::Ring Pixels(const WholeRing& ring) const {
        tessara::Ring pixels;
        for (const WholePoint& p : ring)
            pixels.push_back(Pixel(p));
        return pixels;
    }

  private:
    std::int64_t Coordinate() { return random_.Below(2 * raster_.size + 1) - raster_.size; }

    Raster raster_;
    Random random_;
};

TEST(PointInVertices, AgreesWithExactArithmeticInAHundredThousandCases) {
    constexpr int RINGS = 1700;  // times 6 rasters times 10 points
    int inside = 0;
    int cases = 0;
    for (std::size_t r = 0; r < RASTERS.size(); ++r) {
        ExactCases random(RASTERS[r], 100 + r);
        for (int k = 0; k < RINGS; ++k) {
            const WholeRing whole = random.Ring();
            const Ring ring = random.Pixels(whole);
            for (int probe = 0; probe < 10; ++probe) {
                const WholePoint p = random.Probe(whole);
                const ExactPlace exact = PlaceOf(p, whole);
                const bool isInside = exact.isOnRing || exact.isInsideEvenOdd;
                ASSERT_EQ(PointInVertices(random.Pixel(p), ring, TOLERANCE), isInside)
                    << "raster " << r << ", ring " << k << ", point " << p.x << " " << p.y;
                inside += isInside;
                ++cases;
            }
        }
    }
    EXPECT_GE(cases, 100000);
    EXPECT_GT(inside, 25000);
    EXPECT_LT(inside, 75000);
}

TEST(PointInPolygon, AgreesWithExactArithmeticOnSimpleRings) {
    int simple = 0;
    int inside = 0;
    for (std::size_t r = 0; r < RASTERS.size(); ++r) {
        ExactCases random(RASTERS[r], 200 + r);
        for (int k = 0; k < 3000; ++k) {
            const WholeRing whole = random.Ring();
            if (!IsSimple(whole)) continue;
            ++simple;
            const Ring ring = random.Pixels(whole);
            for (int probe = 0; probe < 10; ++probe) {
                const WholePoint p = random.Probe(whole);
                const ExactPlace exact = PlaceOf(p, whole);
                const bool isInside = exact.isOnRing || exact.isInsideEvenOdd;
                ASSERT_EQ(PointInPolygon(random.Pixel(p), ring, TOLERANCE), isInside)
                    << "raster " << r << ", ring " << k << ", point " << p.x << " " << p.y;
                inside += isInside;
            }
        }
    }
    EXPECT_GT(simple, 1000);
    EXPECT_GT(inside, 1000);
}

// Each loop of the walk winds around its inside once. So a point with an odd count lies in an odd number of
// loops, and one with a winding other than 0 in at least one.
TEST(PointInPolygon, HoldsWhateverTheRingWindsAround) {
    int wound = 0;
    for (std::size_t r = 0; r < RASTERS.size(); ++r) {
        ExactCases random(RASTERS[r], 300 + r);
        for (int k = 0; k < 1000; ++k) {
            const WholeRing whole = random.Ring();
            const Ring ring = random.Pixels(whole);
            for (int probe = 0; probe < 5; ++probe) {
                const WholePoint p = random.Probe(whole);
                const ExactPlace exact = PlaceOf(p, whole);
                if (!exact.isOnRing && !exact.isInsideEvenOdd && exact.winding == 0) continue;
                ASSERT_TRUE(PointInPolygon(random.Pixel(p), ring, TOLERANCE))
                    << "raster " << r << ", ring " << k << ", point " << p.x << " " << p.y;
                ++wound;
            }
        }
    }
    EXPECT_GT(wound, 5000);
}

// Of a polygon that crosses itself the edges are split, at places that are rounded.
TEST(PointInPolygon, APlaceOnAnEdgeThatCrossesAnotherIsInsideWithTheSmallestTolerance) {
    ExactCases random(RASTERS[1], 400);
    int onEdges = 0;
    for (int k = 0; k < 3000; ++k) {
        const WholeRing whole = random.Ring();
        const Ring ring = random.Pixels(whole);
        for (std::size_t i = 1; i < whole.size(); ++i) {
            const std::int64_t dx = whole[i].x - whole[i - 1].x, dy = whole[i].y - whole[i - 1].y;
            const std::int64_t pieces = std::gcd(dx, dy);
            for (std::int64_t piece = 1; piece < pieces; ++piece, ++onEdges) {
                const WholePoint p{whole[i - 1].x + dx / pieces * piece,
                                   whole[i - 1].y + dy / pieces * piece};
                ASSERT_TRUE(PointInPolygon(random.Pixel(p), ring, std::numeric_limits<double>::min()))
                    << "ring " << k << ", point " << p.x << " " << p.y;
            }
        }
    }
    EXPECT_GT(onEdges, 10000);
}

TEST(PointInVertices, NothingIsInsideAnEmptyPolygon) {
    EXPECT_FALSE(PointInVertices({0, 0}, {}, TOLERANCE));
    EXPECT_FALSE(PointInPolygon({0, 0}, {}, TOLERANCE));
}

TEST(PointInVertices, AVertexIsInside) {
    for (const PlanePoint& vertex : BOW_TIE) {
        EXPECT_TRUE(PointInVertices(vertex, BOW_TIE, TOLERANCE));
        EXPECT_TRUE(PointInVertices(vertex, BOW_TIE, 0.0));
        EXPECT_TRUE(PointInPolygon(vertex, BOW_TIE, 0.0));
    }
    EXPECT_TRUE(PointInVertices({3, 4}, {{3, 4}}, TOLERANCE));
    EXPECT_FALSE(PointInVertices({3, 5}, {{3, 4}}, TOLERANCE));
}

TEST(PointInVertices, APointNearerToAnEdgeThanTheToleranceIsInside) {
    const Ring diamond{{0, -4}, {4, 0}, {0, 4}, {-4, 0}};
    // The edge from (4, 0) to (0, 4) lies on x + y = 4; moving out by (d, d) is a distance of d times 1.414.
    EXPECT_TRUE(PointInVertices({2 + 1e-11, 2 + 1e-11}, diamond, TOLERANCE));
    EXPECT_FALSE(PointInVertices({2 + 2e-11, 2 + 2e-11}, diamond, TOLERANCE));
    EXPECT_TRUE(PointInVertices({2.3, 2.3}, diamond, 0.5));
    EXPECT_FALSE(PointInVertices({2.4, 2.4}, diamond, 0.5));
}

// Both tests of a polygon.
bool IsInside(const PlanePoint& p, const Ring& ring, double tolerance) {
    const bool isInside = PointInVertices(p, ring, tolerance);
    EXPECT_EQ(PointInPolygon(p, ring, tolerance), isInside);
    return isInside;
}

TEST(PointInVertices, ARectangleIsWiderByTheTolerance) {
    for (const Ring& square : {Rectangle(0, 0, 4, 4), testing::Reversed(Rectangle(0, 0, 4, 4))}) {
        for (const double along : {0.0, 0.25, 2.0, 4.0}) {
            for (const double off : {0.25, 0.49}) {
                EXPECT_TRUE(IsInside({4 + off, along}, square, 0.5));
                EXPECT_TRUE(IsInside({-off, along}, square, 0.5));
                EXPECT_TRUE(IsInside({along, 4 + off}, square, 0.5));
                EXPECT_TRUE(IsInside({along, -off}, square, 0.5));
            }
            // A point as far off as the tolerance is outside.
            for (const double off : {0.5, 0.51}) {
                EXPECT_FALSE(IsInside({4 + off, along}, square, 0.5));
                EXPECT_FALSE(IsInside({-off, along}, square, 0.5));
                EXPECT_FALSE(IsInside({along, 4 + off}, square, 0.5));
                EXPECT_FALSE(IsInside({along, -off}, square, 0.5));
            }
        }
        EXPECT_TRUE(IsInside({4.4, 4.4}, square, 0.5)) << "the corner of the grown box";
        EXPECT_FALSE(IsInside({4.6, 4.4}, square, 0.5));
    }
}

TEST(PointInVertices, AnEdgeEndsWhereItsBoxGrownByTheToleranceEnds) {
    const Ring flag{{0, 0}, {4, 4}, {0, 8}, {0, 0}};
    // On the line of the edge from (0, 0) to (4, 4), beyond its end.
    EXPECT_TRUE(IsInside({4.25, 4.25}, flag, 0.5));
    EXPECT_FALSE(IsInside({4.5, 4.5}, flag, 0.5));
    EXPECT_FALSE(IsInside({4.75, 4.75}, flag, 0.5));
    EXPECT_FALSE(IsInside({4.25, 4.25}, flag, 0.0));
}

// Where the tolerance is lost beside the coordinates, points exactly on an edge are on it still.
TEST(PointInVertices, ATinyToleranceCountsFarFromTheOrigin) {
    const double far = 0x1p40;  // neighbouring numbers are 2e-4 apart
    const Ring square = Rectangle(far, far, far + 4, far + 4);
    EXPECT_TRUE(IsInside({far + 4, far + 2}, square, TOLERANCE));
    EXPECT_FALSE(IsInside({std::nextafter(far + 4, INF), far + 2}, square, TOLERANCE));
    EXPECT_TRUE(IsInside({std::nextafter(far + 4, INF), far + 2}, square, 0.001));
}

TEST(PointInVertices, ToleranceZeroLeavesExactPointsOnEdgesInside) {
    // The row of the point meets the slanted edge in the point itself.
    EXPECT_TRUE(PointInVertices({2, 2}, {{0, 0}, {4, 4}, {0, 4}}, 0.0));
    EXPECT_TRUE(PointInVertices({2, 0}, Rectangle(0, 0, 4, 4), 0.0));
    EXPECT_TRUE(PointInVertices({4, 2}, Rectangle(0, 0, 4, 4), 0.0));
    EXPECT_FALSE(PointInVertices({std::nextafter(4, INF), 2}, Rectangle(0, 0, 4, 4), 0.0));
    EXPECT_FALSE(PointInVertices({2 + 1e-15, 2}, {{0, 0}, {4, 4}, {0, 4}}, 0.0));
}

TEST(PointInVertices, TheResultDoesNotDependOnVerticesInTheRow) {
    // The rows through (1, 2) and (-1, 2) meet vertices of all kinds: tips, passing ones and a flat edge.
    const Ring crown{{0, 0}, {8, 0}, {8, 2}, {7, 4}, {6, 2}, {5, 4}, {4, 2}, {3, 2}, {2, 4}, {0, 4}};
    for (std::size_t start = 0; start < crown.size(); ++start) {
        for (const Ring& ring : {StartingAt(start, crown), Reversed(StartingAt(start, crown))}) {
            EXPECT_TRUE(PointInVertices({1, 2}, ring, TOLERANCE));
            EXPECT_FALSE(PointInVertices({-1, 2}, ring, TOLERANCE));
            EXPECT_FALSE(PointInVertices({9, 2}, ring, TOLERANCE));
            EXPECT_TRUE(PointInVertices({1, 3.5}, ring, TOLERANCE));
            EXPECT_FALSE(PointInVertices({6, 3.5}, ring, TOLERANCE));
        }
    }
}

TEST(PointInVertices, ARayIsTurnedUntilItMeetsNoVertex) {
    // The rays from (0, 0) to (1, k) for k = 0, 1, ... 9 all meet the vertex (10, 10 k).
    Ring fan{{-5, -5}, {10, -5}};
    for (int k = 0; k < 10; ++k)
        fan.push_back({10, 10.0 * k});
    fan.push_back({-5, 95});
    EXPECT_TRUE(PointInVertices({0, 0}, fan, TOLERANCE));
    EXPECT_FALSE(PointInVertices({-6, 0}, fan, TOLERANCE));
}

TEST(PointInVertices, ClosedOpenAndRepeatingRingsAreTheSame) {
    const Ring open = Rectangle(0, 0, 4, 4);
    Ring repeating;
    for (const PlanePoint& vertex : Closed(open))
        repeating.insert(repeating.end(), 3, vertex);
    for (const Ring& ring : {open, Closed(open), repeating, Closed(repeating)}) {
        for (const auto& test : {PointInVertices, PointInPolygon}) {
            EXPECT_TRUE(test({1, 1}, ring, TOLERANCE));
            EXPECT_TRUE(test({0, 3}, ring, TOLERANCE));
            EXPECT_FALSE(test({5, 1}, ring, TOLERANCE));
        }
    }
}

TEST(PointInPolygon, BothTrianglesOfABowTieAreInside) {
    for (const Ring& ring : {BOW_TIE, Closed(BOW_TIE)}) {
        EXPECT_TRUE(PointInPolygon({0.25, 1}, ring, TOLERANCE));
        EXPECT_TRUE(PointInPolygon({1.75, 1}, ring, TOLERANCE));
        EXPECT_TRUE(PointInPolygon({1, 1}, ring, TOLERANCE));
        EXPECT_FALSE(PointInPolygon({1, 0.5}, ring, TOLERANCE));
        EXPECT_FALSE(PointInPolygon({1, 1.5}, ring, TOLERANCE));
    }
}

TEST(PointInPolygon, TheMiddleOfAPentagramIsInside) {
    Ring star;
    for (int i = 0; i < 5; ++i)
        star.push_back(
            {100 * std::cos(i * 2 * 1.2566370614359172), 100 * std::sin(i * 2 * 1.2566370614359172)});
    EXPECT_FALSE(PointInVertices({0, 0}, star, TOLERANCE)) << "by the even-odd rule";
    EXPECT_TRUE(PointInPolygon({0, 0}, star, TOLERANCE));
}

TEST(PointInPolygon, AWayThereAndBackIsOnTheRing) {
    const Ring flagpole{{0, 0}, {4, 0}, {4, 4}, {2, 4}, {2, 9}, {2, 4}, {0, 4}};
    const Ring flat{{0, 0}, {4, 0}, {8, 0}, {4, 0}};
    for (const double tolerance : {0.0, TOLERANCE}) {
        EXPECT_TRUE(PointInPolygon({2, 7}, flagpole, tolerance));
        EXPECT_FALSE(PointInPolygon({1, 7}, flagpole, tolerance));
        EXPECT_FALSE(PointInPolygon({3, 7}, flagpole, tolerance));
        EXPECT_TRUE(PointInPolygon({1, 1}, flagpole, tolerance));
        EXPECT_TRUE(PointInPolygon({6, 0}, flat, tolerance));
        EXPECT_TRUE(PointInPolygon({1, 0}, flat, tolerance));
        EXPECT_FALSE(PointInPolygon({9, 0}, flat, tolerance));
    }
}

TEST(PointInPolygon, AThousandVerticesAreDecidedByTheRadius) {
    Random random(5);
    const Ring star = RandomStar(random, 1000, {500, 500}, 400);
    EXPECT_TRUE(PointInPolygon({500, 500}, star, TOLERANCE));
    for (int i = 0; i < 20; ++i) {
        const double angle = random.Between(0, 6.28);
        const PlanePoint direction{std::cos(angle), std::sin(angle)};
        // Vertices lie between 120 and 400 from the middle; edges between neighbours cut the circle by
        // little.
        EXPECT_TRUE(PointInPolygon({500 + 119 * direction.x, 500 + 119 * direction.y}, star, TOLERANCE));
        EXPECT_FALSE(PointInPolygon({500 + 401 * direction.x, 500 + 401 * direction.y}, star, TOLERANCE));
    }
}

TEST(PointInVertices, WhereATurnOfTheRayIsLostRowsDecide) {
    const double far = 0x1p60;  // one pixel more is the same number
    const double step = 0x1p12;
    // Each edge is the first once.
    Ring triangle{{far - step, far - step}, {far + 2 * step, far}, {far - step, far + step}};
    for (int first = 0; first < 3; ++first) {
        EXPECT_TRUE(PointInVertices({far, far}, triangle, TOLERANCE));
        EXPECT_FALSE(PointInVertices({far - 2 * step, far}, triangle, TOLERANCE));
        EXPECT_FALSE(PointInVertices({far + step, far + step}, triangle, TOLERANCE));
        EXPECT_TRUE(PointInVertices({far, far - step / 2}, triangle, TOLERANCE)) << "beside the lower edge";
        EXPECT_FALSE(PointInVertices({far, far - step}, triangle, TOLERANCE));
        std::rotate(triangle.begin(), triangle.begin() + 1, triangle.end());
    }
}

TEST(PointInPolygon, EndsForEveryNumber) {
    const double values[] = {0.0, -0.0, 1.0, 1e-320, 1e16, 1e300, -1e300, 1.7976931348623157e308,
                             INF, -INF, NONE};
    for (const double a : values) {
        for (const double b : values) {
            const Ring ring{{a, 0}, {2, b}, {b, a}, {a, a}, {0, 3}, {b, b}, {b, b}};
            for (const PlanePoint p : {PlanePoint{1, 1}, PlanePoint{a, b}, PlanePoint{b, 1}}) {
                for (const double tolerance : {0.0, TOLERANCE, 1e300, INF}) {
                    const bool isInside =
                        PointInVertices(p, ring, tolerance) || PointInPolygon(p, ring, tolerance);
                    EXPECT_TRUE(!isInside || BoxOf(ring).Holds(p, tolerance));
                }
            }
        }
    }
    EXPECT_FALSE(PointInPolygon({NONE, 1}, Rectangle(0, 0, 4, 4), TOLERANCE));
    EXPECT_FALSE(PointInPolygon({1, INF}, Rectangle(0, 0, 4, 4), TOLERANCE));
    EXPECT_FALSE(PointInPolygon({1, 1}, Ring(6, {NONE, NONE}), TOLERANCE));
}

}  // namespace
}  // namespace tessara::polygon_inside_test

#include "polygons/polygon_split.h"

#include <gtest/gtest.h>

#include <limits>

#include "polygons/polygon_inside.h"
#include "support/rings.h"

namespace tessara::polygon_split_test {
namespace {

using testing::Area;
using testing::AreaOf;
using testing::AreasOf;
using testing::Closed;
using testing::Random;
using testing::RandomStar;
using testing::Rectangle;
using testing::SignedArea;

constexpr double TURN = 6.283185307179586;

void ExpectRing(const Ring& ring, const Ring& open) {
    ASSERT_EQ(ring.size(), open.size() + 1);
    for (std::size_t i = 0; i < ring.size(); ++i) {
        EXPECT_DOUBLE_EQ(ring[i].x, open[i % open.size()].x) << i;
        EXPECT_DOUBLE_EQ(ring[i].y, open[i % open.size()].y) << i;
    }
}

bool HasRepeats(const Ring& closed) {
    for (std::size_t i = 0; i + 1 < closed.size(); ++i) {
        if (std::count(closed.begin(), closed.end() - 1, closed[i]) != 1) return true;
    }
    return false;
}

TEST(SplitVertices, ABowTieGivesTheTriangleThatClosesFirstAndThenTheRest) {
    const Ring open{{0, 0}, {2, 2}, {2, 0}, {0, 2}};
    for (const Ring& ring : {open, Closed(open)}) {
        const std::vector<Ring> parts = SplitVertices(ring);
        ASSERT_EQ(parts.size(), 2u);
        ExpectRing(parts[0], {{1, 1}, {2, 2}, {2, 0}});
        ExpectRing(parts[1], {{0, 0}, {1, 1}, {0, 2}});
    }
}

TEST(SplitVertices, ACombGivesItsFieldsInTheOrderOfTheWalk) {
    const Ring comb{{0, 0}, {10, 0}, {10, 3}, {8, 3},  {8, -2}, {6, -2},
                    {6, 3}, {4, 3},  {4, -2}, {2, -2}, {2, 3},  {0, 3}};
    const std::vector<Ring> parts = SplitVertices(comb);
    ASSERT_EQ(parts.size(), 5u);
    // The walk along y = 0 is met at x = 8, 6, 4 and 2 again. Fields are 2 wide and 3 or 2 high.
    ExpectRing(parts[0], {{8, 0}, {10, 0}, {10, 3}, {8, 3}});
    ExpectRing(parts[1], {{6, 0}, {8, 0}, {8, -2}, {6, -2}});
    ExpectRing(parts[2], {{4, 0}, {6, 0}, {6, 3}, {4, 3}});
    ExpectRing(parts[3], {{2, 0}, {4, 0}, {4, -2}, {2, -2}});
    ExpectRing(parts[4], {{0, 0}, {2, 0}, {2, 3}, {0, 3}});
}

TEST(SplitVertices, APentagramGivesTwoPartsThatShareItsMiddle) {
    Ring star;
    for (int i = 0; i < 5; ++i)
        star.push_back({100 * std::cos(TURN * 2 * i / 5), 100 * std::sin(TURN * 2 * i / 5)});
    const std::vector<Ring> parts = SplitVertices(star);
    ASSERT_EQ(parts.size(), 2u);
    EXPECT_EQ(parts[0].size() + parts[1].size(), 17u);  // 15 pieces of edges and two closing vertices
    // The walk winds around the middle twice, and its area is that of five triangles from the middle to an
    // edge that spans 144 degrees: 5 / 2 * 100^2 sin(144 degrees) = 14694.631.
    EXPECT_NEAR(AreaOf(parts), 14694.631307311829, 1e-8);
}

TEST(SplitVertices, ASimpleRingIsOnePart) {
    Random random(1);
    for (int count = 3; count < 60; count += 3) {
        const Ring star = RandomStar(random, count, {0, 0}, 100);
        const std::vector<Ring> parts = SplitVertices(star);
        ASSERT_EQ(parts.size(), 1u);
        EXPECT_EQ(parts[0], Closed(star));
    }
}

TEST(SplitVertices, FewerThanFiveClosedVerticesAreOnePartAsTheyAre) {
    EXPECT_TRUE(SplitVertices({}).empty());
    const Ring point{{1, 2}};
    const Ring line{{1, 2}, {3, 4}};
    const Ring triangle{{0, 0}, {4, 0}, {0, 4}};
    EXPECT_EQ(SplitVertices(point), std::vector<Ring>{point});
    EXPECT_EQ(SplitVertices({{1, 2}, {1, 2}, {1, 2}}), std::vector<Ring>{point});
    EXPECT_EQ(SplitVertices(line), std::vector<Ring>{Closed(line)});
    EXPECT_EQ(SplitVertices(triangle), std::vector<Ring>{Closed(triangle)});
    EXPECT_EQ(SplitVertices(Closed(triangle)), std::vector<Ring>{Closed(triangle)});
}

TEST(SplitVertices, RepeatedVerticesAreDropped) {
    const Ring square{{0, 0}, {0, 0}, {4, 0}, {4, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 4}, {0, 0}, {0, 0}};
    EXPECT_EQ(SplitVertices(square), std::vector<Ring>{Closed(Rectangle(0, 0, 4, 4))});
}

TEST(SplitVertices, AVertexThatIsVisitedTwiceSplits) {
    // Two squares that hang together in (4, 4).
    const Ring eight{{0, 0}, {4, 0}, {4, 4}, {8, 4}, {8, 8}, {4, 8}, {4, 4}, {0, 4}};
    const std::vector<Ring> parts = SplitVertices(eight);
    ASSERT_EQ(parts.size(), 2u);
    ExpectRing(parts[0], {{4, 4}, {8, 4}, {8, 8}, {4, 8}});
    ExpectRing(parts[1], Rectangle(0, 0, 4, 4));
}

TEST(SplitVertices, AVertexOnAnEdgeSplits) {
    // The tip (2, 0) of the notch touches the ground line.
    const Ring notched{{0, 0}, {4, 0}, {4, 4}, {2, 0}, {0, 4}};
    const std::vector<Ring> parts = SplitVertices(notched);
    ASSERT_EQ(parts.size(), 2u);
    ExpectRing(parts[0], {{2, 0}, {4, 0}, {4, 4}});
    ExpectRing(parts[1], {{0, 0}, {2, 0}, {0, 4}});
}

TEST(SplitVertices, AKeyholeGivesTheRingAndItsHole) {
    // A square with a square hole, joined by a cut along y = 4 that is walked twice.
    const Ring keyhole{{0, 0}, {8, 0}, {8, 8}, {0, 8}, {0, 4}, {2, 4},
                       {2, 6}, {6, 6}, {6, 2}, {2, 2}, {2, 4}, {0, 4}};
    const std::vector<Ring> parts = SplitVertices(keyhole);
    ASSERT_EQ(parts.size(), 3u);
    EXPECT_DOUBLE_EQ(SignedArea(parts[0]), -16.0);
    ExpectRing(parts[1], {{0, 4}, {2, 4}});  // the cut, there and back
    ExpectRing(parts[2], {{0, 0}, {8, 0}, {8, 8}, {0, 8}, {0, 4}});
}

TEST(SplitVertices, AWayThereAndBackIsAPartOfItsOwn) {
    const Ring flagpole{{0, 0}, {4, 0}, {4, 4}, {2, 4}, {2, 9}, {2, 4}, {0, 4}};
    const std::vector<Ring> parts = SplitVertices(flagpole);
    ASSERT_EQ(parts.size(), 2u);
    ExpectRing(parts[0], {{2, 4}, {2, 9}});
    ExpectRing(parts[1], {{0, 0}, {4, 0}, {4, 4}, {2, 4}, {0, 4}});
}

TEST(SplitVertices, AFlatRingIsWaysThereAndBack) {
    const std::vector<Ring> parts = SplitVertices({{0, 0}, {4, 0}, {8, 0}, {4, 0}});
    ASSERT_EQ(parts.size(), 2u);
    ExpectRing(parts[0], {{4, 0}, {8, 0}});
    ExpectRing(parts[1], {{0, 0}, {4, 0}});
}

TEST(SplitVertices, EdgesThatRunAlongEachOtherSplitWhereTheyStart) {
    // Out along y = 0 to (10, 0), and back along it from (7, 0) to (3, 0).
    const Ring fold{{0, 0}, {10, 0}, {10, 4}, {7, 0}, {3, 0}, {0, 4}};
    const std::vector<Ring> parts = SplitVertices(fold);
    ASSERT_EQ(parts.size(), 3u);
    ExpectRing(parts[0], {{7, 0}, {10, 0}, {10, 4}});
    ExpectRing(parts[1], {{3, 0}, {7, 0}});  // what both run along
    ExpectRing(parts[2], {{0, 0}, {3, 0}, {0, 4}});
}

// Out along y = 0 to (8, 0) and straight back beyond the start.
TEST(SplitVertices, NeighbouringEdgesThatRunBackOverEachOtherHaveNoStop) {
    const Ring spike{{0, 0}, {8, 0}, {-4, 0}, {-4, 5}, {0, 5}};
    for (std::size_t first = 0; first < spike.size(); ++first) {
        Ring turned = spike;
        std::rotate(turned.begin(), turned.begin() + static_cast<std::ptrdiff_t>(first), turned.end());
        EXPECT_EQ(SplitVertices(turned), std::vector<Ring>{Closed(turned)}) << first;
    }
}

// Whatever is cut off and left over, the walk is the same, and with it the signed area.
TEST(SplitVertices, SignedAreasAddUpAndNoVertexIsVisitedTwice) {
    Random random(2);
    int crossing = 0;
    for (int k = 0; k < 500; ++k) {
        Ring ring(static_cast<std::size_t>(4 + random.Below(25)));
        const bool isWhole = k % 2 == 0;
        for (PlanePoint& vertex : ring) {
            vertex = {random.Between(-100, 100), random.Between(-100, 100)};
            if (isWhole) vertex = {std::round(vertex.x / 10), std::round(vertex.y / 10)};
        }
        const std::vector<Ring> parts = SplitVertices(ring);
        double sum = 0.0;
        for (const Ring& part : parts) {
            ASSERT_GE(part.size(), 3u);
            EXPECT_EQ(part.front(), part.back());
            EXPECT_FALSE(HasRepeats(part));
            sum += SignedArea(part);
        }
        // Roundings of intersections, 1e-14 pixels each, along edges 300 long.
        EXPECT_NEAR(sum, SignedArea(ring), 1e-9);
        crossing += parts.size() > 1;
    }
    EXPECT_GT(crossing, 400);
}

TEST(SplitVertices, PartsDoNotCrossThemselves) {
    Random random(3);
    for (int k = 0; k < 100; ++k) {
        Ring ring(12);
        for (PlanePoint& vertex : ring)
            vertex = {random.Between(0, 100), random.Between(0, 100)};
        for (const Ring& part : SplitVertices(ring)) {
            const std::vector<Ring> again = SplitVertices(part);
            // Crossings are rounded, which can leave new ones within a rounding of the vertices.
            EXPECT_NEAR(AreasOf(again).back(), Area(part), 1e-9);
        }
    }
}

TEST(SplitVertices, EndsForEveryNumber) {
    constexpr double NONE = std::numeric_limits<double>::quiet_NaN();
    constexpr double INF = std::numeric_limits<double>::infinity();
    const double values[] = {0.0, -0.0, 1.0, 1e-320, 1e16, 1e300, -1e300, 1.7976931348623157e308,
                             INF, -INF, NONE};
    for (const double a : values) {
        for (const double b : values) {
            for (const double c : values) {
                const Ring ring{{a, 0}, {2, b}, {b, a}, {c, a}, {0, 3}, {b, b}, {b, c}};
                EXPECT_LE(SplitVertices(ring).size(), 49u);
            }
        }
    }
    EXPECT_LE(SplitVertices(Ring(1000, {NONE, NONE})).size(), 1u);
}

TEST(SplitVertices, AThousandVerticesInTenRounds) {
    // Ten turns of a spiral ring with 100 vertices each, of which each crosses the others twice: the numbers
    // of windings add up to the area of ten rings.
    Ring rounds;
    for (int i = 0; i < 1000; ++i) {
        const double angle = TURN * i / 100.0;
        const double offset = 0.01 * (i / 100);
        rounds.push_back({1000 * std::cos(angle) + offset, 900 * std::sin(angle + 0.001 * offset)});
    }
    double sum = 0.0;
    for (const Ring& part : SplitVertices(rounds))
        sum += SignedArea(part);
    // 1e-13 pixels of rounding times 60000 pixels of ring.
    EXPECT_NEAR(sum, SignedArea(rounds), 1e-8);
}

}  // namespace
}  // namespace tessara::polygon_split_test

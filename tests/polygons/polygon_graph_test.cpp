#include "polygons/polygon_graph.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "support/rings.h"

namespace tessara::polygon_graph_test {
namespace {

using testing::Rectangle;

constexpr double SNAP_TOLERANCE = 1e-9;

std::size_t RunsOf(const RingGraph& graph, std::size_t ring) {
    std::size_t runs = 0;
    for (const GraphEdge& edge : graph.edges)
        runs += edge.runs[ring];
    return runs;
}

TEST(GraphOf, CutsEdgesWhereTheyCross) {
    const RingGraph graph = GraphOf(Rectangle(0, 0, 4, 4), Rectangle(2, 2, 6, 6), SNAP_TOLERANCE);
    EXPECT_TRUE(graph.doRingsTouch);
    EXPECT_EQ(graph.nodes.size(), 8u + 2u);
    EXPECT_EQ(graph.edges.size(), 8u + 4u);
}

TEST(GraphOf, RunsOfBothRingsAlongOneEdgeAreCounted) {
    // The second's left side lies within the first's right side.
    const RingGraph graph = GraphOf(Rectangle(0, 0, 4, 4), Rectangle(4, 1, 6, 3), SNAP_TOLERANCE);
    EXPECT_EQ(graph.nodes.size(), 8u);
    EXPECT_EQ(RunsOf(graph, 0), 6u);
    EXPECT_EQ(RunsOf(graph, 1), 4u);
    int shared = 0;
    for (const GraphEdge& edge : graph.edges)
        shared += edge.Separates(0) && edge.Separates(1);
    EXPECT_EQ(shared, 1);
}

// The products that decide whether the edges are parallel are rounded, and so is the quotient that would
// locate their intersection.
TEST(GraphOf, EdgesOnOneLineFromOneNodeMeetNowhereElse) {
    testing::Random random(3);
    for (int k = 0; k < 3000; ++k) {
        const PlanePoint direction{random.Between(-100, 100), random.Between(-100, 100)};
        const auto at = [&](double t) { return PlanePoint{t * direction.x, t * direction.y}; };
        const double first = random.Between(0.1, 1.9);
        const double second = random.Between(2.1, 9);
        const RingGraph graph = GraphOf({at(first), at(2)}, {at(second), at(2)}, 1e-12);
        ASSERT_EQ(graph.nodes.size(), 3u) << k;
        ASSERT_EQ(graph.edges.size(), 2u) << k;
        ASSERT_TRUE(graph.doRingsTouch);
    }
}

TEST(GraphOf, AWayThereAndBackSeparatesNothing) {
    const RingGraph graph = GraphOf({{0, 0}, {4, 0}}, {{9, 9}}, SNAP_TOLERANCE);
    ASSERT_EQ(graph.edges.size(), 1u);
    EXPECT_EQ(graph.edges[0].runs[0], 2u);
    EXPECT_FALSE(graph.edges[0].Separates(0));
    EXPECT_FALSE(graph.doRingsTouch);
}

// A ring that goes from -1 to 1, -2, 2 and so on along a line, and at last back to -1. Of its 1600 edges,
// each lies on most of those before, so there are more pieces than are kept at once. The pieces between k and
// k + 1, or -k and -k - 1, belong to the n - k edges from -k - 1 or below to k + 1 or above and to as many on
// the way back, among them the last edge; the piece from -1 to 1 belongs to all.
TEST(GraphOf, PiecesOfManyEdgesOnOneLineAreCounted) {
    constexpr int n = 800;
    Ring ring;
    for (int k = 1; k <= n; ++k) {
        ring.push_back({static_cast<double>(-k), 0.0});
        ring.push_back({static_cast<double>(k), 0.0});
    }
    const RingGraph graph = GraphOf(ring, {{0, 9}}, SNAP_TOLERANCE);
    ASSERT_EQ(graph.nodes.size(), 2u * n + 1u);
    ASSERT_EQ(graph.edges.size(), 2u * n - 1u);
    for (const GraphEdge& edge : graph.edges) {
        const double inner = std::min(std::fabs(graph.nodes[edge.from].x), std::fabs(graph.nodes[edge.to].x));
        const bool isMiddle = graph.nodes[edge.from].x * graph.nodes[edge.to].x < 0.0;
        const auto edges = static_cast<std::size_t>(2.0 * (n - (isMiddle ? 0.0 : inner)));
        EXPECT_EQ(edge.runs, (std::array<std::size_t, 2>{edges, 0}));
    }
}

TEST(GraphOf, RingsTouchWithinTheSnapTolerance) {
    const Ring square = Rectangle(0, 0, 4, 4);
    EXPECT_TRUE(GraphOf(square, Rectangle(4.05, 1, 6, 3), 0.1).doRingsTouch);
    EXPECT_FALSE(GraphOf(square, Rectangle(4.15, 1, 6, 3), 0.1).doRingsTouch);
    EXPECT_TRUE(GraphOf(square, {{2, 4.05}}, 0.1).doRingsTouch) << "a single point on an edge";
    EXPECT_TRUE(GraphOf({{2, 4}}, {{2.05, 4.05}}, 0.1).doRingsTouch) << "two points";
    // 14 and 16 pixels below the diagonal, which is 9.9 and 11.3 beside it.
    const Ring triangle{{0, 0}, {400, 400}, {0, 400}};
    EXPECT_TRUE(GraphOf(triangle, {{207, 193}}, 10.0).doRingsTouch);
    EXPECT_FALSE(GraphOf(triangle, {{208, 192}}, 10.0).doRingsTouch);
}

}  // namespace
}  // namespace tessara::polygon_graph_test

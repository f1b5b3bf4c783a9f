#include "polygons/polygon_graph.h"

#include <gtest/gtest.h>

#include "polygons/polygon_faces.h"
#include "support/rings.h"

namespace tessara {
namespace {

using testing::Rectangle;
using testing::SignedArea;

constexpr double SNAP_TOLERANCE = 1e-9;

std::size_t RunsOf(const RingGraph& graph, std::size_t ring) {
    std::size_t runs = 0;
    for (const GraphPiece& piece : graph.pieces)
        runs += piece.runs[ring];
    return runs;
}

TEST(GraphOf, CutsEdgesWhereTheyCross) {
    const RingGraph graph = GraphOf(Rectangle(0, 0, 4, 4), Rectangle(2, 2, 6, 6), SNAP_TOLERANCE);
    EXPECT_TRUE(graph.doRingsTouch);
    EXPECT_EQ(graph.nodes.size(), 8u + 2u);
    EXPECT_EQ(graph.pieces.size(), 8u + 4u);
}

TEST(GraphOf, RunsOfBothRingsAlongOnePieceAreCounted) {
    // The second's left side lies within the first's right side.
    const RingGraph graph = GraphOf(Rectangle(0, 0, 4, 4), Rectangle(4, 1, 6, 3), SNAP_TOLERANCE);
    EXPECT_EQ(graph.nodes.size(), 8u);
    EXPECT_EQ(RunsOf(graph, 0), 6u);
    EXPECT_EQ(RunsOf(graph, 1), 4u);
    int shared = 0;
    for (const GraphPiece& piece : graph.pieces)
        shared += piece.Separates(0) && piece.Separates(1);
    EXPECT_EQ(shared, 1);
}

// The products that tell whether they are parallel are rounded, and so is the quotient that would tell where
// they cross.
TEST(GraphOf, EdgesOnOneLineFromOneNodeMeetNowhereElse) {
    testing::Random random(3);
    for (int k = 0; k < 3000; ++k) {
        const PlanePoint direction{random.Between(-100, 100), random.Between(-100, 100)};
        const auto at = [&](double t) { return PlanePoint{t * direction.x, t * direction.y}; };
        const double first = random.Between(0.1, 1.9);
        const double second = random.Between(2.1, 9);
        const RingGraph graph = GraphOf({at(first), at(2)}, {at(second), at(2)}, 1e-12);
        ASSERT_EQ(graph.nodes.size(), 3u) << k;
        ASSERT_EQ(graph.pieces.size(), 2u) << k;
        ASSERT_TRUE(graph.doRingsTouch);
    }
}

TEST(GraphOf, AWayThereAndBackSeparatesNothing) {
    const RingGraph graph = GraphOf({{0, 0}, {4, 0}}, {{9, 9}}, SNAP_TOLERANCE);
    ASSERT_EQ(graph.pieces.size(), 1u);
    EXPECT_EQ(graph.pieces[0].runs[0], 2u);
    EXPECT_FALSE(graph.pieces[0].Separates(0));
    EXPECT_FALSE(graph.doRingsTouch);
}

TEST(GraphOf, RingsTouchWithinTheSnapTolerance) {
    const Ring square = Rectangle(0, 0, 4, 4);
    EXPECT_TRUE(GraphOf(square, Rectangle(4.05, 1, 6, 3), 0.1).doRingsTouch);
    EXPECT_FALSE(GraphOf(square, Rectangle(4.15, 1, 6, 3), 0.1).doRingsTouch);
    EXPECT_TRUE(GraphOf(square, {{2, 4.05}}, 0.1).doRingsTouch) << "a single point on an edge";
    EXPECT_TRUE(GraphOf({{2, 4}}, {{2.05, 4.05}}, 0.1).doRingsTouch) << "two points";
}

TEST(FacesOf, TellWhichRingsTheyAreIn) {
    const RingGraph graph = GraphOf(Rectangle(0, 0, 4, 4), Rectangle(2, 2, 6, 6), SNAP_TOLERANCE);
    const std::vector<GraphFace> faces = FacesOf(graph, SNAP_TOLERANCE).value();
    ASSERT_EQ(faces.size(), 3u);
    for (const GraphFace& face : faces) {
        EXPECT_EQ(face.ring.front(), face.ring.back());
        const bool isBoth = face.isIn[0] && face.isIn[1];
        // Square units, some roundings of their sum.
        EXPECT_NEAR(SignedArea(face.ring), isBoth ? 4 : 12, 1e-12);
        EXPECT_TRUE(face.isIn[0] || face.isIn[1]);
    }
}

TEST(FacesOf, NoWiderThanTheSnapToleranceAreNone) {
    const Ring thin = Rectangle(0, 0, 4, 0.5);
    // 2 of area along a perimeter of 9 are 0.22 wide.
    EXPECT_EQ(FacesOf(GraphOf(thin, {{0, 0}}, 0.2), 0.2)->size(), 1u);
    EXPECT_EQ(FacesOf(GraphOf(thin, {{0, 0}}, 0.25), 0.25)->size(), 0u);
}

TEST(FacesOf, DeadEndsAreLeftOut) {
    // Poles at the first vertex, within an edge and into the square, the last with a branch.
    const Ring poles{{0, 0}, {-3, -3}, {0, 0}, {4, 0}, {4, 4}, {2, 4}, {2, 9}, {2, 4},
                     {2, 2}, {1, 1},   {2, 2}, {3, 1}, {2, 2}, {2, 4}, {0, 4}};
    const std::vector<GraphFace> faces =
        FacesOf(GraphOf(poles, {{0, 0}}, SNAP_TOLERANCE), SNAP_TOLERANCE).value();
    ASSERT_EQ(faces.size(), 1u);
    EXPECT_NEAR(SignedArea(faces[0].ring), 16, 1e-12);
    EXPECT_EQ(faces[0].ring.size(), 5u + 1u) << "the corners, the foot of a pole and the closing vertex";
    EXPECT_EQ(faces[0].isIn, (std::array{true, false}));
}

TEST(FacesOf, PiecesThatCrossWithoutANodeHaveNone) {
    // A square and its diagonals.
    RingGraph graph{{{0, 0}, {4, 0}, {4, 4}, {0, 4}}, {}, true};
    const std::size_t ends[][2] = {{0, 1}, {1, 2}, {2, 3}, {0, 3}, {0, 2}, {1, 3}};
    for (const auto& [from, to] : ends)
        graph.pieces.push_back({from, to, {1, 0}});
    EXPECT_FALSE(FacesOf(graph, SNAP_TOLERANCE).has_value());
    // With a node where the diagonals cross they make four triangles.
    graph.nodes.push_back({2, 2});
    graph.pieces.resize(4);
    for (std::size_t corner = 0; corner < 4; ++corner)
        graph.pieces.push_back({corner, 4, {1, 0}});
    EXPECT_EQ(FacesOf(graph, SNAP_TOLERANCE).value().size(), 4u);
}

TEST(FacesOf, AGraphWithoutPiecesHasNone) {
    EXPECT_TRUE(FacesOf(GraphOf({{1, 1}}, {{1, 1}}, SNAP_TOLERANCE), SNAP_TOLERANCE)->empty());
}

}  // namespace
}  // namespace tessara

#include "polygons/polygon_faces.h"

#include <gtest/gtest.h>

#include "support/rings.h"

namespace tessara::polygon_faces_test {
namespace {

using testing::Rectangle;
using testing::SignedArea;

constexpr double SNAP_TOLERANCE = 1e-9;

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

TEST(FacesOf, EdgesThatCrossWithoutANodeHaveNone) {
    // A square and its diagonals.
    RingGraph graph{{{0, 0}, {4, 0}, {4, 4}, {0, 4}}, {}, true};
    const std::size_t ends[][2] = {{0, 1}, {1, 2}, {2, 3}, {0, 3}, {0, 2}, {1, 3}};
    for (const auto& [from, to] : ends)
        graph.edges.push_back({from, to, {1, 0}});
    EXPECT_FALSE(FacesOf(graph, SNAP_TOLERANCE).has_value());
    // With a node where the diagonals cross they make four triangles.
    graph.nodes.push_back({2, 2});
    graph.edges.resize(4);
    for (std::size_t corner = 0; corner < 4; ++corner)
        graph.edges.push_back({corner, 4, {1, 0}});
    EXPECT_EQ(FacesOf(graph, SNAP_TOLERANCE).value().size(), 4u);
}

TEST(FacesOf, AGraphWithoutEdgesHasNone) {
    EXPECT_TRUE(FacesOf(GraphOf({{1, 1}}, {{1, 1}}, SNAP_TOLERANCE), SNAP_TOLERANCE)->empty());
}

}  // namespace
}  // namespace tessara::polygon_faces_test

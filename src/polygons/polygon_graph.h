// The plane graph of two rings: nodes at vertices, intersections and touching points, and edges between
// them.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "polygons/polygon_ring.h"

namespace tessara {

// The part of a segment between two nodes, with the number of times that each ring runs along it, in either
// direction.
struct GraphEdge {
    std::size_t from, to;  // from < to
    std::array<std::size_t, 2> runs;

    // Whether the edge has the inside of a ring on one side and the outside on the other. An edge that the
    // ring runs along twice hasn't.
    [[nodiscard]] bool Separates(std::size_t ring) const { return runs[ring] % 2 == 1; }
};

struct RingGraph {
    std::vector<PlanePoint> nodes;
    std::vector<GraphEdge> edges;
    bool doRingsTouch;  // whether they have a node in common
};

// Places within `snapTolerance` of each other on both axes become one node. A node within `snapTolerance` of
// a segment lies on it.
[[nodiscard]] RingGraph GraphOf(const Ring& first, const Ring& second, double snapTolerance);

}  // namespace tessara

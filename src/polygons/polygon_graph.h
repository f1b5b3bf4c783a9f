// The plane graph of two rings: nodes at their vertices, intersections and touching places, and the edges
// between them.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "polygons/polygon_ring.h"

namespace tessara {

// The part of a segment between two nodes, and how often each ring runs along it, in either direction.
struct GraphEdge {
    std::size_t from, to;  // from < to
    std::array<std::size_t, 2> runs;

    // Whether the two sides of the edge are inside and outside of a ring. Run along twice they aren't.
    [[nodiscard]] bool Separates(std::size_t ring) const { return runs[ring] % 2 == 1; }
};

struct RingGraph {
    std::vector<PlanePoint> nodes;
    std::vector<GraphEdge> edges;
    bool doRingsTouch;  // whether they have a node in common
};

// Places within `snapTolerance` of each other on both axes become one node, and a node within `snapTolerance`
// of a segment lies on it.
[[nodiscard]] RingGraph GraphOf(const Ring& first, const Ring& second, double snapTolerance);

}  // namespace tessara

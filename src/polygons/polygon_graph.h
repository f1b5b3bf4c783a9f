// The plane graph of two outlines: nodes at their vertices, crossings and touching places, and the pieces of
// edges between them.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "polygons/polygon_outline.h"

namespace tessara {

// A piece of an edge between two nodes, and how often each outline runs along it, in either direction.
struct GraphPiece {
    std::size_t from, to;  // from < to
    std::array<std::size_t, 2> runs;

    // Whether the two sides of the piece are inside and outside of an outline. Run along twice they aren't.
    [[nodiscard]] bool Separates(std::size_t outline) const { return runs[outline] % 2 == 1; }
};

struct OutlineGraph {
    std::vector<PlanePoint> nodes;
    std::vector<GraphPiece> pieces;
    bool doOutlinesTouch;  // whether they have a node in common
};

// Places within `grain` of each other on both axes become one node, and a node within `grain` of an edge lies
// on it.
[[nodiscard]] OutlineGraph GraphOf(const Outline& first, const Outline& second, double grain);

}  // namespace tessara

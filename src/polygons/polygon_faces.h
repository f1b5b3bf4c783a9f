// The faces into which the graph of two rings cuts the plane.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "polygons/polygon_graph.h"

namespace tessara {

struct GraphFace {
    Ring ring;                 // closed, the face on its left in axes with y upward
    std::array<bool, 2> isIn;  // whether it is inside each ring, by the even-odd rule
};

// The bounded faces, without dead ends; faces no wider than the snap tolerance are left out. The graph must
// be connected, so that no face has a hole.
//
// Nothing if the graph isn't planar: edges between nodes that are little more than a snap tolerance apart
// may cross without a node.
[[nodiscard]] std::optional<std::vector<GraphFace>> FacesOf(const RingGraph& graph, double snapTolerance);

}  // namespace tessara

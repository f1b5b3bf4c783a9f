// The faces into which the graph of two outlines cuts the plane.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "polygons/polygon_graph.h"

namespace tessara {

struct GraphFace {
    Outline outline;           // closed, the face on its left in axes with y upward
    std::array<bool, 2> isIn;  // whether it is inside each outline, by the even-odd rule
};

// The bounded faces, without dead ends, and without those that aren't wider than the grain. The graph must be
// in one piece, so that no face has a hole.
//
// Nothing if the graph isn't plane: among places that are hardly more than a grain apart, pieces may cross
// without a node.
[[nodiscard]] std::optional<std::vector<GraphFace>> FacesOf(const OutlineGraph& graph, double grain);

}  // namespace tessara

// How two polygons in a plane lie to each other, and what they cut each other into.
//
// Which is which is asked of areas, not of vertices: where the rings touch, they cut the plane into the
// faces of a graph, and each face is inside a polygon or outside as a whole. So edges that run along each
// other, vertices on edges and rings in either direction need no rules of their own.
#pragma once

#include <cstdint>
#include <vector>

#include "polygons/polygon_ring.h"

namespace tessara {

// Closed rings.
struct OverlayParts {
    std::vector<Ring> neither, onlySecond, onlyFirst, both;
};

// The result is one of the numbers OVERLAY_... of coordinate_area.h; the parts are filled for
// OVERLAY_CROSSING and otherwise emptied. Places closer together than a few roundings of the largest
// coordinate are one. Where the two touch, a ring that crosses itself counts by the even-odd rule. Where
// they don't, PointInPolygon tells with the tolerance whether the first vertex of one lies inside the other.
//
// OVERLAY_FAILURE for coordinates that are no numbers or beyond 1e150, whose products are none, and for
// rings that are a tangle still when places a billionth of the largest coordinate apart are one.
[[nodiscard]] std::int32_t OverlayVertices(const Ring& first, const Ring& second, double tolerance,
                                           OverlayParts* parts);

}  // namespace tessara

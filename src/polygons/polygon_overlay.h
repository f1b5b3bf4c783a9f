// The relation between two polygons in a plane, and the parts into which they cut each other.
//
// The relation is decided by areas, not by vertices: where the rings touch, they cut the plane into the
// faces of a graph, and each face is inside or outside a polygon as a whole. So overlapping edges, vertices
// on edges and rings in either direction need no special rules.
#pragma once

#include <cstdint>
#include <vector>

#include "polygons/polygon_ring.h"

namespace tessara {

// Closed rings.
struct OverlayParts {
    std::vector<Ring> neither, onlySecond, onlyFirst, both;
};

// Returns one of the codes OVERLAY_... of coordinate_area.h. The parts are filled for OVERLAY_CROSSING and
// emptied otherwise. Places closer together than a few rounding errors of the largest coordinate are one. If
// the rings touch, a ring that crosses itself counts by the even-odd rule. If they don't, PointInPolygon
// decides, with the tolerance, whether the first vertex of one lies inside the other.
//
// OVERLAY_FAILURE for coordinates that aren't numbers or are beyond 1e150, whose products overflow, and for
// rings whose graph is still not planar when snapped to 1e-9 of the largest coordinate.
[[nodiscard]] std::int32_t OverlayVertices(const Ring& first, const Ring& second, double tolerance,
                                           OverlayParts* parts);

}  // namespace tessara

// Whether a point lies inside a polygon in a plane. Points on a vertex or an edge are inside, and so are
// points closer than the tolerance to the line of an edge and, on both axes, to the edge's box.
#pragma once

#include "polygons/polygon_ring.h"

namespace tessara {

// Counts how often a ray from the point crosses the ring. For a ring that crosses itself this is the
// even-odd rule.
//
// A ray that meets a vertex isn't evaluated; it is replaced by one that is turned a little. If coordinates
// are so large that a turn by one pixel is lost in rounding, the intersections are counted by rows in the
// end.
[[nodiscard]] bool PointInVertices(const PlanePoint& point, const Ring& polygon, double tolerance);

// Whether the point lies inside at least one of the simple rings into which the polygon splits.
[[nodiscard]] bool PointInPolygon(const PlanePoint& point, const Ring& polygon, double tolerance);

}  // namespace tessara

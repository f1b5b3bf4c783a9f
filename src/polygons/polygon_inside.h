// Whether a point lies inside a polygon in a plane. A point on a vertex or an edge is inside, and so is one
// that is less than the tolerance off the line of an edge and, on both axes, off the edge's box.
#pragma once

#include "polygons/polygon_ring.h"

namespace tessara {

// By the number of times that a ray from the point crosses the ring. That is the even-odd rule, if the
// ring crosses itself.
//
// A ray that meets a vertex is never evaluated but replaced by one that is turned a little. In a plane so
// large that a turn by one pixel is lost in rounding, the intersections are counted by rows in the end.
[[nodiscard]] bool PointInVertices(const PlanePoint& point, const Ring& polygon, double tolerance);

// Whether the point lies inside at least one of the simple rings into which the polygon falls apart.
[[nodiscard]] bool PointInPolygon(const PlanePoint& point, const Ring& polygon, double tolerance);

}  // namespace tessara

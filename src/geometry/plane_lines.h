// Straight lines and segments in a plane, such as that of a map's pixels. The expressions are evaluated in
// doubles in a fixed order, and comparisons without a tolerance decide whether lines are parallel and where
// a vertex is crossed: results are part of the contract.
#pragma once

#include "maps/plane_point.h"
#include "tessara/kernel/constants.h"

namespace tessara {

// LineParameter returns one of these for parallel lines.
inline constexpr double PARALLEL_LINES = MISSING_NUMBER;    // they have no point in common
inline constexpr double COLLINEAR_LINES = -MISSING_NUMBER;  // they are one line

// The distance from a line within which a point of this magnitude counts as on it: the rounding error of its
// distance from (0, 0).
[[nodiscard]] double OnLineTolerance(const PlanePoint& p);

// Whether a-b is longer along x than along y.
[[nodiscard]] bool IsLongerInX(const PlanePoint& a, const PlanePoint& b);

// The parameter of p, a point of a-b: 0.0 at a, 1.0 at b. Computed on the axis along which the segment is
// longer.
[[nodiscard]] double ParameterOnSegment(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b);

// The parameter on a1-a2 at which the line through b1 and b2 crosses: 0.0 at a1, 1.0 at a2. If b1 equals b2,
// that point is the line. If a1 equals a2 and lies on the line, the parameter is 0.0.
[[nodiscard]] double LineParameter(const PlanePoint& a1, const PlanePoint& a2, const PlanePoint& b1,
                                   const PlanePoint& b2);

// The signed distance from p to the line through a and b: going from a to b it is positive to the left where
// y points up, and to the right on a map, where y points down. If a equals b, it is the distance to that
// point.
[[nodiscard]] double SignedDistance(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b);

// The foot of the perpendicular from p on the line through a and b, which may be beyond them. If a equals b,
// the foot is that point, and p has to equal it for a true result.
bool FootPoint(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b, PlanePoint* foot);

// The place at the parameter t of a1-a2, reconciled with the place on b1-b2: a coordinate that changes only
// along a takes the value of b, one that changes along both takes the mean. So the intersection with an
// axis-parallel segment lies exactly on that segment. False if t is PARALLEL_LINES or COLLINEAR_LINES, which
// leaves *place unchanged, and if the two places differed.
bool PointOnSegments(const PlanePoint& a1, const PlanePoint& a2, const PlanePoint& b1, const PlanePoint& b2,
                     double t, PlanePoint* place);

}  // namespace tessara

// Straight lines and segments in a plane, such as the one of a map's pixels. Everything here is exact
// arithmetic on doubles as written: whether lines are parallel and where a vertex is crossed is decided by
// comparisons without a tolerance.
#pragma once

#include "maps/plane_point.h"
#include "tessara/kernel/constants.h"

namespace tessara {

// What LineParameter says of parallel lines.
inline constexpr double PARALLEL_LINES = MISSING_NUMBER;    // they have no point in common
inline constexpr double COLLINEAR_LINES = -MISSING_NUMBER;  // they are one line

// How far off a line a point of this size still counts as on it: a rounding of its distance from (0, 0).
[[nodiscard]] double OnLineTolerance(const PlanePoint& p);

// Whether a-b is longer along x than along y.
[[nodiscard]] bool IsLongerInX(const PlanePoint& a, const PlanePoint& b);

// The parameter of p, which lies on a-b, by the axis on which the segment is longer: 0.0 at a, 1.0 at b.
[[nodiscard]] double ParameterOnSegment(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b);

// Where the line through b1 and b2 crosses a1-a2: 0.0 at a1, 1.0 at a2. Of equal points b1 and b2 only that
// point counts as the line; equal points a1 and a2 on the line have the parameter 0.0.
[[nodiscard]] double LineParameter(const PlanePoint& a1, const PlanePoint& a2, const PlanePoint& b1,
                                   const PlanePoint& b2);

// The distance of p from the line through a and b. Going from a to b it is positive to the left in axes with
// y upward, which is to the right on a map. From equal points a and b it is the plain distance.
[[nodiscard]] double SignedDistance(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b);

// The foot of the perpendicular from p on the line through a and b, also beyond them. Equal points a and b
// are the foot, with the result false unless p is equal to them, too.
bool FootPoint(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b, PlanePoint* foot);

// The place at the parameter t of a1-a2, reconciled with the place on b1-b2: an axis on which only a changes
// takes b's value, one on which both change their mean. So an intersection with an axis-parallel segment lies
// exactly on it. False if t is one of the marks, *place is then unchanged, and if the two differed.
bool PointOnSegments(const PlanePoint& a1, const PlanePoint& a2, const PlanePoint& b1, const PlanePoint& b2,
                     double t, PlanePoint* place);

}  // namespace tessara

// The intersections of two polylines in a plane.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <span>

#include "geometry/plane_lines.h"

namespace tessara {

// A common point of two segments, as a parameter on each.
struct SegmentIntersection {
    double t, s;
};

struct SegmentIntersections {
    std::array<SegmentIntersection, 4> at;
    std::size_t count;

    [[nodiscard]] const SegmentIntersection* begin() const { return at.data(); }
    [[nodiscard]] const SegmentIntersection* end() const { return at.data() + count; }
};

// The points that a1-a2 and b1-b2 have in common: none, one intersection, or the two ends of an overlap, in
// the order a1, a2, b1, b2. An end that both share is given once, as a's. Parameters are in 0..1.
[[nodiscard]] SegmentIntersections IntersectSegments(const PlanePoint& a1, const PlanePoint& a2,
                                                     const PlanePoint& b1, const PlanePoint& b2);

struct PolylineIntersection {
    std::size_t i, j;  // the intersection lies between a[i - 1] and a[i] and between b[j - 1] and b[j]
    double t, s;
    PlanePoint place;
};

// Visits the intersections of two polylines of at least two points each, ordered by i and then by j. An
// intersection in a vertex is visited once, with the segment that starts there; the last point of a closed
// polyline belongs to its first segment. Stops, with false, when a visit returns false.
bool VisitIntersections(std::span<const PlanePoint> a, std::span<const PlanePoint> b,
                        const std::function<bool(const PolylineIntersection&)>& visit);

}  // namespace tessara

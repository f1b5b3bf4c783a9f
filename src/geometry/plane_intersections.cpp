#include "geometry/plane_intersections.h"

#include <algorithm>
#include <vector>

#include "geometry/polyline_boxes.h"

namespace tessara {
namespace {

bool IsOnSegment(double parameter) {
    return parameter >= 0.0 && parameter <= 1.0;
}

void Append(const SegmentIntersection& intersection, SegmentIntersections* intersections) {
    if (!IsOnSegment(intersection.t) || !IsOnSegment(intersection.s)) return;
    intersections->at[intersections->count++] = intersection;
}

// The overlap of two collinear segments, computed on the axis along which a is longer.
SegmentIntersections Overlap(double a1, double a2, double b1, double b2) {
    const auto onA = [&](double v) { return (v - a1) / (a2 - a1); };
    const auto onB = [&](double v) { return (v - b1) / (b2 - b1); };
    const auto isInB = [&](double v) { return v >= std::min(b1, b2) && v <= std::max(b1, b2); };
    const auto isWithinA = [&](double v) { return v > std::min(a1, a2) && v < std::max(a1, a2); };
    SegmentIntersections ends{};
    if (isInB(a1)) Append({0.0, onB(a1)}, &ends);
    if (isInB(a2)) Append({1.0, onB(a2)}, &ends);
    if (isWithinA(b1)) Append({onA(b1), 0.0}, &ends);
    if (isWithinA(b2)) Append({onA(b2), 1.0}, &ends);
    return ends;
}

bool IsClosed(std::span<const PlanePoint> polyline) {
    return polyline.front() == polyline.back();
}

// Whether the intersection lies at the end of a segment and is reported with the segment that starts there.
bool IsLeftToTheNext(double parameter, std::size_t end, std::span<const PlanePoint> polyline, bool isClosed) {
    return parameter == 1.0 && (end + 1 < polyline.size() || isClosed);
}

}  // namespace

SegmentIntersections IntersectSegments(const PlanePoint& a1, const PlanePoint& a2, const PlanePoint& b1,
                                       const PlanePoint& b2) {
    const double t = LineParameter(a1, a2, b1, b2);
    if (t == COLLINEAR_LINES) {
        return IsLongerInX(a1, a2) ? Overlap(a1.x, a2.x, b1.x, b2.x) : Overlap(a1.y, a2.y, b1.y, b2.y);
    }
    SegmentIntersections intersections{};
    if (IsOnSegment(t)) Append({t, LineParameter(b1, b2, a1, a2)}, &intersections);
    return intersections;
}

bool VisitIntersections(std::span<const PlanePoint> a, std::span<const PlanePoint> b,
                        const std::function<bool(const PolylineIntersection&)>& visit) {
    const bool isClosedA = IsClosed(a);
    const bool isClosedB = IsClosed(b);
    const auto visitPair = [&](std::size_t i, std::size_t j) {
        for (const auto& [t, s] : IntersectSegments(a[i - 1], a[i], b[j - 1], b[j])) {
            if (IsLeftToTheNext(t, i, a, isClosedA) || IsLeftToTheNext(s, j, b, isClosedB)) continue;
            PolylineIntersection intersection{i, j, t, s, {}};
            PointOnSegments(a[i - 1], a[i], b[j - 1], b[j], t, &intersection.place);
            if (!visit(intersection)) return false;
        }
        return true;
    };

    const PolylineBoxes boxesA(a);
    const PolylineBoxes boxesB(b);
    std::vector<std::size_t> near;
    for (std::size_t block = 0; block < boxesA.BlockCount(); ++block) {
        boxesB.FindNear(boxesA, block, &near);
        for (std::size_t i = boxesA.FirstOf(block); i < boxesA.EndOf(block); ++i) {
            for (const std::size_t j : near) {
                if (!visitPair(i, j)) return false;
            }
        }
    }
    return true;
}

}  // namespace tessara

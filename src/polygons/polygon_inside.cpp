#include "polygons/polygon_inside.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

#include "polygons/polygon_split.h"

namespace tessara {
namespace {

// A ray that passes an edge this close to a vertex, as a fraction of the edge, counts as passing through the
// vertex. Rounding moves the intersection by less.
constexpr double VERTEX_MARGIN = 1e-9;
// Each turned ray passes through other vertices than the rays before it, so one ray for each vertex is
// enough; these are added to that number.
constexpr std::size_t SPARE_RAYS = 16;

bool IsVertex(const PlanePoint& p, const Ring& ring) {
    return std::find(ring.begin(), ring.end(), p) != ring.end();
}

template <class Test>
bool AnyEdge(const Ring& ring, const Test& test) {
    for (std::size_t i = 1; i < ring.size(); ++i) {
        if (test(ring[i - 1], ring[i])) return true;
    }
    return false;
}

// Compares differences, because far from (0, 0) adding the tolerance to a border of the box would lose it.
bool IsNearBox(const PlanePoint& p, const Box& box, double tolerance) {
    return box.left - p.x < tolerance && p.x - box.right < tolerance && box.top - p.y < tolerance &&
           p.y - box.bottom < tolerance;
}

bool IsOnRing(const PlanePoint& p, const Ring& ring, double tolerance) {
    return AnyEdge(ring, [&](const PlanePoint& a, const PlanePoint& b) {
        return IsNearBox(p, BoxOf(a, b), tolerance) && std::fabs(SignedDistance(p, a, b)) < tolerance;
    });
}

bool IsOnEdge(double u) {
    return u >= 0.0 && u <= 1.0;
}

// How a ray meets an edge.
enum class Meeting { Misses, Crosses, StartsOn, HitsVertex };

// `end` is the point of the ray at parameter 1.0.
Meeting MeetEdge(const PlanePoint& p, const PlanePoint& end, const PlanePoint& a, const PlanePoint& b) {
    const double t = LineParameter(p, end, a, b);
    if (t < 0.0) return Meeting::Misses;
    if (t == COLLINEAR_LINES || t == 0.0) {
        return IsOnEdge(ParameterOnSegment(p, a, b)) ? Meeting::StartsOn : Meeting::Misses;
    }
    const PlanePoint q{p.x + t * (end.x - p.x), p.y + t * (end.y - p.y)};
    const double u = ParameterOnSegment(q, a, b);
    if (std::fabs(u) < VERTEX_MARGIN || std::fabs(u - 1.0) < VERTEX_MARGIN) return Meeting::HitsVertex;
    return IsOnEdge(u) ? Meeting::Crosses : Meeting::Misses;
}

// Whether the point is inside, judged by one ray; nothing if the ray meets a vertex.
std::optional<bool> IsInsideByRay(const PlanePoint& p, const PlanePoint& end, const Ring& ring) {
    bool isInside = false;
    for (std::size_t i = 1; i < ring.size(); ++i) {
        switch (MeetEdge(p, end, ring[i - 1], ring[i])) {
            case Meeting::Misses:
                break;
            case Meeting::Crosses:
                isInside = !isInside;
                break;
            case Meeting::StartsOn:
                return true;
            case Meeting::HitsVertex:
                return std::nullopt;
        }
    }
    return isInside;
}

// An edge covers the rows from its upper end to just before its lower end, so that vertices need no special
// rule.
bool IsInsideByRows(const PlanePoint& p, const Ring& ring) {
    bool isInside = false;
    for (std::size_t i = 1; i < ring.size(); ++i) {
        const PlanePoint& a = ring[i - 1];
        const PlanePoint& b = ring[i];
        if ((a.y > p.y) == (b.y > p.y)) continue;
        const double x = a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x);
        if (x > p.x) isInside = !isInside;
    }
    return isInside;
}

bool IsInsideByRays(const PlanePoint& p, const Ring& ring) {
    PlanePoint end{p.x + 1.0, p.y};
    if (end.x == p.x) return IsInsideByRows(p, ring);
    for (std::size_t ray = 0; ray < ring.size() + SPARE_RAYS; ++ray) {
        const std::optional<bool> isInside = IsInsideByRay(p, end, ring);
        if (isInside) return *isInside;
        end.y += 1.0;
    }
    return IsInsideByRows(p, ring);
}

// The smallest number of vertices with which a polygon can cross itself.
std::size_t LeastVerticesToCross(const Ring& polygon) {
    return IsClosed(polygon) ? 5 : 4;
}

}  // namespace

bool PointInVertices(const PlanePoint& point, const Ring& polygon, double tolerance) {
    if (IsVertex(point, polygon)) return true;
    if (!BoxOf(polygon).Holds(point, tolerance)) return false;
    const Ring ring = Tidied(polygon);
    return IsOnRing(point, ring, tolerance) || IsInsideByRays(point, ring);
}

bool PointInPolygon(const PlanePoint& point, const Ring& polygon, double tolerance) {
    if (polygon.size() < LeastVerticesToCross(polygon)) return PointInVertices(point, polygon, tolerance);
    if (IsVertex(point, polygon)) return true;
    if (!BoxOf(polygon).Holds(point, tolerance)) return false;
    // Tested against the whole edges: splitting them would bend the pieces by a rounding error.
    if (IsOnRing(point, Tidied(polygon), tolerance)) return true;
    const std::vector<Ring> parts = SplitVertices(polygon);
    return std::any_of(parts.begin(), parts.end(),
                       [&](const Ring& part) { return PointInVertices(point, part, tolerance); });
}

}  // namespace tessara

#include "polygons/polygon_overlay.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "polygons/polygon_faces.h"
#include "polygons/polygon_inside.h"
#include "tessara/coordinate_area.h"

namespace tessara {
namespace {

constexpr double LARGEST_PLACE = 1e150;
// Some more than what the places and distances of nodes are rounded by.
constexpr double ROUNDINGS = 8.0;
// Places that the snap tolerance neither joins nor keeps clear of each other are joined by a coarser one.
constexpr double COARSER = 16.0;
constexpr int ATTEMPTS = 6;

bool AreUsable(const Ring& ring) {
    return std::all_of(ring.begin(), ring.end(), [](const PlanePoint& p) {
        return std::fabs(p.x) <= LARGEST_PLACE && std::fabs(p.y) <= LARGEST_PLACE;
    });
}

// How close together two places are one. The tolerance for points on edges has no say here: what a host finds
// near enough to point at may be larger than the polygons.
double SnapTolerance(const Ring& first, const Ring& second) {
    double largest = 0.0;
    for (const Ring* ring : {&first, &second}) {
        for (const PlanePoint& p : *ring)
            largest = std::max({largest, std::fabs(p.x), std::fabs(p.y)});
    }
    return ROUNDINGS * std::numeric_limits<double>::epsilon() * (1.0 + largest);
}

std::int32_t CompareApart(const Ring& first, const Ring& second, double tolerance) {
    if (PointInPolygon(first.front(), second, tolerance)) return OVERLAY_FIRST_INSIDE;
    if (PointInPolygon(second.front(), first, tolerance)) return OVERLAY_SECOND_INSIDE;
    return OVERLAY_APART;
}

OverlayParts SortedFaces(std::vector<GraphFace> faces) {
    OverlayParts parts;
    for (GraphFace& face : faces) {
        const auto [isInFirst, isInSecond] = face.isIn;
        std::vector<Ring>& list = isInFirst ? (isInSecond ? parts.both : parts.onlyFirst)
                                            : (isInSecond ? parts.onlySecond : parts.neither);
        list.push_back(std::move(face.ring));
    }
    return parts;
}

bool ShareAnEdge(const RingGraph& graph) {
    return std::any_of(graph.edges.begin(), graph.edges.end(),
                       [](const GraphEdge& edge) { return edge.Separates(0) && edge.Separates(1); });
}

std::int32_t CompareParts(const OverlayParts& parts, const RingGraph& graph) {
    if (parts.both.empty()) return ShareAnEdge(graph) ? OVERLAY_TOUCHING : OVERLAY_APART;
    if (parts.onlyFirst.empty()) return parts.onlySecond.empty() ? OVERLAY_EQUAL : OVERLAY_FIRST_INSIDE;
    return parts.onlySecond.empty() ? OVERLAY_SECOND_INSIDE : OVERLAY_CROSSING;
}

// Fills the parts if the two cross.
std::int32_t CompareFaces(std::vector<GraphFace> faces, const RingGraph& graph, OverlayParts* parts) {
    OverlayParts found = SortedFaces(std::move(faces));
    const std::int32_t result = CompareParts(found, graph);
    if (result == OVERLAY_CROSSING) *parts = std::move(found);
    return result;
}

}  // namespace

std::int32_t OverlayVertices(const Ring& first, const Ring& second, double tolerance, OverlayParts* parts) {
    *parts = {};
    if (first.empty() || second.empty()) return OVERLAY_APART;
    if (!AreUsable(first) || !AreUsable(second)) return OVERLAY_FAILURE;
    double snapTolerance = SnapTolerance(first, second);
    for (int attempt = 0; attempt < ATTEMPTS; ++attempt) {
        const RingGraph graph = GraphOf(first, second, snapTolerance);
        if (!graph.doRingsTouch) return CompareApart(first, second, tolerance);
        std::optional<std::vector<GraphFace>> faces = FacesOf(graph, snapTolerance);
        if (faces) return CompareFaces(std::move(*faces), graph, parts);
        snapTolerance *= COARSER;
    }
    return OVERLAY_FAILURE;  // GCOVR_EXCL_LINE: no tangle is known that stays one at the coarsest
}

}  // namespace tessara

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
// Somewhat more than the rounding error of the places of nodes and of the distances between them.
constexpr double ROUNDINGS = 8.0;
// The factor to the next snap tolerance, tried when the current one leaves nodes neither joined nor clear of
// each other.
constexpr double COARSER = 16.0;
constexpr int ATTEMPTS = 6;

bool AreUsable(const Ring& ring) {
    return std::all_of(ring.begin(), ring.end(), [](const PlanePoint& p) {
        return std::fabs(p.x) <= LARGEST_PLACE && std::fabs(p.y) <= LARGEST_PLACE;
    });
}

// How close two places have to be to become one. The tolerance for points on edges plays no role here: a
// host may set one that is larger than the polygons.
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

// Compares the faces, and fills the parts if the two polygons cross.
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
    return OVERLAY_FAILURE;  // GCOVR_EXCL_LINE: no rings are known whose graph isn't planar at the coarsest
}

}  // namespace tessara

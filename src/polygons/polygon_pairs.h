// Finds the pairs of edges that may intersect, so that only those are tested exactly.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "polygons/polygon_ring.h"

namespace tessara {

// The boxes of the edges between consecutive vertices, each widened by more than rounding can move an
// intersection.
[[nodiscard]] std::vector<Box> BoxesOfEdges(std::span<const PlanePoint> ring);
[[nodiscard]] Box BoxOfEdge(const PlanePoint& a, const PlanePoint& b);

// Visits each pair of overlapping boxes once, the smaller index first, ordered by the left borders.
void VisitNearPairs(const std::vector<Box>& boxes,
                    const std::function<void(std::size_t, std::size_t)>& visit);

}  // namespace tessara

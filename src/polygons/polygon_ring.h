// Rings of polygons in a plane.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "geometry/plane_lines.h"

namespace tessara {

// The vertices of a polygon in the order of its edges. A ring whose last vertex equals the first exactly is
// closed; any other ring has an edge from its last vertex to its first.
using Ring = std::vector<PlanePoint>;

[[nodiscard]] bool IsClosed(std::span<const PlanePoint> ring);

// The same ring, closed and without a vertex that repeats the one before it.
[[nodiscard]] Ring Tidied(std::span<const PlanePoint> ring);

struct Box {
    double left, top, right, bottom;

    // Whether a point lies inside, or outside by at most `margin`. True for a NaN, too.
    [[nodiscard]] bool Holds(const PlanePoint& p, double margin = 0.0) const;
};

// The box around the points, leaving out coordinates that are NaN; without any number left and top are
// infinity, right and bottom minus infinity.
[[nodiscard]] Box BoxOf(std::span<const PlanePoint> points);
[[nodiscard]] Box BoxOf(const PlanePoint& a, const PlanePoint& b);

// For hash tables of places. Equal places have equal hashes, 0.0 and -0.0 included.
struct PlaceHash {
    std::size_t operator()(const PlanePoint& p) const {
        const std::hash<double> hash;
        return hash(p.x) * 31 + hash(p.y);
    }
};

}  // namespace tessara

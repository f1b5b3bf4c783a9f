// Rings of polygons in a plane.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <vector>

#include "geometry/plane_lines.h"

namespace tessara {

// The vertices of a polygon in the order of its edges. It is closed when the last equals the first exactly;
// an open one goes back from its last to its first all the same.
using Ring = std::vector<PlanePoint>;

[[nodiscard]] bool IsClosed(std::span<const PlanePoint> ring);

// The same ring, closed and without a vertex that repeats the one before it.
[[nodiscard]] Ring Tidied(std::span<const PlanePoint> ring);

struct Box {
    double left, top, right, bottom;

    // Whether a point lies inside or outside by `margin` at most; so does one that is no number.
    [[nodiscard]] bool Holds(const PlanePoint& p, double margin = 0.0) const;
};

// The box of the numbers among the coordinates; of none it is infinitely inside out.
[[nodiscard]] Box BoxOf(std::span<const PlanePoint> points);
[[nodiscard]] Box BoxOf(const PlanePoint& a, const PlanePoint& b);

// For tables of places. Equal places, which may differ in the sign of a zero, have equal hashes.
struct PlaceHash {
    std::size_t operator()(const PlanePoint& p) const {
        const std::hash<double> hash;
        return hash(p.x) * 31 + hash(p.y);
    }
};

}  // namespace tessara

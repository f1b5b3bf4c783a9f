#include "polygons/polygon_ring.h"

#include <algorithm>
#include <array>
#include <limits>

namespace tessara {

bool IsClosed(std::span<const PlanePoint> ring) {
    return !ring.empty() && ring.front() == ring.back();
}

Ring Tidied(std::span<const PlanePoint> ring) {
    Ring tidied;
    tidied.reserve(ring.size() + 1);
    for (const PlanePoint& vertex : ring) {
        if (tidied.empty() || vertex != tidied.back()) tidied.push_back(vertex);
    }
    if (!tidied.empty() && !IsClosed(tidied)) tidied.push_back(tidied.front());
    return tidied;
}

bool Box::Holds(const PlanePoint& p, double margin) const {
    const bool isBeyond =
        p.x > right + margin || p.x < left - margin || p.y > bottom + margin || p.y < top - margin;
    return !isBeyond;
}

Box BoxOf(std::span<const PlanePoint> points) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    Box box{INF, INF, -INF, -INF};
    for (const PlanePoint& p : points) {
        // With the arguments in this order std::min drops a NaN.
        box.left = std::min(box.left, p.x);
        box.top = std::min(box.top, p.y);
        box.right = std::max(box.right, p.x);
        box.bottom = std::max(box.bottom, p.y);
    }
    return box;
}

Box BoxOf(const PlanePoint& a, const PlanePoint& b) {
    return BoxOf(std::array{a, b});
}

}  // namespace tessara

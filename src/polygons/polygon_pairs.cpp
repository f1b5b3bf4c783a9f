#include "polygons/polygon_pairs.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "polygons/box_tree.h"

namespace tessara {
namespace {

constexpr double MARGIN_ROUNDINGS = 8.0;

// Infinite borders get no margin, since infinity minus infinity isn't a number.
double Margin(double a, double b) {
    const double size = 1.0 + std::fabs(a) + std::fabs(b);
    return std::isfinite(size) ? MARGIN_ROUNDINGS * std::numeric_limits<double>::epsilon() * size : 0.0;
}

bool Meet(const Box& a, const Box& b) {
    return a.left <= b.right && b.left <= a.right && a.top <= b.bottom && b.top <= a.bottom;
}

std::vector<std::size_t> ByLeft(const std::vector<Box>& boxes) {
    std::vector<std::size_t> byLeft(boxes.size());
    std::iota(byLeft.begin(), byLeft.end(), std::size_t{0});
    std::sort(byLeft.begin(), byLeft.end(),
              [&](std::size_t a, std::size_t b) { return boxes[a].left < boxes[b].left; });
    return byLeft;
}

}  // namespace

Box BoxOfEdge(const PlanePoint& a, const PlanePoint& b) {
    const Box box = BoxOf(a, b);
    const double marginX = Margin(box.left, box.right);
    const double marginY = Margin(box.top, box.bottom);
    return {box.left - marginX, box.top - marginY, box.right + marginX, box.bottom + marginY};
}

std::vector<Box> BoxesOfEdges(std::span<const PlanePoint> ring) {
    std::vector<Box> boxes;
    for (std::size_t i = 1; i < ring.size(); ++i)
        boxes.push_back(BoxOfEdge(ring[i - 1], ring[i]));
    return boxes;
}

void VisitNearPairs(const std::vector<Box>& boxes,
                    const std::function<void(std::size_t, std::size_t)>& visit) {
    const std::vector<std::size_t> byLeft = ByLeft(boxes);
    std::vector<Box> sorted;
    sorted.reserve(boxes.size());
    for (const std::size_t i : byLeft)
        sorted.push_back(boxes[i]);
    const BoxTree tree(sorted);
    std::vector<std::size_t> later;
    for (std::size_t k = 0; k < sorted.size(); ++k) {
        later.clear();
        tree.Search([&](const Box& box) { return Meet(sorted[k], box); },
                    [&](std::size_t m) {
                        if (m > k) later.push_back(m);
                    });
        std::sort(later.begin(), later.end());
        for (const std::size_t m : later)
            visit(std::min(byLeft[k], byLeft[m]), std::max(byLeft[k], byLeft[m]));
    }
}

}  // namespace tessara

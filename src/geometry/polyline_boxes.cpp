// Let D = a2 - a1 and f(p) = (p.x - a1.x) D.y - (p.y - a1.y) D.x, whose sign is the side of the line on
// which p lies. The parameter of an intersection on b1-b2 is f(b1) / (f(b1) - f(b2)). If f has one sign in a
// box around both points, the quotient is above 1 or negative. In doubles the same holds if f is further
// from zero than the errors of the two terms, which are a few rounding errors of (|p| + |a1|) |D|; this also
// exceeds the distance within which IntersectSegments takes a point for one on the line. The argument holds
// however parallel the segments are.
#include "geometry/polyline_boxes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessara {
namespace {

// A range by its middle and half its extent.
struct Range {
    double middle, reach;
};

Range Between(double low, double high) {
    return {low / 2.0 + high / 2.0, high / 2.0 - low / 2.0};
}

constexpr double NOWHERE = std::numeric_limits<double>::quiet_NaN();

}  // namespace

PolylineBoxes::PolylineBoxes(std::span<const PlanePoint> polyline) : polyline_(polyline), levels_(1) {
    for (std::size_t block = 0; FirstOf(block) < polyline_.size(); ++block)
        levels_.front().push_back(AroundBlock(block));
    while (levels_.back().size() > 1) {
        const std::vector<Box>& below = levels_.back();
        std::vector<Box> level;
        for (std::size_t i = 0; i < below.size(); i += 2)
            level.push_back(i + 1 < below.size() ? Around(below[i], below[i + 1]) : below[i]);
        levels_.push_back(std::move(level));
    }
}

std::size_t PolylineBoxes::EndOf(std::size_t block) const {
    return std::min(FirstOf(block) + SEGMENTS, polyline_.size());
}

PolylineBoxes::Box PolylineBoxes::AroundBlock(std::size_t block) const {
    Box box{NOWHERE, NOWHERE, NOWHERE, NOWHERE};
    for (std::size_t i = FirstOf(block) - 1; i < EndOf(block); ++i) {
        const PlanePoint& p = polyline_[i];
        if (!std::isfinite(p.x) || !std::isfinite(p.y)) return {NOWHERE, NOWHERE, NOWHERE, NOWHERE};
        const Box point{p.x, p.y, 0.0, 0.0};
        box = i + 1 == FirstOf(block) ? point : Around(box, point);
    }
    return box;
}

PolylineBoxes::Box PolylineBoxes::Around(const Box& one, const Box& other) {
    const auto [x, dx] =
        Between(std::min(one.x - one.dx, other.x - other.dx), std::max(one.x + one.dx, other.x + other.dx));
    const auto [y, dy] =
        Between(std::min(one.y - one.dy, other.y - other.dy), std::max(one.y + one.dy, other.y + other.dy));
    // std::min and std::max of a number and a NaN may return either.
    if (std::isnan(one.x) || std::isnan(other.x)) return {NOWHERE, NOWHERE, NOWHERE, NOWHERE};
    return {x, y, dx, dy};
}

bool PolylineBoxes::LiesToOneSide(std::size_t segment, const Box& box) const {
    constexpr double someRoundings = 64.0 * std::numeric_limits<double>::epsilon();
    const PlanePoint& a = polyline_[segment - 1];
    const PlanePoint d{polyline_[segment].x - a.x, polyline_[segment].y - a.y};
    const double length = std::fabs(d.x) + std::fabs(d.y);
    const double size =
        std::fabs(a.x) + std::fabs(a.y) + std::fabs(box.x) + std::fabs(box.y) + box.dx + box.dy;
    const double margin = someRoundings * (size + 1.0) * length + std::numeric_limits<double>::min();
    const double middle = (box.x - a.x) * d.y - (box.y - a.y) * d.x;
    const double reach = box.dx * std::fabs(d.y) + box.dy * std::fabs(d.x);
    return std::fabs(middle) - reach > margin;  // false for a NaN
}

void PolylineBoxes::FindNear(const PolylineBoxes& other, std::size_t block,
                             std::vector<std::size_t>* segments) const {
    segments->clear();
    FindBelow(levels_.size() - 1, 0, other, block, segments);
}

void PolylineBoxes::FindBelow(std::size_t height, std::size_t index, const PolylineBoxes& other,
                              std::size_t block, std::vector<std::size_t>* segments) const {
    if (index >= levels_[height].size()) return;
    const Box& box = levels_[height][index];
    std::size_t line = other.FirstOf(block);
    while (line < other.EndOf(block) && other.LiesToOneSide(line, box))
        ++line;
    if (line == other.EndOf(block)) return;  // the box lies on one side of every segment of the block

    if (height > 0) {
        FindBelow(height - 1, 2 * index, other, block, segments);
        FindBelow(height - 1, 2 * index + 1, other, block, segments);
        return;
    }
    for (std::size_t j = FirstOf(index); j < EndOf(index); ++j) {
        if (!LiesToOneSide(j, other.levels_.front()[block])) segments->push_back(j);
    }
}

}  // namespace tessara

#include "drawing/clipping.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessara::toolkit {
namespace {

constexpr double ON_SIDE = 1e-6;  // picture units

struct Segment {
    PicturePoint from, to;
};

// Narrows the part [low, high] of a segment, in parts of its length, to where start + part * step >= 0.
bool Narrow(double start, double step, double* low, double* high) {
    if (step == 0.0) return start >= 0.0;
    const double part = -start / step;
    if (step > 0.0) {
        *low = std::max(*low, part);
    } else {
        *high = std::min(*high, part);
    }
    return *low <= *high;
}

PicturePoint Between(const Segment& segment, double part) {
    if (part <= 0.0) return segment.from;
    if (part >= 1.0) return segment.to;
    return {segment.from.x + part * (segment.to.x - segment.from.x),
            segment.from.y + part * (segment.to.y - segment.from.y)};
}

// Y. Liang and B. Barsky, "A New Concept and Method for Line Clipping", ACM Transactions on Graphics 3, 1984.
std::vector<Segment> Clip(const Segment& segment, double width, double height) {
    const double dx = segment.to.x - segment.from.x;
    const double dy = segment.to.y - segment.from.y;
    double low = 0.0;
    double high = 1.0;
    const bool isInside =
        Narrow(segment.from.x, dx, &low, &high) && Narrow(width - segment.from.x, -dx, &low, &high) &&
        Narrow(segment.from.y, dy, &low, &high) && Narrow(height - segment.from.y, -dy, &low, &high);
    if (!isInside) return {};
    return {{Between(segment, low), Between(segment, high)}};
}

// Points within the rounding error of a side lie on it.
PicturePoint Snap(const PicturePoint& point, double width, double height) {
    const auto snap = [](double value, double side) {
        return std::abs(value - side) <= ON_SIDE ? side : value;
    };
    return {snap(snap(point.x, 0.0), width), snap(snap(point.y, 0.0), height)};
}

double DistanceTo(const Segment& segment, const PicturePoint& point) {
    const double dx = segment.to.x - segment.from.x;
    const double dy = segment.to.y - segment.from.y;
    const double square = dx * dx + dy * dy;
    const double along = (point.x - segment.from.x) * dx + (point.y - segment.from.y) * dy;
    const PicturePoint nearest = square > 0.0 ? Between(segment, along / square) : segment.from;
    return std::hypot(point.x - nearest.x, point.y - nearest.y);
}

// The part of an area with a depth of at least 0.
template <class Depth>
Polyline CutOff(const Polyline& outline, Depth depth) {
    Polyline kept;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const PicturePoint& from = outline[i == 0 ? outline.size() - 1 : i - 1];
        const PicturePoint& to = outline[i];
        const double before = depth(from);
        const double after = depth(to);
        if ((before < 0.0) != (after < 0.0)) kept.push_back(Between({from, to}, before / (before - after)));
        if (after >= 0.0) kept.push_back(to);
    }
    return kept;
}

}  // namespace

// I. Sutherland and G. Hodgman, "Reentrant Polygon Clipping", Communications of the ACM 17, 1974.
Polyline ClipArea(const Polyline& outline, const PicturePoint& low, const PicturePoint& high) {
    Polyline area = CutOff(outline, [&low](const PicturePoint& point) { return point.x - low.x; });
    area = CutOff(area, [&high](const PicturePoint& point) { return high.x - point.x; });
    area = CutOff(area, [&low](const PicturePoint& point) { return point.y - low.y; });
    return CutOff(area, [&high](const PicturePoint& point) { return high.y - point.y; });
}

std::vector<Polyline> ClipToFrame(const Polyline& line, double width, double height) {
    std::vector<Polyline> pieces;
    for (std::size_t i = 1; i < line.size(); ++i) {
        const Segment segment{Snap(line[i - 1], width, height), Snap(line[i], width, height)};
        for (const Segment& inside : Clip(segment, width, height)) {
            if (inside.from == inside.to) continue;
            const bool goesOn = !pieces.empty() && pieces.back().back() == inside.from;
            if (!goesOn) pieces.push_back({inside.from});
            pieces.back().push_back(inside.to);
        }
    }
    return pieces;
}

// D. Douglas and T. Peucker, "Algorithms for the Reduction of the Number of Points Required to Represent a
// Digitized Line or its Caricature", Cartographica 10, 1973.
Polyline Simplify(const Polyline& line, double tolerance) {
    if (line.size() < 3) return line;
    std::vector<bool> isKept(line.size(), false);
    isKept.front() = isKept.back() = true;
    std::vector<std::pair<std::size_t, std::size_t>> spans{{0, line.size() - 1}};
    while (!spans.empty()) {
        const auto [first, last] = spans.back();
        spans.pop_back();
        std::size_t farthest = first;
        double distance = tolerance;
        for (std::size_t i = first + 1; i < last; ++i) {
            const double aside = DistanceTo({line[first], line[last]}, line[i]);
            if (aside <= distance) continue;
            distance = aside;
            farthest = i;
        }
        if (farthest == first) continue;
        isKept[farthest] = true;
        spans.emplace_back(first, farthest);
        spans.emplace_back(farthest, last);
    }
    Polyline kept;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (isKept[i]) kept.push_back(line[i]);
    }
    return kept;
}

Side SideOf(const PicturePoint& point, double width, double height, bool preferTopAndBottom) {
    const bool isLeft = std::abs(point.x) <= ON_SIDE;
    const bool isRight = std::abs(point.x - width) <= ON_SIDE;
    const bool isTop = std::abs(point.y) <= ON_SIDE;
    const bool isBottom = std::abs(point.y - height) <= ON_SIDE;
    if ((isLeft || isRight) && !(preferTopAndBottom && (isTop || isBottom)))
        return isLeft ? Side::LEFT : Side::RIGHT;
    if (isTop || isBottom) return isTop ? Side::TOP : Side::BOTTOM;
    return Side::INSIDE;
}

}  // namespace tessara::toolkit

#include "map/clipping.h"

#include <algorithm>
#include <cmath>

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

// What lies on a side but for rounding lies on it.
PicturePoint Snap(const PicturePoint& point, double width, double height) {
    const auto snap = [](double value, double side) {
        return std::abs(value - side) <= ON_SIDE ? side : value;
    };
    return {snap(snap(point.x, 0.0), width), snap(snap(point.y, 0.0), height)};
}

}  // namespace

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

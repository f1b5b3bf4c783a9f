// Sample places in a window of a map, given by fractions of its width and height.
#pragma once

#include "geometry/plane_lines.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// 0.0 is the left or top side, 1.0 the right or bottom side.
inline PlanePoint PlaceInWindow(const PixelRect& window, double across, double down) {
    return {window.left + (static_cast<double>(window.right) - window.left) * across,
            window.top + (static_cast<double>(window.bottom) - window.top) * down};
}

// Calls visit(place, isFirst) for places along nine rows and nine columns of the window, its sides included.
// Each has `pieces` + 1 places; isFirst marks the first one.
template <class Visit>
void WalkAcrossWindow(const PixelRect& window, int pieces, const Visit& visit) {
    constexpr int LINES = 8;
    for (int line = 0; line <= LINES; ++line) {
        const double part = static_cast<double>(line) / LINES;
        for (int i = 0; i <= pieces; ++i)
            visit(PlaceInWindow(window, static_cast<double>(i) / pieces, part), i == 0);
        for (int i = 0; i <= pieces; ++i)
            visit(PlaceInWindow(window, part, static_cast<double>(i) / pieces), i == 0);
    }
}

}  // namespace tessara

// Places of a window of a map, by how far across they lie.
#pragma once

#include "geometry/plane_lines.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// From 0.0 on the left and the top side to 1.0 on the right and the bottom one.
inline PlanePoint PlaceInWindow(const PixelRect& window, double across, double down) {
    return {window.left + (static_cast<double>(window.right) - window.left) * across,
            window.top + (static_cast<double>(window.bottom) - window.top) * down};
}

// Calls visit(place, isFirst) for places along nine rows and nine columns of the window, its sides among
// them: `pieces` and one on each, of which the first begins a line.
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

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

}  // namespace tessara

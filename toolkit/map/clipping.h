// The pieces of a line inside a rectangle that begins at (0, 0).
#pragma once

#include <vector>

#include "map/map_sheet.h"

namespace tessara::toolkit {

enum class Side { LEFT, TOP, RIGHT, BOTTOM, INSIDE };

// Points on the rim are inside; a piece that would be one point is left out.
[[nodiscard]] std::vector<Polyline> ClipToFrame(const Polyline& line, double width, double height);

// The side on which a point of such a piece lies. A corner belongs to two of them, of which one is preferred.
[[nodiscard]] Side SideOf(const PicturePoint& point, double width, double height, bool preferTopAndBottom);

}  // namespace tessara::toolkit

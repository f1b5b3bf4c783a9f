// Clips lines and areas to a rectangle.
#pragma once

#include <vector>

#include "map/map_sheet.h"

namespace tessara::toolkit {

enum class Side { LEFT, TOP, RIGHT, BOTTOM, INSIDE };

// The pieces of a line inside a rectangle with the corner (0, 0). Points on the border are inside; single
// points are omitted.
[[nodiscard]] std::vector<Polyline> ClipToFrame(const Polyline& line, double width, double height);

// The part of an area inside a rectangle, by the even-odd rule. Its outline may run back and forth along the
// border.
[[nodiscard]] Polyline ClipArea(const Polyline& outline, const PicturePoint& low, const PicturePoint& high);

// Removes points within the tolerance of the simplified line.
[[nodiscard]] Polyline Simplify(const Polyline& line, double tolerance);

// The side of the rectangle on which a point lies. At a corner, `preferred` decides between two sides.
[[nodiscard]] Side SideOf(const PicturePoint& point, double width, double height, bool preferTopAndBottom);

}  // namespace tessara::toolkit

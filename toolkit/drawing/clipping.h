// The parts of lines and areas inside a rectangle.
#pragma once

#include <vector>

#include "map/map_sheet.h"

namespace tessara::toolkit {

enum class Side { LEFT, TOP, RIGHT, BOTTOM, INSIDE };

// The pieces of a line inside a rectangle that begins at (0, 0). Points on the rim are inside; a piece that
// would be one point is left out.
[[nodiscard]] std::vector<Polyline> ClipToFrame(const Polyline& line, double width, double height);

// What an area covers of a rectangle, with an even-odd rule: parts of its outline may run along the rim to
// and fro.
[[nodiscard]] Polyline ClipArea(const Polyline& outline, const PicturePoint& low, const PicturePoint& high);

// Without the points that lie within the tolerance of what the others make.
[[nodiscard]] Polyline Simplify(const Polyline& line, double tolerance);

// The side on which a point of such a piece lies. A corner belongs to two of them, of which one is preferred.
[[nodiscard]] Side SideOf(const PicturePoint& point, double width, double height, bool preferTopAndBottom);

}  // namespace tessara::toolkit

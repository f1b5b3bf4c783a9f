// The value of a grid line as a text.
#pragma once

#include <optional>
#include <string>

#include "tessara/tessara.h"

namespace tessara::toolkit {

enum class Axis { EAST, NORTH };

// The value that all points of the line have on the axis: the text of the library, as precise as the step
// needs; of BNG, ING and VDG, whose texts hold more, the number only.
[[nodiscard]] std::string AxisText(ICoord* coord, Axis axis, double step);

// The same as a number; nothing for UTMREF, which has letters in its place.
[[nodiscard]] std::optional<double> AxisValue(ICoord* coord, Axis axis);

}  // namespace tessara::toolkit

// The value of a grid line as a text.
#pragma once

#include <optional>
#include <string>

#include "tessara/tessara.h"

namespace tessara::toolkit {

enum class Axis { East, North };

// The value that all points of the line have on the axis, as precise as the step needs and in a form that
// shows which axis it is. It is the text of the library but for what those of some systems hold besides: of
// BNG, ING and VDG the number, of UTMREF the digits within the square. Longitudes are within half a turn.
[[nodiscard]] std::string AxisText(ICoord* coord, Axis axis, double step);

// The same as a number; nothing for UTMREF, which has letters in its place.
[[nodiscard]] std::optional<double> AxisValue(ICoord* coord, Axis axis);

}  // namespace tessara::toolkit

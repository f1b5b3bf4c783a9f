// Labels of grid lines.
#pragma once

#include <optional>
#include <string>

#include "tessara/tessara.h"

namespace tessara::toolkit {

enum class Axis { East, North };

// The common value of all points of the line on the axis, as precise as the step requires and in a form that
// identifies the axis. Most systems use the text of the library; BNG, ING and VDG use the number, and UTMREF
// uses the digits within the square. Longitudes are in -180..180.
[[nodiscard]] std::string AxisText(ICoord* coord, Axis axis, double step);

// The value as a number; nothing for UTMREF, which uses letters.
[[nodiscard]] std::optional<double> AxisValue(ICoord* coord, Axis axis);

}  // namespace tessara::toolkit

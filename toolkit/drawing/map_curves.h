// Projects curves on the earth to polylines of the picture.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "map/map_sheet.h"

namespace tessara::toolkit {

// The point of a curve at a parameter from 0.0 to 1.0; nothing if the picture has no such point.
using CurvePoint = std::function<std::optional<PicturePoint>(double part)>;

// The pieces of a curve, each a polyline within LINE_TOLERANCE of it. A new piece begins where the curve
// continues at another edge of the map or has no points; the gap is located to a fraction of a unit.
[[nodiscard]] std::vector<Polyline> TraceCurve(const CurvePoint& pointAt);

}  // namespace tessara::toolkit

// Curves on the earth as lines of the picture.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "map/map_sheet.h"

namespace tessara::toolkit {

// The point of a curve at a part of its way, from 0.0 to 1.0; nothing where it has none in the picture.
using CurvePoint = std::function<std::optional<PicturePoint>(double part)>;

// The pieces of a curve, each a chain that lies within LINE_TOLERANCE of it. Where the curve leaves the map
// and goes on at another rim, or has no point, one piece ends and another begins, to a fraction of a unit.
[[nodiscard]] std::vector<Polyline> TraceCurve(const CurvePoint& pointAt);

}  // namespace tessara::toolkit

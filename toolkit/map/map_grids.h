// Grids of any system over the window of a map.
#pragma once

#include "conversion/references.h"
#include "map/map_sheet.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

// Whether a system has grid lines.
[[nodiscard]] bool HasGrid(std::int32_t system);

// The grid of a system with grid lines, a pixel wider than the window on each side; empty for a window
// outside the area of the system.
[[nodiscard]] IRef<ICoordinateGrid> MakeGrid(const MapSheet& sheet, const Reference& reference,
                                             double eastStep, double northStep);

}  // namespace tessara::toolkit

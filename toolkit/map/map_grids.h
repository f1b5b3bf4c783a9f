// Grids of any system over the window of a map.
#pragma once

#include "conversion/references.h"
#include "map/map_sheet.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

// Whether a system has grid lines.
[[nodiscard]] bool HasGrid(std::int32_t system);

// The grid of a system that has lines, a pixel wider than the window on each side; empty where there is none.
[[nodiscard]] IRef<ICoordinateGrid> MakeGrid(const MapSheet& sheet, const Reference& reference,
                                             double eastStep, double northStep);

}  // namespace tessara::toolkit

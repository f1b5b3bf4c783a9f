// Grids of any system over the window of a map.
#pragma once

#include <cstdint>
#include <optional>

#include "conversion/references.h"
#include "map/map_sheet.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

// Whether a system has grid lines.
[[nodiscard]] bool HasGrid(std::int32_t system);

[[nodiscard]] bool HasZones(const Reference& reference);

// The zone that a coordinate names; nothing in a system without zones.
[[nodiscard]] std::optional<std::int32_t> ZoneOf(ICoord* coord);

// The grid of a system with grid lines, a pixel wider than the window on each side; empty for a window
// outside the area of the system.
[[nodiscard]] IRef<ICoordinateGrid> MakeGrid(const MapSheet& sheet, const Reference& reference,
                                             double eastStep, double northStep);

}  // namespace tessara::toolkit

// The borders between zones among the lines of a grid.
#pragma once

#include <cstdint>
#include <optional>

#include "conversion/references.h"
#include "drawing/map_grid_lines.h"

namespace tessara::toolkit {

// Wider than a zone, so that a grid with this step has hardly more than the borders.
inline constexpr double STEP_BEYOND_ZONES = 2e6;  // metres

// The zones to the west and to the east of a border; empty where the system has none.
struct BorderZones {
    std::optional<std::int32_t> west, east;
};

// Nothing for a line that is no border.
[[nodiscard]] std::optional<BorderZones> ZonesBeside(const GridLine& line, const Reference& reference);

}  // namespace tessara::toolkit

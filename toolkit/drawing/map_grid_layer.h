// Grid lines of a system over the window, their labels at the frame, and the borders of zones.
#pragma once

#include "drawing/map_drawing.h"
#include "map/map_description.h"
#include "map/map_sheet.h"

namespace tessara::toolkit {

// `index` is the index of the grid in the picture.
[[nodiscard]] Drawing DrawGrid(const MapSheet& sheet, const Layer& layer, const GridLayer& grid,
                               std::size_t index);
[[nodiscard]] Drawing DrawBorders(const MapSheet& sheet, const Layer& layer, const BordersLayer& borders);

}  // namespace tessara::toolkit

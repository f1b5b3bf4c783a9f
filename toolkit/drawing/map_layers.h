// Converts layers to shapes and texts of the picture.
#pragma once

#include "drawing/map_drawing.h"
#include "map/map_description.h"
#include "map/map_sheet.h"

namespace tessara::toolkit {

// `gridIndex` is the number of grids in the preceding layers.
[[nodiscard]] Drawing DrawLayer(const MapSheet& sheet, const Layer& layer, std::size_t gridIndex);

}  // namespace tessara::toolkit

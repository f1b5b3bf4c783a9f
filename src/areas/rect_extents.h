// How far a rectangle of a map reaches in a reference.
#pragma once

#include <cstdint>

#include "areas/extremes.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

class IMapCoordOperations;

// The sides of the rectangle may be swapped. False as coordinate_area.h says; the extremes are then those
// found before, if there are any.
bool ExtentOfRect(IMapCoordOperations* map, const PixelRect& rect, std::int32_t datum, std::int32_t system,
                  Extremes* extremes);

}  // namespace tessara

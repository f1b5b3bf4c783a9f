// How far a rectangle of a map reaches in a reference.
#pragma once

#include <cstdint>

#include "areas/extremes.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

class IMapCoordOperations;

// The sides of the rectangle may be swapped. False for a rectangle without any valid position; the extremes
// found until then stay.
bool ExtentOfRect(IMapCoordOperations* map, const PixelRect& rect, std::int32_t datum, std::int32_t system,
                  Extremes* extremes);

}  // namespace tessara

// Windows of maps that go on over the date line, such as from 178 to 182 degrees. No zone takes 181 degrees,
// and of the two places that a position has on such a map, a turn around the earth apart, its numbers give
// the one between -180 and 180.
#pragma once

#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// A map of the same pixels on which every pixel of the window has a position, also in systems that end at the
// date line, and positions have the pixel closest to the window. The map itself where all of the window lies
// between -180 and 180 degrees; an empty handle without memory and for a map without a datum.
[[nodiscard]] IRef<IMapCoordOperations> MapOverDateLine(const IRef<IMapCoordOperations>& map,
                                                        const PixelRect& window);

}  // namespace tessara

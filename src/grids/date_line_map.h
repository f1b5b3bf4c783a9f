// Windows that continue across the date line, for example from 178 to 182 degrees. No zone accepts 181
// degrees. A position has two places on such a map, a turn around the earth apart, and the map returns the
// one between -180 and 180 degrees.
#pragma once

#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// A map of the same pixels. Every pixel of the window has a position on it, also in systems that end at the
// date line, and a position has the pixel closest to the window. If all of the window lies between -180 and
// 180 degrees, the result is `map` itself; without memory and for a map without a datum the handle is empty.
[[nodiscard]] IRef<IMapCoordOperations> MapOverDateLine(const IRef<IMapCoordOperations>& map,
                                                        const PixelRect& window);

}  // namespace tessara

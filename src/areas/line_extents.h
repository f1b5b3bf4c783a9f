// How far a line reaches in a reference.
#pragma once

#include <cstdint>

#include "areas/extremes.h"

namespace tessara {

class IArray;
class IMapCoordOperations;

// With a map, edges between pixels are straight on the map; without one (null) a pixel has no position.
// Other edges are straight in the line's own system. False for an empty line, for neighbours of different
// datum or system and for a position that doesn't convert into the reference; the extremes are then those of
// the edges before.
bool ExtentOfLine(IMapCoordOperations* map, IArray* line, std::int32_t datum, std::int32_t system,
                  Extremes* extremes);

}  // namespace tessara

// How far a line reaches in a reference.
#pragma once

#include <cstdint>

#include "areas/extremes.h"

namespace tessara {

class IArray;
class IMapCoordOperations;

// With a map the edges of a pixel line are straight on it, without one (null) a pixel has no position; other
// edges are straight in the line's own system. False for an empty line, and as coordinate_area.h says; the
// extremes are then those of the edges before.
bool ExtentOfLine(IMapCoordOperations* map, IArray* line, std::int32_t datum, std::int32_t system,
                  Extremes* extremes);

}  // namespace tessara

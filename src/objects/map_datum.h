// The datum that a map draws on.
#pragma once

#include <cstdint>

#include "tessara/map_coord_operations.h"

namespace tessara {

// False if the map doesn't tell, or without memory; *datum is then unchanged.
bool ReadMapDatum(IMapCoordOperations* map, std::int32_t* datum);

}  // namespace tessara

// What a map takes from a projection object.
#pragma once

#include "tessara/kernel/map.h"
#include "tessara/unknown.h"

namespace tessara {

// Puts type, world type and parameters of a projection into *map and leaves the rest. A projection of another
// maker, known by IProjection alone, serves for the types that are maps. False for null or a wrong object.
bool MapParamFromProjection(IUnknown* projection, MapParam* map);

}  // namespace tessara

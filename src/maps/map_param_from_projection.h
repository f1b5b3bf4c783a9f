// Copies the parameters of a projection object into a map record.
#pragma once

#include "tessara/kernel/map.h"
#include "tessara/unknown.h"

namespace tessara {

// Writes type, world type and parameters of *map and nothing else. A projection from another library, which
// has IProjection only, works for all types that are maps. False for null or a wrong object.
bool MapParamFromProjection(IUnknown* projection, MapParam* map);

}  // namespace tessara

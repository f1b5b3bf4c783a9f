// How the factories of this room make an object with something in it. Each gives a fresh object of count 0,
// or null without memory.
#pragma once

#include "maps/owned_map_param.h"

namespace tessara {

class IMapCoordCreator;
class IMapCoordOperations;
class IProjection;

[[nodiscard]] IProjection* NewProjection(const MapParam& map);
// Without memory the chain stays with `map`.
[[nodiscard]] IMapCoordOperations* NewMapCoordOperations(OwnedMapParam&& map);
[[nodiscard]] IMapCoordCreator* NewMapCoordCreator(IMapCoordOperations* map);

}  // namespace tessara

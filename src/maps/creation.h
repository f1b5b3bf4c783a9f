// Creates filled objects for the factories of this room. Each function returns a new object of count 0, or
// null without memory.
#pragma once

#include "maps/owned_map_param.h"

namespace tessara {

class IMapCoordCreator;
class IMapCoordOperations;
class IProjection;

[[nodiscard]] IProjection* NewProjection(const MapParam& map);
// Takes over the chain of `map`; without memory the chain stays with `map`.
[[nodiscard]] IMapCoordOperations* NewMapCoordOperations(OwnedMapParam&& map);
[[nodiscard]] IMapCoordCreator* NewMapCoordCreator(IMapCoordOperations* map);

}  // namespace tessara

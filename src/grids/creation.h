// Creates a filled object for the factory of this room.
#pragma once

#include <cstdint>

namespace tessara {

class ICoordinateGrid;
class IMapCoordOperations;

// A new grid of count 0. Null for a null or wrong map, a datum other than 0..238 and 999, a step that is
// 0.0, infinite or NaN, and without memory.
[[nodiscard]] ICoordinateGrid* NewCoordinateGrid(IMapCoordOperations* map, std::int32_t datum,
                                                 std::int32_t system, double eastStep, double northStep);

}  // namespace tessara

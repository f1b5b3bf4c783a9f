// How the factory of this room makes an object with something in it.
#pragma once

#include <cstdint>

namespace tessara {

class ICoordinateGrid;
class IMapCoordOperations;

// A fresh object of count 0, or null as coordinate_grid_factory.h says.
[[nodiscard]] ICoordinateGrid* NewCoordinateGrid(IMapCoordOperations* map, std::int32_t datum,
                                                 std::int32_t system, double eastStep, double northStep);

}  // namespace tessara

// The two axes of a position and the four directions.
#pragma once

#include <cstdint>

namespace tessara {

enum class Axis { East, North };

enum class Compass { North, East, South, West };

inline constexpr std::int32_t COMPASS_COUNT = 4;

[[nodiscard]] constexpr Axis AxisOf(Compass direction) {
    return direction == Compass::North || direction == Compass::South ? Axis::North : Axis::East;
}

// 1.0 for north and east, -1.0 for south and west.
[[nodiscard]] constexpr double SignOf(Compass direction) {
    return direction == Compass::North || direction == Compass::East ? 1.0 : -1.0;
}

// The direction of a move by `delta`.
[[nodiscard]] constexpr Compass DirectionOf(Axis axis, double delta) {
    if (axis == Axis::North) return delta >= 0.0 ? Compass::North : Compass::South;
    return delta >= 0.0 ? Compass::East : Compass::West;
}

}  // namespace tessara

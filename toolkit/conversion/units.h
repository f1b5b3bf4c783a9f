// Sizes of units, and of the earth in degrees.
#pragma once

#include <numbers>

namespace tessara::toolkit {

inline constexpr double POLE = 90.0;  // degrees of latitude
inline constexpr double HALF_TURN = 180.0;
inline constexpr double FULL_TURN = 360.0;
inline constexpr double RADIANS_PER_DEGREE = std::numbers::pi / 180.0;
inline constexpr double MM_PER_METRE = 1000.0;
inline constexpr int SQUARE_DIGITS = 5;  // whole metres within 100 km

}  // namespace tessara::toolkit

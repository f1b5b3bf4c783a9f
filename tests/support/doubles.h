// Doubles that are not numbers.
#pragma once

#include <limits>

namespace tessara {

inline constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
inline constexpr double INFINITE = std::numeric_limits<double>::infinity();

}  // namespace tessara

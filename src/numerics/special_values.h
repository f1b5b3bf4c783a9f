// The values that aren't numbers.
#pragma once

#include <limits>

namespace tessara {

inline constexpr double INFINITE = std::numeric_limits<double>::infinity();
inline constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

}  // namespace tessara

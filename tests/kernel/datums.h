// Datums that the tests of formulas use, by their rows of the table.
#pragma once

#include <cstdint>

namespace tessara::testing {

inline constexpr std::int32_t KUGEL = 0;
inline constexpr std::int32_t GER = 3;  // on the Bessel ellipsoid

}  // namespace tessara::testing

// Integers and remainders of doubles, which are exact: what the processor of the plainest x86-64 has no
// instruction for. Infinite values and NaN are as in the standard library.
#pragma once

#include <cstdint>

#include "numerics/double_pair.h"

namespace tessara {

// From here on all doubles are integers.
inline constexpr double INTEGERS_ONLY = 0x1p52;

namespace rounding {

// The integer nearest to a magnitude below 2^52, of two the even one.
[[nodiscard, gnu::always_inline]] constexpr double Nearest(double magnitude) {
    return (magnitude + INTEGERS_ONLY) - INTEGERS_ONLY;
}

// The remainder of the division of finite magnitudes, the divisor above 0.
[[nodiscard]] double RestOf(double magnitude, double divisor);

}  // namespace rounding

[[nodiscard, gnu::always_inline]] constexpr double Trunc(double x) {
    const double magnitude = Absolute(x);
    const double nearest = rounding::Nearest(magnitude);
    const double whole = nearest - (nearest > magnitude ? 1.0 : 0.0);
    return magnitude < INTEGERS_ONLY ? WithSignOf(whole, x) : x;
}

[[nodiscard, gnu::always_inline]] constexpr double Floor(double x) {
    const double magnitude = Absolute(x);
    const double nearest = WithSignOf(rounding::Nearest(magnitude), x);
    const double whole = nearest - (nearest > x ? 1.0 : 0.0);
    return magnitude < INTEGERS_ONLY ? whole : x;
}

[[nodiscard, gnu::always_inline]] constexpr double Ceil(double x) {
    return -Floor(-x);
}

// Halves go away from zero.
[[nodiscard, gnu::always_inline]] constexpr double Round(double x) {
    const double magnitude = Absolute(x);
    const double whole = Trunc(magnitude);
    const double rounded = whole + (magnitude - whole >= 0.5 ? 1.0 : 0.0);
    return magnitude < INTEGERS_ONLY ? WithSignOf(rounded, x) : x;
}

// x less as many times y, toward zero, as go into it. It has the sign of x.
[[nodiscard]] double Fmod(double x, double y);

// x less the multiple of y that is nearest to it, of two the even one.
[[nodiscard]] double Remainder(double x, double y);

}  // namespace tessara

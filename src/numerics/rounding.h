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

// 1 where x is above y, else 0; on the bits, which needs no branch.
[[nodiscard, gnu::always_inline]] constexpr double OneIfAbove(double x, double y) {
    return DoubleOf((0 - static_cast<std::uint64_t>(x > y)) & BitsOf(1.0));
}

// The remainder of the division of finite magnitudes, the divisor above 0.
[[nodiscard]] double RestOf(double magnitude, double divisor);

}  // namespace rounding

[[nodiscard, gnu::always_inline]] constexpr double Trunc(double x) {
    const double magnitude = Absolute(x);
    if (!(magnitude < INTEGERS_ONLY)) [[unlikely]]
        return x;
    const double nearest = rounding::Nearest(magnitude);
    return WithSignOf(nearest - rounding::OneIfAbove(nearest, magnitude), x);
}

[[nodiscard, gnu::always_inline]] constexpr double Floor(double x) {
    const double magnitude = Absolute(x);
    if (!(magnitude < INTEGERS_ONLY)) [[unlikely]]
        return x;
    const double nearest = WithSignOf(rounding::Nearest(magnitude), x);
    return nearest - rounding::OneIfAbove(nearest, x);
}

[[nodiscard, gnu::always_inline]] constexpr double Ceil(double x) {
    return -Floor(-x);
}

// Halves go away from zero.
[[nodiscard, gnu::always_inline]] constexpr double Round(double x) {
    const double magnitude = Absolute(x);
    if (!(magnitude < INTEGERS_ONLY)) [[unlikely]]
        return x;
    const double nearest = rounding::Nearest(magnitude);
    const double whole = nearest - rounding::OneIfAbove(nearest, magnitude);
    const double justBelowHalf = 0x1.fffffffffffffp-2;
    return WithSignOf(whole + rounding::OneIfAbove(magnitude - whole, justBelowHalf), x);
}

// x less as many times y, toward zero, as go into it. It has the sign of x.
[[nodiscard]] double Fmod(double x, double y);

// x less the multiple of y that is nearest to it, of two the even one.
[[nodiscard]] double Remainder(double x, double y);

}  // namespace tessara

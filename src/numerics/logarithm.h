// The natural logarithm, to less than a unit in the last place and the same on every machine, and the area
// tangent, which is one.
//
// With x = 2^k (1 + f) and s = f / (2 + f) it is k log 2 + f - f^2/2 + s (f^2/2 + R(s^2)), R being what is
// left of 2 artanh(s) / s: the last term is small, and the ones before are summed with all their digits (P.
// T. P. Tang, "Table-driven implementation of the logarithm function in IEEE floating-point arithmetic", ACM
// TOMS 16, 1990, has the like with a table).
#pragma once

#include <cstdint>

#include "numerics/called.h"
#include "numerics/cases.h"
#include "numerics/double_pair.h"
#include "numerics/polynomial.h"

namespace tessara {
namespace logarithm {

inline constexpr double LEAST = 0x1p-1022;
inline constexpr double GREATEST = 0x1.fffffffffffffp1023;

// 2 (artanh(s) - s) / s^3 for s^2 up to 0.02945, relative error of the whole 2^-59.5.
inline constexpr double AREAS[] = {0x1.5555555555593p-1, 0x1.999999997fac3p-2, 0x1.2492494217a8cp-2,
                                   0x1.c71c51eb7ec1bp-3, 0x1.746644e0a06a7p-3, 0x1.39a122bef4bbp-3,
                                   0x1.2f0b56dd40846p-3};

// Of LEAST..GREATEST, with some ten digits of two more than a double has.
[[nodiscard, gnu::always_inline]] constexpr Pair LogPair(double x) {
    constexpr double log2 = 0x1.62e42fefa38p-1;  // 42 digits: products with k are exact
    constexpr double log2Low = 0x1.ef35793c7673p-45;
    // x is taken apart so that 1 + f is between the roots of 1/2 and 2.
    constexpr std::uint64_t rootOfHalf = 0x3FE6A09E667F3BCD;
    constexpr std::uint64_t one = 0x3FF0000000000000;
    constexpr std::uint64_t mantissaBits = 0x000FFFFFFFFFFFFF;
    constexpr std::uint64_t countingFrom = 0x4330000000000000;  // 2^52, whose last bit is 1
    constexpr double countOfOne = 0x1p52 + 1023.0;

    const std::uint64_t shifted = BitsOf(x) + (one - rootOfHalf);
    const double k = DoubleOf(countingFrom | shifted >> 52) - countOfOne;
    const double f = DoubleOf((shifted & mantissaBits) + rootOfHalf) - 1.0;

    const double s = f / (2.0 + f);
    const double y = s * s;
    const double upper = UpperHalf(f);
    const double halfSquare = 0.5 * (upper * upper);
    const double halfSquareLow = 0.5 * ((f - upper) * (f + upper));
    const double rest = s * (0.5 * (f * f) + y * Polynomial(AREAS, y));

    const Pair linear = SumOfOrdered(k * log2, f);
    const Pair square = SumOfOrdered(linear.high, -halfSquare);
    return {square.high, (square.low + linear.low) + ((rest - halfSquareLow) + k * log2Low)};
}

// Of what isn't a normal positive number.
[[nodiscard]] double LogOfOther(double x);

}  // namespace logarithm

// Of normal positive numbers, without branch or call.
[[nodiscard, gnu::always_inline]] constexpr double LogOrdinary(double x) {
    const auto [high, low] = logarithm::LogPair(x);
    return high + low;
}

[[nodiscard]] inline double Log(double x) {
    const bool isOrdinary = x >= logarithm::LEAST && x <= logarithm::GREATEST;
    return isOrdinary ? LogOrdinary(x) : logarithm::LogOfOther(x);
}

// log(x / y) to some units in the last place, where x is near y, too: no rounded quotient is in between. To
// choose between the cases, the quotient has to be a normal positive number.
template <Cases cases = Cases::Branch>
[[nodiscard]] inline double LogOfRatio(double x, double y) {
    constexpr double near = 0.17;  // a ratio of 1.4 at most
    const double s = (x - y) / (x + y);
    const double square = s * s;
    return Either<cases>(
        Absolute(s) < near, [=] { return 2.0 * s + s * square * Polynomial(logarithm::AREAS, square); },
        [=] { return cases == Cases::Choose ? LogOrdinary(x / y) : called::Log(x / y); });
}

// log((1 + x) / (1 - x)) / 2 for |x| < 1; of small ones, below 2^-10, the last digits don't count.
[[nodiscard, gnu::always_inline]] constexpr double ArtanhOrdinary(double x) {
    const double magnitude = Absolute(x);
    const auto [ratio, rest] = Quotient(SumOfOrdered(1.0, magnitude), SumOfOrdered(1.0, -magnitude));
    const auto [high, low] = logarithm::LogPair(ratio);
    return WithSignOf(0.5 * (high + (low + rest / ratio)), x);
}

// Infinite at 1, not a number beyond.
[[nodiscard]] double Artanh(double x);

}  // namespace tessara

// Sine, cosine and tangent of any double, to less than a unit in the last place and the same on every
// machine.
//
// The angle is brought to within an eighth of a turn by subtracting quarter turns in three parts (W. J. Cody
// and W. Waite, "Software Manual for the Elementary Functions", 1980, chapter 8), or, where it is huge, by
// multiplying it with the digits of 2/pi that matter (M. Payne and R. Hanek, "Radian reduction for
// trigonometric functions", SIGNUM Newsletter 18, 1983). There sine and cosine are minimax polynomials in the
// square of the angle.
//
// The functions whose names end in Ordinary have neither branches nor calls, so that a compiler can turn a
// loop around them into vector code. They are for angles of up to ORDINARY_ANGLE, where the complete ones
// have the same bits.
#pragma once

#include <cstdint>

#include "numerics/double_pair.h"
#include "numerics/polynomial.h"

namespace tessara {

// Where only the direction counts, both may be times the same positive factor.
struct SinCos {
    double sine, cosine;
};

inline constexpr double ORDINARY_ANGLE = 1024.0;  // radians, either way

namespace circular {

// What is left of the magnitude of an angle, and how many quarter turns it has lost, of which the last two
// bits count.
struct Reduced {
    double high, low;
    std::uint64_t quarters;
};

// Added to a number of less than 2^51 it leaves the nearest integer in the last bits.
inline constexpr double ROUNDER = 0x1.8p52;

[[nodiscard, gnu::always_inline]] constexpr Reduced ReduceOrdinary(double magnitude) {
    constexpr double quartersPerRadian = 0x1.45f306dc9c883p-1;
    // A quarter turn in three parts, of which the first two have 43 digits: ten more are left for a count.
    constexpr double first = 0x1.921fb54442cp0;
    constexpr double second = 0x1.18469898cc4p-44;
    constexpr double third = 0x1.1701b839a252p-88;
    const double rounded = magnitude * quartersPerRadian + ROUNDER;
    const double count = rounded - ROUNDER;
    const double near = magnitude - count * first;
    const double step = count * second;
    const double high = near - step;
    return {high, ((near - high) - step) - count * third, BitsOf(rounded)};
}

// For finite magnitudes above the ordinary ones.
[[nodiscard]] Reduced ReduceHuge(double magnitude);

// Sine and cosine of what is left, as sums that have yet to be rounded.
struct Parts {
    Pair sine, cosine;
};

[[nodiscard, gnu::always_inline]] constexpr Parts PartsOf(const Reduced& angle) {
    // (sin x - x) / x^3 and (cos x - 1 + x^2/2) / x^4 for |x| up to pi/4, relative errors 2^-57.9 and 2^-64.
    constexpr double sines[] = {-0x1.5555555555549p-3, 0x1.111111110f88ep-7,   -0x1.a01a019c1134fp-13,
                                0x1.71de3575adc65p-19, -0x1.ae5e63a4b8f0fp-26, 0x1.5d9206b1b2c89p-33};
    constexpr double cosines[] = {0x1.555555555554cp-5,   -0x1.6c16c16c1521p-10, 0x1.a01a019cbcbc2p-16,
                                  -0x1.27e4f81014297p-22, 0x1.1ee9ef1c48197p-29, -0x1.8fafda8e9b7ep-37};
    const auto [x, rest, quarters] = angle;
    const double y = x * x;
    const double half = 0.5 * y;
    const double nearOne = 1.0 - half;
    return {{x, x * y * Polynomial(sines, y) + (rest - rest * half)},
            {nearOne, ((1.0 - nearOne) - half) + (y * y * Polynomial(cosines, y) - x * rest)}};
}

// In odd quarters sine and cosine change places. The choice is made on the bits, which needs no branch.
[[nodiscard, gnu::always_inline]] constexpr SinCos Turned(const Parts& parts, std::uint64_t quarters,
                                                          double angle) {
    const std::uint64_t sine = BitsOf(parts.sine.high + parts.sine.low);
    const std::uint64_t cosine = BitsOf(parts.cosine.high + parts.cosine.low);
    const std::uint64_t swapped = (sine ^ cosine) & (0 - (quarters & 1));
    return {DoubleOf(sine ^ swapped ^ ((quarters << 62 ^ BitsOf(angle)) & SIGN_BIT)),
            DoubleOf(cosine ^ swapped ^ (((quarters + 1) << 62) & SIGN_BIT))};
}

[[nodiscard, gnu::always_inline]] constexpr double TangentOf(const Reduced& reduced, double angle) {
    const auto [sines, cosines] = PartsOf(reduced);
    const Pair sine = SumOfOrdered(sines.high, sines.low);
    // The square's own rounding shows after a division.
    const Pair cosine =
        SumOfOrdered(cosines.high, cosines.low - 0.5 * Product(reduced.high, reduced.high).low);
    const bool isSwapped = (reduced.quarters & 1) != 0;
    const Pair above{isSwapped ? cosine.high : sine.high, isSwapped ? cosine.low : sine.low};
    const Pair below{isSwapped ? sine.high : cosine.high, isSwapped ? sine.low : cosine.low};
    const auto [high, low] = Quotient(above, below);
    return DoubleOf(BitsOf(high + low) ^ ((reduced.quarters << 63 ^ BitsOf(angle)) & SIGN_BIT));
}

// Of angles that aren't ordinary. Infinite ones have no direction.
[[nodiscard]] SinCos SinCosOfOther(double angle);
[[nodiscard]] double TanOfOther(double angle);

}  // namespace circular

[[nodiscard, gnu::always_inline]] constexpr SinCos SinCosOrdinary(double angle) {
    const circular::Reduced reduced = circular::ReduceOrdinary(Absolute(angle));
    return circular::Turned(circular::PartsOf(reduced), reduced.quarters, angle);
}

[[nodiscard, gnu::always_inline]] constexpr double TanOrdinary(double angle) {
    return circular::TangentOf(circular::ReduceOrdinary(Absolute(angle)), angle);
}

[[nodiscard]] inline SinCos SinCosOf(double angle) {
    return Absolute(angle) <= ORDINARY_ANGLE ? SinCosOrdinary(angle) : circular::SinCosOfOther(angle);
}

[[nodiscard]] inline double Sin(double angle) {
    return SinCosOf(angle).sine;
}

[[nodiscard]] inline double Cos(double angle) {
    return SinCosOf(angle).cosine;
}

[[nodiscard]] inline double Tan(double angle) {
    return Absolute(angle) <= ORDINARY_ANGLE ? TanOrdinary(angle) : circular::TanOfOther(angle);
}

}  // namespace tessara

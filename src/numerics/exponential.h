// The exponential, powers and the hyperbolic sine, the same on every machine: to less than a unit in the last
// place, powers where the result is 1e-30..1e30.
//
// With k the integer nearest to x / log 2 and r what is left, at most log 2 / 2, e^x is 2^k e^r (P. T. P.
// Tang, "Table-driven implementation of the exponential function in IEEE floating-point arithmetic", ACM TOMS
// 15, 1989, has the like with a table), and e^r a minimax polynomial whose first terms are summed with all
// their digits.
#pragma once

#include <cstdint>

#include "numerics/called.h"
#include "numerics/cases.h"
#include "numerics/double_pair.h"
#include "numerics/logarithm.h"
#include "numerics/polynomial.h"

namespace tessara {
namespace exponential {

// Of up to this magnitude the exponential is a normal number.
inline constexpr double GREATEST = 708.0;

struct Scaled {
    Pair value;
    std::uint64_t exponent;  // of 2, what counts is its last eleven bits
};

// (e^r - 1 - r) / r^2 for |r| up to log 2 / 2, error of the whole 2^-57.9.
inline constexpr double POWERS[] = {0x1.000000000000cp-1,  0x1.5555555555561p-3,  0x1.555555554fdcbp-5,
                                    0x1.111111110d633p-7,  0x1.6c16c1861b584p-10, 0x1.a01a01bae7ebfp-13,
                                    0x1.a019957621061p-16, 0x1.71dddfb97dffbp-19, 0x1.28b13f8c46741p-22,
                                    0x1.af85ac0269d3bp-26};

[[nodiscard, gnu::always_inline]] constexpr Scaled ExpScaled(Pair x) {
    constexpr double perLog2 = 0x1.71547652b82fep0;
    constexpr double log2 = 0x1.62e42fefa38p-1;  // 42 digits: products with k are exact
    constexpr double log2Low = 0x1.ef35793c7673p-45;
    constexpr double rounder = 0x1.8p52;

    const double rounded = x.high * perLog2 + rounder;
    const double k = rounded - rounder;
    const double r = x.high - k * log2;
    const double rest = x.low - k * log2Low;
    const double whole = r + rest;
    const Pair linear = SumOfOrdered(1.0, r);
    return {{linear.high, linear.low + (rest + whole * whole * Polynomial(POWERS, whole))}, BitsOf(rounded)};
}

[[nodiscard, gnu::always_inline]] constexpr double ExpOfPair(Pair x) {
    const auto [value, exponent] = ExpScaled(x);
    return DoubleOf(BitsOf(value.high + value.low) + (exponent << 52));
}

// Of exponents beyond the ordinary ones.
[[nodiscard]] double ExpOfOther(Pair x);
[[nodiscard]] double PowOfOther(double base, double exponent);

// log x times y.
[[nodiscard, gnu::always_inline]] constexpr Pair LogOfPower(double x, double y) {
    const Pair log = logarithm::LogPair(x);
    const Pair logarithm = SumOfOrdered(log.high, log.low);
    const Pair product = Product(logarithm.high, y);
    return {product.high, product.low + logarithm.low * y};
}

}  // namespace exponential

// Of up to 708 either way, without branch or call.
[[nodiscard, gnu::always_inline]] constexpr double ExpOrdinary(double x) {
    return exponential::ExpOfPair({x, 0.0});
}

[[nodiscard]] inline double Exp(double x) {
    const bool isOrdinary = Absolute(x) <= exponential::GREATEST;
    return isOrdinary ? ExpOrdinary(x) : exponential::ExpOfOther({x, 0.0});
}

// The same to some units in the last place, and faster for a small argument. To choose between the cases, it
// has to be up to 708 either way.
template <Cases cases = Cases::Branch>
[[nodiscard]] inline double ExpOfSmall(double x) {
    constexpr double small = 0.346;  // half of log 2
    return Either<cases>(
        Absolute(x) < small, [=] { return 1.0 + (x + x * x * Polynomial(exponential::POWERS, x)); },
        [=] { return cases == Cases::Choose ? ExpOrdinary(x) : called::Exp(x); });
}

// Of a normal positive base, where exponent * log(base) is up to 708 either way, without branch or call.
[[nodiscard, gnu::always_inline]] constexpr double PowOrdinary(double base, double exponent) {
    return exponential::ExpOfPair(exponential::LogOfPower(base, exponent));
}

[[nodiscard]] inline double Pow(double base, double exponent) {
    if (base >= logarithm::LEAST && base <= logarithm::GREATEST) {
        const Pair log = exponential::LogOfPower(base, exponent);
        if (Absolute(log.high) <= exponential::GREATEST) return exponential::ExpOfPair(log);
    }
    return exponential::PowOfOther(base, exponent);
}

// (e^x - e^-x) / 2
[[nodiscard]] double Sinh(double x);

}  // namespace tessara

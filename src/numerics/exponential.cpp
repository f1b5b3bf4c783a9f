#include "numerics/exponential.h"

#include "numerics/rounding.h"
#include "numerics/special_values.h"

namespace tessara {
namespace {

// log x times y, of an x that may be subnormal.
Pair LogOfAnyPower(double x, double y) {
    if (x >= logarithm::LEAST) return exponential::LogOfPower(x, y);
    const Pair log = exponential::LogOfPower(x * 0x1p54, y);
    const Pair scale = exponential::LogOfPower(0x1p-54, y);
    const Pair sum = ExactSum(log.high, scale.high);
    return {sum.high, sum.low + (log.low + scale.low)};
}

bool IsOdd(double integer) {
    return Absolute(integer) < 0x1p53 && Fmod(integer, 2.0) != 0.0;
}

// Of a base above 0 and below infinity.
double PowOfPositive(double base, double exponent) {
    const Pair log = LogOfAnyPower(base, exponent);
    return Absolute(log.high) <= exponential::GREATEST ? exponential::ExpOfPair(log)
                                                       : exponential::ExpOfOther(log);
}

}  // namespace

double exponential::ExpOfOther(Pair x) {
    constexpr double overflowing = 710.0;
    constexpr double vanishing = -746.0;
    constexpr double log2Of64 = 64.0;
    if (x.high != x.high) return NOT_A_NUMBER;
    if (x.high > overflowing) return INFINITE;
    if (x.high < vanishing) return 0.0;
    // 2^k is brought in by two factors: one of them would overflow, or lose digits before the other does.
    const auto [value, exponent] = ExpScaled(x);
    const double mantissa = value.high + value.low;
    const std::uint64_t steps = static_cast<std::uint64_t>(log2Of64) << 52;
    if (x.high > 0.0) return DoubleOf(BitsOf(mantissa) + (exponent << 52) - steps) * 0x1p64;
    return DoubleOf(BitsOf(mantissa) + (exponent << 52) + steps) * 0x1p-64;
}

double exponential::PowOfOther(double base, double exponent) {
    if (exponent == 0.0 || base == 1.0) return 1.0;
    if (base != base || exponent != exponent) return NOT_A_NUMBER;
    const double magnitude = Absolute(base);
    if (Absolute(exponent) == INFINITE) {
        if (magnitude == 1.0) return 1.0;
        return (magnitude > 1.0) == (exponent > 0.0) ? INFINITE : 0.0;
    }
    const bool isInteger = Trunc(exponent) == exponent;
    const double sign = isInteger && IsOdd(exponent) ? TimesSignOf(1.0, base) : 1.0;
    if (magnitude == 0.0) return exponent > 0.0 ? sign * 0.0 : sign * INFINITE;
    if (magnitude == INFINITE) return exponent > 0.0 ? sign * INFINITE : sign * 0.0;
    if (base < 0.0 && !isInteger) return NOT_A_NUMBER;
    return sign * PowOfPositive(magnitude, exponent);
}

double Sinh(double x) {
    constexpr double small = 1.0;
    constexpr double lastTwoSided = 40.0;  // e^-x no longer shows beyond
    const double magnitude = Absolute(x);
    if (magnitude < small) {
        // 1 / (2k + 3)!
        constexpr double sines[] = {1.0 / 6.0,          1.0 / 120.0,         1.0 / 5040.0,
                                    1.0 / 362880.0,     1.0 / 39916800.0,    1.0 / 6227020800.0,
                                    1.0 / 1307674368e3, 1.0 / 355687428096e3};
        const double y = x * x;
        return x + x * y * Polynomial(sines, y);
    }
    if (magnitude > lastTwoSided) {
        // Half of an exponential that would overflow.
        const Pair half = ExactSum(magnitude, -0x1.62e42fefa39efp-1);
        return TimesSignOf(
            magnitude <= exponential::GREATEST ? 0.5 * Exp(magnitude) : exponential::ExpOfOther(half), x);
    }
    const exponential::Scaled up = exponential::ExpScaled({magnitude, 0.0});
    const double scale = DoubleOf((1023 + up.exponent - 1) << 52);
    const Pair grown = SumOfOrdered(up.value.high * scale, up.value.low * scale);
    const Pair shrunk = Quotient({0.25, 0.0}, grown);
    const Pair difference = ExactSum(grown.high, -shrunk.high);
    return TimesSignOf(difference.high + (difference.low + (grown.low - shrunk.low)), x);
}

}  // namespace tessara

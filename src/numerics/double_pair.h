// Numbers of twice a double's digits as the sum of two doubles, and what takes doubles apart.
//
// The exact sums and products are those of T. J. Dekker, "A floating-point technique for extending the
// available precision", Numerische Mathematik 18, 1971. They hold because nothing contracts or reorders the
// operations.
#pragma once

#include <bit>
#include <cstdint>

namespace tessara {

inline constexpr std::uint64_t SIGN_BIT = 0x8000000000000000;

[[nodiscard, gnu::always_inline]] constexpr std::uint64_t BitsOf(double x) {
    return std::bit_cast<std::uint64_t>(x);
}
[[nodiscard, gnu::always_inline]] constexpr double DoubleOf(std::uint64_t bits) {
    return std::bit_cast<double>(bits);
}

[[nodiscard, gnu::always_inline]] constexpr double Absolute(double x) {
    return __builtin_fabs(x);
}

// A magnitude with the sign of y.
[[nodiscard, gnu::always_inline]] constexpr double WithSignOf(double magnitude, double y) {
    return __builtin_copysign(magnitude, y);
}

// x, or -x where y has the sign bit.
[[nodiscard, gnu::always_inline]] constexpr double TimesSignOf(double x, double y) {
    return DoubleOf(BitsOf(x) ^ (BitsOf(y) & SIGN_BIT));
}

// |low| is at most some units in the last place of `high`, mostly half of one.
struct Pair {
    double high, low;
};

// large + small, exactly, where |large| >= |small| or large is 0.
[[nodiscard, gnu::always_inline]] constexpr Pair SumOfOrdered(double large, double small) {
    const double sum = large + small;
    return {sum, (large - sum) + small};
}

// x + y, exactly.
[[nodiscard, gnu::always_inline]] constexpr Pair ExactSum(double x, double y) {
    const double sum = x + y;
    const double ofY = sum - x;
    return {sum, (x - (sum - ofY)) + (y - ofY)};
}

// The first 26 digits of x. What is left has 27, so that a product of the two is exact.
[[nodiscard, gnu::always_inline]] constexpr double UpperHalf(double x) {
    return DoubleOf(BitsOf(x) & 0xFFFFFFFFF8000000);
}

// x - y * z, with an error of 2^-78 of x, where y * z is x up to some roundings.
[[nodiscard, gnu::always_inline]] constexpr double RestOfProduct(double x, double y, double z) {
    const double yUpper = UpperHalf(y);
    const double zUpper = UpperHalf(z);
    return ((x - yUpper * zUpper) - yUpper * (z - zUpper)) - (y - yUpper) * z;
}

// x * y, with an error of 2^-78 of it.
[[nodiscard, gnu::always_inline]] constexpr Pair Product(double x, double y) {
    const double product = x * y;
    return {product, -RestOfProduct(product, x, y)};
}

// x / y, with an error of some 2^-77 of it.
[[nodiscard, gnu::always_inline]] constexpr Pair Quotient(Pair x, Pair y) {
    const double perY = 1.0 / y.high;
    const double quotient = x.high * perY;
    const double rest = RestOfProduct(x.high, quotient, y.high) + (x.low - quotient * y.low);
    return {quotient, rest * perY};
}

}  // namespace tessara

#include "numerics/rounding.h"

#include "numerics/special_values.h"

namespace tessara {
namespace {

constexpr int MANTISSA_BITS = 52;

// A magnitude as an integer times 2^exponent.
struct Parts {
    std::uint64_t mantissa;
    int exponent;
};

Parts PartsOf(double magnitude) {
    const int exponent = static_cast<int>(BitsOf(magnitude) >> MANTISSA_BITS);
    const std::uint64_t fraction = BitsOf(magnitude) & 0x000FFFFFFFFFFFFF;
    if (exponent == 0) return {fraction, 1};
    return {fraction | 0x0010000000000000, exponent};
}

double DoubleOfParts(Parts parts) {
    if (parts.mantissa == 0) return 0.0;
    while (parts.mantissa < 0x0010000000000000 && parts.exponent > 1) {
        parts.mantissa <<= 1;
        --parts.exponent;
    }
    if (parts.mantissa < 0x0010000000000000) return DoubleOf(parts.mantissa);
    const auto exponent = static_cast<std::uint64_t>(parts.exponent);
    return DoubleOf((parts.mantissa & 0x000FFFFFFFFFFFFF) | exponent << MANTISSA_BITS);
}

bool HasRemainder(double x, double y) {
    return Absolute(x) < INFINITE && y == y && y != 0.0;
}

}  // namespace

// Long division by eleven bits at a time.
double rounding::RestOf(double magnitude, double divisor) {
    if (magnitude < divisor) return magnitude;
    constexpr int freeBits = 11;
    const Parts by = PartsOf(divisor);
    Parts rest = PartsOf(magnitude);
    rest.mantissa %= by.mantissa;
    while (rest.exponent > by.exponent && rest.mantissa != 0) {
        const int bits = rest.exponent - by.exponent < freeBits ? rest.exponent - by.exponent : freeBits;
        rest.mantissa = (rest.mantissa << bits) % by.mantissa;
        rest.exponent -= bits;
    }
    return DoubleOfParts(rest);
}

double Fmod(double x, double y) {
    if (!HasRemainder(x, y)) return NOT_A_NUMBER;
    return TimesSignOf(rounding::RestOf(Absolute(x), Absolute(y)), x);
}

double Remainder(double x, double y) {
    if (!HasRemainder(x, y)) return NOT_A_NUMBER;
    const double divisor = Absolute(y);
    if (divisor == INFINITE) return x;
    // The rest of twice the divisor says which multiple is even.
    const double twice = 2.0 * divisor;
    double rest = Absolute(x);
    if (twice < INFINITE) rest = rounding::RestOf(rest, twice);
    if (2.0 * rest > divisor) {
        rest -= divisor;
        if (2.0 * rest >= divisor) rest -= divisor;
    }
    return TimesSignOf(rest, x);
}

}  // namespace tessara

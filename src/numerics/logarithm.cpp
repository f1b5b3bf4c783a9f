#include "numerics/logarithm.h"

#include "numerics/special_values.h"

namespace tessara {

double logarithm::LogOfOther(double x) {
    constexpr double log2 = 0x1.62e42fefa39efp-1;
    if (x == 0.0) return -INFINITE;
    if (!(x > 0.0)) return NOT_A_NUMBER;
    if (x == INFINITE) return INFINITE;
    // Beside the 1022 of the exponent the last digits of 54 don't show.
    return LogOrdinary(x * 0x1p54) - 54.0 * log2;
}

double Artanh(double x) {
    constexpr double small = 0x1p-10;
    const double magnitude = Absolute(x);
    if (magnitude < small) {
        const double y = x * x;
        return x + x * y * (1.0 / 3.0 + y * (1.0 / 5.0 + y * (1.0 / 7.0 + y * (1.0 / 9.0))));
    }
    if (magnitude < 1.0) return ArtanhOrdinary(x);
    return magnitude == 1.0 ? TimesSignOf(INFINITE, x) : NOT_A_NUMBER;
}

}  // namespace tessara

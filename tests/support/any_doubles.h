// Random doubles of all magnitudes, and a comparison to the last bit.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

#include "support/random.h"

namespace tessara::testing {

// A finite double with uniformly distributed bits.
inline double AnyFinite(Random& random) {
    for (;;) {
        const auto x = std::bit_cast<double>(random.Bits());
        if (std::isfinite(x)) return x;
    }
}

// A double of either sign with a uniformly distributed logarithm.
inline double AnySize(Random& random, double least, double most) {
    const double magnitude = std::exp(random.Between(std::log(least), std::log(most)));
    return (random.Bits() & 1) != 0 ? -magnitude : magnitude;
}

// The same bits, or both not a number.
inline bool AreSame(double x, double y) {
    if (std::isnan(x) || std::isnan(y)) return std::isnan(x) && std::isnan(y);
    return std::bit_cast<std::uint64_t>(x) == std::bit_cast<std::uint64_t>(y);
}

}  // namespace tessara::testing

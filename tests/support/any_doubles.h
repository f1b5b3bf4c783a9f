// Random doubles of all sizes, and what tells two of them apart to the last bit.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

#include "support/random.h"

namespace tessara::testing {

// Any finite double, each pattern of bits as likely as another.
inline double AnyFinite(Random& random) {
    for (;;) {
        const auto x = std::bit_cast<double>(random.Bits());
        if (std::isfinite(x)) return x;
    }
}

// With either sign, its logarithm evenly spread.
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

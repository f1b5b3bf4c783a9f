// The square root, which every processor rounds to the nearest double by itself.
#pragma once

#include <cmath>

namespace tessara {

[[nodiscard, gnu::always_inline]] inline double SquareRoot(double x) {
    return std::sqrt(x);
}

}  // namespace tessara

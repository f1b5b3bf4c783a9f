// Time limits for operations, on a machine that may interrupt them.
#pragma once

#include <chrono>

#include "support/sanitized.h"

namespace tessara::testing {

// Whether one of up to five runs of the action ends within this many seconds.
template <class Action>
[[nodiscard]] bool EndsWithin(double seconds, const Action& action) {
    constexpr double slowdown = IS_SANITIZED ? 20.0 : 1.0;
    for (int attempt = 0; attempt < 5; ++attempt) {
        const auto start = std::chrono::steady_clock::now();
        action();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        if (taken.count() <= seconds * slowdown) return true;
    }
    return false;
}

}  // namespace tessara::testing

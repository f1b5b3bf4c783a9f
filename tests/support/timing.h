// Time limits for operations, on a machine that may interrupt them.
#pragma once

#include <chrono>
#include <cstdlib>

#include "support/sanitized.h"

namespace tessara::testing {

// How many times slower than on a processor of its own a program may be. Whoever runs it under an emulator
// says so in TESSARA_SLOWDOWN.
inline double Slowdown() {
    const char* const text = std::getenv("TESSARA_SLOWDOWN");
    const double emulated = text != nullptr ? std::atof(text) : 1.0;
    return IS_SANITIZED ? 20.0 * emulated : emulated;
}

// Whether one of up to five runs of the action ends within this many seconds.
template <class Action>
[[nodiscard]] bool EndsWithin(double seconds, const Action& action) {
    const double slowdown = Slowdown();
    for (int attempt = 0; attempt < 5; ++attempt) {
        const auto start = std::chrono::steady_clock::now();
        action();
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        if (taken.count() <= seconds * slowdown) return true;
    }
    return false;
}

}  // namespace tessara::testing

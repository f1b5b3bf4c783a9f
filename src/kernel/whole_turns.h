// Whole turns taken off a value of any size in a bounded number of steps.
#pragma once

#include <cmath>

namespace tessara {

// The value brought into -turn/2..turn/2; both ends stand. An infinite value gives NaN.
[[nodiscard]] inline double WrapTurns(double value, double turn) {
    if (std::fabs(value) <= turn / 2.0) return value;
    const double rest = std::fmod(value, turn);
    if (rest > turn / 2.0) return rest - turn;
    if (rest < -turn / 2.0) return rest + turn;
    return rest;
}

// The first of value, value - turn, value - 2 turn ... that is at most `limit`.
[[nodiscard]] inline double LowerByTurns(double value, double limit, double turn) {
    return value > limit ? value - turn * std::ceil((value - limit) / turn) : value;
}

// The first of value, value + turn, value + 2 turn ... that is at least `limit`.
[[nodiscard]] inline double RaiseByTurns(double value, double limit, double turn) {
    return -LowerByTurns(-value, -limit, turn);
}

}  // namespace tessara

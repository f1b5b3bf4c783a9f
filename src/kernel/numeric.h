// Small numeric helpers of the kernel. Hosts may pass any double to a conversion to an integer, and casting
// a NaN or a value out of range is undefined, so each such conversion uses this header.
#pragma once

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>

#include "numerics/rounding.h"

namespace tessara {

// Results of the kernel depend on exact comparisons of doubles.
static_assert(std::numeric_limits<double>::is_iec559);
static_assert(FLT_EVAL_METHOD == 0, "build for SSE2 or another unit that rounds every step to double");

// Truncates toward zero. A NaN or a value out of range gives the smallest integer.
[[nodiscard]] inline std::int32_t TruncateToInt32(double value) {
    constexpr double below = -2147483649.0;
    constexpr double above = 2147483648.0;
    return value > below && value < above ? static_cast<std::int32_t>(value) : INT32_MIN;
}

// The same for a value that is known to be in range.
[[nodiscard]] inline std::int32_t TruncateInRange(double value) {
    return static_cast<std::int32_t>(value);
}

// TruncateToInt32, then its low 16 bits.
[[nodiscard]] inline std::int16_t TruncateToInt16(double value) {
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(TruncateToInt32(value) & 0xFFFF));
}

// Rounds a pixel half away from zero and truncates.
[[nodiscard]] inline std::int32_t RoundPixel(double value) {
    return TruncateToInt32(value < 0.0 ? value - 0.5 : value + 0.5);
}

// The limit if the value is strictly closer to it than the tolerance, otherwise the value.
[[nodiscard]] inline double SnapTo(double limit, double value, double tolerance) {
    return std::fabs(value - limit) < tolerance ? limit : value;
}

// SnapTo for the two ends of a range.
[[nodiscard]] inline double SnappedToEither(double low, double high, double value, double tolerance) {
    return SnapTo(low, SnapTo(high, value, tolerance), tolerance);
}

// The same, where most values lie well inside.
[[nodiscard]] inline double SnapToEither(double low, double high, double value, double tolerance) {
    // They needn't wait for the two distances.
    if (value - low > tolerance && high - value > tolerance) return value;
    return SnappedToEither(low, high, value, tolerance);
}

// False for a NaN, since both comparisons are then false.
[[nodiscard]] inline bool IsWithin(double value, double low, double high) {
    return value >= low && value <= high;
}

// These functions subtract whole turns from a value of any size in a bounded number of steps.

// The value brought into -turn/2..turn/2; both ends are kept. An infinite value gives NaN.
[[nodiscard]] inline double WrapTurns(double value, double turn) {
    if (std::fabs(value) <= turn / 2.0) return value;
    const double rest = Fmod(value, turn);
    if (rest > turn / 2.0) return rest - turn;
    if (rest < -turn / 2.0) return rest + turn;
    return rest;
}

// The first of value, value - turn, value - 2 turn ... that is at most `limit`.
[[nodiscard]] inline double LowerByTurns(double value, double limit, double turn) {
    return value > limit ? value - turn * Ceil((value - limit) / turn) : value;
}

// The first of value, value + turn, value + 2 turn ... that is at least `limit`.
[[nodiscard]] inline double RaiseByTurns(double value, double limit, double turn) {
    return -LowerByTurns(-value, -limit, turn);
}

}  // namespace tessara

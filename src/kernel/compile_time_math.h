// Square root, exponential and angle functions for constants computed at compile time, in long double and
// so exact to the last place of the double that is kept.
#pragma once

namespace tessara::compile_time {

// Newton's iteration; a dozen steps from the middle of an exponent, more from further off.
constexpr long double Sqrt(long double x) {
    if (x == 0.0L) return 0.0L;
    long double root = x > 1.0L ? x : 1.0L;
    for (int i = 0; i < 100; ++i)
        root = 0.5L * (root + x / root);
    return root;
}

// Power series; for arguments of a few units.
constexpr long double Exp(long double x) {
    long double term = 1.0L;
    long double sum = 1.0L;
    for (int k = 1; k < 60; ++k) {
        term *= x / k;
        sum += term;
    }
    return sum;
}

// Power series; for |x| up to 0.8.
constexpr long double Atanh(long double x) {
    long double power = x;
    long double sum = 0.0L;
    for (int k = 1; k < 400; k += 2) {
        sum += power / k;
        power *= x * x;
    }
    return sum;
}

// Power series; for angles up to a turn.
constexpr long double Sine(long double x) {
    long double term = x;
    long double sum = x;
    for (int k = 1; k < 40; ++k) {
        term *= -x * x / (2.0L * k * (2.0L * k + 1.0L));
        sum += term;
    }
    return sum;
}

}  // namespace tessara::compile_time

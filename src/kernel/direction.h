// An angle by its sine and cosine. Functions of multiples and sums of angles then take a few multiplications
// in the place of calls into the mathematics library.
#pragma once

#include <cmath>

namespace tessara {

// Where only the direction counts, both may be times the same positive factor.
struct Direction {
    double sine, cosine;
};

[[nodiscard]] inline Direction DirectionOf(double angle) {
    return {std::sin(angle), std::cos(angle)};
}

// Up to a tenth of a radian, 5.7 degrees, a few terms of the power series are exact to the last place. x2 is
// the square of the angle.
[[nodiscard]] inline bool IsSmall(double x2) {
    return x2 < 0.01;
}

// The sum of y^k / (2k + 1)! over k = 0..4: sinh(x) / x for y = x^2, sin(x) / x for y = -x^2.
[[nodiscard]] inline double SineTerms(double y) {
    return 1.0 + y * (1.0 / 6.0 + y * (1.0 / 120.0 + y * (1.0 / 5040.0 + y * (1.0 / 362880.0))));
}

// The sum of y^k / (2k)! over k = 0..5: cos(x) for y = -x^2.
[[nodiscard]] inline double CosineTerms(double y) {
    return 1.0 + y * (1.0 / 2.0 +
                      y * (1.0 / 24.0 + y * (1.0 / 720.0 + y * (1.0 / 40320.0 + y * (1.0 / 3628800.0)))));
}

// The same as DirectionOf for any angle, and fast for a small one.
[[nodiscard]] inline Direction DirectionOfSmall(double angle) {
    const double y = angle * angle;
    if (!IsSmall(y)) return DirectionOf(angle);
    return {angle * SineTerms(-y), CosineTerms(-y)};
}

[[nodiscard]] inline Direction Sum(Direction x, Direction y) {
    return {x.sine * y.cosine + x.cosine * y.sine, x.cosine * y.cosine - x.sine * y.sine};
}

[[nodiscard]] inline Direction Difference(Direction x, Direction y) {
    return {x.sine * y.cosine - x.cosine * y.sine, x.cosine * y.cosine + x.sine * y.sine};
}

[[nodiscard]] inline Direction Doubled(Direction x) {
    return {2.0 * x.sine * x.cosine, (x.cosine - x.sine) * (x.cosine + x.sine)};
}

}  // namespace tessara

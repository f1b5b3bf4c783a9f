// An angle by its sine and cosine. Functions of multiples and sums of angles then take a few multiplications
// in the place of more sines and cosines.
#pragma once

#include <cmath>

#include "numerics/called.h"
#include "numerics/cases.h"
#include "numerics/circular.h"
#include "numerics/conditions.h"
#include "numerics/exponential.h"
#include "numerics/logarithm.h"
#include "numerics/polynomial.h"

namespace tessara {

// SinCosOf; to choose between the cases, the angle has to be ordinary.
template <Cases cases>
[[nodiscard]] inline SinCos DirectionOf(double angle) {
    return cases == Cases::Choose ? SinCosOrdinary(angle) : SinCosOf(angle);
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

// For a small angle or argument, without a test.
[[nodiscard]] inline SinCos SinCosBySeries(double angle) {
    const double y = angle * angle;
    return {angle * SineTerms(-y), CosineTerms(-y)};
}
[[nodiscard]] inline double SinhBySeries(double x) {
    return x * SineTerms(x * x);
}

// Which arguments a formula is good for: small ones, for which it has neither branches nor calls, or all.
// Where it is good for small ones only, it gives the same bits there as for all.
enum class Reach { Near, Everywhere };

// SinCosOf, and fast for a small angle.
template <Reach reach = Reach::Everywhere>
[[nodiscard]] inline SinCos SinCosOfSmall(double angle) {
    if (reach == Reach::Everywhere && !IsSmall(angle * angle)) return called::SinCosOf(angle);
    return SinCosBySeries(angle);
}

template <Reach reach = Reach::Everywhere>
[[nodiscard]] inline double SinhOfSmall(double x) {
    return reach == Reach::Near || IsSmall(x * x) ? SinhBySeries(x) : Sinh(x);
}

// The sum of y^k / (2k + 1) over k = 0..7: atanh(x) / x for y = x^2, atan(x) / x for y = -x^2.
[[nodiscard]] inline double ArcTerms(double y) {
    const double y2 = y * y;
    const double even = 1.0 + y2 * (1.0 / 5.0 + y2 * (1.0 / 9.0 + y2 * (1.0 / 13.0)));
    const double odd = 1.0 / 3.0 + y2 * (1.0 / 7.0 + y2 * (1.0 / 11.0 + y2 * (1.0 / 15.0)));
    return even + y * odd;
}

[[nodiscard]] inline double AtanBySeries(double x) {
    return x * ArcTerms(-(x * x));
}
[[nodiscard]] inline double AtanhBySeries(double x) {
    return x * ArcTerms(x * x);
}

template <Reach reach = Reach::Everywhere>
[[nodiscard]] inline double AtanOfSmall(double x) {
    return reach == Reach::Near || IsSmall(x * x) ? AtanBySeries(x) : called::Atan(x);
}

template <Reach reach = Reach::Everywhere>
[[nodiscard]] inline double AsinOfSmall(double x) {
    const double y = x * x;
    if (reach == Reach::Everywhere && !IsSmall(y)) return called::Asin(x);
    const double tangent2 = y / (1.0 - y);
    return x / std::sqrt(1.0 - y) * ArcTerms(-tangent2);
}

template <Reach reach = Reach::Everywhere>
[[nodiscard]] inline double AtanhOfSmall(double x) {
    return reach == Reach::Near || IsSmall(x * x) ? AtanhBySeries(x) : Artanh(x);
}

// Twice the angle of a tangent from 0 up to 1.
[[nodiscard]] constexpr SinCos DoubledOfTangentUpTo1(double t) {
    const double scale = 1.0 / (1.0 + t * t);
    return {2.0 * t * scale, (1.0 - t * t) * scale};
}

// Twice the angle of a tangent from 0 up to infinity.
template <Cases cases = Cases::Branch>
[[nodiscard]] constexpr SinCos DoubledOfTangent(double t) {
    const bool isSteep = t > 1.0;
    const double less = Either<cases>(
        isSteep, [=] { return 1.0 / t; }, [=] { return t; });
    const double square = less * less;
    const double scale = 1.0 / (1.0 + square);
    return {2.0 * less * scale, (isSteep ? square - 1.0 : 1.0 - square) * scale};
}

[[nodiscard]] constexpr SinCos Sum(SinCos x, SinCos y) {
    return {x.sine * y.cosine + x.cosine * y.sine, x.cosine * y.cosine - x.sine * y.sine};
}

[[nodiscard]] constexpr SinCos Difference(SinCos x, SinCos y) {
    return {x.sine * y.cosine - x.cosine * y.sine, x.cosine * y.cosine + x.sine * y.sine};
}

[[nodiscard]] constexpr SinCos Doubled(SinCos x) {
    return {2.0 * x.sine * x.cosine, (x.cosine - x.sine) * (x.cosine + x.sine)};
}

// c0 + c1 y + ... + c7 y^7, in pairs that wait for nothing but each other.
[[nodiscard]] constexpr double EightTerms(const double (&c)[8], double y) {
    const double y2 = y * y;
    return (c[0] + c[1] * y + y2 * (c[2] + c[3] * y)) + y2 * y2 * (c[4] + c[5] * y + y2 * (c[6] + c[7] * y));
}

// Whether DoublingBySeries is good for an angle: with a margin, one of up to so many right angles.
template <int RIGHT_ANGLES>
[[nodiscard]] constexpr bool IsInReachOfDoubling(double angle) {
    constexpr double limit = 1.575 * RIGHT_ANGLES;
    return AllOf(angle > -limit, angle < limit);
}

// The direction of an angle of up to one or two right angles without a call: that of a half or a quarter by
// the power series, doubled. Sine and cosine are right to 3e-16 or 1e-15, which of a small one is not every
// digit. The compiler finds the same bits as the processor.
template <int RIGHT_ANGLES>
[[nodiscard]] constexpr SinCos DoublingBySeries(double angle) {
    // 1 / (2k + 3)! and 1 / (2k + 2)! with alternating signs.
    constexpr double sines[] = {1.0 / 6.0,          -1.0 / 120.0,         1.0 / 5040.0,
                                -1.0 / 362880.0,    1.0 / 39916800.0,     -1.0 / 6227020800.0,
                                1.0 / 1307674368e3, -1.0 / 355687428096e3};
    constexpr double cosines[] = {1.0 / 2.0,           -1.0 / 24.0,         1.0 / 720.0,
                                  -1.0 / 40320.0,      1.0 / 3628800.0,     -1.0 / 479001600.0,
                                  1.0 / 87178291200.0, -1.0 / 20922789888e3};
    const double x = angle / (2.0 * RIGHT_ANGLES);
    const double y = x * x;
    const SinCos part{x - x * y * Polynomial(sines, y), 1.0 - y * Polynomial(cosines, y)};
    static_assert(RIGHT_ANGLES == 1 || RIGHT_ANGLES == 2);
    return RIGHT_ANGLES == 1 ? Doubled(part) : Doubled(Doubled(part));
}

// The same for any angle.
template <int RIGHT_ANGLES>
[[nodiscard]] constexpr SinCos SinCosByDoubling(double angle) {
    return IsInReachOfDoubling<RIGHT_ANGLES>(angle) ? DoublingBySeries<RIGHT_ANGLES>(angle)
                                                    : called::SinCosOf(angle);
}

}  // namespace tessara

// Van der Grinten's projection for one position, relative to the origin.
#pragma once

#include <algorithm>
#include <cmath>

#include "numerics/cases.h"
#include "numerics/conditions.h"
#include "numerics/double_pair.h"
#include "numerics/polynomial.h"
#include "tessara/kernel/constants.h"

namespace tessara::vdg {

inline constexpr double ON_AXIS = 1e-7;  // radians, or radii of the map's circle
inline constexpr double PI_SQUARED = 9.869604401089358;
inline constexpr double ONE_27TH = 0.037037037037037035;
// A cosine that exceeds 1 by more than this factor means that there is no root; a smaller excess is
// rounding.
inline constexpr double COSINE_SLACK = 0.999;

struct Point {
    double x, y;
    bool isOrdinary;  // else choosing between the cases isn't good for it
};

struct Offsets {
    double phi, lambda;  // radians
    bool exist;          // false if there is no root
    bool isOrdinary;
};

// The equator is true to length.
[[nodiscard]] inline double EquatorX(double dLambda, double a) {
    return std::fabs(dLambda) < ON_AXIS ? 0.0 : a * dLambda;
}

[[nodiscard]] inline double MeridianY(double dPhi, double a) {
    return (PI - std::sqrt(PI_SQUARED - 4.0 * dPhi * dPhi)) * PI * a / (2.0 * dPhi);
}

// What lies on an axis isn't ordinary, nor what has no place.
template <Cases cases>
[[nodiscard]] inline Point Forward(double dPhi, double dLambda, double a) {
    const bool isOnEquator = std::fabs(dPhi) < ON_AXIS;
    const bool isOnMeridian = std::fabs(dLambda) < ON_AXIS;
    if (cases == Cases::Branch && isOnEquator) return {EquatorX(dLambda, a), 0.0, false};
    const double y0 = MeridianY(dPhi, a);
    if (cases == Cases::Branch && isOnMeridian) return {0.0, y0, false};

    const double A = (std::fabs(PI / dLambda) - std::fabs(dLambda / PI)) * 0.5;
    const double sine = std::fabs(2.0 * dPhi / PI);  // of the construction's angle
    const double cosine = std::sqrt((1.0 - sine) * (1.0 + sine));
    const double G = cosine / (sine + cosine - 1.0);
    const double P = G * (2.0 / sine - 1.0);
    const double W = G - P * P;
    const double V = P * P + A * A;
    const double x =
        a * WithSignOf(1.0, dLambda) * PI * (W * A + std::sqrt(A * A * W * W - V * (G * G - P * P))) / V;
    // (A^2 + 1) V - H^2 without its fourth powers of A, which cancel: near the central meridian they would
    // leave rounding errors of metres at a hundredth of a degree and of kilometres closer to it.
    const double H = A * A + G;
    const double radicand = A * A * (P * P + 1.0 - 2.0 * G) + P * P - G * G;
    const double y = a * WithSignOf(1.0, dPhi) * PI * std::fabs(P * H - A * std::sqrt(radicand)) / V;
    const double further = std::fabs(y0) > std::fabs(y) ? y0 : y;
    return {x, further, AllOf(!isOnEquator, !isOnMeridian, x == x, further == further)};
}

// sin(asin(x) / 3), which is cos(acos(x) / 3 + pi/3), by Newton's steps; not a number for |x| above 1. For x
// from 0 on it is 1/2 - w, where w^2 (1 - 2w/3) = (1 - x) / 6 = r^2: so both ends keep all their digits. The
// start is a polynomial in r, right to 7e-6, of which two steps leave nothing.
[[nodiscard]] inline double SineOfThird(double x) {
    constexpr double tiny = 1e-300;
    constexpr double starts[] = {1.0000066329, 0.3319147569,  0.3270598506, -0.3347043069,
                                 4.0654750615, -9.8921708018, 12.2561583966};
    const double r2 = (1.0 - std::fabs(x)) * (1.0 / 6.0);
    const double r = std::sqrt(r2);
    const auto improved = [=](double w) {
        return w - (w * w * (1.0 - w * (2.0 / 3.0)) - r2) / std::max(2.0 * w * (1.0 - w), tiny);
    };
    const double w = improved(improved(r * Polynomial(starts, r)));
    return std::copysign(0.5 - w, x);
}

// The latitude of a point (X, Y) in radii of the map's circle; y and a in metres. The meridian's own parabola
// decides between two roots of the cubic.
template <Cases cases>
[[nodiscard]] inline Offsets InverseLatitude(double X, double Y, double y, double a) {
    const bool isOnEquator = std::fabs(Y) < ON_AXIS;
    if (cases == Cases::Branch && isOnEquator) return {0.0, 0.0, true, false};

    const double r2 = X * X + Y * Y;
    const double c1 = -std::fabs(Y) * (X * X + 1.0 + Y * Y);
    const double c2 = c1 - 2.0 * Y * Y + X * X;
    const double c3 = -2.0 * c1 + 1.0 + 2.0 * Y * Y + r2 * r2;
    const double d =
        Y * Y / c3 + (2.0 * (c2 * c2 * c2) / (c3 * c3 * c3) - 9.0 * c1 * c2 / (c3 * c3)) * ONE_27TH;
    const double a1 = (c1 - c2 * c2 / (3.0 * c3)) / c3;
    const double m1 = 2.0 * std::sqrt(-a1 / 3.0);
    const double x5 = 3.0 * d / (a1 * m1);
    double sine = SineOfThird(x5);
    const bool isFinite = std::fabs(sine) < 1.0;  // it is at most 1/2
    if (cases == Cases::Branch && !isFinite) {
        if (std::fabs(x5) * COSINE_SLACK > 1.0) return {0.0, 0.0, false, false};
        sine = -0.5;
    }

    // The other root of a cubic whose roots add up to 0.
    const auto root = [=](double s) { return WithSignOf(1.0, y) * PI * (-m1 * s - c2 / (3.0 * c3)); };
    const double first = root(sine);
    const bool isBeyond = std::fabs(y) > std::fabs(PI * a * first / (PI - std::fabs(first)));
    const double phi = Either<cases>(
        isBeyond, [=] { return root(-0.5 * (sine + std::sqrt(3.0 * (1.0 - sine * sine)))); },
        [=] { return first; });
    return {phi, 0.0, true, AllOf(!isOnEquator, isFinite, phi == phi)};
}

[[nodiscard]] inline double InverseLongitude(double X, double Y) {
    const double r2 = X * X + Y * Y;
    return (r2 - 1.0 + std::sqrt(2.0 * (X * X - Y * Y) + 1.0 + r2 * r2)) * PI / (2.0 * X);
}

template <Cases cases>
[[nodiscard]] inline Offsets Inverse(double x, double y, double a) {
    const double X = x / a / PI;
    const double Y = y / a / PI;
    Offsets offsets = InverseLatitude<cases>(X, Y, y, a);
    const bool isOnMeridian = std::fabs(X) < ON_AXIS;
    if (cases == Cases::Branch && isOnMeridian) return offsets;
    offsets.lambda = InverseLongitude(X, Y);
    offsets.isOrdinary = AllOf(offsets.isOrdinary, !isOnMeridian, offsets.lambda == offsets.lambda);
    return offsets;
}

}  // namespace tessara::vdg

// The conformal latitude, which maps an ellipsoid to the sphere without distorting angles, computed without
// the logarithms and exponentials of the isometric latitude. C. F. F. Karney, "Transverse Mercator with an
// accuracy of a few nanometers", 2011, sections 2 and 3, derives the formulas.
#pragma once

#include <array>
#include <cmath>
#include <limits>

#include "kernel/ellipsoids.h"
#include "numerics/logarithm.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"

namespace tessara {

// e * atanh(e * sin phi), by which the isometric latitude on the ellipsoid is smaller than on the sphere. It
// is at most 0.007 and, since e2 is below 0.0069, exact to the last place after seven terms.
[[nodiscard]] constexpr double EllipsoidShare(double sinPhi, double e2) {
    const double x = e2 * sinPhi * sinPhi;
    const double x2 = x * x;
    const double even = 1.0 + x2 * (1.0 / 5.0 + x2 * (1.0 / 9.0 + x2 * (1.0 / 13.0)));
    const double odd = 1.0 / 3.0 + x2 * (1.0 / 7.0 + x2 * (1.0 / 11.0));
    return e2 * sinPhi * (even + x * odd);
}

// sinh and cosh of a value of at most 0.007.
[[nodiscard]] constexpr double SinhOfShare(double q) {
    const double q2 = q * q;
    return q * (1.0 + q2 * (1.0 / 6.0 + q2 * (1.0 / 120.0)));
}
[[nodiscard]] constexpr double CoshOfShare(double q) {
    const double q2 = q * q;
    return 1.0 + q2 * (1.0 / 2.0 + q2 * (1.0 / 24.0 + q2 * (1.0 / 720.0)));
}

// The isometric latitude on the sphere, log tan(phi/2 + pi/4); NaN beyond the poles. Sine and cosine are
// used as given. On the ellipsoid it is smaller by EllipsoidShare.
[[nodiscard]] inline double SphericalIsometricLatitude(SinCos phi) {
    if (phi.sine < 0.0) return -Log((1.0 - phi.sine) / phi.cosine);
    return Log((1.0 + phi.sine) / phi.cosine);
}

// The direction of a latitude on the sphere, from the exponential of its isometric latitude.
[[nodiscard]] constexpr SinCos SinCosOfExponential(double t) {
    const auto [cosine, minusSine] = DoubledOfTangent(t);
    return {-minusSine, cosine};
}

// phi and chi differ by a sine series whose coefficients are series in the third flattening n (here up to
// its sixth power; the next one is below 1e-17). The sines of 2, 4, 6 ... 12 times the angle are the sine of
// the double angle times polynomials in its cosine, so the sum is one polynomial times that sine. The array
// has its coefficients.
using LatitudeSeries = std::array<double, 6>;

consteval LatitudeSeries PolynomialOf(double s2, double s4, double s6, double s8, double s10, double s12) {
    return {s2 - s6 + s10,
            2.0 * s4 - 4.0 * s8 + 6.0 * s12,
            4.0 * s6 - 12.0 * s10,
            8.0 * s8 - 32.0 * s12,
            16.0 * s10,
            32.0 * s12};
}

consteval double ThirdFlattening(const EllipsoidFigure& figure) {
    const double f = figure.Flattening();
    return f / (2.0 - f);
}

// phi - chi from chi.
consteval LatitudeSeries ComputeLatitudeSeries(const EllipsoidFigure& figure) {
    const double n = ThirdFlattening(figure);
    const double n2 = n * n;
    const double n3 = n2 * n;
    return PolynomialOf(
        n * (2.0 +
             n * (-2.0 / 3.0 + n * (-2.0 + n * (116.0 / 45.0 + n * (26.0 / 45.0 - n * 2854.0 / 675.0))))),
        n2 * (7.0 / 3.0 + n * (-8.0 / 5.0 + n * (-227.0 / 45.0 + n * (2704.0 / 315.0 + n * 2323.0 / 945.0)))),
        n3 * (56.0 / 15.0 + n * (-136.0 / 35.0 + n * (-1262.0 / 105.0 + n * 73814.0 / 2835.0))),
        n3 * n * (4279.0 / 630.0 + n * (-332.0 / 35.0 - n * 399572.0 / 14175.0)),
        n3 * n2 * (4174.0 / 315.0 - n * 144838.0 / 6237.0), n3 * n3 * (601676.0 / 22275.0));
}

// chi - phi from phi.
consteval LatitudeSeries ComputeConformalSeries(const EllipsoidFigure& figure) {
    const double n = ThirdFlattening(figure);
    const double n2 = n * n;
    const double n3 = n2 * n;
    return PolynomialOf(
        n * (-2.0 + n * (2.0 / 3.0 +
                         n * (4.0 / 3.0 + n * (-82.0 / 45.0 + n * (32.0 / 45.0 + n * 4642.0 / 4725.0))))),
        n2 * (5.0 / 3.0 + n * (-16.0 / 15.0 + n * (-13.0 / 9.0 + n * (904.0 / 315.0 - n * 1522.0 / 945.0)))),
        n3 * (-26.0 / 15.0 + n * (34.0 / 21.0 + n * (8.0 / 5.0 - n * 12686.0 / 2835.0))),
        n3 * n * (1237.0 / 630.0 + n * (-12.0 / 5.0 - n * 24832.0 / 14175.0)),
        n3 * n2 * (-734.0 / 315.0 + n * 109598.0 / 31185.0), n3 * n3 * (444337.0 / 155925.0));
}

inline constexpr auto LATITUDE_SERIES = ForEachEllipsoid<LatitudeSeries>(ComputeLatitudeSeries);
inline constexpr auto CONFORMAL_SERIES = ForEachEllipsoid<LatitudeSeries>(ComputeConformalSeries);

// The value of a series for sine and cosine of twice the angle.
[[nodiscard]] constexpr double LatitudeStep(const LatitudeSeries& p, SinCos twice) {
    const double x = twice.cosine;
    const double x2 = x * x;
    return twice.sine * (p[0] + p[1] * x + x2 * (p[2] + p[3] * x + x2 * (p[4] + p[5] * x)));
}

// A conformal latitude with its direction as a unit vector.
struct ConformalAngle {
    double chi;
    SinCos direction;
};

// The conformal latitude chi of a latitude phi up to the poles, with its direction. The step is at most
// 0.0034, for which two or three terms of sine and cosine are exact.
[[nodiscard]] constexpr ConformalAngle ConformalLatitudeWithinPoles(double phi, SinCos direction,
                                                                    const LatitudeSeries& conformal) {
    if (direction.cosine < 0.0) direction.cosine = -direction.cosine;  // by rounding, or beyond the pole
    const double step = LatitudeStep(conformal, Doubled(direction));
    const double y = step * step;
    const SinCos turn{step * (1.0 - y * (1.0 / 6.0 - y * (1.0 / 120.0))),
                      1.0 - y * (1.0 / 2.0 - y * (1.0 / 24.0))};
    return {phi + step, Sum(direction, turn)};
}

// The same for any latitude. Not a number beyond the poles, where the tangent would be that of another
// latitude.
[[nodiscard]] constexpr ConformalAngle ConformalLatitude(double phi, SinCos direction,
                                                         const LatitudeSeries& conformal) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (!(phi >= -HALF_PI && phi <= HALF_PI)) direction.cosine = none;
    return ConformalLatitudeWithinPoles(phi, direction, conformal);
}

// The inverse is defined by the iteration phi = gd(psi + q(phi)) from the conformal latitude, which ends at
// a step of at most `tolerance` radians and thus before its limit. This function returns the remaining
// distance to the limit, because results are part of the contract. Each step multiplies the distance by e2
// cos^2 phi / (1 - e2 sin^2 phi), which is below 0.007, plus a term for the curvature that is negligible
// after the second step; following the steps on these two numbers gives the last one to six digits. Five
// steps are computed at once, which reach 1e-11 from a start of 0.004 radians; counting those above the
// tolerance finds the last one. `start` is the first value minus phi, `step` is phi - chi, `twice` the
// direction of twice chi.
[[nodiscard]] inline double RestOfIteration(double start, double step, SinCos twice, double e2,
                                            double tolerance) {
    const double cosine = twice.cosine - 2.0 * step * twice.sine;  // of twice phi
    const double sine = twice.sine + 2.0 * step * twice.cosine;
    const double x = 0.5 * e2 * (1.0 - cosine);
    const double perW = 1.0 + x * (1.0 + x);
    const double factor = 0.5 * e2 * (1.0 + cosine) * perW;
    const double curvature = 0.25 * e2 * sine * perW * (1.0 + factor);
    const double square = factor * factor;
    const double first = start * (factor - curvature * start);
    const double second = first * (factor - curvature * first);
    const double third = second * factor;
    const double fourth = second * square;
    const double fifth = third * square;
    const auto isTooLong = [tolerance](double from, double to) {
        return std::fabs(from - to) > tolerance ? 1.0 : 0.0;
    };
    const double count = isTooLong(start, first) + isTooLong(first, second) + isTooLong(second, third) +
                         isTooLong(third, fourth);
    double rest = count > 0.0 ? second : first;
    rest = count > 1.0 ? third : rest;
    rest = count > 2.0 ? fourth : rest;
    return count > 3.0 ? fifth : rest;
}

}  // namespace tessara

// The conformal map of an ellipsoid onto a sphere about an origin, on which CH and RD are computed: isometric
// latitudes are multiplied by an exponent near 1 (C. F. Gauss, "Untersuchungen ueber Gegenstaende der
// hoeheren Geodaesie", 1843).
//
// Near the origin all is computed with differences from it. Of a latitude the map needs e^psi, and of psi the
// distance from the origin's; half of that has the hyperbolic tangent
//
//     x = sin((phi - phi0) / 2) / cos((phi + phi0) / 2)
//
// and n times as much, less the ellipsoid's share, is x again but for a few thousandths: what is left to be
// computed by series needs few terms, and neither logarithm nor exponential is left. An origin is mapped
// exactly.
#pragma once

#include <cmath>

#include "kernel/compile_time_math.h"
#include "kernel/conformal_latitude.h"
#include "numerics/arcs.h"
#include "numerics/called.h"
#include "numerics/conditions.h"
#include "numerics/sin_cos.h"

namespace tessara {

// A latitude with its direction.
struct LatitudeAngle {
    double angle;
    SinCos direction;
};

// All but the exponent is of the origin.
struct GaussSphere {
    double exponent;               // n
    double excess, inverseExcess;  // n - 1, 1 / n - 1
    double share;                  // by which the ellipsoid shortens the isometric latitude
    LatitudeAngle geodetic;        // on the ellipsoid
    LatitudeAngle conformal;       // the ellipsoid's own conformal latitude
    LatitudeAngle onSphere;
};

namespace gauss {

constexpr LatitudeAngle FromSine(compile_time::Wide sine) {
    const SinCos direction{static_cast<double>(sine),
                           static_cast<double>(compile_time::Sqrt(compile_time::Wide(1.0) - sine * sine))};
    return {Atan2Ordinary(direction.sine, direction.cosine), direction};
}

// `phi0` in radians, `sinB0` the sine of the latitude that it has on the sphere.
constexpr GaussSphere Compute(double phi0, compile_time::Wide e2, compile_time::Wide exponent,
                              compile_time::Wide sinB0) {
    namespace ct = compile_time;
    const ct::Wide one = 1.0;
    const ct::Wide e = ct::Sqrt(e2);
    const ct::Wide sinPhi0 = ct::Sine(phi0);
    const ct::Wide psi0 = ct::Atanh(sinPhi0) - e * ct::Atanh(e * sinPhi0);
    const ct::Wide square = ct::Exp(psi0 + psi0);
    GaussSphere sphere{};
    sphere.exponent = static_cast<double>(exponent);
    sphere.excess = static_cast<double>(exponent - one);
    sphere.inverseExcess = static_cast<double>(one / exponent - one);
    sphere.geodetic = FromSine(sinPhi0);
    sphere.geodetic.angle = phi0;
    sphere.share = EllipsoidShare(sphere.geodetic.direction.sine, static_cast<double>(e2));
    sphere.conformal = FromSine((square - one) / (square + one));
    sphere.onSphere = FromSine(sinB0);
    return sphere;
}

// tanh((1 + excess) artanh(x) + shift), where the excess and the shift are some thousandths.
template <Reach reach>
[[nodiscard]] inline double Scaled(double x, double excess, double shift) {
    const double rest = excess * AtanhOfSmall<reach>(x) + shift;
    const double tangent = rest - rest * rest * rest * (1.0 / 3.0);
    return (x + tangent) / (1.0 + x * tangent);
}

// The direction of the latitude whose isometric latitude exceeds that of another by 2 artanh(x).
[[nodiscard]] inline SinCos Moved(SinCos from, double x) {
    const double y = x * x;
    const double scale = 1.0 / ((1.0 + y) + 2.0 * from.sine * x);
    return {(from.sine * (1.0 + y) + 2.0 * x) * scale, from.cosine * (1.0 - y) * scale};
}

// The tangent of half of what the angle moves by.
[[nodiscard]] inline double TangentOfHalf(SinCos from, double x) {
    return x * from.cosine / (1.0 + x * from.sine);
}

// The same with the angle.
template <Reach reach>
[[nodiscard]] inline LatitudeAngle MovedAngle(const LatitudeAngle& from, double x) {
    return {from.angle + 2.0 * AtanOfSmall<reach>(TangentOfHalf(from.direction, x)),
            Moved(from.direction, x)};
}

// The exponential of the isometric latitude on the sphere; negative beyond the poles.
[[nodiscard]] constexpr double ExponentialOf(SinCos phi) {
    return phi.sine < 0.0 ? phi.cosine / (1.0 - phi.sine) : (1.0 + phi.sine) / phi.cosine;
}

}  // namespace gauss

// The direction on the sphere of a latitude on the ellipsoid. `isNear` becomes false where the formula for
// what is near isn't good for it.
template <Reach reach>
[[nodiscard]] inline SinCos OntoSphere(double phi, const GaussSphere& sphere, double e2, bool* isNear) {
    const double away = phi - sphere.geodetic.angle;
    if (reach == Reach::Everywhere && !IsSmall(away * away)) {
        const SinCos direction = called::SinCosOf(phi);
        const double ratio =
            gauss::ExponentialOf(direction) / gauss::ExponentialOf(sphere.geodetic.direction);
        const double share = EllipsoidShare(direction.sine, e2) - sphere.share;
        const double distance = sphere.exponent * (called::Log(ratio) - share);
        return SinCosOfExponential(gauss::ExponentialOf(sphere.onSphere.direction) * called::Exp(distance));
    }
    const SinCos half = SinCosBySeries(0.5 * away);
    const SinCos middle = Sum(sphere.geodetic.direction, half);
    const SinCos direction = Sum(middle, half);
    const double share = EllipsoidShare(direction.sine, e2) - sphere.share;
    const double x = half.sine / middle.cosine;
    *isNear = AllOf(*isNear, IsSmall(away * away), IsSmall(x * x));
    return gauss::Moved(sphere.onSphere.direction,
                        gauss::Scaled<reach>(x, sphere.excess, -0.5 * sphere.exponent * share));
}

// The conformal latitude on the ellipsoid of a direction on the sphere.
template <Reach reach>
[[nodiscard]] inline LatitudeAngle OffSphere(SinCos b, const GaussSphere& sphere, bool* isNear) {
    const SinCos origin = sphere.onSphere.direction;
    const double one = (1.0 + b.sine) * origin.cosine;
    const double other = (1.0 + origin.sine) * b.cosine;
    const double x = (one - other) / (one + other);
    if (reach == Reach::Everywhere && !IsSmall(x * x)) {
        const double distance =
            called::Log(gauss::ExponentialOf(b) / gauss::ExponentialOf(origin)) / sphere.exponent;
        const double t = gauss::ExponentialOf(sphere.conformal.direction) * called::Exp(distance);
        return {2.0 * (called::Atan(t) - QUARTER_PI), SinCosOfExponential(t)};
    }
    const double scaled = gauss::Scaled<reach>(x, sphere.inverseExcess, 0.0);
    const double tangent = gauss::TangentOfHalf(sphere.conformal.direction, scaled);
    *isNear = AllOf(*isNear, IsSmall(x * x), IsSmall(tangent * tangent));
    return gauss::MovedAngle<reach>(sphere.conformal, scaled);
}

}  // namespace tessara

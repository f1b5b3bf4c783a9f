// The Dutch grid for one position; for one near Amersfoort without branches or calls.
#pragma once

#include <cmath>

#include "kernel/compile_time_math.h"
#include "kernel/conformal_latitude.h"
#include "kernel/gauss_sphere.h"
#include "kernel/numeric.h"
#include "numerics/called.h"
#include "numerics/conditions.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"

namespace tessara::dutch {

inline constexpr double ORIGIN_LATITUDE = 52.1561605556;  // degrees: Amersfoort
inline constexpr double ORIGIN_LONGITUDE = 5.3876388889;
inline constexpr double FALSE_EASTING = 155000.0;
inline constexpr double FALSE_NORTHING = 463000.0;
inline constexpr double SCALE = 0.99990790084;

inline constexpr double ON_AXIS = 0.001;       // metres
inline constexpr double AT_ANTIPODE = 0.0001;  // of the stereographic denominator, which is 2 at the origin

inline constexpr double ORIGIN_PHI = ORIGIN_LATITUDE * RADIANS_PER_DEGREE;

// The sphere of an ellipsoid at the origin.
struct Sphere {
    GaussSphere gauss;
    double radius;  // metres
};

consteval Sphere ComputeSphere(const EllipsoidFigure& figure) {
    namespace ct = compile_time;
    const ct::Wide one = 1.0;
    const ct::Wide e2 = figure.EccentricitySquared();
    const ct::Wide sinPhi0 = ct::Sine(ORIGIN_PHI);
    const ct::Wide cos2 = one - sinPhi0 * sinPhi0;
    const ct::Wide w = e2 / (one - e2) * cos2;
    const ct::Wide n = ct::Sqrt(w * cos2 + one);
    // tan b0 = tan phi0 / sqrt(1 + w)
    const ct::Wide sinB0 = sinPhi0 / ct::Sqrt(sinPhi0 * sinPhi0 + cos2 * (one + w));
    return {gauss::Compute(ORIGIN_PHI, e2, n, sinB0),
            static_cast<double>(figure.a * ct::Sqrt(one - e2) / (one - e2 * sinPhi0 * sinPhi0))};
}

inline constexpr auto SPHERES = ForEachEllipsoid<Sphere>(ComputeSphere);

struct GridPoint {
    double easting, northing;
    bool isNear;  // else the formula for what is near isn't good for it
};

struct Position {
    double latitude, longitude;  // degrees
    bool isNear;
};

// Sine and cosine of the bearing from the origin to a point, clockwise from grid north.
template <Reach reach>
[[nodiscard]] inline SinCos BearingOf(double x, double y) {
    const double distance = std::sqrt(x * x + y * y);
    if (reach == Reach::Everywhere && IsWithin(x, -ON_AXIS, ON_AXIS)) return {0.0, y <= 0.0 ? -1.0 : 1.0};
    if (reach == Reach::Everywhere && !std::isfinite(distance))
        return called::SinCosOf(HALF_PI - called::Atan(y / x) + (x < 0.0 ? PI : 0.0));
    return {x / distance, y / distance};
}

template <Reach reach>
[[nodiscard]] inline GridPoint Forward(double latitude, double longitude, const Sphere& sphere, double e2) {
    const auto& [gauss, radius] = sphere;
    bool isNear = true;
    const double lambda = (longitude - ORIGIN_LONGITUDE) * RADIANS_PER_DEGREE * gauss.exponent;
    const SinCos l = SinCosOfSmall<reach>(lambda);
    const SinCos b = OntoSphere<reach>(latitude * RADIANS_PER_DEGREE, gauss, e2, &isNear);
    const auto [sinB0, cosB0] = gauss.onSphere.direction;

    // At the origin both differences are 0 to the last bit.
    const double denominator = 1.0 + sinB0 * b.sine + cosB0 * b.cosine * l.cosine;
    const bool isAntipode = reach == Reach::Everywhere && IsWithin(denominator, -AT_ANTIPODE, AT_ANTIPODE);
    const double scale = 2.0 * radius / denominator;
    const double y = isAntipode ? 0.0 : (cosB0 * b.sine - sinB0 * b.cosine * l.cosine) * scale;
    const double x = isAntipode ? 0.0 : b.cosine * l.sine * scale;
    return {SCALE * x + FALSE_EASTING, SCALE * y + FALSE_NORTHING,
            AllOf(isNear, IsSmall(lambda * lambda), denominator > AT_ANTIPODE)};
}

template <Reach reach>
[[nodiscard]] inline Position Inverse(double easting, double northing, const Sphere& sphere,
                                      const LatitudeSeries& series) {
    const auto& [gauss, radius] = sphere;
    const auto [sinB0, cosB0] = gauss.onSphere.direction;
    const double x = (easting - FALSE_EASTING) / SCALE;
    const double y = (northing - FALSE_NORTHING) / SCALE;

    SinCos b{sinB0, cosB0};
    double l = 0.0;
    bool isNear = std::fabs(x) > ON_AXIS;
    const bool isOrigin = IsWithin(x, -ON_AXIS, ON_AXIS) && IsWithin(y, -ON_AXIS, ON_AXIS);
    if (reach == Reach::Near || !isOrigin) {
        const SinCos bearing = BearingOf<reach>(x, y);
        const double tangent = std::sqrt(x * x + y * y) / 2.0 / radius;
        const SinCos psi = reach == Reach::Near ? DoubledOfTangentUpTo1(tangent) : DoubledOfTangent(tangent);
        b.sine = psi.cosine * sinB0 + psi.sine * cosB0 * bearing.cosine;
        b.cosine = std::sqrt((1.0 - b.sine) * (1.0 + b.sine));
        const double sine = psi.sine * bearing.sine / b.cosine;
        l = AsinOfSmall<reach>(sine);
        isNear = AllOf(isNear, tangent < 1.0, IsSmall(sine * sine));
    }

    // The limit of the iteration of RD_LatitudeFromGauss, in closed form.
    const auto [chi, direction] = OffSphere<reach>(b, gauss, &isNear);
    const double step = LatitudeStep(series, Doubled(direction));
    return {(chi + step) * DEGREES_PER_RADIAN,
            (ORIGIN_LONGITUDE * RADIANS_PER_DEGREE + l / gauss.exponent) * DEGREES_PER_RADIAN, isNear};
}

}  // namespace tessara::dutch

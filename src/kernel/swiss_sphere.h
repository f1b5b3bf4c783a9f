// The conformal sphere of the Swiss grid at Bern, computed at compile time.
#pragma once

#include "kernel/compile_time_math.h"
#include "kernel/gauss_sphere.h"
#include "tessara/kernel/constants.h"

namespace tessara::swiss {

inline constexpr double ORIGIN_LONGITUDE = 7.439583333333333;  // degrees: the old observatory in Bern
inline constexpr double ORIGIN_LATITUDE = 46.95240555555556;
inline constexpr double A = 6377397.155;
inline constexpr double E2 = 0.006674372231802145;
inline constexpr double SECOND_E2 = 0.006719218799174759;
inline constexpr double ONE_MINUS_E2 = 0.9933256277681979;

// What CH_LoadConstants computes, as far as the projection needs it.
struct Sphere {
    double lon0;          // radians
    double alpha, k;      // exponent and constant of the conformal map onto the sphere
    double sinB0, cosB0;  // of the origin's latitude on the sphere
    double radius;        // metres
    GaussSphere gauss;
};

consteval Sphere ComputeSphere() {
    namespace ct = compile_time;
    const ct::Wide one = 1.0;
    const ct::Wide e = ct::Sqrt(E2);
    const ct::Wide sinLat0 = ct::Sine(ORIGIN_LATITUDE / DEGREES_PER_RADIAN);
    const ct::Wide cos2 = one - sinLat0 * sinLat0;
    const ct::Wide alpha = ct::Sqrt(one + ct::Wide(SECOND_E2) * cos2 * cos2);
    const ct::Wide sinB0 = sinLat0 / alpha;
    const ct::Wide k = ct::Atanh(sinB0) - alpha * (ct::Atanh(sinLat0) - e * ct::Atanh(e * sinLat0));
    return {ORIGIN_LONGITUDE / DEGREES_PER_RADIAN,
            static_cast<double>(alpha),
            static_cast<double>(k),
            static_cast<double>(sinB0),
            static_cast<double>(ct::Sqrt(one - sinB0 * sinB0)),
            static_cast<double>(ct::Sqrt(ONE_MINUS_E2) * A / (one - ct::Wide(E2) * sinLat0 * sinLat0)),
            gauss::Compute(ORIGIN_LATITUDE / DEGREES_PER_RADIAN, E2, alpha, sinB0)};
}

inline constexpr Sphere SPHERE = ComputeSphere();

}  // namespace tessara::swiss

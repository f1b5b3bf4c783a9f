// Universal Polar Stereographic: what conversions of one position and of many share.
#pragma once

#include <cmath>

#include "kernel/conformal_latitude.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/ups.h"

namespace tessara::ups {

inline constexpr double SCALE = 0.994;
inline constexpr double FALSE_ORIGIN = 2.0e6;     // metres, both ways
inline constexpr double AXIS_TOLERANCE = 0.0001;  // metres
inline constexpr double EDGE_LATITUDE = 80.0;     // degrees
inline constexpr double EDGE_TOLERANCE = 1e-7;    // degrees

struct GridPoint {
    double easting, northing;
};

// tan(pi/4 - phi/2) is cos phi / (1 + sin phi), and the power of the ellipsoid's ratio is exp q of its share
// q in the isometric latitude. The latitude is taken without its sign.
[[nodiscard]] inline GridPoint Forward(SinCos phi, SinCos lambda, bool isSouth, double e2,
                                       double poleRadius) {
    const double q = EllipsoidShare(phi.sine, e2);
    const double t = phi.cosine / (1.0 + phi.sine) * (CoshOfShare(q) + SinhOfShare(q));
    const double r = SCALE * poleRadius * t;
    const double sign = isSouth ? 1.0 : -1.0;
    return {lambda.sine * r + FALSE_ORIGIN, lambda.cosine * sign * r + FALSE_ORIGIN};
}

// The sum of s2 sin 2chi + s4 sin 4chi + s6 sin 6chi + s8 sin 8chi as sin 2chi times a polynomial in cos
// 2chi.
[[nodiscard]] inline double LatitudeStep(SinCos twice, const UpsConstants& c) {
    const double x = twice.cosine;
    return twice.sine *
           ((c.s2 - c.s6) + x * (2.0 * c.s4 - 4.0 * c.s8) + x * x * (4.0 * c.s6 + x * (8.0 * c.s8)));
}

// Degrees, as if the pole in the middle were the north one; `arc` is the arctangent of t, `doubled` the
// direction of twice that.
[[nodiscard]] inline double LatitudeOf(double arc, SinCos doubled, const UpsConstants& c) {
    const double chi = HALF_PI - 2.0 * arc;
    return (chi + LatitudeStep(Doubled({doubled.cosine, doubled.sine}), c)) * DEGREES_PER_RADIAN;
}

// On the edge of the system what lies next to it.
[[nodiscard]] inline double AtEdge(double latitude) {
    const double edge = latitude <= 0.0 ? -EDGE_LATITUDE : EDGE_LATITUDE;
    return std::fabs(std::fabs(latitude) - EDGE_LATITUDE) < EDGE_TOLERANCE ? edge : latitude;
}

}  // namespace tessara::ups

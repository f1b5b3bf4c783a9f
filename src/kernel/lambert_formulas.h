// Lambert's cone for one position (J. P. Snyder, "Map Projections: A Working Manual", USGS Professional Paper
// 1395, 1987, section 15), by ratios to the first parallel.
#pragma once

#include <cmath>
#include <limits>

#include "kernel/conformal_latitude.h"
#include "numerics/arcs.h"
#include "numerics/called.h"
#include "numerics/cases.h"
#include "numerics/circular.h"
#include "numerics/conditions.h"
#include "numerics/exponential.h"
#include "numerics/logarithm.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/lambert.h"

namespace tessara::lambert {

// What the projection needs of a cone.
struct Cone {
    double e2, n;
    double sign, side;  // of n; its side of the equator is -1.0 or 1.0
    double t, radius;   // of the first parallel: the exponential, and the radius in the plane, metres
    double rho0;        // radius of the parallel of origin, metres
    double lon0;        // radians
    double scale, falseEasting, falseNorthing;
};

[[nodiscard]] inline bool HasOneParallel(const LambertCC& lcc) {
    return lcc.parallel1 == lcc.parallel2;
}

// Of the first parallel in the plane, on an ellipsoid of that size.
[[nodiscard]] inline double RadiusOfFirst(const LambertCC& lcc) {
    return lcc.a * lcc.m1 / lcc.n;
}

[[nodiscard]] inline Cone ConeOf(const LambertCC& lcc) {
    return {.e2 = lcc.e2,
            .n = lcc.n,
            .sign = lcc.n > 0.0 ? 1.0 : (lcc.n < 0.0 ? -1.0 : 0.0),
            .side = lcc.n >= 0.0 ? 1.0 : -1.0,
            .t = lcc.t1,
            .radius = RadiusOfFirst(lcc),
            .rho0 = lcc.rho0,
            .lon0 = lcc.lon0,
            .scale = HasOneParallel(lcc) ? lcc.scale : 1.0,
            .falseEasting = lcc.falseEasting,
            .falseNorthing = lcc.falseNorthing};
}

struct GridPoint {
    double easting, northing;
    bool isOrdinary;  // else choosing between the cases isn't good for it
};

struct Position {
    double latitude, longitude;  // degrees
    bool isOrdinary;
};

// exp of the negative isometric latitude, which is cos phi / (1 + sin phi) on the sphere. The formula uses
// the sine only: a latitude whose sine is rounded to that of the pole lies at the pole, and a latitude
// beyond the pole is reflected. To choose between the cases, it may not lie at a pole.
template <Cases cases = Cases::Branch>
[[nodiscard]] inline double ExponentialOf(SinCos phi, double e2) {
    if constexpr (cases == Cases::Branch) {
        if (phi.sine == 1.0) return 0.0;
        if (phi.sine == -1.0) return std::numeric_limits<double>::infinity();
    }
    const double q = EllipsoidShare(phi.sine, e2);
    const double cosine = std::fabs(phi.cosine);
    const bool isSouth = phi.sine < 0.0;
    const double sphere = (isSouth ? 1.0 - phi.sine : cosine) / (isSouth ? cosine : 1.0 + phi.sine);
    return sphere * (CoshOfShare(q) + SinhOfShare(q));
}

// (x / y)^exponent by its logarithm. The ratios are moderate, so that it needs no more digits than a double.
template <Cases cases = Cases::Branch>
[[nodiscard]] inline double LogOfPower(double x, double y, double exponent) {
    return exponent * LogOfRatio<cases>(x, y);
}

// Whether choosing between the cases is good for it.
[[nodiscard]] inline bool IsOrdinaryPower(double x, double y, double log) {
    const double ratio = x / y;
    return AllOf(ratio >= logarithm::LEAST, ratio <= logarithm::GREATEST,
                 Absolute(log) <= exponential::GREATEST);
}

// The bearing of a vector in 0..2 pi, clockwise from the first axis.
template <Cases cases>
[[nodiscard]] inline double Bearing(double u, double v) {
    const auto ofAxis = [=] { return u >= 0.0 ? 0.0 : PI; };
    const auto ofSmall = [=] {
        const double angle = AtanBySeries(v / u);
        return v > 0.0 ? angle : TWO_PI + angle;
    };
    const auto ofOther = [=] {
        const double angle = HALF_PI - (cases == Cases::Choose ? AtanOrdinary(u / v) : called::Atan(u / v));
        return v < 0.0 ? angle + PI : angle;
    };
    return Either<cases>(v == 0.0, ofAxis, [=] {
        return Either<cases>(AllOf(u > 0.0, IsSmall(v / u * (v / u))), ofSmall, ofOther);
    });
}

// The latitude with this exponential, which is the limit of the usual iteration.
template <Cases cases>
[[nodiscard]] inline double LatitudeFromExponential(double t, const LatitudeSeries& series) {
    const auto [cosChi, sinChi] = DoubledOfTangent<cases>(t);
    return HALF_PI - 2.0 * Atan(t) + LatitudeStep(series, Doubled({sinChi, cosChi}));
}

template <Cases cases>
[[nodiscard]] inline GridPoint Forward(double latitude, double longitude, const Cone& cone) {
    const double phi = latitude * RADIANS_PER_DEGREE;
    const SinCos direction = DirectionOf<cases>(phi);
    const double t = ExponentialOf<cases>(direction, cone.e2);
    const double theta = (longitude * RADIANS_PER_DEGREE - cone.lon0) * cone.n;
    const SinCos bearing = DirectionOf<cases>(theta);
    const double log = LogOfPower<cases>(t, cone.t, cone.n);
    const double rho = cone.radius * ExpOfSmall<cases>(log);
    const double easting = bearing.sine * rho * cone.scale + cone.falseEasting;
    const double northing = (cone.rho0 - bearing.cosine * rho) * cone.scale + cone.falseNorthing;
    return {easting, northing,
            AllOf(IsOrdinaryPower(t, cone.t, log), std::fabs(phi) <= ORDINARY_ANGLE,
                  std::fabs(theta) <= ORDINARY_ANGLE, std::fabs(direction.sine) < 1.0, easting == easting,
                  northing == northing)};
}

template <Cases cases>
[[nodiscard]] inline Position Inverse(double easting, double northing, const Cone& cone,
                                      const LatitudeSeries& series) {
    const double east = (easting - cone.falseEasting) / cone.scale;
    const double north = (northing - cone.falseNorthing) / cone.scale;
    const double fromApex = cone.rho0 - north;
    const double rho = cone.sign * std::sqrt(east * east + fromApex * fromApex);
    const double log = LogOfPower<cases>(rho, cone.radius, 1.0 / cone.n);
    const double t = cone.t * ExpOfSmall<cases>(log);
    const double bearing = Bearing<cases>(cone.side * fromApex, cone.side * east);
    const double angle = bearing > PI ? bearing - TWO_PI : bearing;
    const double latitude = LatitudeFromExponential<cases>(t, series) * DEGREES_PER_RADIAN;
    const double longitude = (angle / cone.n + cone.lon0) * DEGREES_PER_RADIAN;
    return {latitude, longitude,
            AllOf(IsOrdinaryPower(rho, cone.radius, log), latitude == latitude, longitude == longitude)};
}

}  // namespace tessara::lambert

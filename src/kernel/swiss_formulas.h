// The Swiss grid for one position; for one near Bern without branches or calls.
#pragma once

#include <cmath>

#include "kernel/conformal_latitude.h"
#include "kernel/swiss_sphere.h"
#include "numerics/called.h"
#include "numerics/conditions.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"

namespace tessara::swiss {

inline constexpr double FALSE_EASTING = 600000.0;
inline constexpr double FALSE_NORTHING = 200000.0;
inline constexpr double LATITUDE_TOLERANCE = 1e-11;  // radians

struct GridPoint {
    double easting, northing;
    bool isNear;  // else the formula for what is near isn't good for it
};

struct Position {
    double latitude, longitude;  // degrees
    bool isNear;
};

// tanh and 1/cosh of a northing in radii. The exponential overflows where nothing is left of the map.
template <Reach reach>
[[nodiscard]] inline SinCos OffCylinder(double northing) {
    if (reach == Reach::Everywhere && !IsSmall(northing * northing)) {
        const double exponential = called::Exp(2.0 * northing);
        const double sine = (exponential - 1.0) / (exponential + 1.0);
        return {sine, std::sqrt(1.0 - sine * sine)};
    }
    const double sinh = SinhBySeries(northing);
    const double cosine = 1.0 / std::sqrt(1.0 + sinh * sinh);
    return {sinh * cosine, cosine};
}

template <Reach reach>
[[nodiscard]] inline GridPoint Forward(double latitude, double longitude) {
    const Sphere& c = SPHERE;

    // To the sphere.
    bool isNear = true;
    const SinCos b = OntoSphere<reach>(latitude / DEGREES_PER_RADIAN, c.gauss, E2, &isNear);
    const double lambda = c.alpha * (longitude / DEGREES_PER_RADIAN - c.lon0);
    const SinCos l = SinCosOfSmall<reach>(lambda);

    // Turn the origin onto the equator.
    const double x = l.cosine * b.cosine * c.cosB0 + b.sine * c.sinB0;
    const double y = l.sine * b.cosine;
    const double z = b.sine * c.cosB0 - l.cosine * b.cosine * c.sinB0;

    // To the cylinder.
    const double tangent = y / x;
    return {c.radius * AtanOfSmall<reach>(tangent) + FALSE_EASTING,
            c.radius * AtanhOfSmall<reach>(z) + FALSE_NORTHING,
            AllOf(isNear, IsSmall(lambda * lambda), IsSmall(tangent * tangent), IsSmall(z * z))};
}

template <Reach reach>
[[nodiscard]] inline Position Inverse(double easting, double northing) {
    const Sphere& c = SPHERE;

    // Off the cylinder.
    const double up = (northing - FALSE_NORTHING) / c.radius;
    const double aside = (easting - FALSE_EASTING) / c.radius;
    const SinCos bBar = OffCylinder<reach>(up);
    const SinCos lBar = SinCosOfSmall<reach>(aside);

    // Turn the origin back to its place.
    const double x = lBar.cosine * bBar.cosine * c.cosB0 - c.sinB0 * bBar.sine;
    const double y = lBar.sine * bBar.cosine;
    const double z = c.cosB0 * bBar.sine + lBar.cosine * bBar.cosine * c.sinB0;
    const double tangent = y / x;
    const SinCos b{z, std::sqrt(x * x + y * y)};

    // To the ellipsoid: the limit of the iteration from b, and what it stops short by.
    bool isNear = true;
    const auto [chi, direction] = OffSphere<reach>(b, c.gauss, &isNear);
    const SinCos twice = Doubled(direction);
    const double step = LatitudeStep(LATITUDE_SERIES[ELLIPSOID_BESSEL], twice);
    const double lat = chi + step;
    // Some thousandths, of which the iteration shows a few digits.
    const SinCos ahead = Difference(b, direction);
    const double aheadTangent = ahead.sine / ahead.cosine;
    const double start = AtanOfSmall<reach>(aheadTangent) - step;
    const double rest = RestOfIteration(start, step, twice, E2, LATITUDE_TOLERANCE);
    return {(lat + rest) * DEGREES_PER_RADIAN,
            (AtanOfSmall<reach>(tangent) / c.alpha + c.lon0) * DEGREES_PER_RADIAN,
            AllOf(isNear, IsSmall(up * up), IsSmall(aside * aside), IsSmall(tangent * tangent),
                  IsSmall(aheadTangent * aheadTangent))};
}

}  // namespace tessara::swiss

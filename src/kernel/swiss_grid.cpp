#include "tessara/kernel/swiss_grid.h"

#include <cmath>

#include "kernel/conformal_latitude.h"
#include "kernel/ellipsoids.h"
#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "kernel/swiss_sphere.h"
#include "numerics/called.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

constexpr double FALSE_EASTING = 600000.0;
constexpr double FALSE_NORTHING = 200000.0;
constexpr double LATITUDE_TOLERANCE = 1e-11;  // radians

// tanh and 1/cosh of a northing in radii. The exponential overflows where nothing is left of the map.
SinCos OffCylinder(double northing) {
    if (IsSmall(northing * northing)) {
        const double sinh = SinhOfSmall(northing);
        const double cosine = 1.0 / std::sqrt(1.0 + sinh * sinh);
        return {sinh * cosine, cosine};
    }
    const double exponential = called::Exp(2.0 * northing);
    const double sine = (exponential - 1.0) / (exponential + 1.0);
    return {sine, std::sqrt(1.0 - sine * sine)};
}

}  // namespace

KoordStatus CH_FromGeodetic(const double latLon[2], GridPayload* payload) {
    const swiss::Sphere& c = swiss::SPHERE;

    // To the sphere.
    const SinCos b = OntoSphere(latLon[0] / DEGREES_PER_RADIAN, c.gauss, swiss::E2);
    const SinCos l = SinCosOfSmall(c.alpha * (latLon[1] / DEGREES_PER_RADIAN - c.lon0));

    // Turn the origin onto the equator.
    const double x = l.cosine * b.cosine * c.cosB0 + b.sine * c.sinB0;
    const double y = l.sine * b.cosine;
    const double z = b.sine * c.cosB0 - l.cosine * b.cosine * c.sinB0;

    // To the cylinder.
    payload->easting = c.radius * AtanOfSmall(y / x) + FALSE_EASTING;
    payload->northing = c.radius * AtanhOfSmall(z) + FALSE_NORTHING;

    payload->easting = SnapToEither(CH_LIMITS.west, CH_LIMITS.east, payload->easting, LIMIT_TOLERANCE_METRES);
    payload->northing =
        SnapToEither(CH_LIMITS.south, CH_LIMITS.north, payload->northing, LIMIT_TOLERANCE_METRES);
    return KOORD_OK;
}

KoordStatus CH_ToGeodetic(const GridPayload* payload, double latLon[2]) {
    const swiss::Sphere& c = swiss::SPHERE;

    // Off the cylinder.
    const SinCos bBar = OffCylinder((payload->northing - FALSE_NORTHING) / c.radius);
    const SinCos lBar = SinCosOfSmall((payload->easting - FALSE_EASTING) / c.radius);

    // Turn the origin back to its place.
    const double x = lBar.cosine * bBar.cosine * c.cosB0 - c.sinB0 * bBar.sine;
    const double y = lBar.sine * bBar.cosine;
    const double z = c.cosB0 * bBar.sine + lBar.cosine * bBar.cosine * c.sinB0;
    const double l = AtanOfSmall(y / x);
    const SinCos b{z, std::sqrt(x * x + y * y)};

    // To the ellipsoid: the limit of the iteration from b, and what it stops short by.
    const auto [chi, direction] = OffSphere(b, c.gauss);
    const SinCos twice = Doubled(direction);
    const double step = LatitudeStep(LATITUDE_SERIES[ELLIPSOID_BESSEL], twice);
    const double lat = chi + step;
    // Some thousandths, of which the iteration shows a few digits.
    const SinCos ahead = Difference(b, direction);
    const double start = AtanOfSmall(ahead.sine / ahead.cosine) - step;
    const double rest = RestOfIteration(start, step, twice, swiss::E2, LATITUDE_TOLERANCE);
    latLon[0] = (lat + rest) * DEGREES_PER_RADIAN;
    latLon[1] = (l / c.alpha + c.lon0) * DEGREES_PER_RADIAN;
    return KOORD_OK;
}

KoordStatus CH_Factors(const tagKOORD& /*record*/, const double* latLon, GridFactors* factors) {
    const swiss::Sphere& c = swiss::SPHERE;
    const SinCos phi = SinCosOf(latLon[0] / DEGREES_PER_RADIAN);
    const SinCos b = OntoSphere(latLon[0] / DEGREES_PER_RADIAN, c.gauss, swiss::E2);
    const double l = c.alpha * (latLon[1] / DEGREES_PER_RADIAN - c.lon0);
    const double z = b.sine * c.cosB0 - Cos(l) * b.cosine * c.sinB0;

    factors->convergence =
        Atan2(c.sinB0 * Sin(l), c.cosB0 * b.cosine + c.sinB0 * b.sine * Cos(l)) * DEGREES_PER_RADIAN;
    const double normal = swiss::A / std::sqrt(1.0 - swiss::E2 * phi.sine * phi.sine);
    factors->scale = c.radius * c.alpha * b.cosine / (normal * phi.cosine) / std::sqrt(1.0 - z * z);
    return KOORD_OK;
}

}  // namespace tessara

#include "tessara/kernel/swiss_grid.h"

#include <cmath>

#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "kernel/swiss_formulas.h"
#include "numerics/arcs.h"
#include "tessara/kernel/limits.h"

namespace tessara {

KoordStatus CH_FromGeodetic(const double latLon[2], GridPayload* payload) {
    swiss::GridPoint point = swiss::Forward<Reach::Near>(latLon[0], latLon[1]);
    if (!point.isNear) point = swiss::Forward<Reach::Everywhere>(latLon[0], latLon[1]);
    payload->easting = SnapToEither(CH_LIMITS.west, CH_LIMITS.east, point.easting, LIMIT_TOLERANCE_METRES);
    payload->northing =
        SnapToEither(CH_LIMITS.south, CH_LIMITS.north, point.northing, LIMIT_TOLERANCE_METRES);
    return KOORD_OK;
}

KoordStatus CH_ToGeodetic(const GridPayload* payload, double latLon[2]) {
    swiss::Position position = swiss::Inverse<Reach::Near>(payload->easting, payload->northing);
    if (!position.isNear) position = swiss::Inverse<Reach::Everywhere>(payload->easting, payload->northing);
    latLon[0] = position.latitude;
    latLon[1] = position.longitude;
    return KOORD_OK;
}

KoordStatus CH_Factors(const tagKOORD& /*record*/, const double* latLon, GridFactors* factors) {
    const swiss::Sphere& c = swiss::SPHERE;
    const SinCos phi = SinCosOf(latLon[0] / DEGREES_PER_RADIAN);
    bool isNear = true;
    const SinCos b =
        OntoSphere<Reach::Everywhere>(latLon[0] / DEGREES_PER_RADIAN, c.gauss, swiss::E2, &isNear);
    const double l = c.alpha * (latLon[1] / DEGREES_PER_RADIAN - c.lon0);
    const double z = b.sine * c.cosB0 - Cos(l) * b.cosine * c.sinB0;

    factors->convergence =
        Atan2(c.sinB0 * Sin(l), c.cosB0 * b.cosine + c.sinB0 * b.sine * Cos(l)) * DEGREES_PER_RADIAN;
    const double normal = swiss::A / std::sqrt(1.0 - swiss::E2 * phi.sine * phi.sine);
    factors->scale = c.radius * c.alpha * b.cosine / (normal * phi.cosine) / std::sqrt(1.0 - z * z);
    return KOORD_OK;
}

}  // namespace tessara

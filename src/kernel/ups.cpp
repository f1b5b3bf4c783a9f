#include "tessara/kernel/ups.h"

#include <cmath>

#include "kernel/conformal_latitude.h"
#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "kernel/ups_constants.h"
#include "kernel/ups_formulas.h"
#include "numerics/arcs.h"
#include "numerics/exponential.h"
#include "numerics/rounding.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

using ups::AtEdge;
using ups::AXIS_TOLERANCE;
using ups::FALSE_ORIGIN;
using ups::Forward;
using ups::GridPoint;
using ups::LatitudeOf;
using ups::SCALE;

constexpr double LONGITUDE_AT_POLE = 180.0;  // degrees, of the north pole

}  // namespace

KoordStatus UPS_FromGeodetic(const double latLon[2], UpsPayload* payload, std::int32_t datum) {
    const UpsConstants* c = UpsConstantsOf(datum);
    if (!c) return KOORD_ERR_DATUM;
    const bool isSouth = latLon[0] < 0.0;
    const GridPoint point = Forward(SinCosOf(std::fabs(latLon[0]) * RADIANS_PER_DEGREE),
                                    SinCosOf(latLon[1] * RADIANS_PER_DEGREE), isSouth, c->e2, c->poleRadius);
    payload->hemisphere = isSouth ? 'S' : 'N';
    payload->northing = point.northing;
    payload->easting = point.easting;
    return KOORD_OK;
}

KoordStatus UPS_ToGeodetic(const UpsPayload* payload, double latLon[2], std::int32_t datum) {
    const UpsConstants* c = UpsConstantsOf(datum);
    if (!c) return KOORD_ERR_DATUM;
    const double sign = payload->hemisphere == 'S' ? 1.0 : -1.0;
    const double dx = SnapTo(0.0, payload->easting - FALSE_ORIGIN, AXIS_TOLERANCE);
    const double dy = SnapTo(0.0, std::fabs(payload->northing) - FALSE_ORIGIN, AXIS_TOLERANCE);

    // The latitude as if the projected pole were the south pole.
    double latitude = 90.0;
    double longitude = sign > 0.0 ? 0.0 : LONGITUDE_AT_POLE;
    if (dx != 0.0 || dy != 0.0) {
        const double t = std::sqrt(dx * dx + dy * dy) / (c->poleRadius * SCALE);
        latitude = LatitudeOf(AtanOfSmall(t), DoubledOfTangent(t), *c);
        longitude = Atan2(dx, sign * dy) * DEGREES_PER_RADIAN;
    }
    latLon[0] = AtEdge(-(sign * latitude));
    latLon[1] = longitude;
    return KOORD_OK;
}

// The radius of the parallel in the plane by that on the ellipsoid, in which the cosine of the latitude
// cancels out.
KoordStatus UPS_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    const UpsConstants* c = UpsConstantsOf(static_cast<std::int32_t>(record.datum));
    if (!c) return KOORD_ERR_DATUM;
    const bool isSouth = Load<UpsPayload>(record).hemisphere == 'S';
    const double sine = Sin(latLon[0] * RADIANS_PER_DEGREE) * (isSouth ? -1.0 : 1.0);
    const double normal = c->a / std::sqrt(1.0 - c->e2 * sine * sine);
    factors->scale = SCALE * c->poleRadius * Exp(EllipsoidShare(sine, c->e2)) / (1.0 + sine) / normal;
    factors->convergence = Remainder(isSouth ? -latLon[1] : latLon[1], DEGREES_PER_TURN);
    return KOORD_OK;
}

}  // namespace tessara

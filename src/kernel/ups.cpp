#include "tessara/kernel/ups.h"

#include <cmath>

#include "kernel/conformal_latitude.h"
#include "kernel/numeric.h"
#include "kernel/ups_constants.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

constexpr double SCALE = 0.994;
constexpr double FALSE_ORIGIN = 2.0e6;       // metres, both ways
constexpr double AXIS_TOLERANCE = 0.0001;    // metres
constexpr double EDGE_LATITUDE = 80.0;       // degrees
constexpr double EDGE_TOLERANCE = 1e-7;      // degrees
constexpr double LONGITUDE_AT_POLE = 180.0;  // degrees, of the north pole

// The sum of s2 sin 2chi + s4 sin 4chi + s6 sin 6chi + s8 sin 8chi as sin 2chi times a polynomial in cos
// 2chi.
double LatitudeStep(SinCos twice, const UpsConstants& c) {
    const double x = twice.cosine;
    return twice.sine *
           ((c.s2 - c.s6) + x * (2.0 * c.s4 - 4.0 * c.s8) + x * x * (4.0 * c.s6 + x * (8.0 * c.s8)));
}

}  // namespace

// tan(pi/4 - phi/2) is cos phi / (1 + sin phi), and the power of the ellipsoid's ratio is exp q of its share
// q in the isometric latitude.
KoordStatus UPS_FromGeodetic(const double latLon[2], UpsPayload* payload, std::int32_t datum) {
    const UpsConstants* c = UpsConstantsOf(datum);
    if (!c) return KOORD_ERR_DATUM;
    const bool isSouth = latLon[0] < 0.0;
    const SinCos phi = SinCosOf(std::fabs(latLon[0]) * RADIANS_PER_DEGREE);
    const SinCos lambda = SinCosOf(latLon[1] * RADIANS_PER_DEGREE);
    const double q = EllipsoidShare(phi.sine, c->e2);
    const double t = phi.cosine / (1.0 + phi.sine) * (CoshOfShare(q) + SinhOfShare(q));
    const double r = SCALE * c->poleRadius * t;
    const double sign = isSouth ? 1.0 : -1.0;
    payload->hemisphere = isSouth ? 'S' : 'N';
    payload->northing = lambda.cosine * sign * r + FALSE_ORIGIN;
    payload->easting = lambda.sine * r + FALSE_ORIGIN;
    return KOORD_OK;
}

KoordStatus UPS_ToGeodetic(const UpsPayload* payload, double latLon[2], std::int32_t datum) {
    const UpsConstants* c = UpsConstantsOf(datum);
    if (!c) return KOORD_ERR_DATUM;
    const double sign = payload->hemisphere == 'S' ? 1.0 : -1.0;
    const double dx = SnapTo(0.0, payload->easting - FALSE_ORIGIN, AXIS_TOLERANCE);
    const double dy = SnapTo(0.0, std::fabs(payload->northing) - FALSE_ORIGIN, AXIS_TOLERANCE);

    // Latitude as if the projected pole were the south one.
    double latitude = 90.0;
    double longitude = sign > 0.0 ? 0.0 : LONGITUDE_AT_POLE;
    if (dx != 0.0 || dy != 0.0) {
        const double t = std::sqrt(dx * dx + dy * dy) / (c->poleRadius * SCALE);
        const double chi = HALF_PI - 2.0 * std::atan(t);
        const auto [cosChi, sinChi] = DoubledOfTangent(t);
        latitude = (chi + LatitudeStep(Doubled({sinChi, cosChi}), *c)) * DEGREES_PER_RADIAN;
        longitude = std::atan2(dx, sign * dy) * DEGREES_PER_RADIAN;
    }
    latitude = -(sign * latitude);
    if (std::fabs(std::fabs(latitude) - EDGE_LATITUDE) < EDGE_TOLERANCE)
        latitude = latitude <= 0.0 ? -EDGE_LATITUDE : EDGE_LATITUDE;
    latLon[0] = latitude;
    latLon[1] = longitude;
    return KOORD_OK;
}

}  // namespace tessara

#include "tessara/kernel/ups.h"

#include <cmath>

#include "kernel/numeric.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

constexpr double SCALE = 0.994;
constexpr double FALSE_ORIGIN = 2.0e6;       // metres, both ways
constexpr double AXIS_TOLERANCE = 0.0001;    // metres
constexpr double EDGE_LATITUDE = 80.0;       // degrees
constexpr double EDGE_TOLERANCE = 1e-7;      // degrees
constexpr double LONGITUDE_AT_POLE = 180.0;  // degrees, of the north pole

double LatitudeFromConformal(double chi, const UpsConstants& c) {
    return chi + c.s2 * std::sin(2.0 * chi) + c.s4 * std::sin(4.0 * chi) + c.s6 * std::sin(6.0 * chi) +
           c.s8 * std::sin(8.0 * chi);
}

}  // namespace

KoordStatus UPS_LoadConstants(std::int32_t datum, UpsConstants* c) {
    const DatumRow* row = Datum_Row(datum);
    if (!row) return KOORD_ERR_DATUM;
    const double a = row->a;
    const double b = (1.0 - row->f) * a;
    const double e2 = (a * a - b * b) / (a * a);
    const bool isSphere = row->f == 0.0 || e2 < 0.0;
    c->a = a;
    c->inverseFlattening = isSphere ? 0.0 : 1.0 / row->f;
    c->b = isSphere ? a : b;
    c->e2 = isSphere ? 0.0 : e2;
    c->e = std::sqrt(c->e2);
    c->poleRadius =
        2.0 * a * std::pow((1.0 - c->e) / (1.0 + c->e), c->e / 2.0) / std::sqrt(1.0 - c->e * c->e);

    const double d = c->e2;
    const double d2 = d * d;
    const double d3 = d2 * d;
    const double d4 = d2 * d2;
    c->s2 = d / 2.0 + 5.0 * d2 / 24.0 + d3 / 12.0 + 13.0 * d4 / 360.0;
    c->s4 = 7.0 * d2 / 48.0 + 29.0 * d3 / 240.0 + 811.0 * d4 / 11520.0;
    c->s6 = 7.0 * d3 / 120.0 + 81.0 * d4 / 1120.0;
    c->s8 = 4279.0 * d4 / 161280.0;
    return KOORD_OK;
}

KoordStatus UPS_FromGeodetic(const double latLon[2], UpsPayload* payload, std::int32_t datum) {
    UpsConstants c;
    const KoordStatus status = UPS_LoadConstants(datum, &c);
    if (status != KOORD_OK) return status;
    const bool isSouth = latLon[0] < 0.0;
    const double phi = std::fabs(latLon[0]) * RADIANS_PER_DEGREE;
    const double lambda = latLon[1] * RADIANS_PER_DEGREE;
    const double eSin = c.e * std::sin(phi);
    const double t = std::tan(QUARTER_PI - phi / 2.0) * std::pow((1.0 + eSin) / (1.0 - eSin), c.e / 2.0);
    const double r = SCALE * c.poleRadius * t;
    const double sign = isSouth ? 1.0 : -1.0;
    payload->hemisphere = isSouth ? 'S' : 'N';
    payload->northing = std::cos(lambda) * sign * r + FALSE_ORIGIN;
    payload->easting = std::sin(lambda) * r + FALSE_ORIGIN;
    return KOORD_OK;
}

KoordStatus UPS_ToGeodetic(const UpsPayload* payload, double latLon[2], std::int32_t datum) {
    UpsConstants c;
    const KoordStatus status = UPS_LoadConstants(datum, &c);
    if (status != KOORD_OK) return status;
    const double sign = payload->hemisphere == 'S' ? 1.0 : -1.0;
    const double dx = SnapTo(0.0, payload->easting - FALSE_ORIGIN, AXIS_TOLERANCE);
    const double dy = SnapTo(0.0, std::fabs(payload->northing) - FALSE_ORIGIN, AXIS_TOLERANCE);

    // Latitude as if the projected pole were the south one.
    double latitude = 90.0;
    double longitude = sign > 0.0 ? 0.0 : LONGITUDE_AT_POLE;
    if (dx != 0.0 || dy != 0.0) {
        const double lambda = std::atan2(dx, sign * dy);
        const double r = std::fabs(dy) <= std::fabs(dx) ? std::fabs(dx / std::sin(lambda))
                                                        : std::fabs(dy / std::cos(lambda));
        const double chi = HALF_PI - 2.0 * std::atan(r / (c.poleRadius * SCALE));
        latitude = LatitudeFromConformal(chi, c) * DEGREES_PER_RADIAN;
        longitude = lambda * DEGREES_PER_RADIAN;
    }
    latitude = -(sign * latitude);
    if (std::fabs(std::fabs(latitude) - EDGE_LATITUDE) < EDGE_TOLERANCE)
        latitude = latitude <= 0.0 ? -EDGE_LATITUDE : EDGE_LATITUDE;
    latLon[0] = latitude;
    latLon[1] = longitude;
    return KOORD_OK;
}

}  // namespace tessara

// Maps whose raster is parallel to meridians and parallels: DD and EQUALARC, and the polar form of EQUALARC,
// whose raster lies on a plane around a pole in which distances from the pole are true.
#include <cmath>

#include "maps/kernel/map_parts.h"
#include "numerics/arcs.h"
#include "numerics/circular.h"

namespace tessara {
namespace {

// The plane around a pole, in pixels: x to the right, y upward.
struct PolarPlane {
    double pole;  // latitude of the pole
    double up;    // direction of longitude 0: -1.0 downward, 1.0 upward
    double pixelsPerDegree;
};

struct PolarPoint {
    double x, y;
};

bool IsPolar(const MapEqualArcParams& params) {
    return params.zone == EQUALARC_NORTH_POLAR || params.zone == EQUALARC_SOUTH_POLAR;
}

PolarPlane PlaneOf(const MapEqualArcParams& params) {
    const bool isNorth = params.zone == EQUALARC_NORTH_POLAR;
    return {isNorth ? 90.0 : -90.0, isNorth ? -1.0 : 1.0, 1.0 / params.degreesPerPixelY};
}

PolarPoint PointAt(const PolarPlane& plane, double latitude, double longitude) {
    const double r = plane.pixelsPerDegree * (plane.pole > 0.0 ? 90.0 - latitude : 90.0 + latitude);
    const SinCos lambda = SinCosOf(longitude * RADIANS_PER_DEGREE);
    return {lambda.sine * r, lambda.cosine * (plane.up * r)};
}

// The longitude of (p, q), which lies r pixels from the pole. Right of the pole a point on the x axis gets
// longitude 0 instead of 90; at the pole itself the north returns 0 and the south NaN. Both are part of the
// contract.
double PolarLongitude(const PolarPlane& plane, double p, double q, double r) {
    const bool isNorth = plane.pole > 0.0;
    const bool isEast = isNorth ? p >= 0.0 : p > 0.0;
    const bool isWest = isNorth ? p < 0.0 : p <= 0.0;
    if (isEast && q != 0.0) return Acos(plane.up * q / r) * DEGREES_PER_RADIAN;
    if (isWest) return Acos(plane.up * q / r) * -DEGREES_PER_RADIAN;
    return 0.0;
}

GeodezPayload PolarPixelToWorld(const MapEqualArcParams& params, double x, double y) {
    const PolarPlane plane = PlaneOf(params);
    const PolarPoint origin = PointAt(plane, params.originLatitude, params.originLongitude);
    const double p = origin.x + x;
    const double q = origin.y - y;
    const double r = std::sqrt(p * p + q * q);
    const double latitude = plane.pole + plane.up * (r / plane.pixelsPerDegree);
    return {latitude, PolarLongitude(plane, p, q, r), 0.0};
}

void PolarWorldToPixel(const MapEqualArcParams& params, const GeodezPayload& at, double* x, double* y) {
    const PolarPlane plane = PlaneOf(params);
    const PolarPoint origin = PointAt(plane, params.originLatitude, params.originLongitude);
    const PolarPoint point = PointAt(plane, at.latitude, at.longitude);
    *x = point.x - origin.x;
    *y = origin.y - point.y;
}

}  // namespace

KoordStatus MapDd_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const auto params = Load<MapDdParams>(*map);
    const double latitude = params.originLatitude - y / params.pixelsPerDegreeY;
    const double longitude = x / params.pixelsPerDegreeX + params.originLongitude;
    PutDegrees(*map, {latitude, longitude, 0.0}, out);
    return KOORD_OK;
}

KoordStatus MapDd_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    GeodezPayload at{};
    const KoordStatus status = ToDegrees(*in, *map, &at);
    if (status != KOORD_OK) return status;
    const auto params = Load<MapDdParams>(*map);
    *x = (at.longitude - params.originLongitude) * params.pixelsPerDegreeX;
    *y = (params.originLatitude - at.latitude) * params.pixelsPerDegreeY;
    return KOORD_OK;
}

KoordStatus MapEqualArc_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const auto params = Load<MapEqualArcParams>(*map);
    const GeodezPayload plain{params.originLatitude - y * params.degreesPerPixelY,
                              x * params.degreesPerPixelX + params.originLongitude, 0.0};
    PutDegrees(*map, IsPolar(params) ? PolarPixelToWorld(params, x, y) : plain, out);
    return KOORD_OK;
}

KoordStatus MapEqualArc_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    GeodezPayload at{};
    const KoordStatus status = ToDegrees(*in, *map, &at);
    if (status != KOORD_OK) return status;
    const auto params = Load<MapEqualArcParams>(*map);
    if (IsPolar(params)) {
        PolarWorldToPixel(params, at, x, y);
        return KOORD_OK;
    }
    *x = (at.longitude - params.originLongitude) / params.degreesPerPixelX;
    *y = (params.originLatitude - at.latitude) / params.degreesPerPixelY;
    return KOORD_OK;
}

}  // namespace tessara

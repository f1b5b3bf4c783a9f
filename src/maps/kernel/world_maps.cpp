// Maps of the whole earth that a reference point ties to the raster: VAN_DER_GRINTEN and WAGNER-IV.
#include <cmath>

#include "maps/kernel/map_parts.h"
#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/wagner_iv.h"

namespace tessara {
namespace {

constexpr double PI_SQUARED = 9.869604401089358;
constexpr double ON_THE_LINE = 1e-7;  // radians from the central meridian or the parallel of origin

struct PlanePoint {
    double x, y;  // metres
};

// The intersection of a parallel's circle with a meridian's circle. x has the sign of the meridian's side; y
// has at least the height of the parallel on the central meridian. The centres are (0, F) and (-C, 0), the
// radii E and D. The coefficients are expanded with D^2 - C^2 = A^2, F - E = |y0| and F + E = A^3 / y0^2:
// near the central meridian and the parallel of origin the squares are so large that their differences would
// be off by kilometres. |y0| is A at a pole and below by 1e-8 of it anywhere else, and F + E is A or above by
// twice as much. So T is never positive, w at least |Q|, and there always is an intersection on either side.
PlanePoint MapVdgIntersect(double A, double lambda, double y0, bool isEast, bool isSouth) {
    const double s = 2.0 * Atan2(lambda, PI);
    const double height = std::fabs(y0);
    const double C = A / Tan(s);
    const double E = (A * A * A - height * height * height) / (2.0 * y0 * y0);
    const double F = height + E;
    const double sum = F + E;
    const double A2 = A * A;

    const double P = C * C + F * F;
    const double Q = (F * F + E * E - A2) * C;
    const double T = (A2 - sum * sum) * (A2 - height * height) * 0.25;
    const double w = std::sqrt(Q * Q - 4.0 * P * T);

    const double x = (isEast ? w - Q : -Q - w) / (2.0 * P);
    double y = (height * sum + A2 - 2.0 * x * C) / (2.0 * F);
    if (isSouth) y = -y;
    if (std::fabs(y) < height) y = y0;
    return {x, y};
}

// A position in degrees on the plane of van der Grinten's first projection, on a sphere with the semi-major
// axis as its radius. Parallels and meridians are circles, except for the central meridian and the parallel
// of origin (J. P. Snyder, "Map Projections: A Working Manual", USGS Professional Paper 1395, 1987, section
// 29).
PlanePoint MapVdgPlane(const MapParam& map, const GeodezPayload& at) {
    const auto params = Load<MapVdgParams>(map);
    const double lambda = (at.longitude - params.originLongitude) / DEGREES_PER_RADIAN;
    const double phi = (at.latitude - params.originLatitude) / DEGREES_PER_RADIAN;
    const double A = Datum_SemiMajorAxis(DatumOf(map)) * PI;
    const bool isOnParallel = std::fabs(phi) < ON_THE_LINE;
    const double y0 = isOnParallel ? 0.0 : (PI - std::sqrt(PI_SQUARED - 4.0 * phi * phi)) * A / (2.0 * phi);

    if (std::fabs(lambda) < ON_THE_LINE) return {0.0, y0};
    if (isOnParallel) {
        const double s = 2.0 * Atan2(lambda, PI);
        return {A / Sin(s) - A / Tan(s), 0.0};
    }
    return MapVdgIntersect(A, lambda, y0, params.originLongitude <= at.longitude, phi < 0.0);
}

// Converts a position to degrees on the map's datum and projects it.
bool MapVdgPlaneOf(const MapParam& map, const tagKOORD& record, PlanePoint* point) {
    GeodezPayload at{};
    if (ToDegrees(record, map, &at) != KOORD_OK) return false;
    *point = MapVdgPlane(map, at);
    return true;
}

}  // namespace

KoordStatus MapVdg_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    PlanePoint reference{};
    if (!MapVdgPlaneOf(*map, map->reference.world, &reference)) return KOORD_OK;
    const auto params = Load<MapVdgParams>(*map);
    const double m = MetresPerPixel(*map);
    VdgPayload at{};
    at.originLongitude = params.originLongitude;
    at.originLatitude = params.originLatitude;
    at.x = (x - (map->reference.pixelX - reference.x / m)) * m;
    at.y = ((reference.y / m + map->reference.pixelY) - y) * m;
    *out = MakeKoord(DatumOf(*map), KOORD_VDG);
    Store(*out, at);
    return KOORD_OK;
}

KoordStatus MapVdg_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    PlanePoint reference{};
    PlanePoint at{};
    if (!MapVdgPlaneOf(*map, map->reference.world, &reference)) return KOORD_ERR_OUTSIDE;
    if (!MapVdgPlaneOf(*map, *in, &at)) return KOORD_ERR_OUTSIDE;
    const double m = MetresPerPixel(*map);
    *x = at.x / m + (map->reference.pixelX - reference.x / m);
    *y = (reference.y / m + map->reference.pixelY) - at.y / m;
    return KOORD_OK;
}

// If a step fails, *out keeps the latest result: (0, 0), or the reference.
KoordStatus MapWagnerIV_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const auto params = Load<MapWagnerIvParams>(*map);
    if (ToDegrees(map->reference.world, DATUM_SPHERE, out) != KOORD_OK) return KOORD_OK;
    PlanePoint reference{};
    if (WagnerIV_Forward(out, params.originLongitude, &reference.y, &reference.x) != KOORD_OK) {
        return KOORD_OK;  // GCOVR_EXCL_LINE: the iteration converges for every latitude
    }
    const double m = MetresPerPixel(*map);
    const double X = (x - map->reference.pixelX) * m / params.stretchX + reference.x;
    const double Y = reference.y - (y - map->reference.pixelY) * m / params.stretchY;
    WagnerIV_Inverse(Y, X, params.originLongitude, out);
    return KOORD_OK;
}

KoordStatus MapWagnerIV_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    const auto params = Load<MapWagnerIvParams>(*map);
    tagKOORD geodez;
    PlanePoint at{};
    PlanePoint reference{};
    KoordStatus status = ToDegrees(*in, DATUM_SPHERE, &geodez);
    if (status != KOORD_OK) return status;
    status = WagnerIV_Forward(&geodez, params.originLongitude, &at.y, &at.x);
    if (status != KOORD_OK) return status;
    status = ToDegrees(map->reference.world, DATUM_SPHERE, &geodez);
    if (status != KOORD_OK) return status;
    status = WagnerIV_Forward(&geodez, params.originLongitude, &reference.y, &reference.x);
    if (status != KOORD_OK) return status;

    const double p = PixelsPerMetre(*map);
    *x = map->reference.pixelX + (at.x - reference.x) * p * params.stretchX;
    *y = map->reference.pixelY - (at.y - reference.y) * p * params.stretchY;
    return KOORD_OK;
}

}  // namespace tessara

// Maps on a cylinder whose scale is true on a standard parallel: MERCATOR, conformal on the ellipsoid (J. P.
// Snyder, "Map Projections: A Working Manual", USGS Professional Paper 1395, 1987, section 7), and AZYL,
// which plots distances along the meridian at true scale.
#include <cmath>

#include "maps/kernel/map_parts.h"
#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "numerics/exponential.h"
#include "numerics/logarithm.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

// The ellipsoid of a map and the radius of its standard parallel. For a datum that doesn't exist the values
// are NaN or meaningless, but converting the reference fails before they are used.
struct Cylinder {
    double a, e2, e;
    double radius;  // of the standard parallel, metres
};

double PrimeVertical(double a, double e2, double phi) {
    return a / std::sqrt(1.0 - e2 * Sin(phi) * Sin(phi));
}

Cylinder CylinderOf(const MapParam& map, double standardParallel) {
    const double a = Datum_SemiMajorAxis(DatumOf(map));
    const double e2 = Datum_EccentricitySquared(DatumOf(map));
    const double phi0 = standardParallel / DEGREES_PER_RADIAN;
    return {a, e2, std::sqrt(e2), Cos(phi0) * PrimeVertical(a, e2, phi0)};
}

// A position and the map's reference, in degrees on the map's datum.
struct Places {
    GeodezPayload at, reference;
};

KoordStatus PlacesOf(const MapParam& map, const tagKOORD& in, Places* places) {
    const KoordStatus status = ToDegrees(in, map, &places->at);
    return status == KOORD_OK ? ToDegrees(map.reference.world, map, &places->reference) : status;
}

// MERCATOR.

constexpr double MOST_NORTHERN_ROW = 1.570639247162217;        // radians; 89.991 degrees
constexpr double MOST_NORTHERN_POSITION = 1.5692255304681018;  // radians; 89.91 degrees
constexpr double LATITUDE_TOLERANCE = 1e-9;                    // radians
constexpr int ROUNDS_AT_LIMIT = 20;
// With standard parallels below 59.5 degrees the iteration takes a few hundred steps. Up to 60 degrees each
// step is only a little shorter than the one before; beyond that the iteration may run in a cycle or not
// converge at all.
constexpr int ROUNDS_TO_WANDER = 1000;
constexpr int MOST_ROUNDS = 10000;
constexpr int BISECTIONS = 64;

// The distance from the equator in the plane, in metres on the standard parallel.
double MercatorNorthing(const Cylinder& cylinder, double phi) {
    const double spherical = Tan(phi / 2.0 + QUARTER_PI);
    const double flattened = Tan(0.5 * Asin(cylinder.e * Sin(phi)) + QUARTER_PI);
    return Log(spherical / Pow(flattened, cylinder.e)) * cylinder.radius;
}

double Clamp(double phi) {
    if (phi > MOST_NORTHERN_ROW) return MOST_NORTHERN_ROW;
    if (phi < -MOST_NORTHERN_ROW) return -MOST_NORTHERN_ROW;
    return phi;
}

// Bisects for the latitude where the iteration doesn't converge; the northing increases with the latitude.
double BisectLatitude(const Cylinder& cylinder, double northing) {
    double south = -MOST_NORTHERN_ROW;
    double north = MOST_NORTHERN_ROW;
    for (int i = 0; i < BISECTIONS; ++i) {
        const double middle = (south + north) / 2.0;
        (MercatorNorthing(cylinder, middle) < northing ? south : north) = middle;
    }
    return (south + north) / 2.0;
}

// R. P. Brent, "An improved Monte Carlo factorization algorithm", BIT 20, 1980, detects cycles by comparing
// with a value that is renewed at powers of two.
bool IsPowerOf2(int i) {
    return (i & (i - 1)) == 0;
}

// The latitude in radians that lies `south` metres below the reference in the plane; NaN if there is none.
// Each step overshoots by the ratio between the meridian's radius of curvature and the radius of the
// standard parallel. The iteration converges while that ratio is below 2, for standard parallels up to about
// 60 degrees.
double MercatorLatitude(const Cylinder& cylinder, double reference, double south) {
    const double start = MercatorNorthing(cylinder, reference);
    double phi = reference;
    double northing = start;
    double mark = NAN;  // an earlier latitude; meeting it again reveals a cycle
    double last = 0.0;
    for (int i = 0; i < MOST_ROUNDS; ++i) {
        const double distance = south + (northing - start);
        const double parallel = Cos(phi) * PrimeVertical(cylinder.a, cylinder.e2, phi);
        const double k = cylinder.radius / parallel;
        const double delta = distance / cylinder.radius / k;
        const double step = std::fabs(delta);
        phi = Clamp(phi - delta);
        northing = MercatorNorthing(cylinder, phi);
        if (i > ROUNDS_AT_LIMIT && std::fabs(phi) == MOST_NORTHERN_ROW) return phi;
        if (!(step > LATITUDE_TOLERANCE)) return phi;
        if (i > ROUNDS_TO_WANDER && !(step < last)) break;
        last = step;
        if (i <= ROUNDS_AT_LIMIT) continue;
        if (phi == mark) break;  // a cycle that doesn't contain the limit
        if (IsPowerOf2(i)) mark = phi;
    }
    return BisectLatitude(cylinder, start - south);
}

// The northing of a pole is infinite, so a position there is moved a little towards the equator.
double OffThePole(double phi) {
    if (!(std::fabs(phi) > MOST_NORTHERN_POSITION)) return phi;
    const double reduced = Asin(Sin(phi));
    return std::fabs(reduced) > MOST_NORTHERN_POSITION ? reduced * 0.999 : reduced;
}

}  // namespace

KoordStatus MapMercator_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    GeodezPayload at{};
    if (ToDegrees(map->reference.world, *map, &at) != KOORD_OK) return KOORD_OK;
    const Cylinder cylinder = CylinderOf(*map, Load<MapMercatorParams>(*map).standardParallel);
    const double pixelsPerMetre = PixelsPerMetre(*map);

    at.height = 0.0;
    at.longitude =
        (x - map->reference.pixelX) * DEGREES_PER_RADIAN / pixelsPerMetre / cylinder.radius + at.longitude;
    const double rows = y - map->reference.pixelY;
    if (rows != 0.0) {
        const double phi =
            MercatorLatitude(cylinder, at.latitude / DEGREES_PER_RADIAN, rows / pixelsPerMetre);
        if (std::isnan(phi)) return KOORD_OK;
        at.latitude = DEGREES_PER_RADIAN * phi;
    }
    PutDegrees(*map, at, out);
    return KOORD_OK;
}

KoordStatus MapMercator_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    Places places{};
    const KoordStatus status = PlacesOf(*map, *in, &places);
    if (status != KOORD_OK) return status;
    const auto& [at, reference] = places;
    const Cylinder cylinder = CylinderOf(*map, Load<MapMercatorParams>(*map).standardParallel);
    const double pixelsPerMetre = PixelsPerMetre(*map);
    *x = pixelsPerMetre * cylinder.radius * (at.longitude - reference.longitude) / DEGREES_PER_RADIAN +
         map->reference.pixelX;
    *y = map->reference.pixelY;
    if (at.latitude == reference.latitude) return KOORD_OK;
    const double start = MercatorNorthing(cylinder, reference.latitude / DEGREES_PER_RADIAN);
    const double phi = OffThePole(at.latitude / DEGREES_PER_RADIAN);
    *y += (start - MercatorNorthing(cylinder, phi)) * pixelsPerMetre;
    return KOORD_OK;
}

// If a step fails, *out keeps the latest result: (0, 0), or the end of the geodesic.
KoordStatus MapAzyl_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    *out = MakeKoord(DatumOf(*map), KOORD_GEODEZ);
    tagKOORD reference;
    if (ToDegrees(map->reference.world, DatumOf(*map), &reference) != KOORD_OK) return KOORD_OK;
    const double pixelsPerMetre = PixelsPerMetre(*map);
    const double north = (map->reference.pixelY - y) / pixelsPerMetre;
    if (Geodesic_Direct(&reference, DatumOf(*map), north, 0.0, out) != KOORD_OK) return KOORD_OK;

    const Cylinder cylinder = CylinderOf(*map, Load<MapAzylParams>(*map).standardParallel);
    auto at = Load<GeodezPayload>(*out);
    at.longitude = (x - map->reference.pixelX) / pixelsPerMetre * DEGREES_PER_RADIAN / cylinder.radius +
                   Load<GeodezPayload>(reference).longitude;
    Store(*out, at);
    return KOORD_OK;
}

KoordStatus MapAzyl_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    Places places{};
    KoordStatus status = PlacesOf(*map, *in, &places);
    if (status != KOORD_OK) return status;
    const auto& [at, reference] = places;
    tagKOORD below;
    PutDegrees(*map, {at.latitude, reference.longitude, at.height}, &below);
    double distance = 0.0;
    double azimuth = 0.0;
    double back = 0.0;
    status = Geodesic_Inverse(&map->reference.world, &below, DatumOf(*map), &distance, &azimuth, &back);
    if (status != KOORD_OK) return status;
    if (Cos(azimuth / DEGREES_PER_RADIAN) < 0.0) distance = -distance;

    const Cylinder cylinder = CylinderOf(*map, Load<MapAzylParams>(*map).standardParallel);
    const double pixelsPerMetre = PixelsPerMetre(*map);
    *x = (at.longitude - reference.longitude) / DEGREES_PER_RADIAN * cylinder.radius * pixelsPerMetre +
         map->reference.pixelX;
    *y = -distance * pixelsPerMetre + map->reference.pixelY;
    return KOORD_OK;
}

}  // namespace tessara

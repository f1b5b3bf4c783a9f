#include "tessara/kernel/swiss_grid.h"

#include <cmath>

#include "kernel/numeric.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

constexpr double ORIGIN_LONGITUDE = 7.439583333333333;  // degrees: the old observatory in Bern
constexpr double ORIGIN_LATITUDE = 46.95240555555556;
constexpr double A = 6377397.155;
constexpr double E2 = 0.006674372231802145;
constexpr double SECOND_E2 = 0.006719218799174759;
constexpr double ONE_MINUS_E2 = 0.9933256277681979;

constexpr double FALSE_EASTING = 600000.0;
constexpr double FALSE_NORTHING = 200000.0;
constexpr double LATITUDE_TOLERANCE = 1e-11;  // radians

double LogTan(double lat) {
    return std::log(std::tan(lat / 2.0 + QUARTER_PI));
}

// ln((1 + e sin phi)/(1 - e sin phi)), the ellipsoid's share of the isometric latitude.
double LogRatio(double e, double lat) {
    const double eSin = e * std::sin(lat);
    return std::log((1.0 + eSin) / (1.0 - eSin));
}

// The latitude with an isometric latitude on the ellipsoid, found from a first value. Each step shrinks the
// error by the factor e squared, so the iteration always ends; a NaN ends it at once.
double LatitudeOnEllipsoid(double isometric, double e, double lat) {
    double last;
    do {
        last = lat;
        lat = 2.0 * (std::atan(std::exp((e / 2.0) * LogRatio(e, last) + isometric)) - QUARTER_PI);
    } while (std::fabs(lat - last) >= LATITUDE_TOLERANCE);
    return lat;
}

}  // namespace

void CH_LoadConstants(CHConstants* c) {
    c->degPerRad = 45.0 / std::atan(1.0);
    c->lon0 = ORIGIN_LONGITUDE / c->degPerRad;
    c->lat0 = ORIGIN_LATITUDE / c->degPerRad;
    c->e = std::sqrt(E2);
    c->alpha = std::sqrt(1.0 + SECOND_E2 * std::pow(std::cos(c->lat0), 4.0));

    const double sinLat0 = std::sin(c->lat0);
    const double sinB0 = sinLat0 / c->alpha;
    c->b0 = std::atan(sinB0 / std::sqrt(1.0 - sinB0 * sinB0));
    c->radius = std::sqrt(ONE_MINUS_E2) * A / (1.0 - E2 * sinLat0 * sinLat0);
    c->k = LogTan(c->b0) - c->alpha * LogTan(c->lat0) + (c->alpha * c->e / 2.0) * LogRatio(c->e, c->lat0);
}

KoordStatus CH_FromGeodetic(const double latLon[2], GridPayload* payload) {
    CHConstants c;
    CH_LoadConstants(&c);
    const double lat = latLon[0] / c.degPerRad;
    const double lon = latLon[1] / c.degPerRad;

    // To the sphere.
    const double s = c.alpha * LogTan(lat) + c.k - (c.alpha * c.e / 2.0) * LogRatio(c.e, lat);
    const double b = 2.0 * (std::atan(std::exp(s)) - QUARTER_PI);
    const double l = c.alpha * (lon - c.lon0);

    // Turn the origin onto the equator.
    const double x = std::cos(l) * std::cos(b) * std::cos(c.b0) + std::sin(b) * std::sin(c.b0);
    const double y = std::sin(l) * std::cos(b);
    const double z = std::sin(b) * std::cos(c.b0) - std::cos(l) * std::cos(b) * std::sin(c.b0);
    const double lBar = std::atan(y / x);
    const double bBar = std::atan(z / std::sqrt(x * x + y * y));

    // To the cylinder.
    const double sinBBar = std::sin(bBar);
    payload->easting = c.radius * lBar + FALSE_EASTING;
    payload->northing = (c.radius / 2.0) * std::log((1.0 + sinBBar) / (1.0 - sinBBar)) + FALSE_NORTHING;

    payload->easting = SnapToEither(CH_LIMITS.west, CH_LIMITS.east, payload->easting, LIMIT_TOLERANCE_METRES);
    payload->northing =
        SnapToEither(CH_LIMITS.south, CH_LIMITS.north, payload->northing, LIMIT_TOLERANCE_METRES);
    return KOORD_OK;
}

KoordStatus CH_ToGeodetic(const GridPayload* payload, double latLon[2]) {
    CHConstants c;
    CH_LoadConstants(&c);

    // Off the cylinder.
    const double exponential = std::exp(2.0 * (payload->northing - FALSE_NORTHING) / c.radius);
    const double sinBBar = (exponential - 1.0) / (exponential + 1.0);
    const double bBar = std::atan(sinBBar / std::sqrt(1.0 - sinBBar * sinBBar));
    const double lBar = (payload->easting - FALSE_EASTING) / c.radius;

    // Turn the origin back to its place.
    const double x = std::cos(lBar) * std::cos(bBar) * std::cos(c.b0) - std::sin(c.b0) * std::sin(bBar);
    const double y = std::sin(lBar) * std::cos(bBar);
    const double z = std::cos(c.b0) * std::sin(bBar) + std::cos(lBar) * std::cos(bBar) * std::sin(c.b0);
    const double l = std::atan(y / x);
    const double b = std::atan(z / std::sqrt(x * x + y * y));

    // To the ellipsoid.
    const double isometric = (LogTan(b) - c.k) / c.alpha;
    latLon[0] = LatitudeOnEllipsoid(isometric, c.e, b) * c.degPerRad;
    latLon[1] = (l / c.alpha + c.lon0) * c.degPerRad;
    return KOORD_OK;
}

}  // namespace tessara

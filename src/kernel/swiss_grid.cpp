#include "tessara/kernel/swiss_grid.h"

#include <cmath>

#include "kernel/compile_time_math.h"
#include "kernel/conformal_latitude.h"
#include "kernel/direction.h"
#include "kernel/ellipsoids.h"
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

// What CH_LoadConstants computes, as far as the projection needs it, at compile time.
struct Sphere {
    double lon0;          // radians
    double alpha, k;      // exponent and constant of the conformal map onto the sphere
    double sinB0, cosB0;  // of the origin's latitude on the sphere
    double radius;        // metres
};

consteval Sphere ComputeSphere() {
    namespace ct = compile_time;
    const long double e = ct::Sqrt(E2);
    const long double sinLat0 = ct::Sine(ORIGIN_LATITUDE / DEGREES_PER_RADIAN);
    const long double cos2 = 1.0L - sinLat0 * sinLat0;
    const long double alpha = ct::Sqrt(1.0L + SECOND_E2 * cos2 * cos2);
    const long double sinB0 = sinLat0 / alpha;
    const long double k = ct::Atanh(sinB0) - alpha * (ct::Atanh(sinLat0) - e * ct::Atanh(e * sinLat0));
    return {ORIGIN_LONGITUDE / DEGREES_PER_RADIAN,
            static_cast<double>(alpha),
            static_cast<double>(k),
            static_cast<double>(sinB0),
            static_cast<double>(ct::Sqrt(1.0L - sinB0 * sinB0)),
            static_cast<double>(ct::Sqrt(ONE_MINUS_E2) * A / (1.0L - E2 * sinLat0 * sinLat0))};
}

constexpr Sphere SPHERE_OF_BERN = ComputeSphere();

// tanh and 1/cosh of a northing in radii. The exponential overflows where nothing is left of the map.
Direction OffCylinder(double northing) {
    if (IsSmall(northing * northing)) {
        const double sinh = SinhOfSmall(northing);
        const double cosine = 1.0 / std::sqrt(1.0 + sinh * sinh);
        return {sinh * cosine, cosine};
    }
    const double exponential = std::exp(2.0 * northing);
    const double sine = (exponential - 1.0) / (exponential + 1.0);
    return {sine, std::sqrt(1.0 - sine * sine)};
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
    const Sphere& c = SPHERE_OF_BERN;

    // To the sphere.
    const Direction phi = DirectionOf(latLon[0] / DEGREES_PER_RADIAN);
    const double psi = SphericalIsometricLatitude(phi) - EllipsoidShare(phi.sine, E2);
    const Direction b = DirectionOfExponential(std::exp(c.alpha * psi + c.k));
    const Direction l = DirectionOfSmall(c.alpha * (latLon[1] / DEGREES_PER_RADIAN - c.lon0));

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
    const Sphere& c = SPHERE_OF_BERN;

    // Off the cylinder.
    const Direction bBar = OffCylinder((payload->northing - FALSE_NORTHING) / c.radius);
    const Direction lBar = DirectionOfSmall((payload->easting - FALSE_EASTING) / c.radius);

    // Turn the origin back to its place.
    const double x = lBar.cosine * bBar.cosine * c.cosB0 - c.sinB0 * bBar.sine;
    const double y = lBar.sine * bBar.cosine;
    const double z = c.cosB0 * bBar.sine + lBar.cosine * bBar.cosine * c.sinB0;
    const double l = AtanOfSmall(y / x);
    const Direction b{z, std::sqrt(x * x + y * y)};

    // To the ellipsoid: the limit of the iteration from b, and what it stops short by.
    const double t = std::exp((SphericalIsometricLatitude(b) - c.k) / c.alpha);
    const Direction twice = Doubled(DirectionOfExponential(t));
    const double step = LatitudeStep(LATITUDE_SERIES[ELLIPSOID_BESSEL], twice);
    const double lat = 2.0 * (std::atan(t) - QUARTER_PI) + step;
    const double start = std::atan(b.sine / b.cosine) - lat;
    const double rest = RestOfIteration(start, step, twice, E2, LATITUDE_TOLERANCE);
    latLon[0] = (lat + rest) * DEGREES_PER_RADIAN;
    latLon[1] = (l / c.alpha + c.lon0) * DEGREES_PER_RADIAN;
    return KOORD_OK;
}

}  // namespace tessara

#include "tessara/kernel/dutch_grid.h"

#include <cmath>

#include "kernel/numeric.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/projection_math.h"

namespace tessara {
namespace {

constexpr double ORIGIN_LATITUDE = 52.1561605556;  // degrees: Amersfoort
constexpr double ORIGIN_LONGITUDE = 5.3876388889;
constexpr double FALSE_EASTING = 155000.0;
constexpr double FALSE_NORTHING = 463000.0;
constexpr double SCALE = 0.99990790084;

constexpr double ON_AXIS = 0.001;             // metres
constexpr double AT_ANTIPODE = 0.0001;        // of the stereographic denominator, which is 2 at the origin
constexpr double LATITUDE_TOLERANCE = 1e-14;  // radians
// Each step gains two digits or more. Only a latitude that flickers in its last bit gets this far.
constexpr int MAX_ITERATIONS = 50;

// The Gaussian sphere of an ellipsoid at the origin.
struct GaussSphere {
    double e;       // eccentricity of the ellipsoid
    double n, m;    // exponent and factor of the conformal map onto the sphere
    double b0;      // latitude of the origin on the sphere, radians
    double radius;  // metres
};

GaussSphere LoadSphere(std::int32_t datum) {
    const double a = Datum_SemiMajorAxis(datum);
    const double e2 = Datum_EccentricitySquared(datum);
    const double phi0 = ORIGIN_LATITUDE * RADIANS_PER_DEGREE;
    const double cosPhi0 = std::cos(phi0);
    const double c2 = cosPhi0 * cosPhi0;
    const double w = e2 / (1.0 - e2) * c2;

    GaussSphere sphere;
    sphere.e = std::sqrt(e2);
    sphere.b0 = std::atan(std::tan(phi0) / std::sqrt(1.0 + w));
    sphere.n = std::sqrt(w * c2 + 1.0);
    sphere.m = std::exp(sphere.n * IsometricLatitude(sphere.e, phi0)) / std::exp(Atanh(std::sin(sphere.b0)));
    sphere.radius = RD_MeanRadius(phi0, a, e2);
    return sphere;
}

// Bearing of a point from the origin, radians clockwise from grid north.
double Bearing(double x, double y) {
    if (IsWithin(x, -ON_AXIS, ON_AXIS)) return y <= 0.0 ? PI : 0.0;
    const double bearing = HALF_PI - std::atan(y / x);
    return x < 0.0 ? bearing + PI : bearing;
}

}  // namespace

double RD_MeanRadius(double lat, double a, double e2) {
    const double sinLat = std::sin(lat);
    const double w = 1.0 - e2 * sinLat * sinLat;
    const double meridian = (1.0 - e2) * a / std::pow(w, 1.5);
    const double primeVertical = a / std::sqrt(w);
    return std::sqrt(meridian * primeVertical);
}

double RD_GaussLatitude(double lat, double e, double n, double m) {
    const double eSin = e * std::sin(lat);
    const double onSphere = std::exp(n * std::log(std::tan(lat / 2.0 + QUARTER_PI)));
    const double ofEllipsoid = std::exp((n * e / 2.0) * std::log((1.0 - eSin) / (1.0 + eSin)));
    return 2.0 * std::atan(onSphere * ofEllipsoid / m) - HALF_PI;
}

double RD_LatitudeFromGauss(double b, double e, double n, double m) {
    double lat = b;
    double step = 1.0;
    for (int i = 0; i < MAX_ITERATIONS && std::fabs(step) > LATITUDE_TOLERANCE; ++i) {
        step = RD_GaussLatitude(lat, e, n, m) - b;
        lat -= step;
    }
    return lat;
}

void RD_FromGeodetic(const double latLon[2], GridPayload* payload, std::int32_t datum) {
    const GaussSphere sphere = LoadSphere(datum);
    const double sinB0 = std::sin(sphere.b0);
    const double cosB0 = std::cos(sphere.b0);
    const double l = (latLon[1] - ORIGIN_LONGITUDE) * RADIANS_PER_DEGREE * sphere.n;
    const double b = RD_GaussLatitude(latLon[0] * RADIANS_PER_DEGREE, sphere.e, sphere.n, sphere.m);

    const double denominator = 1.0 + sinB0 * std::sin(b) + cosB0 * std::cos(b) * std::cos(l);
    double x = 0.0;
    double y = 0.0;
    if (!IsWithin(denominator, -AT_ANTIPODE, AT_ANTIPODE)) {
        y = (cosB0 * std::sin(b) - sinB0 * std::cos(b) * std::cos(l)) * 2.0 * sphere.radius / denominator;
        x = std::cos(b) * std::sin(l) * 2.0 * sphere.radius / denominator;
    }

    payload->easting = SCALE * x + FALSE_EASTING;
    payload->northing = SCALE * y + FALSE_NORTHING;

    payload->easting = SnapToEither(RD_LIMITS.west, RD_LIMITS.east, payload->easting, LIMIT_TOLERANCE_METRES);
    payload->northing =
        SnapToEither(RD_LIMITS.south, RD_LIMITS.north, payload->northing, LIMIT_TOLERANCE_METRES);
}

void RD_ToGeodetic(const GridPayload* payload, double latLon[2], std::int32_t datum) {
    const GaussSphere sphere = LoadSphere(datum);
    const double x = (payload->easting - FALSE_EASTING) / SCALE;
    const double y = (payload->northing - FALSE_NORTHING) / SCALE;

    double b = sphere.b0;
    double l = 0.0;
    const bool isOrigin = IsWithin(x, -ON_AXIS, ON_AXIS) && IsWithin(y, -ON_AXIS, ON_AXIS);
    if (!isOrigin) {
        const double bearing = Bearing(x, y);
        const double psi = 2.0 * std::atan(std::sqrt(x * x + y * y) / 2.0 / sphere.radius);
        b = std::asin(std::cos(psi) * std::sin(sphere.b0) +
                      std::sin(psi) * std::cos(sphere.b0) * std::cos(bearing));
        l = std::asin(std::sin(psi) * std::sin(bearing) / std::cos(b));
    }

    latLon[0] = RD_LatitudeFromGauss(b, sphere.e, sphere.n, sphere.m) * DEGREES_PER_RADIAN;
    latLon[1] = (ORIGIN_LONGITUDE * RADIANS_PER_DEGREE + l / sphere.n) * DEGREES_PER_RADIAN;
}

}  // namespace tessara

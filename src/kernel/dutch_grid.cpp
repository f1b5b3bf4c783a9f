#include "tessara/kernel/dutch_grid.h"

#include <cmath>

#include "kernel/compile_time_math.h"
#include "kernel/conformal_latitude.h"
#include "kernel/datum_rows.h"
#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

constexpr double ORIGIN_LATITUDE = 52.1561605556;  // degrees: Amersfoort
constexpr double ORIGIN_LONGITUDE = 5.3876388889;
constexpr double FALSE_EASTING = 155000.0;
constexpr double FALSE_NORTHING = 463000.0;
constexpr double SCALE = 0.99990790084;

constexpr double ON_AXIS = 0.001;       // metres
constexpr double AT_ANTIPODE = 0.0001;  // of the stereographic denominator, which is 2 at the origin

constexpr double ORIGIN_PHI = ORIGIN_LATITUDE * RADIANS_PER_DEGREE;

consteval SinCos OriginSinCos() {
    const long double sine = compile_time::Sine(ORIGIN_PHI);
    return {static_cast<double>(sine), static_cast<double>(compile_time::Sqrt(1.0L - sine * sine))};
}

constexpr SinCos ORIGIN = OriginSinCos();

// The direction of a latitude, that of the origin bit by bit as it stands above.
SinCos LatitudeSinCos(double phi) {
    const double away = phi - ORIGIN_PHI;
    return IsSmall(away * away) ? Sum(ORIGIN, SinCosOfSmall(away)) : SinCosOf(phi);
}

// tan(phi/2 + pi/4), the exponential of the isometric latitude on the sphere.
constexpr double ExponentialOf(SinCos phi) {
    return phi.sine < 0.0 ? phi.cosine / (1.0 - phi.sine) : (1.0 + phi.sine) / phi.cosine;
}

constexpr double ORIGIN_EXPONENTIAL = ExponentialOf(ORIGIN);

// The Gaussian sphere of an ellipsoid at the origin.
struct GaussSphere {
    double n, logM;       // exponent and logarithm of the factor of the conformal map onto the sphere
    double share;         // by which the ellipsoid shortens the origin's isometric latitude
    double exponential;   // of the origin on the sphere
    double sinB0, cosB0;  // of the origin's latitude there, bit by bit what the exponential gives
    double radius;        // metres
};

consteval GaussSphere ComputeSphere(const EllipsoidFigure& figure) {
    namespace ct = compile_time;
    const long double e2 = figure.EccentricitySquared();
    const long double e = ct::Sqrt(e2);
    const long double sinPhi0 = ct::Sine(ORIGIN_LATITUDE * RADIANS_PER_DEGREE);
    const long double cos2 = 1.0L - sinPhi0 * sinPhi0;
    const long double w = e2 / (1.0L - e2) * cos2;
    const long double n = ct::Sqrt(w * cos2 + 1.0L);
    // tan b0 = tan phi0 / sqrt(1 + w)
    const long double scale = ct::Sqrt(sinPhi0 * sinPhi0 + cos2 * (1.0L + w));
    const long double sinB0 = sinPhi0 / scale;
    const long double psi0 = ct::Atanh(sinPhi0) - e * ct::Atanh(e * sinPhi0);
    const long double cosB0 = ct::Sqrt(cos2 * (1.0L + w)) / scale;
    const auto exponential = static_cast<double>((1.0L + sinB0) / cosB0);
    const SinCos b0 = SinCosOfExponential(exponential);
    return {static_cast<double>(n),
            static_cast<double>(n * psi0 - ct::Atanh(sinB0)),
            EllipsoidShare(ORIGIN.sine, figure.EccentricitySquared()),
            exponential,
            b0.sine,
            b0.cosine,
            static_cast<double>(figure.a * ct::Sqrt(1.0L - e2) / (1.0L - e2 * sinPhi0 * sinPhi0))};
}

constexpr auto SPHERES = ForEachEllipsoid<GaussSphere>(ComputeSphere);

// Sine and cosine of the bearing of a point from the origin, clockwise from grid north.
SinCos BearingOf(double x, double y) {
    if (IsWithin(x, -ON_AXIS, ON_AXIS)) return {0.0, y <= 0.0 ? -1.0 : 1.0};
    const double distance = std::sqrt(x * x + y * y);
    if (!std::isfinite(distance)) return SinCosOf(HALF_PI - std::atan(y / x) + (x < 0.0 ? PI : 0.0));
    return {x / distance, y / distance};
}

void SetToNaN(double* one, double* other) {
    *one = std::nan("");
    *other = std::nan("");
}

}  // namespace

void RD_FromGeodetic(const double latLon[2], GridPayload* payload, std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    if (!row) return SetToNaN(&payload->easting, &payload->northing);
    const GaussSphere& sphere = SPHERES[row->ellipsoid];
    const SinCos l = SinCosOfSmall((latLon[1] - ORIGIN_LONGITUDE) * RADIANS_PER_DEGREE * sphere.n);

    // The latitude on the sphere by its isometric distance from the origin's. At the origin that is 0 to the
    // last bit, and so are x and y.
    const SinCos phi = LatitudeSinCos(latLon[0] * RADIANS_PER_DEGREE);
    const double share = EllipsoidShare(phi.sine, row->e2) - sphere.share;
    const double distance = sphere.n * (std::log(ExponentialOf(phi) / ORIGIN_EXPONENTIAL) - share);
    const SinCos b = SinCosOfExponential(sphere.exponential * std::exp(distance));

    const double denominator = 1.0 + sphere.sinB0 * b.sine + sphere.cosB0 * b.cosine * l.cosine;
    double x = 0.0;
    double y = 0.0;
    if (!IsWithin(denominator, -AT_ANTIPODE, AT_ANTIPODE)) {
        const double scale = 2.0 * sphere.radius / denominator;
        y = (sphere.cosB0 * b.sine - sphere.sinB0 * b.cosine * l.cosine) * scale;
        x = b.cosine * l.sine * scale;
    }

    payload->easting = SCALE * x + FALSE_EASTING;
    payload->northing = SCALE * y + FALSE_NORTHING;

    payload->easting = SnapToEither(RD_LIMITS.west, RD_LIMITS.east, payload->easting, LIMIT_TOLERANCE_METRES);
    payload->northing =
        SnapToEither(RD_LIMITS.south, RD_LIMITS.north, payload->northing, LIMIT_TOLERANCE_METRES);
}

void RD_ToGeodetic(const GridPayload* payload, double latLon[2], std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    if (!row) return SetToNaN(&latLon[0], &latLon[1]);
    const GaussSphere& sphere = SPHERES[row->ellipsoid];
    const double x = (payload->easting - FALSE_EASTING) / SCALE;
    const double y = (payload->northing - FALSE_NORTHING) / SCALE;

    SinCos b{sphere.sinB0, sphere.cosB0};
    double l = 0.0;
    const bool isOrigin = IsWithin(x, -ON_AXIS, ON_AXIS) && IsWithin(y, -ON_AXIS, ON_AXIS);
    if (!isOrigin) {
        const SinCos bearing = BearingOf(x, y);
        const SinCos psi = DoubledOfTangent(std::sqrt(x * x + y * y) / 2.0 / sphere.radius);
        b.sine = psi.cosine * sphere.sinB0 + psi.sine * sphere.cosB0 * bearing.cosine;
        b.cosine = std::sqrt((1.0 - b.sine) * (1.0 + b.sine));
        l = std::asin(psi.sine * bearing.sine / b.cosine);
    }

    // Where the iteration of RD_LatitudeFromGauss ends, in closed form.
    const double t = std::exp((SphericalIsometricLatitude(b) + sphere.logM) / sphere.n);
    const double chi = 2.0 * std::atan(t) - HALF_PI;
    const double step = LatitudeStep(LATITUDE_SERIES[row->ellipsoid], Doubled(SinCosOfExponential(t)));
    latLon[0] = (chi + step) * DEGREES_PER_RADIAN;
    latLon[1] = (ORIGIN_LONGITUDE * RADIANS_PER_DEGREE + l / sphere.n) * DEGREES_PER_RADIAN;
}

KoordStatus RD_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    const DatumRow* row = RowOf(static_cast<std::int32_t>(record.datum));
    if (!row) return KOORD_ERR_DATUM;
    const GaussSphere& sphere = SPHERES[row->ellipsoid];
    const SinCos phi = SinCosOf(latLon[0] * RADIANS_PER_DEGREE);
    const double psi = SphericalIsometricLatitude(phi) - EllipsoidShare(phi.sine, row->e2);
    const SinCos b = SinCosOfExponential(std::exp(sphere.n * psi - sphere.logM));
    const double l = (latLon[1] - ORIGIN_LONGITUDE) * RADIANS_PER_DEGREE * sphere.n;

    const double latitude = std::atan2(b.sine, b.cosine);
    const double origin = std::atan2(sphere.sinB0, sphere.cosB0);
    factors->convergence = 2.0 *
                           std::atan2(std::sin(l / 2.0) * std::sin((latitude + origin) / 2.0),
                                      std::cos(l / 2.0) * std::cos((latitude - origin) / 2.0)) *
                           DEGREES_PER_RADIAN;
    const double normal = row->a / std::sqrt(1.0 - row->e2 * phi.sine * phi.sine);
    const double onSphere = sphere.n * sphere.radius * b.cosine / (normal * phi.cosine);
    factors->scale =
        SCALE * onSphere * 2.0 / (1.0 + sphere.sinB0 * b.sine + sphere.cosB0 * b.cosine * std::cos(l));
    return KOORD_OK;
}

}  // namespace tessara

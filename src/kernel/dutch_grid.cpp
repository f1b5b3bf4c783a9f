#include "tessara/kernel/dutch_grid.h"

#include <cmath>

#include "kernel/compile_time_math.h"
#include "kernel/conformal_latitude.h"
#include "kernel/datum_rows.h"
#include "kernel/gauss_sphere.h"
#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "numerics/called.h"
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

// The sphere of an ellipsoid at the origin.
struct Sphere {
    GaussSphere gauss;
    double radius;  // metres
};

consteval Sphere ComputeSphere(const EllipsoidFigure& figure) {
    namespace ct = compile_time;
    const ct::Wide one = 1.0;
    const ct::Wide e2 = figure.EccentricitySquared();
    const ct::Wide sinPhi0 = ct::Sine(ORIGIN_PHI);
    const ct::Wide cos2 = one - sinPhi0 * sinPhi0;
    const ct::Wide w = e2 / (one - e2) * cos2;
    const ct::Wide n = ct::Sqrt(w * cos2 + one);
    // tan b0 = tan phi0 / sqrt(1 + w)
    const ct::Wide sinB0 = sinPhi0 / ct::Sqrt(sinPhi0 * sinPhi0 + cos2 * (one + w));
    return {gauss::Compute(ORIGIN_PHI, e2, n, sinB0),
            static_cast<double>(figure.a * ct::Sqrt(one - e2) / (one - e2 * sinPhi0 * sinPhi0))};
}

constexpr auto SPHERES = ForEachEllipsoid<Sphere>(ComputeSphere);

// Sine and cosine of the bearing of a point from the origin, clockwise from grid north.
SinCos BearingOf(double x, double y) {
    if (IsWithin(x, -ON_AXIS, ON_AXIS)) return {0.0, y <= 0.0 ? -1.0 : 1.0};
    const double distance = std::sqrt(x * x + y * y);
    if (!std::isfinite(distance))
        return called::SinCosOf(HALF_PI - called::Atan(y / x) + (x < 0.0 ? PI : 0.0));
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
    const auto& [gauss, radius] = SPHERES[row->ellipsoid];
    const SinCos l = SinCosOfSmall((latLon[1] - ORIGIN_LONGITUDE) * RADIANS_PER_DEGREE * gauss.exponent);
    const SinCos b = OntoSphere(latLon[0] * RADIANS_PER_DEGREE, gauss, row->e2);
    const auto [sinB0, cosB0] = gauss.onSphere.direction;

    // At the origin both differences are 0 to the last bit.
    const double denominator = 1.0 + sinB0 * b.sine + cosB0 * b.cosine * l.cosine;
    double x = 0.0;
    double y = 0.0;
    if (!IsWithin(denominator, -AT_ANTIPODE, AT_ANTIPODE)) {
        const double scale = 2.0 * radius / denominator;
        y = (cosB0 * b.sine - sinB0 * b.cosine * l.cosine) * scale;
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
    const auto& [gauss, radius] = SPHERES[row->ellipsoid];
    const auto [sinB0, cosB0] = gauss.onSphere.direction;
    const double x = (payload->easting - FALSE_EASTING) / SCALE;
    const double y = (payload->northing - FALSE_NORTHING) / SCALE;

    SinCos b{sinB0, cosB0};
    double l = 0.0;
    const bool isOrigin = IsWithin(x, -ON_AXIS, ON_AXIS) && IsWithin(y, -ON_AXIS, ON_AXIS);
    if (!isOrigin) {
        const SinCos bearing = BearingOf(x, y);
        const SinCos psi = DoubledOfTangent(std::sqrt(x * x + y * y) / 2.0 / radius);
        b.sine = psi.cosine * sinB0 + psi.sine * cosB0 * bearing.cosine;
        b.cosine = std::sqrt((1.0 - b.sine) * (1.0 + b.sine));
        l = AsinOfSmall(psi.sine * bearing.sine / b.cosine);
    }

    // Where the iteration of RD_LatitudeFromGauss ends, in closed form.
    const auto [chi, direction] = OffSphere(b, gauss);
    const double step = LatitudeStep(LATITUDE_SERIES[row->ellipsoid], Doubled(direction));
    latLon[0] = (chi + step) * DEGREES_PER_RADIAN;
    latLon[1] = (ORIGIN_LONGITUDE * RADIANS_PER_DEGREE + l / gauss.exponent) * DEGREES_PER_RADIAN;
}

KoordStatus RD_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    const DatumRow* row = RowOf(static_cast<std::int32_t>(record.datum));
    if (!row) return KOORD_ERR_DATUM;
    const auto& [gauss, radius] = SPHERES[row->ellipsoid];
    const auto& [origin, direction] = gauss.onSphere;
    const SinCos phi = SinCosOf(latLon[0] * RADIANS_PER_DEGREE);
    const SinCos b = OntoSphere(latLon[0] * RADIANS_PER_DEGREE, gauss, row->e2);
    const double l = (latLon[1] - ORIGIN_LONGITUDE) * RADIANS_PER_DEGREE * gauss.exponent;

    const double latitude = Atan2(b.sine, b.cosine);
    factors->convergence =
        2.0 *
        Atan2(Sin(l / 2.0) * Sin((latitude + origin) / 2.0), Cos(l / 2.0) * Cos((latitude - origin) / 2.0)) *
        DEGREES_PER_RADIAN;
    const double normal = row->a / std::sqrt(1.0 - row->e2 * phi.sine * phi.sine);
    const double onSphere = gauss.exponent * radius * b.cosine / (normal * phi.cosine);
    factors->scale =
        SCALE * onSphere * 2.0 / (1.0 + direction.sine * b.sine + direction.cosine * b.cosine * Cos(l));
    return KOORD_OK;
}

}  // namespace tessara

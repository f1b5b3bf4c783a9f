#include "tessara/kernel/ecef.h"

#include <cmath>

#include "kernel/datum_rows.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

constexpr int LATITUDE_ITERATIONS = 100;
constexpr double LATITUDE_TOLERANCE = 1.7453292519943295e-8;  // radians, a millionth of a degree

// Radius of curvature in the prime vertical.
double NormalRadius(const DatumRow& row, double sinLat) {
    return row.a / std::sqrt(1.0 - row.e2 * sinLat * sinLat);
}

double LongitudeOf(double x, double y) {
    const double lon = std::atan(y / x);
    if (!(x < 0.0)) return lon;
    return y < 0.0 ? lon - PI : lon + PI;
}

SinCos SinCosOfTangent(double tangent) {
    constexpr double squareOverflows = 1e150;
    if (!(std::fabs(tangent) < squareOverflows)) return SinCosOf(std::atan(tangent));
    const double cosine = 1.0 / std::sqrt(1.0 + tangent * tangent);
    return {tangent * cosine, cosine};
}

struct Latitude {
    double angle;
    SinCos direction;
};

// `p` is the distance from the axis. Only a step above the tolerance goes on: a negative one ends the
// iteration too.
Latitude LatitudeOf(double p, double z, const DatumRow& row) {
    const double tangent = z / ((1.0 - row.e2) * p);
    Latitude lat{std::atan(tangent), SinCosOfTangent(tangent)};
    double step = 0.0;
    int count = 0;
    do {
        const auto [s, c] = lat.direction;
        const double N = NormalRadius(row, s);
        const double nByA = N / row.a;
        step = (s / c - (N * row.e2 * s + z) / p) / (1.0 / (c * c) - N / p * (nByA * nByA) * row.e2 * c);
        lat.angle -= step;
        lat.direction = Difference(lat.direction, SinCosOfSmall(step));
    } while (step > LATITUDE_TOLERANCE && ++count < LATITUDE_ITERATIONS);
    return lat;
}

}  // namespace

KoordStatus ECEF_FromGeodetic(const tagKOORD* work, tagKOORD* target) {
    const DatumRow* row = RowOf(static_cast<std::int32_t>(target->datum));
    if (!row) return KOORD_ERR_DATUM;
    const auto position = Load<GeodezPayload>(*work);
    const double lat = position.latitude * RADIANS_PER_DEGREE;
    const double lon = position.longitude * RADIANS_PER_DEGREE;
    const SinCos phi = SinCosOf(lat);
    const SinCos lambda = SinCosOf(lon);
    const double N = NormalRadius(*row, phi.sine);
    EcefPayload ecef{};
    ecef.x = N * phi.cosine * lambda.cosine;
    ecef.y = N * phi.cosine * lambda.sine;
    ecef.z = (1.0 - row->e2) * N * phi.sine;
    Store(*target, ecef);
    return KOORD_OK;
}

KoordStatus ECEF_ToGeodetic(const tagKOORD* source, tagKOORD* work) {
    const DatumRow* row = RowOf(static_cast<std::int32_t>(source->datum));
    if (!row) return KOORD_ERR_DATUM;
    const auto [x, y, z] = Load<EcefPayload>(*source);
    const double p = std::sqrt(x * x + y * y);
    double lat = 0.0;
    double height = 0.0;
    if (p == 0.0) {
        const double b = (1.0 / row->f - 1.0) * row->a * row->f;
        lat = z < 0.0 ? -HALF_PI : HALF_PI;
        height = z - b;
    } else {
        const Latitude found = LatitudeOf(p, z, *row);
        lat = found.angle;
        height = p / found.direction.cosine - NormalRadius(*row, found.direction.sine);
    }
    Store(*work, GeodezPayload{lat * DEGREES_PER_RADIAN, LongitudeOf(x, y) * DEGREES_PER_RADIAN, height});
    return KOORD_OK;
}

}  // namespace tessara

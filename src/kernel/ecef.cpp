#include "tessara/kernel/ecef.h"

#include <cmath>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

constexpr int LATITUDE_ITERATIONS = 100;
constexpr double LATITUDE_TOLERANCE = 1.7453292519943295e-8;  // radians, a millionth of a degree

// Radius of curvature in the prime vertical.
double NormalRadius(const DatumRow& row, double lat) {
    const double sinLat = std::sin(lat);
    return row.a / std::sqrt(1.0 - row.e2 * sinLat * sinLat);
}

double LongitudeOf(double x, double y) {
    const double lon = std::atan(y / x);
    if (!(x < 0.0)) return lon;
    return y < 0.0 ? lon - PI : lon + PI;
}

// `p` is the distance from the axis. Only a step above the tolerance goes on: a negative one ends the
// iteration too.
double LatitudeOf(double p, double z, const DatumRow& row) {
    double lat = std::atan(z / ((1.0 - row.e2) * p));
    double N = NormalRadius(row, lat);
    double step = 0.0;
    int count = 0;
    do {
        const double sinLat = std::sin(lat);
        const double cosLat = std::cos(lat);
        const double nByA = N / row.a;
        step = (std::tan(lat) - (N * row.e2 * sinLat + z) / p) /
               (1.0 / (cosLat * cosLat) - N / p * (nByA * nByA) * row.e2 * cosLat);
        lat -= step;
        N = NormalRadius(row, lat);
    } while (step > LATITUDE_TOLERANCE && ++count < LATITUDE_ITERATIONS);
    return lat;
}

}  // namespace

KoordStatus ECEF_FromGeodetic(const tagKOORD* work, tagKOORD* target) {
    const DatumRow* row = Datum_Row(static_cast<std::int32_t>(target->datum));
    if (!row) return KOORD_ERR_DATUM;
    const auto position = Load<GeodezPayload>(*work);
    const double lat = position.latitude * RADIANS_PER_DEGREE;
    const double lon = position.longitude * RADIANS_PER_DEGREE;
    const double N = NormalRadius(*row, lat);
    EcefPayload ecef{};
    ecef.x = N * std::cos(lat) * std::cos(lon);
    ecef.y = N * std::cos(lat) * std::sin(lon);
    ecef.z = (1.0 - row->e2) * N * std::sin(lat);
    Store(*target, ecef);
    return KOORD_OK;
}

KoordStatus ECEF_ToGeodetic(const tagKOORD* source, tagKOORD* work) {
    const DatumRow* row = Datum_Row(static_cast<std::int32_t>(source->datum));
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
        lat = LatitudeOf(p, z, *row);
        height = p / std::cos(lat) - NormalRadius(*row, lat);
    }
    Store(*work, GeodezPayload{lat * DEGREES_PER_RADIAN, LongitudeOf(x, y) * DEGREES_PER_RADIAN, height});
    return KOORD_OK;
}

}  // namespace tessara

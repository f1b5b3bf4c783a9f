#include "tessara/kernel/ecef.h"

#include <cmath>

#include "kernel/datum_rows.h"
#include "kernel/ecef_formulas.h"
#include "kernel/payload_in.h"
#include "numerics/arcs.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

using ecef::Latitude;

constexpr int GEODETIC_ITERATIONS = 100;

Latitude FirstLatitude(double tangent) {
    constexpr double squareOverflows = 1e150;
    if (std::fabs(tangent) < squareOverflows) return ecef::LatitudeOf(tangent);
    const double angle = Atan(tangent);
    return {angle, SinCosOf(angle)};
}

// Only a step above the tolerance goes on: a negative one ends the iteration too.
Latitude LatitudeOf(double p, double z, const ecef::Figure& figure) {
    Latitude lat = FirstLatitude(ecef::FirstTangent(figure, p, z));
    double step = 0.0;
    int count = 0;
    do {
        step = ecef::StepFrom(lat, figure, p, z);
        lat.angle -= step;
        lat.direction = Difference(lat.direction, SinCosOfSmall(step));
    } while (step > ecef::LATITUDE_TOLERANCE && ++count < GEODETIC_ITERATIONS);
    return lat;
}

}  // namespace

void ecef::Write(double latitude, double longitude, const DatumRow& row, tagKOORD* target) {
    *PayloadIn<EcefPayload>(target) = PointOf({row.a, row.e2}, SinCosOf(latitude * RADIANS_PER_DEGREE),
                                              SinCosOf(longitude * RADIANS_PER_DEGREE));
}

KoordStatus ECEF_FromGeodetic(const tagKOORD* work, tagKOORD* target) {
    const DatumRow* row = RowOf(static_cast<std::int32_t>(target->datum));
    if (!row) return KOORD_ERR_DATUM;
    const auto position = Load<GeodezPayload>(*work);
    ecef::Write(position.latitude, position.longitude, *row, target);
    return KOORD_OK;
}

KoordStatus ECEF_ToGeodetic(const tagKOORD* source, tagKOORD* work) {
    const DatumRow* row = RowOf(static_cast<std::int32_t>(source->datum));
    if (!row) return KOORD_ERR_DATUM;
    const ecef::Figure figure{row->a, row->e2};
    const auto [x, y, z] = Load<EcefPayload>(*source);
    const double p = std::sqrt(x * x + y * y);
    double lat = 0.0;
    double height = 0.0;
    if (p == 0.0) {
        const double b = (1.0 / row->f - 1.0) * row->a * row->f;
        lat = z < 0.0 ? -HALF_PI : HALF_PI;
        height = z - b;
    } else {
        const Latitude found = LatitudeOf(p, z, figure);
        lat = found.angle;
        height = ecef::HeightOf(found, figure, p);
    }
    Store(*work,
          GeodezPayload{lat * DEGREES_PER_RADIAN, ecef::LongitudeOf(x, y) * DEGREES_PER_RADIAN, height});
    return KOORD_OK;
}

}  // namespace tessara

#include "tessara/kernel/dutch_grid.h"

#include <cmath>

#include "kernel/datum_rows.h"
#include "kernel/dutch_formulas.h"
#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "numerics/arcs.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

void SetToNaN(double* one, double* other) {
    *one = std::nan("");
    *other = std::nan("");
}

}  // namespace

void RD_FromGeodetic(const double latLon[2], GridPayload* payload, std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    if (!row) return SetToNaN(&payload->easting, &payload->northing);
    const dutch::Sphere& sphere = dutch::SPHERES[row->ellipsoid];
    dutch::GridPoint point = dutch::Forward<Reach::Near>(latLon[0], latLon[1], sphere, row->e2);
    if (!point.isNear) point = dutch::Forward<Reach::Everywhere>(latLon[0], latLon[1], sphere, row->e2);
    payload->easting = SnapToEither(RD_LIMITS.west, RD_LIMITS.east, point.easting, LIMIT_TOLERANCE_METRES);
    payload->northing =
        SnapToEither(RD_LIMITS.south, RD_LIMITS.north, point.northing, LIMIT_TOLERANCE_METRES);
}

void RD_ToGeodetic(const GridPayload* payload, double latLon[2], std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    if (!row) return SetToNaN(&latLon[0], &latLon[1]);
    const dutch::Sphere& sphere = dutch::SPHERES[row->ellipsoid];
    const LatitudeSeries& series = LATITUDE_SERIES[row->ellipsoid];
    dutch::Position position =
        dutch::Inverse<Reach::Near>(payload->easting, payload->northing, sphere, series);
    if (!position.isNear)
        position = dutch::Inverse<Reach::Everywhere>(payload->easting, payload->northing, sphere, series);
    latLon[0] = position.latitude;
    latLon[1] = position.longitude;
}

KoordStatus RD_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    const DatumRow* row = RowOf(static_cast<std::int32_t>(record.datum));
    if (!row) return KOORD_ERR_DATUM;
    const auto& [gauss, radius] = dutch::SPHERES[row->ellipsoid];
    const auto& [origin, direction] = gauss.onSphere;
    const SinCos phi = SinCosOf(latLon[0] * RADIANS_PER_DEGREE);
    bool isNear = true;
    const SinCos b = OntoSphere<Reach::Everywhere>(latLon[0] * RADIANS_PER_DEGREE, gauss, row->e2, &isNear);
    const double l = (latLon[1] - dutch::ORIGIN_LONGITUDE) * RADIANS_PER_DEGREE * gauss.exponent;

    const double latitude = Atan2(b.sine, b.cosine);
    factors->convergence =
        2.0 *
        Atan2(Sin(l / 2.0) * Sin((latitude + origin) / 2.0), Cos(l / 2.0) * Cos((latitude - origin) / 2.0)) *
        DEGREES_PER_RADIAN;
    const double normal = row->a / std::sqrt(1.0 - row->e2 * phi.sine * phi.sine);
    const double onSphere = gauss.exponent * radius * b.cosine / (normal * phi.cosine);
    factors->scale = dutch::SCALE * onSphere * 2.0 /
                     (1.0 + direction.sine * b.sine + direction.cosine * b.cosine * Cos(l));
    return KOORD_OK;
}

}  // namespace tessara

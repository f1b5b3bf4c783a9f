#include "tessara/kernel/fixed_grids.h"

#include "kernel/datum_rows.h"
#include "kernel/numeric.h"
#include "kernel/transverse_mercator_constants.h"
#include "kernel/transverse_mercator_series.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

struct FixedGrid {
    TmParams projection;
    OriginNorthings originNorthings;
    Limits limits;
};

constexpr double PO_MILITARY_LATITUDE = 39.6682583333;
constexpr double LUREF_LATITUDE = 49.8333333333;

constexpr FixedGrid PO_MILITARY{{-8.1331086111, PO_MILITARY_LATITUDE, 200000.0, 300000.0, 1.0},
                                ComputeOriginNorthings(PO_MILITARY_LATITUDE),
                                PO_MILITARY_LIMITS};
constexpr FixedGrid LUREF{{6.16666666667, LUREF_LATITUDE, 80000.0, 100000.0, 1.0},
                          ComputeOriginNorthings(LUREF_LATITUDE),
                          LUREF_LIMITS};

KoordStatus FromGeodetic(const FixedGrid& grid, const double latLon[2], GridPayload* payload,
                         const TmConstants* forward) {
    const DatumRow* datum = RowOf(forward->datum);
    if (!datum) return KOORD_ERR_DATUM;
    double easting;
    double northing;
    TmForwardFromOrigin(latLon, grid.projection, grid.originNorthings[datum->ellipsoid], &easting, &northing,
                        *forward);
    const Limits& limits = grid.limits;
    payload->easting = SnapToEither(limits.west, limits.east, easting, LIMIT_TOLERANCE_METRES);
    payload->northing = SnapToEither(limits.south, limits.north, northing, LIMIT_TOLERANCE_METRES);
    return KOORD_OK;
}

KoordStatus ToGeodetic(const FixedGrid& grid, const GridPayload* payload, double latLon[2],
                       const TmConstants* inverse) {
    const DatumRow* datum = RowOf(inverse->datum);
    if (!datum) return KOORD_ERR_DATUM;
    TmInverseFromOrigin(payload->easting, payload->northing, grid.projection,
                        grid.originNorthings[datum->ellipsoid], latLon, *inverse);
    return KOORD_OK;
}

}  // namespace

KoordStatus POMilitary_FromGeodetic(const double latLon[2], GridPayload* payload,
                                    const TmConstants* forward) {
    return FromGeodetic(PO_MILITARY, latLon, payload, forward);
}

KoordStatus POMilitary_ToGeodetic(const GridPayload* payload, double latLon[2], const TmConstants*,
                                  const TmConstants* inverse) {
    return ToGeodetic(PO_MILITARY, payload, latLon, inverse);
}

KoordStatus LUREF_FromGeodetic(const double latLon[2], GridPayload* payload, const TmConstants* forward) {
    return FromGeodetic(LUREF, latLon, payload, forward);
}

KoordStatus LUREF_ToGeodetic(const GridPayload* payload, double latLon[2], const TmConstants*,
                             const TmConstants* inverse) {
    return ToGeodetic(LUREF, payload, latLon, inverse);
}

}  // namespace tessara

#include "tessara/kernel/fixed_grids.h"

#include "kernel/datum_rows.h"
#include "kernel/grid_constants.h"
#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "kernel/transverse_mercator_constants.h"

namespace tessara {
namespace {

using grids::FixedGrid;
using grids::LUREF;
using grids::PO_MILITARY;

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

KoordStatus POMilitary_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    return TmOrigin_Factors(PO_MILITARY.projection, record, latLon, factors);
}

KoordStatus LUREF_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    return TmOrigin_Factors(LUREF.projection, record, latLon, factors);
}

}  // namespace tessara

// National grids that are a transverse Mercator of scale 1 with a fixed origin, computed on the ellipsoid of
// the record's datum:
//
//                 central meridian   latitude of origin   false easting   false northing
//   PO_MILITARY   -8.1331086111      39.6682583333        200000          300000
//   LUREF         6.16666666667      49.8333333333        80000           100000
//
// LUREF is EPSG 2169.
//
// `latLon` is latitude and longitude in degrees, `forward` and `inverse` are the constants of the datum.
// Nothing is checked against limits; a latitude of +-90 gives NaN. The functions return KOORD_OK, or
// KOORD_ERR_DATUM, with the outputs unchanged, for constants without a datum.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// A grid value within 1e-4 metres of a limit of the grid (PO_MILITARY_LIMITS, LUREF_LIMITS) becomes that
// limit.
KoordStatus POMilitary_FromGeodetic(const double latLon[2], GridPayload* payload, const TmConstants* forward);
KoordStatus LUREF_FromGeodetic(const double latLon[2], GridPayload* payload, const TmConstants* forward);

// Takes both sets of constants, of one datum: the northing of the origin comes from the forward series.
KoordStatus POMilitary_ToGeodetic(const GridPayload* payload, double latLon[2], const TmConstants* forward,
                                  const TmConstants* inverse);
KoordStatus LUREF_ToGeodetic(const GridPayload* payload, double latLon[2], const TmConstants* forward,
                             const TmConstants* inverse);

}  // namespace tessara

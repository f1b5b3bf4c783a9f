// The Austrian grids BMN, OEM and GK-AT: transverse Mercator of scale 1 on the ellipsoid of the record's
// datum, on three meridians 28, 31 and 34 degrees east of Ferro, which is 17.666666666666 degrees west of
// Greenwich. On the datum MGI the federal grid BMN is EPSG 31257, 31258 and 31259. The grids differ in their
// origins:
//
//            false easting on 28, 31, 34   false northing
//   BMN      150000, 450000, 750000        -5000000
//   OEM      450000, 750000, 1050000       0
//   GK-AT    0, 0, 0                       0
//
// `latLon` is latitude and longitude (of Greenwich) in degrees, `forward` and `inverse` are the constants of
// the datum.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// Returns the nearest of the three meridians, in degrees east of Ferro, to a longitude from Greenwich.
[[nodiscard]] std::int32_t BMN_NaturalMeridian(double lon);

// Write meridian, easting and northing, and return KOORD_OK. The meridian is `wantedMeridian` if that is 28,
// 31 or 34, otherwise the natural one.
KoordStatus BMN_FromGeodetic(const double latLon[2], BmnPayload* payload, const TmConstants* forward);
KoordStatus OEM_FromGeodetic(const double latLon[2], BmnPayload* payload, const TmConstants* forward);
KoordStatus GKAT_FromGeodetic(const double latLon[2], BmnPayload* payload, const TmConstants* forward);

// Write latitude and longitude, and return KOORD_OK. A result within 1e-7 degrees of a limit of the system
// (AUSTRIAN_LIMITS) becomes that limit. For a meridian other than 28, 31 and 34 they write 0, 0 and return
// KOORD_ERR_MERIDIAN; GKAT_ToGeodetic leaves latLon unchanged for a meridian outside 26..36.
KoordStatus BMN_ToGeodetic(const BmnPayload* payload, double latLon[2], const TmConstants* inverse);
KoordStatus OEM_ToGeodetic(const BmnPayload* payload, double latLon[2], const TmConstants* inverse);
KoordStatus GKAT_ToGeodetic(const BmnPayload* payload, double latLon[2], const TmConstants* inverse);

}  // namespace tessara

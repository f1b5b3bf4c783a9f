// UTMREF, the military grid reference on top of UTM: zone, latitude band of 8 degrees, two letters for the
// 100 km square, whole metres within it (DMA TM 8358.1, "Datums, Ellipsoids, Grids, and Grid Reference
// Systems"). The reference is kept in its fields; its text form is made elsewhere.
//
// The letters of the squares come in two lettering schemes, AA and AL: in AL the row letters are ten places
// on. The ellipsoid of the datum decides. Zones follow the longitude alone, without the Norwegian and
// Svalbard exceptions, and band X reaches up to 84 degrees.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// Whether the datums on an ellipsoid (a code of the ellipsoid table) use scheme AA. Codes that don't exist
// use AL.
[[nodiscard]] bool UTMREF_UsesSchemeAA(std::int32_t ellipsoidCode);

// Latitude and longitude in degrees to a reference, on the datum of `forward`, which holds forward constants;
// in the natural zone or in the payload's `wantedZone`. The position is rounded to whole metres, and its band
// is that of the rounded position.
//
// KOORD_ERR_ZONE_DISTANT for a wanted zone too far off or a longitude that isn't finite, KOORD_ERR_GENERAL
// for a position that lies in no lettered square of the wanted zone or has no grid values (a pole, a NaN),
// KOORD_ERR_UTM_ZONE for a longitude so far outside -180..180 that it has no zone, KOORD_ERR_DATUM for
// constants without a datum. The payload is unchanged then; otherwise KOORD_OK.
KoordStatus UTMREF_FromGeodetic(const double latLon[2], UtmrefPayload* payload, const TmConstants* forward);

// The position of a reference, the south-western corner of its metre, in degrees on the datum of `inverse`,
// which holds inverse constants. Letters are upper-case. A position within 1e-5 degrees of longitude +-180.0,
// latitude 84.0 or -80.0 is snapped onto that limit.
//
// KOORD_ERR_GENERAL for a letter that isn't in its alphabet, a square that doesn't touch the band or
// constants without a datum, KOORD_ERR_UTM_ZONE for a zone outside 1..60. `latLon` is unchanged then;
// otherwise KOORD_OK.
KoordStatus UTMREF_ToGeodetic(const UtmrefPayload* payload, double latLon[2], const TmConstants* inverse);

}  // namespace tessara

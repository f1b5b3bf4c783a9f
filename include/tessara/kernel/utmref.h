// UTMREF, the military grid reference on top of UTM: zone, latitude band of 8 degrees, two letters for the
// square of 100 km, whole metres within it (DMA TM 8358.1, "Datums, Ellipsoids, Grids, and Grid Reference
// Systems"). The functions read and write its fields; ICoordinateString has the texts.
//
// Other libraries differ from this one in the last digit and on borders. Here
//
//   - metres are rounded, not truncated. 48.1375 north 11.5755 east has the easting 691602.66 and is 32U PU
//     91603 34791, in libraries that truncate 32U PU 91602 34791;
//   - the zone on a border is that of UTM_FromGeodetic: the western one at longitude 0 and west of it. 40
//     north 0 east is 30S YK 56100 32069, elsewhere 31T BE 43900 32069;
//   - the band is that of the rounded position, which may be up to 0.7 m from the exact one. A border
//     between bands belongs to the northern band north of the equator, as in other libraries, but to the
//     southern band south of it: 8 south 9 east is 32L NS 00000 15702, elsewhere 32M NS 00000 15702;
//   - zones follow the longitude alone, without the exceptions for Norway and Svalbard. Band X reaches up to
//     84 degrees.
//
// The row letters have two schemes, AA and AL; those of AL are ten places further on. The ellipsoid of the
// datum decides.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// Whether datums on an ellipsoid, given by its EllipsoidCode, use scheme AA; a code that doesn't exist uses
// AL.
[[nodiscard]] bool UTMREF_UsesSchemeAA(std::int32_t ellipsoidCode);

// Converts latitude and longitude in degrees to a reference on the datum of `forward`, which holds forward
// constants, in the payload's `wantedZone` if that is 1..60, otherwise in the natural zone.
//
// KOORD_OK, or, with the payload unchanged, KOORD_ERR_ZONE_DISTANT for a wanted zone too far away and for a
// longitude that isn't finite, KOORD_ERR_GENERAL for a position in no lettered square of the wanted zone or
// without grid values (a pole, a NaN), KOORD_ERR_UTM_ZONE for a longitude so far outside -180..180 that it
// has no zone, KOORD_ERR_DATUM for constants without a datum.
KoordStatus UTMREF_FromGeodetic(const double latLon[2], UtmrefPayload* payload, const TmConstants* forward);

// The position of a reference, which is the south-western corner of its square metre, in degrees on the
// datum of `inverse`, which holds inverse constants. Letters are upper-case. A position within 1e-5 degrees
// of longitude +-180.0, latitude 84.0 or -80.0 becomes that limit.
//
// KOORD_OK, or, with `latLon` unchanged, KOORD_ERR_GENERAL for a letter that doesn't exist in its place, a
// square that doesn't touch the band and constants without a datum, KOORD_ERR_UTM_ZONE for a zone outside
// 1..60.
KoordStatus UTMREF_ToGeodetic(const UtmrefPayload* payload, double latLon[2], const TmConstants* inverse);

}  // namespace tessara

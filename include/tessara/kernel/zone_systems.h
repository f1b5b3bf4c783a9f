// Zoned grids that span the world: UTM and Gauss-Krueger in strips of 3 and of 6 degrees. All are transverse
// Mercator on the ellipsoid of the record's datum (transverse_mercator.h has the method); what distinguishes
// them is the choice of the central meridian and how the zone is written into the result.
//
//         central meridian            scale    false easting            false northing
//   UTM   6 zone - 183                0.9996   500000                   0 north, 10000000 south
//   GK    3 strip                     1        strip*1000000 + 500000   0
//   GK6   6 strip - 3 (west: + 3)     1        strip*1000000 + 500000   0
//
// UTM has none of the exceptions for Norway and Svalbard: its zone is a function of the longitude alone.
// (UTM: DMA TM 8358.2, "The Universal Grids". Gauss-Krueger strips: Grossmann, "Geodaetische Rechnungen und
// Abbildungen in der Landesvermessung", 1976.)
//
// West of Greenwich strips are numbered downward and the sign of the whole easting carries the side: 480000
// in strip -2 is -2480000. On the datum KKJ the GK strips count from 18 degrees east.
//
// `latLon` is latitude and longitude in degrees, `forward` and `inverse` are the constants of the datum.
// A longitude without a natural meridian is one that isn't finite or, for UTM, doesn't fit 32 bits.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// The central meridian, in whole degrees, of the zone in which a longitude lies; UNKNOWN_ZONE if it has none.
// At longitude 0.0 the two 6 degree rules differ: UTM gives -3 (zone 30), GK6 gives 3. The UTM meridian isn't
// brought into -180..180: longitude 180 gives 183, -180 gives -183.
[[nodiscard]] std::int32_t UTM_NaturalMeridian(double lon);
[[nodiscard]] std::int32_t GK_NaturalMeridian(double lon);
[[nodiscard]] std::int32_t GK6_NaturalMeridian(double lon);

// Writes hemisphere, zone, easting and northing. A `wantedZone` of 1..60 is taken as it is, otherwise the
// zone is the natural one. The hemisphere is that of the northing; the equator is north.
//
// KOORD_OK, or KOORD_ERR_ZONE_DISTANT when the wanted meridian lies more than 60 degrees from the natural
// one: the payload is complete all the same. It is also the status of a longitude without a natural meridian;
// easting and northing are then 0 and the rest is unchanged.
KoordStatus UTM_FromGeodetic(const double latLon[2], UtmPayload* payload, const TmConstants* forward);

// 'S' and 's' are south, every other letter is north. KOORD_OK, or KOORD_ERR_UTM_ZONE for a zone
// outside 1..60; latLon is then unchanged. A result within 1e-7 degrees of longitude +-180 or latitude 84 or
// -80 is that limit.
KoordStatus UTM_ToGeodetic(const UtmPayload* payload, double latLon[2], const TmConstants* inverse);

// Writes easting and northing. A `wantedMeridian` below 181 in magnitude counts if it is a meridian of the
// system: a multiple of 3 for GK (0 is one), 6n + 3 for GK6; otherwise the natural meridian is taken.
//
// KOORD_OK; KOORD_ERR_ZONE_DISTANT when the wanted meridian lies 13 degrees or more from the natural one;
// KOORD_ERR_GK_EAST, which goes before it, when the easting leaves the strip's million. The payload is
// complete in each case. KOORD_ERR_GK_EAST is also the status of a longitude without a natural meridian;
// easting and northing are then 0.
KoordStatus GK_FromGeodetic(const double latLon[2], GkPayload* payload, const TmConstants* forward);
KoordStatus GK6_FromGeodetic(const double latLon[2], GkPayload* payload, const TmConstants* forward);

// KOORD_OK, or KOORD_ERR_MERIDIAN when the strip in the easting's millions has no meridian within 181.5 (GK6:
// 180) degrees; latLon is then 0, 0. A GK6 easting below a million counts as strip 0 and has the meridian -3.
// A result within 1e-7 degrees of longitude +-181.5 (GK6: +-180) or latitude +-80 is that limit.
KoordStatus GK_ToGeodetic(const GkPayload* payload, double latLon[2], const TmConstants* inverse);
KoordStatus GK6_ToGeodetic(const GkPayload* payload, double latLon[2], const TmConstants* inverse);

}  // namespace tessara

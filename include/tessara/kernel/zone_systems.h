// UTM and Gauss-Krueger in strips of 3 and of 6 degrees: transverse Mercator on the ellipsoid of the
// record's datum (transverse_mercator.h). They differ in their central meridians and in the fields that
// state the zone:
//
//          central meridian            scale    false easting            false northing
//    UTM   6 zone - 183                0.9996   500000                   0 north, 10000000 south
//    GK    3 strip                     1        strip*1000000 + 500000   0
//    GK6   6 strip - 3 (west: + 3)     1        strip*1000000 + 500000   0
//
// The UTM zone depends on the longitude alone: the exceptions for Norway and Svalbard don't exist here.
// (UTM: DMA TM 8358.2, "The Universal Grids". Gauss-Krueger strips: Grossmann, "Geodaetische Rechnungen und
// Abbildungen in der Landesvermessung", 1976.)
//
// Longitudes on the border of two UTM zones belong to the eastern zone if they are positive and to the
// western zone if they are 0 or negative. Libraries that take the eastern zone everywhere differ from this
// one at 0 and west of it:
//
//    longitude    -180   -6    0    6   180
//    zone           60   29   30   32     1
//    elsewhere       1   30   31   32     1
//
// West of Greenwich strips have negative numbers, and the easting is negative as a whole: 480000 in strip -2
// is -2480000. On the datum KKJ the GK strips count from 18 degrees east.
//
// `latLon` is latitude and longitude in degrees, `forward` and `inverse` are the constants of the datum. A
// longitude without a natural meridian is one that isn't finite or, in UTM, one that doesn't fit 32 bits.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// The central meridian, in whole degrees, of the zone of a longitude; UNKNOWN_ZONE if there is none.
// Longitude 0.0 belongs to the western zone in UTM (-3, zone 30) and to the eastern strip in GK6 (3). A UTM
// meridian isn't brought into -180..180: longitude 180 gives 183, -180 gives -183.
[[nodiscard]] std::int32_t UTM_NaturalMeridian(double lon);
[[nodiscard]] std::int32_t GK_NaturalMeridian(double lon);
[[nodiscard]] std::int32_t GK6_NaturalMeridian(double lon);

// Writes hemisphere, zone, easting and northing, in the payload's `wantedZone` if that is 1..60, otherwise
// in the natural zone. The hemisphere is that of the northing; the equator is north.
//
// KOORD_OK, or KOORD_ERR_ZONE_DISTANT, with a complete payload, if the wanted meridian is more than 60
// degrees from the natural one. KOORD_ERR_ZONE_DISTANT also for a longitude without a natural meridian:
// easting and northing are then 0, and the other fields unchanged.
KoordStatus UTM_FromGeodetic(const double latLon[2], UtmPayload* payload, const TmConstants* forward);

// 'S' and 's' are south, every other letter is north. KOORD_OK, or KOORD_ERR_UTM_ZONE, with latLon
// unchanged, for a zone outside 1..60. A result within 1e-7 degrees of longitude +-180 or latitude 84 or -80
// becomes that limit.
KoordStatus UTM_ToGeodetic(const UtmPayload* payload, double latLon[2], const TmConstants* inverse);

// Writes easting and northing on the payload's `wantedMeridian`, if that is below 181 in magnitude and a
// meridian of the system (a multiple of 3, with 0, in GK; 6n + 3 in GK6), otherwise on the natural meridian.
//
// KOORD_OK; KOORD_ERR_ZONE_DISTANT if the wanted meridian is 13 degrees or more from the natural one;
// KOORD_ERR_GK_EAST, which goes first, if the easting leaves the strip's million. The payload is complete in
// each case. KOORD_ERR_GK_EAST also for a longitude without a natural meridian: easting and northing are
// then 0.
KoordStatus GK_FromGeodetic(const double latLon[2], GkPayload* payload, const TmConstants* forward);
KoordStatus GK6_FromGeodetic(const double latLon[2], GkPayload* payload, const TmConstants* forward);

// KOORD_OK, or KOORD_ERR_MERIDIAN, with latLon 0, 0, if the strip number in the easting has no meridian
// within 181.5 (GK6: 180) degrees. A GK6 easting below a million counts as strip 0, with the meridian -3. A
// result within 1e-7 degrees of longitude +-181.5 (GK6: +-180) or latitude +-80 becomes that limit.
KoordStatus GK_ToGeodetic(const GkPayload* payload, double latLon[2], const TmConstants* inverse);
KoordStatus GK6_ToGeodetic(const GkPayload* payload, double latLon[2], const TmConstants* inverse);

}  // namespace tessara

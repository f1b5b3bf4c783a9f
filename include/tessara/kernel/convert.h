// The conversion of records between coordinate systems and datums.
//
// Example: WGS84 degrees become Gauss-Krueger on the German datum, in the natural strip.
//
//     tessara::GkPayload natural{};
//     natural.wantedMeridian = tessara::NO_WANTED_ZONE;
//     tessara::tagKOORD gk = tessara::MakeKoord(3, tessara::KOORD_GK);  // datum 3, GER
//     tessara::Store(gk, natural);
//     if (tessara::KoordConvert(&degrees, &gk) != tessara::KOORD_OK) return;
//     const auto grid = tessara::Load<tessara::GkPayload>(gk);
//     // 48.1375 north 11.5755 east on WGS84 is 4468510.9 5333359.7, in strip 4
//
// The target is input, too: its `datum` and `type` select the result and are never written. TM, VDG and
// LAMBERTCC targets contain the parameters of their projection. Targets with zones contain a wanted zone
// (UTM, UTMREF) or meridian (GK, GK6, BMN, OEM, GK-AT). Set NO_WANTED_ZONE for the natural strip of GK and
// GK6: in a record of zeros the wanted meridian is 0, which is a legal one.
//
// A position is converted to degrees on the source's datum, shifted to the target's datum if that is another
// one, and converted to the target's system. The functions depend on their arguments only and allocate
// nothing; any thread may call them at any time.
#pragma once

#include <cstddef>
#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// KoordConvertEx with range checks.
KoordStatus KoordConvert(const tagKOORD* source, tagKOORD* target);

// Converts `source` into `target`. The target is checked against the limits of its system if `checkRange` is
// 1, and not otherwise. A GEODEZ target is never checked; a LAMBERTCC target fails with range checks.
//
// KOORD_OK is success; KOORD_ERR_ZONE_DISTANT comes with a complete target, too. KOORD_ERR_DATUM (one of the
// datums is outside 0..238) is found before KOORD_ERR_TYPE (a pixel type, or a type above 23). A null record
// is KOORD_ERR_GENERAL. A failure in reading the source leaves the target unchanged; a later one may leave
// it partly written.
//
// Every NaN of a result is the positive quiet one, 0x7FF8000000000000. It comes with KOORD_OK, too, where a
// position has no place in the target's system and nothing is tested: in a TM target at latitudes of 90
// degrees and more, in other grids if `checkRange` isn't 1, and wherever the source has a NaN.
//
// UTMREF and GEOREF are rounded where other libraries truncate, and longitudes on the border of two zones
// that are 0 or negative belong to the western zone: utmref.h, georef.h and zone_systems.h have the details.
KoordStatus KoordConvertEx(const tagKOORD* source, tagKOORD* target, std::int32_t checkRange);

// Converts source[i] into target[i] for i = 0..count - 1, in this order, to the same bits and status[i] as
// one call of KoordConvertEx each. What depends on datums, types and the parameters of a TM or LAMBERTCC
// record is computed once for a run of records in which they stay the same, so sorted arrays are faster than
// mixed ones. A failure doesn't end the run. Returns the first status that isn't KOORD_OK, or KOORD_OK.
//
// The arrays of records may be the same or overlap in whole records: a target that is also a later source is
// read after it was written. `status` must overlap neither; it may be null. If an array of records is null
// every status is KOORD_ERR_GENERAL. Several threads may convert parts of one array if none writes what
// another reads.
KoordStatus KoordConvertMany(const tagKOORD* source, tagKOORD* target, std::size_t count,
                             std::int32_t checkRange, KoordStatus* status);

// Makes a hemisphere letter "S" if it is "S" or "s", and "N" whatever else it is.
void Hemisphere_Normalise(char* letter);

// Degrees, minutes and seconds. A negative value, or a NaN, gets the letter "W" or "S". Seconds above 59.999
// carry into the minutes. In reading, the sign of the degrees is ignored, and only the exact letters "W" and
// "S" make a value negative. GEOGRAD has no field for a height.
void GEOGRAD_FromGeodetic(const double latLon[2], GeogradPayload* payload);
void GEOGRAD_ToGeodetic(const GeogradPayload* payload, double latLon[2]);

// Degrees and decimal minutes, without a carry. The height is copied.
void GEODEZMIN_FromGeodetic(const double latLonHeight[3], GeodezMinPayload* payload);
void GEODEZMIN_ToGeodetic(const GeodezMinPayload* payload, double latLonHeight[3]);

}  // namespace tessara

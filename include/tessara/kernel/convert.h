// The conversion of records, in three phases: the source form to latitude, longitude and height on the source
// datum; a datum shift, skipped when the two datum ids are equal; the position to the target form.
//
// The target's `datum` and `type` say what is wanted and are never written. Parameters travel in the record:
// a TM, VDG or LAMBERTCC target carries its projection parameters; a UTM, UTMREF, GK, GK6, BMN, OEM or GK-AT
// target may carry a wanted zone or meridian. A zero-cleared GK target carries the legal wanted meridian 0:
// whoever wants the natural strip sets NO_WANTED_ZONE.
//
// Pure functions of the two records and constant tables: no state, no allocation, any thread at any time.
#pragma once

#include <cstddef>
#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// KoordConvertEx with the range tests on.
KoordStatus KoordConvert(const tagKOORD* source, tagKOORD* target);

// `checkRange` equal to 1 turns the range tests of the target on, any other value turns them off. GEODEZ as a
// target is never tested; LAMBERTCC as a target passes without the tests only.
//
// KOORD_OK is success. KOORD_ERR_ZONE_DISTANT comes with a complete target. KOORD_ERR_DATUM (either datum
// outside 0..238) is found before KOORD_ERR_TYPE (a pixel type, or a type above 23). A failure while reading
// the source leaves the target as it was; a later one may leave it partly written. A null record is
// KOORD_ERR_GENERAL.
KoordStatus KoordConvertEx(const tagKOORD* source, tagKOORD* target, std::int32_t checkRange);

// KoordConvertEx for source[i] and target[i], i = 0..count - 1 in this order: bit for bit the same records
// and status[i] as from one call a record. What the datums, the types and the parameters of a TM or LAMBERTCC
// record determine is computed once for a run of records in which they don't change, so sorted arrays are
// faster than mixed ones. A failure ends nothing; the first one that isn't KOORD_OK is returned.
//
// The arrays of records may be the same or overlap in whole records: a target that is also a later source is
// read as it was written. `status` overlaps neither and may be null, where what is returned is enough. For a
// null array of records every status is KOORD_ERR_GENERAL. Parts of an array can be converted by several
// threads at once if none writes what another reads.
KoordStatus KoordConvertMany(const tagKOORD* source, tagKOORD* target, std::size_t count,
                             std::int32_t checkRange, KoordStatus* status);

// "N" and "S" stay, "n" becomes "N", "s" becomes "S", every other byte becomes "N".
void Hemisphere_Normalise(char* letter);

// Degrees, minutes and seconds. A negative value (or a NaN) gets the letter "W" or "S". Seconds above 59.999
// carry into the minutes. The sign of stored degrees isn't looked at; only the exact letters "W" and "S"
// negate. GEOGRAD has no room for a height.
void GEOGRAD_FromGeodetic(const double latLon[2], GeogradPayload* payload);
void GEOGRAD_ToGeodetic(const GeogradPayload* payload, double latLon[2]);

// Degrees and decimal minutes, without a carry; the height is copied.
void GEODEZMIN_FromGeodetic(const double latLonHeight[3], GeodezMinPayload* payload);
void GEODEZMIN_ToGeodetic(const GeodezMinPayload* payload, double latLonHeight[3]);

}  // namespace tessara

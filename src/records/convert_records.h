// Conversions of a record in place, on its own datum.
#pragma once

#include <cstdint>

#include "systems/range_check.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// Replaces the record by its form in another system, in its natural zone there. False when it doesn't
// convert; the record is then unchanged.
bool ConvertTo(std::int32_t system, tagKOORD* record);

// Replaces a UTM record by its UTMREF form or the other way round, in the zone that it has and then wants.
// False when it doesn't convert; the record is then unchanged.
bool ConvertInZone(std::int32_t system, RangeCheck check, tagKOORD* record);

// Where a record lies, in degrees. False when it doesn't convert.
bool ToGeodez(const tagKOORD& record, GeodezPayload* position);

// Takes a BNG or ING record through degrees and back, which makes its letters and all its values agree; the
// letters count, or without letters the values of the whole grid. False when it doesn't convert; the record
// is then unchanged.
bool RenewLetters(tagKOORD* record);

}  // namespace tessara

// Converts records in place, on their own datum.
#pragma once

#include <cstdint>

#include "systems/range_check.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// For points beside zone borders, which are drawn 1e-9 degrees outside their zones.
inline constexpr RangeCheck UNCHECKED = RangeCheck::Off;

// Replaces the record by its form in another system, in its natural zone there. False if it doesn't convert;
// the record is then unchanged.
bool ConvertTo(std::int32_t system, tagKOORD* record);

// Converts between UTM and UTMREF in the record's own zone, which the result wants. False if it doesn't
// convert; the record is then unchanged.
bool ConvertInZone(std::int32_t system, RangeCheck check, tagKOORD* record);

// Converts a record to degrees. False if it doesn't convert.
bool ToGeodez(const tagKOORD& record, GeodezPayload* position);

// Converts a BNG or ING record to degrees and back, after which its letters and values agree. The letters
// count; a record without letters is read by its full values. False if it doesn't convert; the record is
// then unchanged.
bool RenewLetters(tagKOORD* record);

}  // namespace tessara

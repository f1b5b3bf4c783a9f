// Whether a position may exist in a target system. Nothing is wrapped here: values outside are rejected. All
// limits are inclusive, and a NaN lies outside on the low side.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Looks at latitude and longitude in degrees before the target form is made. KOORD_OK when the conversion may
// go on, with *detail KOORD_OK (inside) or KOORD_CHECK_AFTER (the limits are on the grid values). Otherwise
// KOORD_ERR_GENERAL, with *detail the reason.
KoordStatus Range_CheckGeodetic(const double latLon[2], std::int32_t type, std::int32_t* detail);

// Looks at a finished record. KOORD_OK with *detail KOORD_OK, otherwise KOORD_ERR_GENERAL with *detail the
// reason.
KoordStatus Range_CheckRecord(const tagKOORD* record, std::int32_t* detail);

}  // namespace tessara

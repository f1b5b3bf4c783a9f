// The checks of a conversion's result against the limits of its system. Values beyond a limit are rejected,
// not wrapped. A value on a limit passes; a NaN counts as below the lower limit.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Checks latitude and longitude in degrees for a target type before the conversion into it. KOORD_OK if the
// conversion may go on, with *detail KOORD_OK (inside) or KOORD_CHECK_AFTER (this type has its limits on the
// grid values). Otherwise KOORD_ERR_GENERAL, with the reason in *detail.
KoordStatus Range_CheckGeodetic(const double latLon[2], std::int32_t type, std::int32_t* detail);

// Checks a finished record. KOORD_OK with *detail KOORD_OK, otherwise KOORD_ERR_GENERAL with the reason in
// *detail.
KoordStatus Range_CheckRecord(const tagKOORD* record, std::int32_t* detail);

}  // namespace tessara

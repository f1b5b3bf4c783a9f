// A military reference and the UTM values of its south-western corner, on an ellipsoid by its code.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Whole metres to a reference; `latitude` of the same position says the band. KOORD_ERR_GENERAL for values
// that have no letters; the payload is then unchanged.
KoordStatus UtmrefFromUtm(const UtmPayload& utm, double latitude, std::uint32_t ellipsoid,
                          UtmrefPayload* payload);

// Hemisphere, zone, easting and northing; the zone isn't looked at. KOORD_ERR_GENERAL for letters that don't
// exist.
KoordStatus UtmrefToUtm(const UtmrefPayload& reference, std::uint32_t ellipsoid, UtmPayload* utm);

}  // namespace tessara

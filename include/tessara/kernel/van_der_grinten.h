// Van der Grinten's first projection: the whole globe in a circle, on the sphere whose radius is the
// semi-major axis of the datum (J. P. Snyder, "Map Projections: A Working Manual", USGS Professional Paper
// 1395, 1987, section 29). The payload carries the origin in degrees; x and y are metres. A latitude of
// origin other than 0 shifts all latitudes.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Degrees to x and y. A latitude that lies 90 degrees or more from that of the origin gives NaN.
// KOORD_ERR_DATUM for an id outside 0..238 (the payload is then unchanged), else KOORD_OK.
KoordStatus VDG_FromGeodetic(const double latLon[2], VdgPayload* payload, std::int32_t datum);

// x and y to degrees. KOORD_ERR_DATUM as above; KOORD_ERR_GRID_RANGE if the cubic for the latitude has no
// real solution, which no point of the plane is known to give. `latLon` is unchanged then. A point outside
// the circle gives a position of no meaning.
KoordStatus VDG_ToGeodetic(const VdgPayload* payload, std::int32_t datum, double latLon[2]);

}  // namespace tessara

// Van der Grinten's first projection: the globe in a circle, on the sphere whose radius is the semi-major
// axis of the datum (J. P. Snyder, "Map Projections: A Working Manual", USGS Professional Paper 1395, 1987,
// section 29). The payload has the origin in degrees; x and y are in metres. A latitude of origin other than
// 0 shifts all latitudes.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Degrees to x and y. A latitude 90 degrees or more from that of the origin gives NaN. KOORD_OK, or
// KOORD_ERR_DATUM, with the payload unchanged, for an id outside 0..238.
KoordStatus VDG_FromGeodetic(const double latLon[2], VdgPayload* payload, std::int32_t datum);

// x and y to degrees. A point outside the circle gives a position without a meaning. KOORD_OK, or, with
// `latLon` unchanged, KOORD_ERR_DATUM for an id outside 0..238 and KOORD_ERR_GRID_RANGE if the cubic for the
// latitude has no real solution; no point of the plane is known to give this.
KoordStatus VDG_ToGeodetic(const VdgPayload* payload, std::int32_t datum, double latLon[2]);

}  // namespace tessara

// Earth-centred Cartesian coordinates in metres: x through the equator at longitude 0, y through the equator
// at longitude 90, z north.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Converts latitude and longitude of a GEODEZ record to x, y, z on the target's datum. Ignores the height, so
// that the result is on the ellipsoid. Returns KOORD_OK, or KOORD_ERR_DATUM, with the target unchanged, for a
// datum outside 0..238.
KoordStatus ECEF_FromGeodetic(const tagKOORD* work, tagKOORD* target);

// Converts x, y, z to latitude, longitude and height on the source's datum, by Newton's method for the
// tangent of the latitude. The iteration ends at a step below 1.7e-8 radians or at a negative step, which
// leaves an error of 0.7 mm at a height of 10 km, 7 cm at 100 km and 6 m at 1000 km. On the axis the
// longitude is NaN; the height is z - b at both poles, or NaN on the sphere. Longitude 180 is always returned
// as -180. Returns KOORD_OK, or KOORD_ERR_DATUM, with `work` unchanged, for a datum outside 0..238.
KoordStatus ECEF_ToGeodetic(const tagKOORD* source, tagKOORD* work);

}  // namespace tessara

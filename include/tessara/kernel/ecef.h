// Earth-centred Cartesian coordinates: x through the equator at longitude 0, y at longitude 90, z north,
// metres.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Latitude and longitude of a GEODEZ payload to x, y, z on the target's datum. The height is taken as 0: the
// result lies on the ellipsoid. KOORD_ERR_DATUM for a datum outside 0..238 (the target is then unchanged),
// else KOORD_OK.
KoordStatus ECEF_FromGeodetic(const tagKOORD* work, tagKOORD* target);

// x, y, z to latitude, longitude and height on the source's datum, by Newton's method for the tangent of the
// latitude. A step below 1.7e-8 radians or a negative one ends the iteration: this costs 0.7 mm at a height
// of 10 km, 7 cm at 100 km and 6 m at 1000 km. On the axis the longitude is NaN, and the height is z - b on
// both ends; on the sphere it is NaN there. The longitude -180 stands for both signs. KOORD_ERR_DATUM as
// above, else KOORD_OK.
KoordStatus ECEF_ToGeodetic(const tagKOORD* source, tagKOORD* work);

}  // namespace tessara

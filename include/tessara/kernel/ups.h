// Universal Polar Stereographic: the conformal azimuthal projection of a polar cap, with the scale 0.994 at
// the pole and false coordinates of 2000000 m (DMA TM 8358.2, "The Universal Grids", 1989, chapter 3). Grid
// north is along longitude 0 in the south and along longitude 180 in the north.
#pragma once

#include <cstdint>

#include "tessara/kernel/classical_formulas.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// The constants of one ellipsoid.
struct UpsConstants {
    double a;                  // semi-major axis, metres
    double inverseFlattening;  // 0 for the sphere
    double b;                  // semi-minor axis, metres
    double e2, e;              // eccentricity squared, eccentricity
    double poleRadius;         // metres in the plane of scale 1 per tan of half the conformal colatitude
    double s2, s4, s6, s8;     // series of the latitude in sines of multiples of the conformal latitude
};

// Degrees to metres, in the hemisphere of the latitude's sign; any latitude is projected. KOORD_OK, or
// KOORD_ERR_DATUM, with the payload unchanged, for an id outside 0..238.
KoordStatus UPS_FromGeodetic(const double latLon[2], UpsPayload* payload, std::int32_t datum);
// Metres to degrees. Only the letter "S" means south. A negative northing is read by its magnitude. Within
// 0.0001 m of an axis through the pole a point is on the axis, and within 1e-7 degrees of 80 degrees a
// latitude is 80. KOORD_OK, or KOORD_ERR_DATUM, with `latLon` unchanged, for an id outside 0..238.
KoordStatus UPS_ToGeodetic(const UpsPayload* payload, double latLon[2], std::int32_t datum);

}  // namespace tessara

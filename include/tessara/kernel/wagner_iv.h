// Wagner's fourth projection: equal-area, with poles as lines of half the equator's length, on the sphere
// whose radius is the semi-major axis of the record's datum (J. P. Snyder and P. M. Voxland, "An Album of
// Map Projections", USGS Professional Paper 1453, 1989). Units are degrees and metres; `lon0` is the central
// meridian.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Both take a GEODEZ record: any other type is KOORD_ERR_GENERAL, a datum outside 0..238 KOORD_ERR_DATUM. On
// failure the outputs are unchanged.

// KOORD_ERR_GENERAL also if eleven steps of Newton's method don't converge to the auxiliary angle, which
// happens for no latitude.
KoordStatus WagnerIV_Forward(const tagKOORD* geodez, double lon0, double* y, double* x);

// Writes latitude and longitude and keeps the height. A y beyond the line of a pole gives the pole; a y
// beyond the globe is read as on the map mirrored there, as often as necessary; a y that isn't finite is
// KOORD_ERR_GENERAL. An x outside the map isn't detected.
KoordStatus WagnerIV_Inverse(double y, double x, double lon0, tagKOORD* geodez);

}  // namespace tessara

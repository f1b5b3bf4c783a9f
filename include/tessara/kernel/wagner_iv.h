// Wagner's fourth projection: equal-area, the poles as lines of half the equator's length, on the sphere
// whose radius is the semi-major axis of the record's datum (J. P. Snyder and P. M. Voxland, "An Album of Map
// Projections", USGS Professional Paper 1453, 1989). Degrees and metres; `lon0` is the central meridian.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// Both take a GEODEZ record: any other type is KOORD_ERR_GENERAL, a datum outside 0..238 KOORD_ERR_DATUM. The
// outputs are unchanged on failure.

// KOORD_ERR_GENERAL also if eleven steps of Newton's method don't give the auxiliary angle, which happens for
// no latitude.
KoordStatus WagnerIV_Forward(const tagKOORD* geodez, double lon0, double* y, double* x);

// Writes latitude and longitude and keeps the height. A y beyond a pole's line gives the pole, one beyond the
// globe is read as if the map were mirrored there, again and again; one that isn't finite is
// KOORD_ERR_GENERAL. An x outside the map isn't noticed.
KoordStatus WagnerIV_Inverse(double y, double x, double lon0, tagKOORD* geodez);

}  // namespace tessara

// Meridian convergence and point scale of conformal grids, in closed form: the angle by which the grid
// rotates a short line at a position, and the factor by which it stretches the line.
//
// The convergence is the azimuth of grid north: the angle from true north to the direction in which the
// northing grows, clockwise, in degrees within -180..180. East of the central meridian of a northern
// transverse Mercator grid it is positive. A grid azimuth is the true azimuth minus the convergence. The
// scale is the length of a short line in the grid divided by its length on the ellipsoid.
//
//   transverse Mercator    C. F. F. Karney, "Transverse Mercator with an accuracy of a few nanometers",
//                          Journal of Geodesy 85 (2011), equations 23 to 28, with the series of
//                          transverse_mercator.h
//   UPS, LAMBERTCC         J. P. Snyder, "Map Projections: A Working Manual", USGS Professional Paper 1395
//                          (1987), sections 21 and 15
//   CH                     swisstopo, "Formulas and constants for the calculation of the Swiss conformal
//                          cylindrical projection" (2016), section 5
//   RD                     the conformal sphere and the oblique stereographic of Snyder, section 21; the
//                          convergence is the difference of the azimuths at both ends of the great circle
//                          to the origin, by Napier's analogies
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

struct GridFactors {
    double convergence = 0.0;  // degrees
    double scale = 1.0;
};

// Whether a type is a conformal grid: true for UTM, UTMREF, GK, BMN, OEM, CH, GK6, GK-AT, UPS, PO_MILITARY,
// TM, BNG, ING, RD, LUREF and LAMBERTCC.
[[nodiscard]] bool Grid_HasFactors(std::int32_t type);

// Computes the factors at a position, which is latitude and longitude in degrees on the record's datum, with
// the parameters and in the zone, strip or hemisphere of the record. A null position means the position of
// the record.
//
// Returns KOORD_OK, or leaves *factors unchanged and returns KOORD_ERR_GENERAL without a record or if the
// grid has no finite factors, as at the apex of a cone, KOORD_ERR_DATUM for a datum outside 0..238,
// KOORD_ERR_TYPE for a type that is no conformal grid, or the status of the record's conversion to degrees.
KoordStatus Grid_Factors(const tagKOORD* record, const double* latLon, GridFactors* factors);

}  // namespace tessara

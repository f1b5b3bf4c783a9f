// Solves the geodesic problems for columns: arrays of degrees and metres with strides, as in data frames,
// databases and browsers. The results are those of Geodesic_InverseCore and Geodesic_DirectCore, bit for bit.
//
// Example: two legs of a journey.
//
//     double axes[2];
//     tessara::Geodesic_LoadAxes(axes, tessara::DATUM_WGS84);
//     const double latitudes[] = {40.64, 51.47, 35.55};  // New York, London, Tokyo
//     const double longitudes[] = {-73.78, -0.45, 139.78};
//     double distances[2];
//     constexpr std::ptrdiff_t stride = sizeof(double);
//     tessara::GeodesicInverseColumns legs;
//     legs.latitude1 = {latitudes, stride};
//     legs.longitude1 = {longitudes, stride};
//     legs.latitude2 = {latitudes + 1, stride};
//     legs.longitude2 = {longitudes + 1, stride};
//     legs.distance = {distances, stride};
//     tessara::Geodesic_InverseColumns(&legs, 2, axes[0], axes[1]);  // 5555409 m and 9614945 m
//
// The functions are pure: they keep no state and allocate no memory, and any thread may call them.
#pragma once

#include <cstddef>

#include "tessara/kernel/columns.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

// All columns hold doubles: metres, and degrees, which for azimuths count clockwise from north. Each row
// needs all the values of its problem, so that no source column may be null; results without a column aren't
// written. A target column may be a source column with the same stride; no other columns may overlap.
//
// Without a solution, as for a number that isn't finite, the distance is negative and the azimuths have no
// meaning.
struct GeodesicInverseColumns {
    SourceColumn latitude1, longitude1, latitude2, longitude2;
    TargetColumn distance;
    TargetColumn azimuth12, azimuth21;  // 0..360
};
// The longitude of an end isn't brought into -180..180. A number that isn't finite makes it infinite or NaN.
struct GeodesicDirectColumns {
    SourceColumn latitude, longitude;
    SourceColumn distance, azimuth;
    TargetColumn endLatitude, endLongitude;
    TargetColumn backAzimuth;  // 0..360
};

// The distances and azimuths between the positions of each row, on the ellipsoid with the semi-axes a and b.
// KOORD_OK; GEODESIC_NO_SOLUTION if a row has none; or KOORD_ERR_GENERAL, without writing anything, for a
// null argument and a missing source column.
KoordStatus Geodesic_InverseColumns(const GeodesicInverseColumns* columns, std::size_t count, double a,
                                    double b);

// The point at the distance and azimuth of each row. KOORD_OK, or KOORD_ERR_GENERAL as above.
KoordStatus Geodesic_DirectColumns(const GeodesicDirectColumns* columns, std::size_t count, double a,
                                   double b);

}  // namespace tessara

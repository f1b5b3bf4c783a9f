// The statuses of geodesic problems, whose functions in the kernel only compute.
#pragma once

#include <cmath>
#include <initializer_list>

#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/limits.h"

namespace tessara::toolkit {

[[nodiscard]] inline KoordStatus CheckDegrees(double latitude, double longitude) {
    if (!(std::abs(latitude) <= GEOGRAPHIC_LIMITS.north)) return KOORD_ERR_GEO_LAT;
    if (!(std::abs(longitude) <= GEOGRAPHIC_LIMITS.east)) return KOORD_ERR_GEO_LON;
    return KOORD_OK;
}

// Of the inverse problem, whose distance is negative or NaN without a solution.
[[nodiscard]] inline KoordStatus CheckWay(double latitude1, double longitude1, double latitude2,
                                          double longitude2, double distance) {
    for (const KoordStatus status :
         {CheckDegrees(latitude1, longitude1), CheckDegrees(latitude2, longitude2)}) {
        if (status != KOORD_OK) return status;
    }
    return distance >= 0.0 ? KOORD_OK : GEODESIC_NO_SOLUTION;
}

// Of the direct problem, and brings the longitude of its end into -180..180.
[[nodiscard]] inline KoordStatus CheckEnd(double latitude, double longitude, double azimuth, double distance,
                                          double endLatitude, double* endLongitude) {
    const KoordStatus status = CheckDegrees(latitude, longitude);
    if (status != KOORD_OK) return status;
    for (const double number : {azimuth, distance, endLatitude, *endLongitude}) {
        if (!std::isfinite(number)) return GEODESIC_NO_SOLUTION;
    }
    *endLongitude = std::remainder(*endLongitude, 360.0);
    return KOORD_OK;
}

}  // namespace tessara::toolkit

// The constants of all datums, computed at compile time. A conversion refers to them instead of copying
// them.
#pragma once

#include <cstdint>

#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// Null for an id outside 0..238.
[[nodiscard]] const TmConstants* TmForwardConstants(std::int32_t datum);
[[nodiscard]] const TmConstants* TmInverseConstants(std::int32_t datum);

// The northing in metres of a latitude of origin in degrees.
[[nodiscard]] double TmOriginNorthing(double degrees, const TmConstants& forward);

// TM_ForwardParam and TM_InverseParam for a known northing of the latitude of origin, in metres.
void TmForwardFromOrigin(const double latLon[2], const TmParams& p, double originNorth, double* easting,
                         double* northing, const TmConstants& forward);
void TmInverseFromOrigin(double easting, double northing, const TmParams& p, double originNorth,
                         double latLon[2], const TmConstants& inverse);

}  // namespace tessara

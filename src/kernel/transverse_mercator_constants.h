// The constants of all datums, computed at compile time: a conversion points to them instead of copying them.
#pragma once

#include <cstdint>

#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// Null for an id outside 0..238.
[[nodiscard]] const TmConstants* TmForwardConstants(std::int32_t datum);
[[nodiscard]] const TmConstants* TmInverseConstants(std::int32_t datum);

// The northing of a latitude of origin, degrees and metres.
[[nodiscard]] double TmOriginNorthing(double degrees, const TmConstants& forward);

// TM_ForwardParam and TM_InverseParam where the northing of the latitude of origin is known, in metres.
void TmForwardFromOrigin(const double latLon[2], const TmParams& p, double originNorth, double* easting,
                         double* northing, const TmConstants& forward);
void TmInverseFromOrigin(double easting, double northing, const TmParams& p, double originNorth,
                         double latLon[2], const TmConstants& inverse);

}  // namespace tessara

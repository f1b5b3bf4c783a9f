// The national grids that are transverse Mercator from an origin, by their numbers.
#pragma once

#include "kernel/transverse_mercator_series.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara::grids {

struct FixedGrid {
    TmParams projection;
    OriginNorthings originNorthings;
    Limits limits;
};

inline constexpr double PO_MILITARY_LATITUDE = 39.6682583333;
inline constexpr double LUREF_LATITUDE = 49.8333333333;
inline constexpr double BRITISH_LATITUDE = 49.0;
inline constexpr double IRISH_LATITUDE = 53.5;

inline constexpr FixedGrid PO_MILITARY{{-8.1331086111, PO_MILITARY_LATITUDE, 200000.0, 300000.0, 1.0},
                                       ComputeOriginNorthings(PO_MILITARY_LATITUDE),
                                       PO_MILITARY_LIMITS};
inline constexpr FixedGrid LUREF{{6.16666666667, LUREF_LATITUDE, 80000.0, 100000.0, 1.0},
                                 ComputeOriginNorthings(LUREF_LATITUDE),
                                 LUREF_LIMITS};
inline constexpr FixedGrid BRITISH{{-2.0, BRITISH_LATITUDE, 400000.0, -100000.0, 0.9996012717},
                                   ComputeOriginNorthings(BRITISH_LATITUDE),
                                   BNG_LIMITS};
inline constexpr FixedGrid IRISH{
    {-8.0, IRISH_LATITUDE, 200000.0, 250000.0, 1.000035}, ComputeOriginNorthings(IRISH_LATITUDE), ING_LIMITS};

}  // namespace tessara::grids

// The longitudes of positions in degrees, which start anew after a turn.
#pragma once

#include "tessara/kernel/koord.h"

namespace tessara {

inline constexpr double FULL_TURN = 360.0;
inline constexpr double HALF_TURN = 180.0;

[[nodiscard]] inline double LongitudeOf(const tagKOORD& geodez) {
    return Load<GeodezPayload>(geodez).longitude;
}

}  // namespace tessara

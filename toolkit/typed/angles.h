// Reads typed latitudes and longitudes: `48.1375 11.5755`, `N 48 8.25, E 11 34.5`, `48°08'15"N 11°34'32"E`.
//
//     position  = angle [boundary] angle
//     angle     = [letter] degrees [minutes [seconds]] [letter]
//
// The letters N, S, E and W precede or follow an angle; the signs of degrees, minutes and seconds follow
// their numbers. Only the last number of an angle has decimals. Latitude comes first unless letters swap the
// angles. Without a separator, both angles have equally many numbers.
#pragma once

#include <cstdint>

#include "typed/result.h"
#include "typed/tokens.h"

namespace tessara::toolkit {

// Reads the position as GEODEZ, GEODEZMIN or GEOGRAD, depending on its parts.
[[nodiscard]] Fault ReadAngles(const Tokens& tokens, std::int32_t datum, Reading* reading);

}  // namespace tessara::toolkit

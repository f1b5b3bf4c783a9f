// Latitude and longitude as people write them: `48.1375 11.5755`, `N 48 8.25, E 11 34.5`, `48°08'15"N
// 11°34'32"E`.
//
//     position  = angle [boundary] angle
//     angle     = [letter] degrees [minutes [seconds]] [letter]
//
// The letters N, S, E and W may stand before or behind an angle, signs of degrees, minutes and seconds behind
// their numbers; only the last number of an angle has decimals. Latitude comes first unless letters say
// otherwise. Where nothing else divides the two, both have equally many numbers.
#pragma once

#include <cstdint>

#include "typed/result.h"
#include "typed/tokens.h"

namespace tessara::toolkit {

// The position in the spelling that has room for all parts: GEODEZ, GEODEZMIN or GEOGRAD.
[[nodiscard]] Fault ReadAngles(const Tokens& tokens, std::int32_t datum, Reading* reading);

}  // namespace tessara::toolkit

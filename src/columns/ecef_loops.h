// Earth-centred Cartesian coordinates for blocks of positions; x, y and z are `east`, `north` and `up`.
#pragma once

#include <cstdint>

#include "columns/block_step.h"

namespace tessara {

// For datums 0..238. On the way there the height is 0, on the way back it is computed.
[[nodiscard]] BlockStep EcefForward(std::int32_t datum);
[[nodiscard]] BlockStep EcefInverse(std::int32_t datum);

}  // namespace tessara

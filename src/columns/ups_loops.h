// Universal Polar Stereographic for blocks of positions: between latitude and longitude, and easting,
// northing and the side of the equator.
#pragma once

#include <cstdint>

#include "columns/block_step.h"

namespace tessara {

// For datums 0..238.
[[nodiscard]] BlockStep UpsForward(std::int32_t datum);
[[nodiscard]] BlockStep UpsInverse(std::int32_t datum);

}  // namespace tessara

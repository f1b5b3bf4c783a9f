// Transverse Mercator from an origin, for blocks of positions: the free one, and the national grids with it.
#pragma once

#include <cstdint>

#include "columns/block_step.h"
#include "kernel/grid_constants.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// For datums 0..238; `originNorth` is the northing of the latitude of origin, metres. What isn't within the
// limits is special.
[[nodiscard]] BlockStep OriginForward(const TmParams& params, double originNorth, const Limits& limits,
                                      std::int32_t datum);
[[nodiscard]] BlockStep OriginInverse(const TmParams& params, double originNorth, std::int32_t datum);

[[nodiscard]] BlockStep GridForward(const grids::FixedGrid& grid, std::int32_t datum);
[[nodiscard]] BlockStep GridInverse(const grids::FixedGrid& grid, std::int32_t datum);

}  // namespace tessara

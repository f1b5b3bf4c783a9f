// The Swiss and the Dutch grid, which go by way of a sphere, for blocks of positions. What isn't within the
// limits is special.
#pragma once

#include <cstdint>

#include "columns/block_step.h"

namespace tessara {

[[nodiscard]] BlockStep ChForward();
[[nodiscard]] BlockStep ChInverse();

// For datums 0..238.
[[nodiscard]] BlockStep RdForward(std::int32_t datum);
[[nodiscard]] BlockStep RdInverse(std::int32_t datum);

}  // namespace tessara

// Which positions of a block lie within limits.
#pragma once

#include "columns/block_step.h"
#include "tessara/kernel/limits.h"

namespace tessara {

// Latitude and longitude outside the limits, degrees, make a row special.
[[nodiscard]] BlockStep PositionWithin(const Limits& limits);

// The same for latitudes whose distance from the equator isn't within two others.
[[nodiscard]] BlockStep PolarWithin(double nearest, double furthest);

}  // namespace tessara

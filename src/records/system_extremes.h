// How far a coordinate system reaches: its outermost position in each direction.
#pragma once

#include <array>
#include <cstdint>

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// In the order of Compass.
using SystemExtremes = std::array<tagKOORD, COMPASS_COUNT>;

// The extremes of a system on a datum. False for a datum that is neither 0..238 nor 999, a system outside
// 0..22, and a datum without an ellipsoid where one is needed.
bool FindSystemExtremes(std::int32_t datum, std::int32_t system, SystemExtremes* extremes);

// One of them, under the same conditions.
bool FindSystemExtreme(Compass direction, std::int32_t datum, std::int32_t system, tagKOORD* extreme);

}  // namespace tessara

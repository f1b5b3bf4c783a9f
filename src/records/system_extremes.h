// The extent of a coordinate system: its outermost position in each direction.
#pragma once

#include <array>
#include <cstdint>

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// In the order of Compass.
using SystemExtremes = std::array<tagKOORD, COMPASS_COUNT>;

// The extremes of a system on a datum. False for a datum other than 0..238 and 999, for a system outside
// 0..22, and for a datum without an ellipsoid if the system needs one.
bool FindSystemExtremes(std::int32_t datum, std::int32_t system, SystemExtremes* extremes);

// A single extreme, under the same conditions.
bool FindSystemExtreme(Compass direction, std::int32_t datum, std::int32_t system, tagKOORD* extreme);

}  // namespace tessara

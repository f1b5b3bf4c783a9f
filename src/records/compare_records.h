// The order of two records along one axis.
#pragma once

#include <cstdint>

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

inline constexpr std::int32_t NOT_COMPARABLE = -2;

// 1 if the first record lies further north (east), 0 if the two are equal on the axis or identical, -1
// otherwise, also with a NaN. NOT_COMPARABLE for two datums or systems, different projection parameters, and
// a position that can't be converted to comparable values.
[[nodiscard]] std::int32_t CompareRecords(Axis axis, const tagKOORD& first, const tagKOORD& second);

}  // namespace tessara

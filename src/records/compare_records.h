// The order of two records along one axis.
#pragma once

#include <cstdint>

#include "records/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

inline constexpr std::int32_t NOT_COMPARABLE = -2;

// 1 when the first lies further north (east), 0 when the two are equal on the axis or the same record, -1
// otherwise, also with a NaN; NOT_COMPARABLE as coordinate_compare.h says.
[[nodiscard]] std::int32_t CompareRecords(Axis axis, const tagKOORD& first, const tagKOORD& second);

}  // namespace tessara

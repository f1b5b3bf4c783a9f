// The constants of all datums, computed at compile time: a conversion points to them instead of copying them.
#pragma once

#include <cstdint>

#include "tessara/kernel/transverse_mercator.h"

namespace tessara {

// Null for an id outside 0..238.
[[nodiscard]] const TmConstants* TmForwardConstants(std::int32_t datum);
[[nodiscard]] const TmConstants* TmInverseConstants(std::int32_t datum);

}  // namespace tessara

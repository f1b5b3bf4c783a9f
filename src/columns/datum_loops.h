// The shift of blocks of positions between two datums.
#pragma once

#include <cstdint>

#include "columns/block_step.h"

namespace tessara {

// For datums 0..238; a step from the hub or to it does nothing.
[[nodiscard]] BlockStep ShiftToHub(std::int32_t datum);
[[nodiscard]] BlockStep ShiftFromHub(std::int32_t datum);

}  // namespace tessara

// The cone of Lambert and van der Grinten's circle for blocks of positions; x and y are `east` and `north`.
#pragma once

#include <cstdint>

#include "columns/block_step.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/lambert.h"

namespace tessara {

// For cones of datums 0..238.
[[nodiscard]] BlockStep ConeForward(const LambertCC& lcc);
[[nodiscard]] BlockStep ConeInverse(const LambertCC& lcc);

// For datums 0..238; the payload has the origin.
[[nodiscard]] BlockStep VdgForward(const VdgPayload& origin, std::int32_t datum);
[[nodiscard]] BlockStep VdgInverse(const VdgPayload& origin, std::int32_t datum);

}  // namespace tessara

// Coordinates of the library by their records.
#pragma once

#include "tessara/tessara.h"

namespace tessara::toolkit {

[[nodiscard]] IRef<ICoord> CoordOf(const tagKOORD& record);

// The record of a coordinate; an empty one for an object that has none.
[[nodiscard]] CKoord KoordOf(ICoord* coord);

}  // namespace tessara::toolkit

// A map that makes a coordinate system usable as a plane of pixels where a caller has none.
#pragma once

#include "tessara/ckoord.h"
#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"

namespace tessara {

// WAGNER-IV on WGS84, 1:100000 and 10 pixels a millimetre, with the position at pixel (0, 0); for a UPS
// position a map of its grid. Empty for a pixel.
[[nodiscard]] IRef<IMapCoordOperations> MakeHelperMap(const CKoord& position);

}  // namespace tessara

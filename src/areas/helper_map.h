// A map that turns a coordinate system into a plane of pixels for callers that pass no map.
#pragma once

#include "tessara/ckoord.h"
#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"

namespace tessara {

// For a UPS position the result is a map of its UPS grid; for any other position it is a WAGNER-IV map on
// WGS84 at 1:100000 with 10 pixels a millimetre and the position at pixel (0, 0). Empty for a pixel.
[[nodiscard]] IRef<IMapCoordOperations> MakeHelperMap(const CKoord& position);

}  // namespace tessara

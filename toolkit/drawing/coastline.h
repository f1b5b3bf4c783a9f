// The coastlines and borders of the world at 1:110 million, from Natural Earth.
#pragma once

#include <vector>

#include "map/picture_point.h"

namespace tessara::toolkit {

// Rings of land; the ring of Antarctica ends 360 degrees east of its start.
[[nodiscard]] const std::vector<EarthLine>& LandRings();
// Borders of countries on land.
[[nodiscard]] const std::vector<EarthLine>& CountryBorders();

}  // namespace tessara::toolkit

// The longitudes of a window beside a pole that crosses the meridian where longitudes start anew: 180, or
// the cut of a cone. Its extremes alone would make such a window reach around the earth.
#pragma once

#include <optional>

#include "areas/extremes.h"
#include "geometry/map_plane.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// The window covers the longitudes from `west` to its eastern extreme and from its western extreme to
// `east`, in degrees with east < west. No part of it lies between `east` and `west`.
struct LongitudeArc {
    double west, east;
};

// Nothing for a window that leaves out no longitude between its extremes: one away from such a meridian, one
// with a pole inside or so close that the samples don't find the gap, and one in a system other than GEODEZ.
[[nodiscard]] std::optional<LongitudeArc> FindLongitudeArc(const MapPlane& map, const PixelRect& window,
                                                           const Extremes& extremes);

}  // namespace tessara

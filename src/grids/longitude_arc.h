// The longitudes of a window beside a pole, across the meridian at which the map's degrees begin anew: 180 or
// where a cone is cut. By its extremes such a window reaches around the earth.
#pragma once

#include <optional>

#include "areas/extremes.h"
#include "geometry/map_plane.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// The window lies between `west` and its eastern extreme and between its western extreme and `east`, in
// degrees with east < west. Between these two there is nothing of it.
struct LongitudeArc {
    double west, east;
};

// Nothing for windows that leave out no longitude between their extremes: those beside no such meridian,
// those with a pole inside or so close that samples don't find the gap, and systems other than GEODEZ.
[[nodiscard]] std::optional<LongitudeArc> FindLongitudeArc(const MapPlane& map, const PixelRect& window,
                                                           const Extremes& extremes);

}  // namespace tessara

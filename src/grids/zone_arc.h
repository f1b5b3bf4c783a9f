// The zones of a window that crosses the end of the zone numbers: at the date line they start anew, and
// around a pole a window may leave some out. Its extremes alone would put such a window into all zones.
#pragma once

#include <cstdint>
#include <optional>

#include "areas/extremes.h"
#include "geometry/map_plane.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// A range of zones from west to east on the ground; it may run from the last number on to the first.
struct ZoneArc {
    std::int32_t first, last;  // zone numbers
    double west, east;  // east values: the window lies between one of the first and one of the last zone
};

// Nothing for a window whose zones follow from its extremes. The zones at the ends of the arc are the
// outermost that samples find in the window; their neighbours may reach into the window by less.
[[nodiscard]] std::optional<ZoneArc> FindZoneArc(const MapPlane& map, const PixelRect& window,
                                                 const Extremes& extremes);

// Moves the record, by its easting, `delta` zones eastward on the ground. False for a system without zones
// and beyond its last zone.
bool MoveAroundEarth(std::int32_t delta, tagKOORD* record);

// The number of zones around the earth; 0 for a system whose zones don't close.
[[nodiscard]] std::int32_t ZonesAroundEarth(std::int32_t system);

}  // namespace tessara

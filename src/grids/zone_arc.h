// The zones of a window that doesn't begin with the first of their numbers and end with the last: over the
// date line they begin anew, and around a pole a window may leave some out. By its extremes such a window
// lies in all zones.
#pragma once

#include <cstdint>
#include <optional>

#include "areas/extremes.h"
#include "geometry/map_plane.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// Zones that follow each other from west to east on the ground, also from the last number to the first.
struct ZoneArc {
    std::int32_t first, last;  // zone numbers
    double west, east;  // east values: the window lies between one of the first and one of the last zone
};

// Nothing for windows whose extremes tell their zones. The zones at the ends of the arc
// are those that samples find in the window; beside them another may reach into the window by less.
[[nodiscard]] std::optional<ZoneArc> FindZoneArc(const MapPlane& map, const PixelRect& window,
                                                 const Extremes& extremes);

// Moves the record, by its easting, into the zone that lies next on the ground, `delta` steps east. False
// without zones and where they end.
bool MoveAroundEarth(std::int32_t delta, tagKOORD* record);

// How many zones there are around the earth; 0 for systems whose zones end.
[[nodiscard]] std::int32_t ZonesAroundEarth(std::int32_t system);

}  // namespace tessara

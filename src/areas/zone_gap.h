// Zones that a window over the date line leaves out. By its extremes such a window lies in the first zone and
// in the last one, and so in all between them, around the earth the long way.
#pragma once

#include <cstdint>
#include <optional>

#include "areas/extremes.h"
#include "geometry/map_plane.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

// Zone numbers from first to last.
struct ZoneGap {
    std::int32_t first, last;

    [[nodiscard]] bool Holds(std::int32_t zone) const { return zone >= first && zone <= last; }
};

// Nothing unless the extremes take in all zones of the system, or all but the outermost, and most of them lie
// outside the window. Beside a zone of the window its neighbour is never in the gap: it may reach into the
// window by less than is seen.
[[nodiscard]] std::optional<ZoneGap> FindZoneGap(const MapPlane& map, const PixelRect& window,
                                                 const Extremes& extremes);

}  // namespace tessara

// The extent of the window of a map.
#pragma once

#include <optional>

#include "map/map_sheet.h"

namespace tessara::toolkit {

// The extremes of the window in a reference.
struct Extremes {
    IRef<ICoord> north, east, south, west;
};

[[nodiscard]] std::optional<Extremes> ExtremesOf(const MapSheet& sheet, const Reference& reference);

struct Extent {  // degrees
    double north, east, south, west;
};

[[nodiscard]] std::optional<Extent> ExtentOf(const MapSheet& sheet, std::int32_t datum);

// At most 180 degrees to either side of the middle of the window.
[[nodiscard]] Extent OnceAround(const MapSheet& sheet, Extent extent);

}  // namespace tessara::toolkit

// Which parts of a grid line a map shows. A map of the world has pixels also for what it doesn't show: places
// beyond half a turn from its middle, and on a polar map places of the other hemisphere.
#pragma once

#include <vector>

#include "map_sheet.h"

namespace tessara::program {

// Of a line in a system, as chains of points in the picture.
[[nodiscard]] std::vector<Polyline> PartsOnMap(const MapSheet& sheet, std::int32_t system,
                                               const IRef<IArray>& line);

}  // namespace tessara::program

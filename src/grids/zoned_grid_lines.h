// The lines of a grid in a system of zones, UTMREF excepted. Each zone of the window has lines of its own,
// and where two zones meet the border is a line, too.
#pragma once

#include "grids/grid_lines.h"

namespace tessara {

bool DrawZonedEastLines(const GridWindow& window, GridPen* pen);
bool DrawZonedNorthLines(const GridWindow& window, GridPen* pen);

}  // namespace tessara

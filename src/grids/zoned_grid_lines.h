// Draws the lines of a grid in a zoned system other than UTMREF. Each zone of the window has its own lines,
// and the border between two zones is drawn as a line, too.
#pragma once

#include "grids/grid_lines.h"

namespace tessara {

bool DrawZonedEastLines(const GridWindow& window, GridPen* pen);
bool DrawZonedNorthLines(const GridWindow& window, GridPen* pen);

}  // namespace tessara

// Draws the lines of a grid over a window.
#pragma once

#include <optional>

#include "areas/extremes.h"
#include "grids/grid_pen.h"
#include "grids/longitude_arc.h"
#include "grids/zone_arc.h"

namespace tessara {

struct GridWindow {
    Extremes extremes;  // of the window, in the system of the grid
    PixelRect rect;     // with left <= right and top <= bottom
    std::optional<ZoneArc> arc;
    std::optional<LongitudeArc> longitudes;
    double eastStep, northStep;
    double finestStep;  // 0.0, or the unit to which the lines will be rounded
};

// Draws the lines on which the axis has a constant value. The system of the extremes must store its values
// as numbers (BNG and ING count as such). False, without a line, if the lines are closer than a thousandth
// of a pixel on average.
bool DrawGridLines(Axis axis, const GridWindow& window, GridPen* pen);

}  // namespace tessara

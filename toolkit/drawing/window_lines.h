// Grid lines and zone borders in a window of latitudes and longitudes, for those who have no map.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "conversion/references.h"
#include "drawing/map_grid_labels.h"
#include "tessara/kernel/koord.h"

namespace tessara::toolkit {

// Degrees on WGS84. West of `west` is its eastern side if it crosses the date line.
struct DegreeWindow {
    double south, west, north, east;
};

// Vertices in degrees on WGS84. Between them the line follows a straight line of latitude and longitude
// within a 16000th of the window. Across the date line longitudes continue beyond 180 degrees.
using DegreeLine = std::vector<GeodezPayload>;

struct WindowLine {
    Axis axis;
    double value;  // of all points on the axis, in units of the system
    std::string label;
    std::optional<std::int32_t> zone;  // of lines of equal east value
    std::vector<DegreeLine> parts;     // in the window
};

struct WindowBorder {
    std::optional<std::int32_t> west, east;  // the zones; empty where the system has none
    std::vector<DegreeLine> parts;
};

// The lines of equal east value from west to east, and those of equal north value from south to north,
// without the borders of zones. There are none outside the area of the system. Throw std::invalid_argument
// for a window or a step that isn't one, a system without grid lines or zones, and more lines than MOST_LINES
// on an axis.
[[nodiscard]] std::vector<WindowLine> LinesInWindow(const DegreeWindow& window, const Reference& reference,
                                                    Axis axis, double step);
[[nodiscard]] std::vector<WindowBorder> BordersInWindow(const DegreeWindow& window,
                                                        const Reference& reference);

}  // namespace tessara::toolkit

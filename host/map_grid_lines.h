// Lines of a grid as they lie in the picture.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "map_grid_labels.h"
#include "map_sheet.h"

namespace tessara::program {

struct GridLine {
    IRef<ICoord> first;
    IRef<ICoord> last;
    std::vector<Polyline> pieces;  // inside the frame
};

// Lines of the library: lists of ICoord.
[[nodiscard]] std::vector<GridLine> PlaceLines(const MapSheet& sheet, IArray* lines);

// More lines than anyone can tell apart.
inline constexpr std::uint32_t MOST_LINES = 2000;

// Whether the window is so wide that there are more, as far as its extremes tell: making them to count them
// would take long.
[[nodiscard]] bool AreTooMany(const MapSheet& sheet, const Reference& reference, Axis axis, double step);

// Whether the window reaches more than half around the earth and the system is one of degrees. Its lines are
// then drawn piece by piece, once around: what comes again, and what has no pixel, as a pole may have none,
// is left out. Nothing where there are more than MOST_LINES.
[[nodiscard]] bool IsGraticule(const MapSheet& sheet, const Reference& reference);
[[nodiscard]] std::optional<std::vector<GridLine>> PlaceGraticule(const MapSheet& sheet,
                                                                  const Reference& reference, Axis axis,
                                                                  double step);

}  // namespace tessara::program

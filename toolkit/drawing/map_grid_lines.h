// Projects the lines of a grid to the picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "drawing/map_grid_labels.h"
#include "map/map_sheet.h"

namespace tessara::toolkit {

struct GridLine {
    IRef<ICoord> first;
    IRef<ICoord> middle;  // one of the points between them, if there are any
    IRef<ICoord> last;
    std::vector<Polyline> pieces;  // inside the frame
};

// A limit for the number of points, because a degenerate map can bend lines without end.
class PointBudget {
  public:
    static constexpr std::size_t MOST_POINTS = 1000000;

    // Returns false once the budget is exceeded.
    bool Take(std::size_t points) {
        taken_ += points;
        return !IsSpent();
    }
    [[nodiscard]] bool IsSpent() const { return taken_ > MOST_POINTS; }

  private:
    std::size_t taken_ = 0;
};

// The largest readable number of lines.
inline constexpr std::uint32_t MOST_LINES = 2000;

// The lines of an axis in the window: those of a grid, or the graticule of a system in degrees.
enum class LinesOutcome {
    ALL,
    SOME,      // the grid cannot place all of them; none if the window has no extremes
    TOO_MANY,  // more than MOST_LINES, by the extremes or by what the grid draws; there are none
    TOO_LONG,  // more than PointBudget::MOST_POINTS; there are none
};

// What the extremes of the window say beforehand, as computing lines to count them would take long: SOME
// without extremes, TOO_MANY, or ALL where the lines may be computed. The step is positive, in units of the
// system.
[[nodiscard]] LinesOutcome ForeseeLines(const MapSheet& sheet, const Reference& reference, Axis axis,
                                        double step);

struct FoundLines {
    LinesOutcome outcome;
    std::vector<GridLine> lines;
};

[[nodiscard]] FoundLines FindLines(const MapSheet& sheet, const Reference& reference, ICoordinateGrid& grid,
                                   Axis axis);

}  // namespace tessara::toolkit

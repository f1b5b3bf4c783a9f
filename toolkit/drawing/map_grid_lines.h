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

// Projects lines of the library, which are lists of ICoord. Empty if they exceed the budget.
[[nodiscard]] std::vector<GridLine> PlaceLines(const MapSheet& sheet, IArray* lines, PointBudget* budget);

// The largest readable number of lines.
inline constexpr std::uint32_t MOST_LINES = 2000;

// Whether the extremes of the window imply more lines; computing the lines to count them would take long.
[[nodiscard]] bool AreTooMany(const MapSheet& sheet, const Reference& reference, Axis axis, double step);

// Whether the window covers more than half of the earth and the system is in degrees. PlaceGraticule draws
// such lines piece by piece, once around the earth, without repetitions and without parts that have no pixel,
// such as a pole. It returns nothing for more than MOST_LINES lines, and incomplete lines if they exceed the
// budget.
[[nodiscard]] bool IsGraticule(const MapSheet& sheet, const Reference& reference);
[[nodiscard]] std::optional<std::vector<GridLine>> PlaceGraticule(const MapSheet& sheet,
                                                                  const Reference& reference, Axis axis,
                                                                  double step, PointBudget* budget);

}  // namespace tessara::toolkit

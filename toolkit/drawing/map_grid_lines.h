// Lines of a grid as they lie in the picture.
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

// How many points lines may have until it takes too long. A map that nobody would draw makes many of a line.
class PointBudget {
  public:
    static constexpr std::size_t MOST_POINTS = 1000000;

    // False from the point on that is one too many.
    bool Take(std::size_t points) {
        taken_ += points;
        return !IsSpent();
    }
    [[nodiscard]] bool IsSpent() const { return taken_ > MOST_POINTS; }

  private:
    std::size_t taken_ = 0;
};

// Lines of the library: lists of ICoord. None where they spend the budget.
[[nodiscard]] std::vector<GridLine> PlaceLines(const MapSheet& sheet, IArray* lines, PointBudget* budget);

// More lines than anyone can tell apart.
inline constexpr std::uint32_t MOST_LINES = 2000;

// Whether the window is so wide that there are more, as far as its extremes tell: making them to count them
// would take long.
[[nodiscard]] bool AreTooMany(const MapSheet& sheet, const Reference& reference, Axis axis, double step);

// Whether the window reaches more than half around the earth and the system is one of degrees. Its lines are
// then drawn piece by piece, once around: what comes again, and what has no pixel, as a pole may have none,
// is left out. Nothing where there are more than MOST_LINES, and only some lines where they spend the budget.
[[nodiscard]] bool IsGraticule(const MapSheet& sheet, const Reference& reference);
[[nodiscard]] std::optional<std::vector<GridLine>> PlaceGraticule(const MapSheet& sheet,
                                                                  const Reference& reference, Axis axis,
                                                                  double step, PointBudget* budget);

}  // namespace tessara::toolkit

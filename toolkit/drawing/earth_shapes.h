// Projects polylines and polygons with segments that are straight in longitude and latitude. The result is
// split where the map continues at another edge, and cut at the limits of the map.
#pragma once

#include <optional>
#include <vector>

#include "drawing/map_extent.h"
#include "drawing/map_grid_lines.h"
#include "map/map_sheet.h"

namespace tessara::toolkit {

class EarthShapes {
  public:
    explicit EarthShapes(const MapSheet& sheet);

    // The parts of a line inside the frame.
    [[nodiscard]] std::vector<Polyline> Line(const EarthLine& line) const;
    // The part of a polygon inside the window, by the even-odd rule. A ring that ends 360 degrees from its
    // start contains the nearer pole.
    [[nodiscard]] std::vector<Polyline> Area(const std::vector<EarthLine>& rings) const;

    // Whether the shapes exceeded the budget of points and are incomplete.
    [[nodiscard]] bool IsSpent() const { return budget_.IsSpent(); }

  private:
    [[nodiscard]] std::vector<EarthLine> Copies(const EarthLine& line) const;
    [[nodiscard]] std::vector<EarthLine> ClosedCopies(const EarthLine& ring) const;
    [[nodiscard]] std::optional<PicturePoint> Shown(const PicturePoint& degrees) const;
    [[nodiscard]] PicturePoint ShownOrBeyond(const PicturePoint& degrees) const;

    const MapSheet& sheet_;
    mutable PointBudget budget_;
    std::optional<Extent> extent_;  // the extent of the map with a margin
    std::optional<GeodezPayload> centre_;
    double nearby_ =
        0.0;  // metres; a distance from the middle that stays within the window in all directions
};

}  // namespace tessara::toolkit

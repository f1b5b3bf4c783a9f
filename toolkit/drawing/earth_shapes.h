// Polylines and polygons whose segments are straight in longitude and latitude, as a map shows them: split
// where the map ends and goes on at another rim, cut off where it shows nothing of them.
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

    // Inside the frame.
    [[nodiscard]] std::vector<Polyline> Line(const EarthLine& line) const;
    // What a polygon covers of the window, with an even-odd rule. A ring whose end is its start a turn
    // further on has the nearer pole in it.
    [[nodiscard]] std::vector<Polyline> Area(const std::vector<EarthLine>& rings) const;

    // Whether what was drawn bends so often that it takes too long: it isn't complete then.
    [[nodiscard]] bool IsSpent() const { return budget_.IsSpent(); }

  private:
    [[nodiscard]] std::vector<EarthLine> Copies(const EarthLine& line) const;
    [[nodiscard]] std::vector<EarthLine> ClosedCopies(const EarthLine& ring) const;
    [[nodiscard]] std::optional<PicturePoint> Shown(const PicturePoint& degrees) const;
    [[nodiscard]] PicturePoint ShownOrBeyond(const PicturePoint& degrees) const;

    const MapSheet& sheet_;
    mutable PointBudget budget_;
    std::optional<Extent> extent_;  // what the map shows, and a little more
    std::optional<GeodezPayload> centre_;
    double nearby_ = 0.0;  // metres: within the window, wherever one goes from its middle
};

}  // namespace tessara::toolkit

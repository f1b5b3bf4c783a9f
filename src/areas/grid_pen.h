// Draws the lines of a grid on a map and hands them on.
#pragma once

#include <cmath>
#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "geometry/densify.h"

namespace tessara {

using GridLine = std::vector<CKoord>;
// Takes a line; false ends the drawing, which has then failed.
using GridLineSink = std::function<bool(const GridLine&)>;

class GridPen {
  public:
    GridPen(const MapPlane& map, GridLineSink sink) : map_(map), sink_(std::move(sink)) {}

    // Adds the chain from a place to another to the end of a line. False as densify.h says; the line is then
    // unchanged.
    bool Append(const CKoord& from, const CKoord& to, DensifyMode mode, GridLine* line) {
        GridLine piece;
        if (!DensifyOnMap(map_, from, to, mode, DEFAULT_PIXEL_TOLERANCE, &piece)) return false;
        if (!Spend(piece.size())) return false;
        line->insert(line->end(), piece.begin(), piece.end());
        return true;
    }

    bool Finish(const GridLine& line) { return sink_(line); }

    // Counts what a line takes, in points. False when the pen has done as much as it ever does.
    bool Spend(std::size_t points) {
        spent_ += points;
        return spent_ <= MOST_POINTS;
    }

    // A line of one piece.
    bool Draw(const CKoord& from, const CKoord& to, DensifyMode mode = DensifyMode::CoordStraight) {
        GridLine line;
        return Append(from, to, mode, &line) && Finish(line);
    }

    // Whether two places lie no more than a pixel apart on each axis.
    [[nodiscard]] bool IsWithinAPixel(const CKoord& a, const CKoord& b) const {
        PlanePoint p{};
        PlanePoint q{};
        return map_.ToPlane(a, &p) && map_.ToPlane(b, &q) && std::fabs(p.x - q.x) <= 1.0 &&
               std::fabs(p.y - q.y) <= 1.0;
    }

  private:
    // The grid of a kilometre on a map of the world at 1:1000000 has some fifteen million. As objects these
    // points fill three gigabytes.
    static constexpr std::size_t MOST_POINTS = 20000000;

    const MapPlane& map_;
    GridLineSink sink_;
    std::size_t spent_ = 0;
};

}  // namespace tessara

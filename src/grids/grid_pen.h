// Draws the lines of a grid on a map and hands them on.
#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

#include "geometry/densify.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara {

using GridLine = std::vector<CKoord>;
// Takes a line; false ends the drawing, which has then failed.
using GridLineSink = std::function<bool(const GridLine&)>;

class GridPen {
  public:
    // The window has left <= right and top <= bottom.
    GridPen(const MapPlane& map, const PixelRect& window, GridLineSink sink)
        : map_(map), window_(window), sink_(std::move(sink)) {}

    // Adds the polyline from a place to another to the end of a line. False as densify.h says; the line is
    // then unchanged.
    bool Append(const CKoord& from, const CKoord& to, DensifyMode mode, GridLine* line);

    bool Finish(const GridLine& line) { return sink_(line); }

    // Counts what a line takes, in points. False when the pen has done as much as it ever does.
    bool Spend(std::size_t points) {
        spent_ += points;
        return spent_ <= MOST_POINTS;
    }

    // A line of pieces end to end; true and no line where it passes by the window: a zone's share of the
    // extremes is wider than its share of the window. A line lies beside its polyline by the densifier's
    // tolerance, and by more at the limit of its pieces, so that one that passes the window by no more is
    // drawn, too.
    struct Piece {
        CKoord from, to;
    };
    bool DrawNearWindow(const std::vector<Piece>& pieces);
    bool DrawNearWindow(const CKoord& from, const CKoord& to) { return DrawNearWindow({{from, to}}); }

    // A line along the border of a zone, where it touches the window, to half a pixel.
    bool DrawBorder(const CKoord& from, const CKoord& to);

    // Whether a border does. False also where it has no place on the map.
    [[nodiscard]] bool IsBorderInWindow(const CKoord& from, const CKoord& to) const;

    // Whether two places lie no more than a pixel apart on each axis.
    [[nodiscard]] bool IsWithinAPixel(const CKoord& a, const CKoord& b) const;

    // Whether so many lines are more than any window of this size can tell apart: then it's worth while to
    // measure how closely they lie.
    [[nodiscard]] bool AreMany(double lines) const;

    // How far, in pixels, it is through some places. One that has none on the map is as far away as the
    // window is wide.
    [[nodiscard]] double WayThrough(const std::vector<CKoord>& places) const;

    // Of lines no further apart, on average, nobody sees any.
    static constexpr double LINES_OF_A_PIXEL = 1000.0;

  private:
    // The grid of a kilometre on a map of the world at 1:1000000 has some fifteen million.
    static constexpr std::size_t MOST_POINTS = 20000000;

    const MapPlane& map_;
    PixelRect window_;
    GridLineSink sink_;
    std::size_t spent_ = 0;
};

}  // namespace tessara

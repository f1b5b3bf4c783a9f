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
// Receives a line. Returning false ends the drawing as a failure.
using GridLineSink = std::function<bool(const GridLine&)>;

class GridPen {
  public:
    // The window has left <= right and top <= bottom.
    GridPen(const MapPlane& map, const PixelRect& window, GridLineSink sink)
        : map_(map), window_(window), sink_(std::move(sink)) {}

    // Appends the polyline between two places to a line. False if the densifier fails or the pen has reached
    // its limit; the line is then unchanged.
    bool Append(const CKoord& from, const CKoord& to, DensifyMode mode, GridLine* line);

    bool Finish(const GridLine& line) { return sink_(line); }

    // Adds to the number of points drawn or tried. False when that exceeds MOST_POINTS.
    bool Spend(std::size_t points) {
        spent_ += points;
        return spent_ <= MOST_POINTS;
    }

    // Draws a line of pieces end to end, or nothing (and returns true) if it passes the window by: a zone's
    // share of the extremes is larger than its share of the window. A line deviates from its polyline by the
    // densifier's tolerance, or by more where the densifier stops at its limit; lines that miss the window
    // by no more than that are drawn, too.
    struct Piece {
        CKoord from, to;
    };
    bool DrawNearWindow(const std::vector<Piece>& pieces);
    bool DrawNearWindow(const CKoord& from, const CKoord& to) { return DrawNearWindow({{from, to}}); }

    // Draws a line along the border of a zone if it touches the window, to half a pixel.
    bool DrawBorder(const CKoord& from, const CKoord& to);

    // Whether such a border touches the window. False also if the border has no place on the map.
    [[nodiscard]] bool IsBorderInWindow(const CKoord& from, const CKoord& to) const;

    // Whether two places are at most one pixel apart on each axis.
    [[nodiscard]] bool IsWithinAPixel(const CKoord& a, const CKoord& b) const;

    // Whether there are more lines than a window of this size can show. Only then is their spacing measured.
    [[nodiscard]] bool AreMany(double lines) const;

    // The length in pixels of the way through some places. A place that has no pixel counts as far away as
    // the diagonal of the window.
    [[nodiscard]] double WayThrough(const std::vector<CKoord>& places) const;

    // The density from which lines are refused: so many to a pixel, on average.
    static constexpr double LINES_OF_A_PIXEL = 1000.0;

  private:
    // A grid of one kilometre on a map of the world at 1:1000000 has some fifteen million points.
    static constexpr std::size_t MOST_POINTS = 20000000;

    const MapPlane& map_;
    PixelRect window_;
    GridLineSink sink_;
    std::size_t spent_ = 0;
};

}  // namespace tessara

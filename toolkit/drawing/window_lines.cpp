#include "drawing/window_lines.h"

#include <cmath>
#include <stdexcept>
#include <utility>

#include "conversion/made.h"
#include "conversion/names.h"
#include "conversion/numbers.h"
#include "conversion/units.h"
#include "drawing/map_grid_lines.h"
#include "drawing/zone_borders.h"
#include "map/map_grids.h"
#include "map/map_sheet.h"

namespace tessara::toolkit {
namespace {

// Of the square map that the window becomes; a quarter of a pixel is a 16384th of its side.
constexpr double SIDE = 4096.0;

void Check(const DegreeWindow& window) {
    if (!(-POLE <= window.south && window.south < window.north && window.north <= POLE))
        throw std::invalid_argument("the window has no latitudes; expected south below north in -90..90");
    for (const double longitude : {window.west, window.east}) {
        if (!(std::abs(longitude) <= FULL_TURN))
            throw std::invalid_argument("longitude '" + FormatNumber(longitude) + "' is outside -360..360");
    }
    const double width = window.east - window.west;
    if (width == 0.0 || width > FULL_TURN)
        throw std::invalid_argument(
            "the window has no longitudes; expected at most 360 degrees from west to east");
}

// A map of latitude and longitude over a window.
class WindowSheet {
  public:
    explicit WindowSheet(const DegreeWindow& window)
        : window_(Ordered(window)), sheet_(Description(window_), {0.0, 0.0, SIDE, SIDE}, SIDE) {}

    [[nodiscard]] std::vector<GridLine> Lines(const Reference& reference, Axis axis, double step) const {
        const IRef<ICoordinateGrid> grid = MakeGrid(sheet_, reference, step, step);
        if (!grid.IsValid()) return {};
        FoundLines found = FindLines(sheet_, reference, *grid.Get(), axis);
        switch (found.outcome) {
            case LinesOutcome::ALL:
                break;
            case LinesOutcome::SOME:
                throw std::invalid_argument("the window has no complete grid of " + reference.Name());
            case LinesOutcome::TOO_MANY:
                throw std::invalid_argument("the window has more than " + std::to_string(MOST_LINES) +
                                            " lines of " + reference.Name() + " with this step");
            case LinesOutcome::TOO_LONG:
                throw std::invalid_argument("the lines of " + reference.Name() + " have more than " +
                                            std::to_string(PointBudget::MOST_POINTS) +
                                            " points with this step");
        }
        return std::move(found.lines);
    }

    [[nodiscard]] std::vector<DegreeLine> Degrees(const std::vector<Polyline>& pieces) const {
        std::vector<DegreeLine> lines;
        lines.reserve(pieces.size());
        for (const Polyline& piece : pieces) {
            DegreeLine& line = lines.emplace_back();
            line.reserve(piece.size());
            for (const PicturePoint& point : piece)
                line.push_back({std::lerp(window_.north, window_.south, point.y / SIDE),
                                std::lerp(window_.west, window_.east, point.x / SIDE), 0.0});
        }
        return lines;
    }

  private:
    static DegreeWindow Ordered(DegreeWindow window) {
        Check(window);
        if (window.east < window.west) window.east += FULL_TURN;
        return window;
    }

    static SheetDescription Description(const DegreeWindow& window) {
        const MapDdParams params{window.west, window.north, SIDE / (window.east - window.west),
                                 SIDE / (window.north - window.south)};
        const IRef<IProjectionFactory> factory = Made(CreateClassProjectionFactory());
        return {.projection = IRef<IProjection>(factory->CreateDd(&params)), .references = {}};
    }

    DegreeWindow window_;
    MapSheet sheet_;
};

}  // namespace

std::vector<WindowLine> LinesInWindow(const DegreeWindow& window, const Reference& reference, Axis axis,
                                      double step) {
    const WindowSheet sheet(window);
    if (!HasGrid(reference.system) || IsPixel(reference.system))
        throw std::invalid_argument(SystemName(reference.system) + " has no grid lines");
    if (!(step > 0.0 && std::isfinite(step)))
        throw std::invalid_argument("invalid step '" + FormatNumber(step) + "'; expected a number above 0");
    const bool isEast = axis == Axis::East;
    std::vector<WindowLine> lines;
    for (const GridLine& line : sheet.Lines(reference, axis, step)) {
        if (line.pieces.empty() || (isEast && ZonesBeside(line, reference))) continue;
        ICoord* const first = line.first.Get();
        lines.push_back({axis, AxisValue(first, axis).value_or(NAN), AxisText(first, axis, step),
                         isEast ? ZoneOf(first) : std::nullopt, sheet.Degrees(line.pieces)});
    }
    return lines;
}

std::vector<WindowBorder> BordersInWindow(const DegreeWindow& window, const Reference& reference) {
    const WindowSheet sheet(window);
    if (!HasZones(reference)) throw std::invalid_argument(SystemName(reference.system) + " has no zones");
    std::vector<WindowBorder> borders;
    for (const GridLine& line : sheet.Lines(reference, Axis::East, STEP_BEYOND_ZONES)) {
        const std::optional<BorderZones> zones = ZonesBeside(line, reference);
        if (zones && !line.pieces.empty())
            borders.push_back({zones->west, zones->east, sheet.Degrees(line.pieces)});
    }
    return borders;
}

}  // namespace tessara::toolkit

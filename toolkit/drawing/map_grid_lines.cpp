#include "drawing/map_grid_lines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "conversion/made.h"
#include "conversion/units.h"
#include "drawing/capped_array.h"
#include "drawing/clipping.h"
#include "drawing/map_drawing.h"
#include "drawing/map_extent.h"
#include "map/map_grids.h"

namespace tessara::toolkit {
namespace {

constexpr double LEAST_METRES_PER_DEGREE = 1e5;  // a tenth less than on any ellipsoid
constexpr double PIECE = 5.0;                    // degrees; the length of a piece
constexpr int PIECE_HALVINGS = 6;
constexpr int HALVINGS_TO_AN_END = 16;
constexpr double SHORTEST_LINE = 1.0;  // picture units
constexpr double STEP_SLACK = 1e-9;    // for rounding, in steps

constexpr std::size_t POINTS_OF_A_FAILURE = 10;  // the approximate cost of a piece outside the map

// A pole has a constant north value, too.
bool IsSeen(const Polyline& piece) {
    return std::any_of(piece.begin(), piece.end(), [&](const PicturePoint& point) {
        return std::hypot(point.x - piece.front().x, point.y - piece.front().y) >= SHORTEST_LINE;
    });
}

// Appends points of polylines to the last part. Between a point on the map and one outside it, the part
// continues up to the limit of the map.
class PartWriter {
  public:
    PartWriter(const MapSheet& sheet, std::vector<Polyline>* parts) : sheet_(sheet), parts_(*parts) {}

    void Append(IArray* chain) {
        IRef<ICoord> last;
        bool isLastShown = false;
        for (std::uint32_t i = 0; i < chain->GetCount(); ++i) {
            const IRef<ICoord> coord = Made(IRef<ICoord>(chain->GetAt(i)));
            const auto at = sheet_.ShownPointOf(coord.Get());
            const bool isShown = at.has_value();
            if (last.IsValid() && isShown && !isLastShown) Add(EndOfShown(coord, last));
            if (last.IsValid() && !isShown && isLastShown) Add(EndOfShown(last, coord));
            if (isShown) {
                Add(at);
            } else {
                parts_.emplace_back();
            }
            last = coord;
            isLastShown = isShown;
        }
    }

  private:
    void Add(const std::optional<PicturePoint>& at) {
        if (at && (parts_.back().empty() || !(parts_.back().back() == *at))) parts_.back().push_back(*at);
    }

    [[nodiscard]] std::optional<PicturePoint> EndOfShown(IRef<ICoord> shown, IRef<ICoord> hidden) const {
        const IRef<ICoordinateAverage> average = Made(CreateClassCoordinateAverage());
        for (int i = 0; i < HALVINGS_TO_AN_END; ++i) {
            const IRef<ICoord> middle = Made(CreateClassCoord());
            if (!average->Average(shown.Get(), hidden.Get(), middle.Get())) break;
            (sheet_.ShownPointOf(middle.Get()) ? shown : hidden) = middle;
        }
        return sheet_.ShownPointOf(shown.Get());
    }

    const MapSheet& sheet_;
    std::vector<Polyline>& parts_;
};

std::vector<Polyline> Clip(const MapSheet& sheet, const std::vector<Polyline>& parts) {
    std::vector<Polyline> pieces;
    for (const Polyline& part : parts) {
        for (Polyline& piece : ClipToFrame(part, sheet.Width(), sheet.Height())) {
            if (IsSeen(piece)) pieces.push_back(std::move(piece));
        }
    }
    return pieces;
}

double DegreesAcross(const Extent& extent, Axis axis) {
    return axis == Axis::East ? extent.east - extent.west : extent.north - extent.south;
}

// A lower bound in metres, along the widest parallel or along a meridian.
double MetresAcross(const Extent& extent, Axis axis) {
    const double metres = DegreesAcross(extent, axis) * LEAST_METRES_PER_DEGREE;
    if (axis == Axis::North) return metres;
    const double widest = std::clamp(0.0, extent.south, std::max(extent.south, extent.north));
    return metres * std::max(0.0, std::cos(widest * RADIANS_PER_DEGREE));
}

// A lower bound in units of the system; none if the window has no extremes, so that lines in it, if any,
// couldn't be counted before they are drawn.
std::optional<double> WayAcross(const MapSheet& sheet, const Reference& reference, Axis axis) {
    const bool isEast = axis == Axis::East;
    if (IsPixel(reference.system)) return isEast ? sheet.MapWindow().Width() : sheet.MapWindow().Height();
    const bool isInDegrees = IsDegrees(reference.system) || reference.system == KOORD_GEOREF;
    if (isInDegrees || HasZones(reference)) {
        const std::optional<Extent> extent = ExtentOf(sheet, reference.datum);
        if (!extent) return std::nullopt;
        return isInDegrees ? DegreesAcross(*extent, axis) : MetresAcross(*extent, axis);
    }
    const std::optional<Extremes> extremes = ExtremesOf(sheet, reference);
    if (!extremes) return std::nullopt;
    return isEast ? IRef<ICoordInternal>(extremes->west)->EastDifference(extremes->east.Get())
                  : IRef<ICoordInternal>(extremes->south)->NorthDifference(extremes->north.Get());
}

class GraticuleLine {
  public:
    GraticuleLine(const MapSheet& sheet, const Reference& reference, PointBudget* budget)
        : sheet_(sheet), reference_(reference), lines_(Made(CreateClassLinePoints())), budget_(*budget) {
        lines_->SetPixelTolerance(LINE_TOLERANCE / sheet.Zoom());
    }

    // The range of the other axis, in degrees.
    [[nodiscard]] GridLine Draw(Axis axis, double value, double from, double to) const {
        std::vector<Polyline> parts(1);
        const double count = std::max(1.0, std::ceil((to - from) / PIECE));
        for (double i = 0.0; i < count; ++i)
            AddPiece(axis, value, from + (to - from) * (i / count), from + (to - from) * ((i + 1.0) / count),
                     PIECE_HALVINGS, &parts);
        return {At(axis, value, from), At(axis, value, (from + to) / 2.0), At(axis, value, to),
                Clip(sheet_, parts)};
    }

  private:
    // The parts on the map of a piece that crosses its limit.
    void AddPiece(Axis axis, double value, double from, double to, int halvings,
                  std::vector<Polyline>* parts) const {
        if (budget_.IsSpent()) return;
        const IRef<IArray> chain = Made(CreateClassArray());
        if (lines_->DensifyCoordStraight(sheet_.Map(), At(axis, value, from).Get(), At(axis, value, to).Get(),
                                         chain.Get())) {
            budget_.Take(chain->GetCount());
            PartWriter(sheet_, parts).Append(chain.Get());
            return;
        }
        budget_.Take(POINTS_OF_A_FAILURE);
        if (halvings > 0) {
            const double middle = (from + to) / 2.0;
            AddPiece(axis, value, from, middle, halvings - 1, parts);
            AddPiece(axis, value, middle, to, halvings - 1, parts);
        } else {
            parts->emplace_back();
        }
    }

    [[nodiscard]] IRef<ICoord> At(Axis axis, double value, double other) const {
        IRef<ICoord> coord = axis == Axis::East ? DegreesCoord(other, value, reference_.datum)
                                                : DegreesCoord(value, other, reference_.datum);
        coord->SetReference(MakeReference(reference_).Get());
        return coord;
    }

    const MapSheet& sheet_;
    Reference reference_;
    IRef<ILinePoints> lines_;
    PointBudget& budget_;
};

// Lines of the library, which are lists of ICoord. Empty if they exceed the budget.
std::vector<GridLine> PlaceLines(const MapSheet& sheet, IArray* lines, PointBudget* budget) {
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        const IRef<IArray> points = Made(IRef<IArray>(lines->GetAt(i)));
        if (points.IsValid() && !budget->Take(points->GetCount())) return {};
    }
    std::vector<GridLine> placed;
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        const IRef<IArray> points = Made(IRef<IArray>(lines->GetAt(i)));
        if (!points.IsValid() || points->GetCount() < 2) continue;
        std::vector<Polyline> parts(1);
        PartWriter(sheet, &parts).Append(points.Get());
        const std::uint32_t last = points->GetCount() - 1;
        placed.push_back({Made(IRef<ICoord>(points->GetAt(0))),
                          Made(IRef<ICoord>(points->GetAt(last / 2 + last % 2))),
                          Made(IRef<ICoord>(points->GetAt(last))), Clip(sheet, parts)});
    }
    return placed;
}

// Whether the window covers more than half of the earth and the system is in degrees. Such lines are drawn
// piece by piece, once around the earth, without repetitions and without parts that have no pixel, such as a
// pole.
bool IsGraticule(const MapSheet& sheet, const Reference& reference) {
    if (!IsDegrees(reference.system)) return false;
    const std::optional<Extent> extent = ExtentOf(sheet, reference.datum);
    return extent && extent->east - extent->west > HALF_TURN;
}

// Nothing for more than MOST_LINES lines, and incomplete lines if they exceed the budget.
std::optional<std::vector<GridLine>> PlaceGraticule(const MapSheet& sheet, const Reference& reference,
                                                    Axis axis, double step, PointBudget* budget) {
    const std::optional<Extent> whole = ExtentOf(sheet, reference.datum);
    if (!whole) return std::nullopt;
    const Extent extent = OnceAround(sheet, *whole);
    const bool isEast = axis == Axis::East;
    const double first = std::ceil((isEast ? extent.west : extent.south) / step - STEP_SLACK);
    const double last = std::floor((isEast ? extent.east : extent.north) / step + STEP_SLACK);
    if (!(last - first < MOST_LINES)) return std::nullopt;

    const GraticuleLine line(sheet, reference, budget);
    std::vector<GridLine> lines;
    for (double i = first; i <= last && !budget->IsSpent(); ++i) {
        const double from = isEast ? extent.south : extent.west;
        lines.push_back(line.Draw(axis, i * step + 0.0, from, isEast ? extent.north : extent.east));
    }
    return lines;
}

}  // namespace

LinesOutcome ForeseeLines(const MapSheet& sheet, const Reference& reference, Axis axis, double step) {
    const std::optional<double> way = WayAcross(sheet, reference, axis);
    if (!way) return LinesOutcome::SOME;
    return *way > step * MOST_LINES ? LinesOutcome::TOO_MANY : LinesOutcome::ALL;
}

FoundLines FindLines(const MapSheet& sheet, const Reference& reference, ICoordinateGrid& grid, Axis axis) {
    const double step = axis == Axis::East ? grid.GetEastStep() : grid.GetNorthStep();
    PointBudget budget;
    if (IsGraticule(sheet, reference)) {
        std::optional<std::vector<GridLine>> lines = PlaceGraticule(sheet, reference, axis, step, &budget);
        if (!lines) return {LinesOutcome::TOO_MANY, {}};
        if (budget.IsSpent()) return {LinesOutcome::TOO_LONG, {}};
        return {LinesOutcome::ALL, std::move(*lines)};
    }
    const LinesOutcome foreseen = ForeseeLines(sheet, reference, axis, step);
    if (foreseen != LinesOutcome::ALL) return {foreseen, {}};
    const IRef<IArray> lines = Made<IArray>(NewObject<CappedArray>(MOST_LINES + 1));
    const bool isComplete =
        axis == Axis::East ? grid.GetEastLines(lines.Get()) : grid.GetNorthLines(lines.Get());
    if (lines->GetCount() > MOST_LINES) return {LinesOutcome::TOO_MANY, {}};
    std::vector<GridLine> placed = PlaceLines(sheet, lines.Get(), &budget);
    if (budget.IsSpent()) return {LinesOutcome::TOO_LONG, {}};
    return {isComplete ? LinesOutcome::ALL : LinesOutcome::SOME, std::move(placed)};
}

}  // namespace tessara::toolkit

#include "map_grid_lines.h"

#include <algorithm>
#include <cmath>

#include "clipping.h"
#include "tessara/host/rect.h"
#include "typed_position.h"

namespace tessara::program {
namespace {

constexpr double HALF_TURN = 180.0;
constexpr double PIECE = 5.0;  // degrees; of a line that is drawn in pieces
constexpr int MOST_HALVINGS = 6;
constexpr double ANOTHER_PLACE = 1.0;    // degrees of latitude
constexpr double SHORTEST_LINE = 1.0;    // picture units
constexpr double SLACK = 1e-9;           // of rounding, in steps
constexpr double LINE_TOLERANCE = 0.25;  // picture units

// The pole is a line of equal north value, too.
bool IsSeen(const Polyline& piece) {
    return std::any_of(piece.begin(), piece.end(), [&](const PicturePoint& point) {
        return std::hypot(point.x - piece.front().x, point.y - piece.front().y) >= SHORTEST_LINE;
    });
}

// Nothing also where the map shows another place on the pixel, as polar maps do for the other hemisphere.
std::optional<PicturePoint> ShownPointOf(const MapSheet& sheet, ICoord* coord) {
    const std::optional<PicturePoint> at = sheet.PointOf(coord);
    const std::optional<GeodezPayload> degrees = sheet.NearDegreesOf(coord);
    if (!at || !degrees) return at;
    const std::optional<GeodezPayload> shown = sheet.DegreesAt(*at);
    const bool isOther = shown && std::abs(shown->latitude - degrees->latitude) > ANOTHER_PLACE;
    return isOther ? std::nullopt : at;
}

// Adds the points of a chain to parts, of which the last goes on.
void Append(const MapSheet& sheet, IArray* chain, std::vector<Polyline>* parts) {
    for (std::uint32_t i = 0; i < chain->GetCount(); ++i) {
        const auto at = ShownPointOf(sheet, IRef<ICoord>(chain->GetAt(i)).Get());
        if (!at) {
            parts->emplace_back();
        } else if (parts->back().empty() || !(parts->back().back() == *at)) {
            parts->back().push_back(*at);
        }
    }
}

std::vector<Polyline> Clip(const MapSheet& sheet, const std::vector<Polyline>& parts) {
    std::vector<Polyline> pieces;
    for (const Polyline& part : parts) {
        for (Polyline& piece : ClipToFrame(part, sheet.Width(), sheet.Height())) {
            if (IsSeen(piece)) pieces.push_back(std::move(piece));
        }
    }
    return pieces;
}

struct Extent {  // degrees
    double north, east, south, west;
};

std::optional<Extent> ExtentOf(const MapSheet& sheet, std::int32_t datum) {
    const auto whole = [](double pixel) { return static_cast<std::int32_t>(std::lround(pixel)); };
    const Window& window = sheet.MapWindow();
    const IRef<IRect> rect(NewObject<host::Rect>(whole(window.left), whole(window.top), whole(window.right),
                                                 whole(window.bottom)));
    const IRef<ICoord> points[] = {DegreesCoord(0.0, 0.0, datum), DegreesCoord(0.0, 0.0, datum),
                                   DegreesCoord(0.0, 0.0, datum), DegreesCoord(0.0, 0.0, datum)};
    const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
    if (!area->GetMapRectExtremes(sheet.Map(), rect.Get(), points[0].Get(), points[1].Get(), points[2].Get(),
                                  points[3].Get()))
        return std::nullopt;
    const auto value = [&points](std::size_t i, Axis axis) {
        return AxisValue(points[i].Get(), axis).value_or(0.0);
    };
    return Extent{value(0, Axis::NORTH), value(1, Axis::EAST), value(2, Axis::NORTH), value(3, Axis::EAST)};
}

Extent OnceAround(const MapSheet& sheet, Extent extent) {
    extent.west = std::max(extent.west, sheet.CentreLongitude() - HALF_TURN);
    extent.east = std::min(extent.east, sheet.CentreLongitude() + HALF_TURN);
    return extent;
}

class GraticuleLine {
  public:
    GraticuleLine(const MapSheet& sheet, const Reference& reference)
        : sheet_(sheet), reference_(reference), lines_(CreateClassLinePoints()) {
        lines_->SetPixelTolerance(LINE_TOLERANCE / sheet.Zoom());
    }

    // From one end to the other, in degrees of the other axis.
    [[nodiscard]] GridLine Draw(Axis axis, double value, double from, double to) const {
        std::vector<Polyline> parts(1);
        const double count = std::max(1.0, std::ceil((to - from) / PIECE));
        for (double i = 0.0; i < count; ++i)
            AddPiece(axis, value, from + (to - from) * (i / count), from + (to - from) * ((i + 1.0) / count),
                     MOST_HALVINGS, &parts);
        return {At(axis, value, from), At(axis, value, to), Clip(sheet_, parts)};
    }

  private:
    // Of a piece that isn't on the map as a whole the parts that are.
    void AddPiece(Axis axis, double value, double from, double to, int halvings,
                  std::vector<Polyline>* parts) const {
        const IRef<IArray> chain(CreateClassArray());
        if (lines_->DensifyCoordStraight(sheet_.Map(), At(axis, value, from).Get(), At(axis, value, to).Get(),
                                         chain.Get())) {
            Append(sheet_, chain.Get(), parts);
        } else if (halvings > 0) {
            const double middle = (from + to) / 2.0;
            AddPiece(axis, value, from, middle, halvings - 1, parts);
            AddPiece(axis, value, middle, to, halvings - 1, parts);
        } else {
            parts->emplace_back();
        }
    }

    [[nodiscard]] IRef<ICoord> At(Axis axis, double value, double other) const {
        IRef<ICoord> coord = axis == Axis::EAST ? DegreesCoord(other, value, reference_.datum)
                                                : DegreesCoord(value, other, reference_.datum);
        coord->SetReference(MakeReference(reference_).Get());
        return coord;
    }

    const MapSheet& sheet_;
    Reference reference_;
    IRef<ILinePoints> lines_;
};

}  // namespace

std::vector<GridLine> PlaceLines(const MapSheet& sheet, IArray* lines) {
    std::vector<GridLine> placed;
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        const IRef<IArray> points(lines->GetAt(i));
        if (!points.IsValid() || points->GetCount() < 2) continue;
        std::vector<Polyline> parts(1);
        Append(sheet, points.Get(), &parts);
        placed.push_back({IRef<ICoord>(points->GetAt(0)), IRef<ICoord>(points->GetAt(points->GetCount() - 1)),
                          Clip(sheet, parts)});
    }
    return placed;
}

bool IsGraticule(const MapSheet& sheet, const Reference& reference) {
    const bool isInDegrees = reference.system == KOORD_GEODEZ || reference.system == KOORD_GEOGRAD ||
                             reference.system == KOORD_GEODEZMIN;
    if (!isInDegrees) return false;
    const std::optional<Extent> extent = ExtentOf(sheet, reference.datum);
    return extent && extent->east - extent->west > HALF_TURN;
}

std::optional<std::vector<GridLine>> PlaceGraticule(const MapSheet& sheet, const Reference& reference,
                                                    Axis axis, double step) {
    const std::optional<Extent> whole = ExtentOf(sheet, reference.datum);
    if (!whole) return std::nullopt;
    const Extent extent = OnceAround(sheet, *whole);
    const bool isEast = axis == Axis::EAST;
    const double first = std::ceil((isEast ? extent.west : extent.south) / step - SLACK);
    const double last = std::floor((isEast ? extent.east : extent.north) / step + SLACK);
    if (!(last - first < MOST_LINES)) return std::nullopt;

    const GraticuleLine line(sheet, reference);
    std::vector<GridLine> lines;
    for (double i = first; i <= last; ++i) {
        const double from = isEast ? extent.south : extent.west;
        lines.push_back(line.Draw(axis, i * step + 0.0, from, isEast ? extent.north : extent.east));
    }
    return lines;
}

}  // namespace tessara::program

#include "drawing/map_grid_layer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "conversion/names.h"
#include "conversion/numbers.h"
#include "drawing/map_grid_labels.h"
#include "drawing/map_grid_lines.h"
#include "drawing/map_squares.h"
#include "drawing/map_styles.h"
#include "drawing/zone_borders.h"
#include "map/map_grids.h"
#include "tessara/kernel/systems.h"

namespace tessara::toolkit {
namespace {

constexpr std::size_t MOST_LABELS = 4 * std::size_t{MOST_LINES};  // the time is quadratic in this number

constexpr double SQUARE_SIZE = 18.0;
constexpr double CLOSE_BORDERS = 60.0;  // picture units from one to the next

constexpr double LABEL_CLEARANCE = 4.0;  // picture units

// The name of a border; empty for other lines.
std::string BorderText(const GridLine& line, const Reference& reference) {
    const std::optional<BorderZones> zones = ZonesBeside(line, reference);
    if (!zones) return {};
    const auto text = [](std::optional<std::int32_t> zone) { return zone ? std::to_string(*zone) : "-"; };
    return "zone " + text(zones->west) + " | " + text(zones->east);
}

class GridDrawer {
  public:
    GridDrawer(const MapSheet& sheet, const Layer& layer, const Reference& reference)
        : sheet_(sheet), layer_(layer), reference_(reference) {}

    void DrawLines(ICoordinateGrid& grid, Axis axis, const Style& style) {
        const std::string name = NameOf(axis);
        const double step = StepOf(grid, axis);
        Shape lines{Rank::GRID, "grid " + name, {}, style};
        FrameLabels labels{"grid-label " + name, style.stroke, {}};
        std::int64_t index = 0;
        for (const GridLine& line : LinesOf(grid, axis)) {
            const std::string border = axis == Axis::East ? BorderText(line, reference_) : "";
            if (!border.empty()) {
                borders_.emplace_back(line, border);
                continue;
            }
            const double value =
                AxisValue(line.first.Get(), axis).value_or(static_cast<double>(index) * step);
            const std::int64_t ordinal = std::llround(value / step);
            AddLabels(line, axis, AxisText(line.first.Get(), axis, step), ordinal, &labels);
            lines.paths.insert(lines.paths.end(), line.pieces.begin(), line.pieces.end());
            ++index;
        }
        drawing_.shapes.push_back(std::move(lines));
        drawing_.frameLabels.push_back(std::move(labels));
    }

    // Draws the borders found among the grid lines.
    void DrawBorders(const Style& style) {
        Shape shape{Rank::BORDER, "border", {}, style};
        FrameLabels labels{"border-label", style.stroke, {}};
        for (const auto& [line, text] : borders_) {
            shape.paths.insert(shape.paths.end(), line.pieces.begin(), line.pieces.end());
            AddLabels(line, Axis::East, text, 0, &labels);
        }
        drawing_.shapes.push_back(std::move(shape));
        drawing_.frameLabels.push_back(std::move(labels));
    }

    // Many borders in the window are drawn thin, so that they do not cover the map.
    [[nodiscard]] Style ThinnedBorders(std::optional<std::size_t> colour) const {
        const double apart = sheet_.Width() / static_cast<double>(borders_.size() + 1);
        return BorderStyle(colour, apart < CLOSE_BORDERS);
    }

    void KeepBorders(ICoordinateGrid& grid) {
        for (GridLine& line : LinesOf(grid, Axis::East)) {
            const std::string border = BorderText(line, reference_);
            if (!border.empty()) borders_.emplace_back(std::move(line), border);
        }
    }

    void AddProblem(const std::string& what) { drawing_.problems.push_back(layer_.where + ": " + what); }
    void AddLegend(const Style& style, const std::string& text) {
        const bool isNamed = !layer_.name.empty();
        drawing_.legend.push_back({LegendEntry::Sample::LINE, style, isNamed ? layer_.name : text});
    }
    // Added to the entry of the grid, which may have a name.
    void AddBorderLegend(const Style& style, const std::string& text) {
        drawing_.legend.push_back({LegendEntry::Sample::LINE, style, text});
    }
    // In the middle of each square, in the size that is usual on printed sheets.
    void NameSquares(const std::string& colour) {
        for (const NamedSquare& square : SquaresOf(sheet_, reference_)) {
            if (TextWidth(square.name, SQUARE_SIZE) > square.width) continue;
            PlacedText name = TextAbove(square.middle, 0.0, square.name, SQUARE_SIZE);
            name.at.y += SQUARE_SIZE / 2.0;
            PlacedText higher = name;
            PlacedText lower = name;
            higher.at.y -= 1.5 * SQUARE_SIZE;
            lower.at.y += 1.5 * SQUARE_SIZE;
            drawing_.innerLabels.push_back({{name, higher, lower}, "square", colour});
        }
    }
    [[nodiscard]] bool HasBorders() const { return !borders_.empty(); }
    [[nodiscard]] Drawing Take() { return std::move(drawing_); }

  private:
    static std::string NameOf(Axis axis) { return axis == Axis::East ? "east" : "north"; }
    static double StepOf(ICoordinateGrid& grid, Axis axis) {
        return axis == Axis::East ? grid.GetEastStep() : grid.GetNorthStep();
    }

    std::vector<GridLine> LinesOf(ICoordinateGrid& grid, Axis axis) {
        FoundLines found = FindLines(sheet_, reference_, grid, axis);
        const std::string lines = NameOf(axis) + " lines of " + reference_.Name();
        switch (found.outcome) {
            case LinesOutcome::ALL:
                break;
            case LinesOutcome::SOME:
                AddProblem("cannot draw all " + lines);
                break;
            case LinesOutcome::TOO_MANY:
                AddProblem("more than " + std::to_string(MOST_LINES) + " " + lines + "; increase the step");
                break;
            case LinesOutcome::TOO_LONG:
                AddProblem("the " + lines + " have more than " + std::to_string(PointBudget::MOST_POINTS) +
                           " points; increase the step");
                break;
        }
        return std::move(found.lines);
    }

    // The points where a line meets the frame, or its ends if it does not.
    void AddLabels(const GridLine& line, Axis axis, const std::string& text, std::int64_t ordinal,
                   FrameLabels* labels) {
        std::size_t count = 0;
        for (const Polyline& piece : line.pieces) {
            for (const PicturePoint& end : {piece.front(), piece.back()}) {
                const Side side = SideOf(end, sheet_.Width(), sheet_.Height(), axis == Axis::East);
                if (side == Side::INSIDE) continue;
                ++count;
                if (labels->labels.size() < MOST_LABELS && IsNew(end, *labels))
                    labels->labels.push_back({end, side, text, ordinal});
            }
        }
        if (count > 0 || line.pieces.empty()) return;
        const Polyline& first = line.pieces.front();
        const Polyline& last = line.pieces.back();
        if (axis == Axis::East && AddLabelInside(line, text, *labels)) return;
        AddLabelBeyond(first[1], first[0], text, *labels);
        const bool isRing = Distance(first.front(), last.back()) < SAME_PLACE;
        if (!isRing) AddLabelBeyond(last[last.size() - 2], last.back(), text, *labels);
    }

    // 180 degrees east and west can be one line.
    static bool IsNew(const PicturePoint& end, const FrameLabels& labels) {
        return std::none_of(labels.labels.begin(), labels.labels.end(),
                            [&end](const FrameLabel& other) { return Distance(end, other.at) < SAME_PLACE; });
    }

    // Labels a meridian of a world map at the middle row of the window, because all meridians meet at the
    // ends.
    bool AddLabelInside(const GridLine& line, const std::string& text, const FrameLabels& labels) {
        const double row = sheet_.Height() / 2.0;
        for (const Polyline& piece : line.pieces) {
            for (std::size_t i = 1; i < piece.size(); ++i) {
                const PicturePoint& a = piece[i - 1];
                const PicturePoint& b = piece[i];
                if ((a.y < row) == (b.y < row)) continue;
                const PicturePoint at{a.x + (row - a.y) / (b.y - a.y) * (b.x - a.x), row};
                drawing_.innerLabels.push_back(
                    {{TextAbove(at, 1.0, text, LABEL_SIZE), TextBelow(at, 1.0, text, LABEL_SIZE)},
                     labels.classes,
                     labels.colour});
                return true;
            }
        }
        return false;
    }

    // Beyond the end of the line, or inside it without room there.
    void AddLabelBeyond(const PicturePoint& before, const PicturePoint& end, const std::string& text,
                        const FrameLabels& labels) {
        const double dx = end.x - before.x;
        const double dy = end.y - before.y;
        const bool isSideways = std::abs(dx) > std::abs(dy);
        const bool isForward = isSideways ? dx > 0.0 : dy > 0.0;
        const auto place =
            isSideways ? (isForward ? TextRightOf : TextLeftOf) : (isForward ? TextBelow : TextAbove);
        const auto within =
            isSideways ? (isForward ? TextLeftOf : TextRightOf) : (isForward ? TextAbove : TextBelow);
        drawing_.innerLabels.push_back(
            {{place(end, LABEL_CLEARANCE, text, LABEL_SIZE), within(end, LABEL_CLEARANCE, text, LABEL_SIZE)},
             labels.classes,
             labels.colour});
    }

    const MapSheet& sheet_;
    const Layer& layer_;
    Reference reference_;
    Drawing drawing_;
    std::vector<std::pair<GridLine, std::string>> borders_;
};

// A step in whole degrees, minutes or seconds if possible.
std::string DegreesText(double step) {
    struct Unit {
        double parts;
        const char* sign;
    };
    for (const Unit& unit : {Unit{1.0, "\u00B0"}, Unit{60.0, "'"}, Unit{3600.0, "''"}}) {
        const double count = std::round(step * unit.parts);
        if (count > 0.0 && std::abs(step * unit.parts - count) < 1e-6) return FormatPlain(count) + unit.sign;
    }
    return FormatPlain(step) + "\u00B0";
}

std::string StepText(std::int32_t system, double step) {
    if (system == KOORD_GEODEZ) return FormatPlain(step) + "\u00B0";
    switch (System_Unit(system)) {
        case tessara::Unit::Degree:
            return DegreesText(step);
        case tessara::Unit::Pixel:
            return FormatPlain(step) + " pixels";
        case tessara::Unit::Metre:
            break;
    }
    return FormatPlain(step) + " m";
}

std::string StepsText(const GridLayer& grid) {
    std::string east = StepText(grid.reference.system, grid.eastStep);
    if (grid.eastStep == grid.northStep) return east;
    return east + " by " + StepText(grid.reference.system, grid.northStep);
}

}  // namespace

Drawing DrawGrid(const MapSheet& sheet, const Layer& layer, const GridLayer& grid, std::size_t index) {
    GridDrawer drawer(sheet, layer, grid.reference);
    const Style style = GridStyle(index, layer.look.colour);
    drawer.AddLegend(style, grid.reference.Name() + ", every " + StepsText(grid));
    const IRef<ICoordinateGrid> lines = MakeGrid(sheet, grid.reference, grid.eastStep, grid.northStep);
    if (!lines.IsValid()) {
        drawer.AddProblem("the window is outside the area of " + grid.reference.Name());
        return drawer.Take();
    }
    drawer.DrawLines(*lines.Get(), Axis::North, style);
    drawer.DrawLines(*lines.Get(), Axis::East, style);
    drawer.NameSquares(style.stroke);
    if (drawer.HasBorders()) {
        const Style border = drawer.ThinnedBorders({});
        drawer.DrawBorders(border);
        drawer.AddBorderLegend(border, "zone borders of " + grid.reference.Name());
    }
    return drawer.Take();
}

Drawing DrawBorders(const MapSheet& sheet, const Layer& layer, const BordersLayer& borders) {
    GridDrawer drawer(sheet, layer, borders.reference);
    const IRef<ICoordinateGrid> lines =
        MakeGrid(sheet, borders.reference, STEP_BEYOND_ZONES, STEP_BEYOND_ZONES);
    if (lines.IsValid()) {
        drawer.KeepBorders(*lines.Get());
    } else {
        drawer.AddProblem("the window is outside the area of " + borders.reference.Name());
    }
    const Style style = drawer.ThinnedBorders(layer.look.colour);
    drawer.AddLegend(style, "zone borders of " + borders.reference.Name());
    drawer.DrawBorders(style);
    return drawer.Take();
}

}  // namespace tessara::toolkit

#include "drawing/map_layers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

#include "conversion/made.h"
#include "conversion/names.h"
#include "conversion/numbers.h"
#include "drawing/coastline.h"
#include "drawing/earth_shapes.h"
#include "drawing/map_curves.h"
#include "drawing/map_grid_layer.h"
#include "drawing/map_styles.h"
#include "map/map_measures.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::toolkit {
namespace {

constexpr double MARKER_CLEARANCE = 6.0;
constexpr double LINE_CLEARANCE = 5.0;

// Draws a layer.
class LayerDrawer {
  public:
    LayerDrawer(const MapSheet& sheet, const Layer& layer)
        : sheet_(sheet), layer_(layer), lines_(Made(CreateClassLinePoints())) {
        lines_->SetPixelTolerance(LINE_TOLERANCE / sheet.Zoom());
    }

    void Draw(const PositionsLayer& positions) {
        const Style style = MarkerStyle(layer_.look.colour);
        for (const Site& site : positions.sites)
            AddMarker(site, style);
        AddLegend(LegendEntry::Sample::MARKER, style, "positions");
    }

    void Draw(const LineLayer& line) {
        const bool isGeodesic = line.straight == LineLayer::Straight::GEODESIC;
        const Style style = isGeodesic ? GeodesicStyle(layer_.look.colour) : LineStyle(layer_.look.colour);
        std::vector<Polyline> paths;
        for (std::size_t i = 1; i < line.sites.size(); ++i) {
            const std::vector<Polyline> way = Way(line, line.sites[i - 1], line.sites[i]);
            paths.insert(paths.end(), way.begin(), way.end());
        }
        const std::string kind = isGeodesic ? "geodesic"
                                 : line.straight == LineLayer::Straight::ON_MAP
                                     ? "straight on the map"
                                     : "straight in " + line.reference.Name();
        AddLines(Rank::LINE, isGeodesic ? "geodesic" : "line", paths, style);
        for (const Site& site : line.sites)
            AddName(site, style.stroke, LINE_CLEARANCE);
        AddLegend(LegendEntry::Sample::LINE, style, kind);
    }

    void Draw(const RingsLayer& rings) {
        const Style style = RingStyle(layer_.look.colour);
        AddLegend(LegendEntry::Sample::LINE, style, "range rings");
        const std::optional<GeodezPayload> centre = sheet_.NearDegreesOf(rings.centre.coord.Get());
        if (!centre) {
            AddProblem(rings.centre.where, "cannot convert the centre to degrees");
            return;
        }
        AddMarker(rings.centre, MarkerStyle(layer_.look.colour));
        std::vector<Polyline> paths;
        for (const double radius : rings.radii) {
            for (Polyline& arc : Ring(*centre, radius))
                paths.push_back(std::move(arc));
            AddRadius(*centre, radius);
        }
        AddLines(Rank::LINE, "ring", paths, style);
    }

    void Draw(const PolygonLayer& polygon) {
        const Style style = PolygonStyle(layer_.look.colour);
        if (const std::optional<Polyline> outline = Outline(polygon.sites)) {
            AddArea("polygon", {*outline}, style);
            AddOutline("polygon", *outline, style);
        }
        for (const Site& site : polygon.sites)
            AddName(site, ColourOf(BLACK), LINE_CLEARANCE);
        AddLegend(LegendEntry::Sample::AREA, style, "polygon");
    }

    void Draw(const OverlayLayer& overlay) {
        const std::optional<Polyline> first = Outline(overlay.first);
        const std::optional<Polyline> second = Outline(overlay.second);
        if (!first || !second) return;
        AddParts(overlay, *first, *second);
        AddOutline("overlay first", *first, OutlineStyle());
        AddOutline("overlay second", *second, OutlineStyle());
    }

    void Draw(const CoastLayer& coast) {
        const EarthShapes shapes(sheet_);
        const Style land = LandStyle(layer_.look);
        Shape outlines{Rank::COAST, "coast", {}, CoastStyle(layer_.look)};
        for (const EarthLine& ring : LandRings())
            Append(shapes.Line(ring), &outlines.paths);
        if (layer_.look.isFilled)
            drawing_.shapes.push_back({Rank::LAND, "land", shapes.Area(LandRings()), land});
        drawing_.shapes.push_back(std::move(outlines));
        Style sample = CoastStyle(layer_.look);
        sample.fill = land.fill;
        AddLegend(LegendEntry::Sample::AREA, sample, "coastlines (Natural Earth, 1:110 million)");
        if (coast.hasBorders) AddCountryBorders(shapes);
        CheckBudget(shapes);
    }

    void Draw(const GeoJsonLayer& file) {
        const EarthShapes shapes(sheet_);
        const Style area = ShapeAreaStyle(layer_.look);
        const Style line = ShapeLineStyle(layer_.look);
        for (const EarthShape& shape : file.shapes.areas)
            AddShape(shape, shapes, area);
        for (const EarthShape& shape : file.shapes.lines)
            AddShape(shape, shapes, line);
        const Style marker = MarkerStyle(layer_.look.colour.value_or(VERMILLION));
        for (const Site& site : file.shapes.points)
            AddMarker(site, marker);
        AddKinds({{file.shapes.areas.size(), {LegendEntry::Sample::AREA, area, "areas"}},
                  {file.shapes.lines.size(), {LegendEntry::Sample::LINE, line, "lines"}},
                  {file.shapes.points.size(), {LegendEntry::Sample::MARKER, marker, "points"}}},
                 file.file);
        CheckBudget(shapes);
    }

    void Draw(const GridLayer&) {}
    void Draw(const BordersLayer&) {}

    Drawing Take() {
        NoteWhatIsOutside();
        return std::move(drawing_);
    }

  private:
    static void Append(std::vector<Polyline> more, std::vector<Polyline>* lines) {
        std::move(more.begin(), more.end(), std::back_inserter(*lines));
    }

    void CheckBudget(const EarthShapes& shapes) {
        if (!shapes.IsSpent()) return;
        AddProblem(layer_.where, "the lines have more than " + std::to_string(PointBudget::MOST_POINTS) +
                                     " points on this map and are incomplete");
    }

    void AddCountryBorders(const EarthShapes& shapes) {
        Shape borders{Rank::COAST, "country-border", {}, CountryBorderStyle()};
        for (const EarthLine& border : CountryBorders())
            Append(shapes.Line(border), &borders.paths);
        drawing_.shapes.push_back(std::move(borders));
        drawing_.legend.push_back({LegendEntry::Sample::LINE, CountryBorderStyle(), "borders of countries"});
    }

    // A line, or a polygon with its outline, and its name.
    void AddShape(const EarthShape& shape, const EarthShapes& shapes, const Style& style) {
        Shape outline{Rank::OUTLINE, "shape", {}, style};
        outline.style.fill = "none";
        outline.style.fillOpacity = 1.0;
        for (const EarthLine& line : shape.lines)
            Append(shapes.Line(line), &outline.paths);
        if (style.fill != "none") AddArea("shape", shapes.Area(shape.lines), style);
        if (!outline.paths.empty() && !shape.name.empty()) {
            const Polyline& longest = LongestOf(outline.paths);
            AddNameAt(longest[longest.size() / 2], shape.name, style.stroke, LINE_CLEARANCE);
        }
        drawing_.shapes.push_back(std::move(outline));
    }

    // Adds the kinds of geometries to the legend; several kinds get names.
    void AddKinds(std::vector<std::pair<std::size_t, LegendEntry>> kinds, const std::string& file) {
        std::erase_if(kinds, [](const auto& kind) { return kind.first == 0; });
        const std::string name = layer_.name.empty() ? file : layer_.name;
        for (auto& [count, entry] : kinds) {
            entry.text = kinds.size() > 1 ? name + ": " + entry.text : name;
            drawing_.legend.push_back(std::move(entry));
        }
    }

    static const Polyline& LongestOf(const std::vector<Polyline>& lines) {
        return *std::max_element(lines.begin(), lines.end(),
                                 [](const Polyline& a, const Polyline& b) { return a.size() < b.size(); });
    }

    void NoteWhatIsOutside() {
        const std::string name = NameForNotes();
        if (outside_ > 0) {
            drawing_.notes.push_back(std::to_string(outside_) + " of " +
                                     std::to_string(outside_ + drawing_.markers.size()) + " points of \"" +
                                     name + "\" (outside the window)");
            return;
        }
        const bool isSeen = !drawing_.markers.empty() || !drawing_.problems.empty() ||
                            std::any_of(drawing_.shapes.begin(), drawing_.shapes.end(),
                                        [this](const Shape& shape) { return IsSeen(shape); });
        if (!isSeen) drawing_.notes.push_back("\"" + name + "\" (entirely outside the window)");
    }

    [[nodiscard]] std::string NameForNotes() const {
        if (!layer_.name.empty()) return layer_.name;
        return drawing_.legend.empty() ? layer_.where : drawing_.legend.front().text;
    }

    [[nodiscard]] bool IsSeen(const Shape& shape) const {
        if (!IsArea(shape.rank)) return !shape.paths.empty();
        return std::any_of(shape.paths.begin(), shape.paths.end(), [this](const Polyline& outline) {
            return ClipArea(outline, {0.0, 0.0}, {sheet_.Width(), sheet_.Height()}).size() >= 3;
        });
    }

    void AddProblem(const std::string& where, const std::string& what) {
        drawing_.problems.push_back(where + ": " + what);
    }

    void AddLegend(LegendEntry::Sample sample, const Style& style, const std::string& text) {
        drawing_.legend.push_back({sample, style, layer_.name.empty() ? text : layer_.name});
    }

    [[nodiscard]] bool IsInside(const PicturePoint& point) const {
        return point.x >= 0.0 && point.x <= sheet_.Width() && point.y >= 0.0 && point.y <= sheet_.Height();
    }

    std::optional<PicturePoint> PlaceOf(const Site& site) {
        const std::optional<PicturePoint> point = sheet_.NearPointOf(site.coord.Get());
        if (!point) AddProblem(site.where, "the position has no pixel on the map");
        return point;
    }

    void AddMarker(const Site& site, const Style& style) {
        const std::optional<PicturePoint> point = PlaceOf(site);
        if (!point) return;
        // A polar map has pixels for the other hemisphere, too, but shows different positions there.
        if (!IsInside(*point) || !sheet_.ShownPointOf(site.coord.Get())) {
            ++outside_;
            return;
        }
        drawing_.markers.push_back({*point, style});
        AddNameAt(*point, site.name, ColourOf(BLACK), MARKER_CLEARANCE);
    }

    void AddName(const Site& site, const std::string& colour, double clearance) {
        if (site.name.empty()) return;
        const std::optional<PicturePoint> point = sheet_.ShownPointOf(site.coord.Get());
        if (point && IsInside(*point)) AddNameAt(*point, site.name, colour, clearance);
    }

    void AddNameAt(const PicturePoint& point, const std::string& name, const std::string& colour,
                   double clearance) {
        if (name.empty()) return;
        drawing_.innerLabels.push_back({TextsAround(point, clearance, name, NAME_SIZE), "name", colour});
    }

    void AddLines(Rank rank, const std::string& classes, const std::vector<Polyline>& lines,
                  const Style& style) {
        Shape shape{rank, classes, {}, style};
        shape.style.fill = "none";
        for (const Polyline& line : lines) {
            for (Polyline& piece : ClipToFrame(line, sheet_.Width(), sheet_.Height()))
                shape.paths.push_back(std::move(piece));
        }
        drawing_.shapes.push_back(std::move(shape));
    }

    void AddArea(const std::string& classes, const std::vector<Polyline>& outlines, Style style) {
        style.stroke = "none";
        drawing_.shapes.push_back({Rank::AREA, classes, outlines, style});
    }

    void AddOutline(const std::string& classes, Polyline outline, const Style& style) {
        outline.push_back(outline.front());
        AddLines(Rank::OUTLINE, classes, {outline}, style);
    }

    std::vector<Polyline> Way(const LineLayer& line, const Site& from, const Site& to) {
        std::vector<Polyline> way;
        switch (line.straight) {
            case LineLayer::Straight::GEODESIC:
                way = Geodesic(from, to);
                break;
            case LineLayer::Straight::IN_SYSTEM:
                way = InSystem(line.reference, from, to);
                break;
            case LineLayer::Straight::ON_MAP: {
                const std::optional<PicturePoint> begin = PlaceOf(from);
                const std::optional<PicturePoint> end = PlaceOf(to);
                return begin && end ? std::vector<Polyline>{{*begin, *end}} : std::vector<Polyline>();
            }
        }
        if (way.empty()) AddProblem(to.where, "cannot draw the line to this position on the map");
        return way;
    }

    std::vector<Polyline> Geodesic(const Site& from, const Site& to) {
        const auto a = sheet_.NearDegreesOf(from.coord.Get());
        const auto b = sheet_.NearDegreesOf(to.coord.Get());
        if (!a || !b) return {};
        const auto [axisA, axisB] = Axes();
        const GeodesicResult way =
            Geodesic_InverseCore(a->latitude, a->longitude, b->latitude, b->longitude, axisA, axisB);
        if (!(way.distance >= 0.0)) return {};
        // From both ends to the middle, because a nearly antipodal geodesic bends sharply there.
        return TraceCurve([&](double part) {
            return part < 0.5 ? PlaceAt(*a, part * way.distance, way.azimuth12)
                              : PlaceAt(*b, (1.0 - part) * way.distance, way.azimuth21);
        });
    }

    std::vector<Polyline> InSystem(const Reference& reference, const Site& from, const Site& to) {
        const std::optional<IRef<ICoord>> a = InReference(from, reference);
        const std::optional<IRef<ICoord>> b = InReference(to, reference);
        const IRef<IArray> points = Made(CreateClassArray());
        if (!a || !b || !lines_->DensifyCoordStraight(sheet_.Map(), a->Get(), b->Get(), points.Get()))
            return {};
        Polyline line;
        for (std::uint32_t i = 0; i < points->GetCount(); ++i) {
            const auto point = sheet_.PointOf(Made(IRef<ICoord>(points->GetAt(i))).Get());
            if (point) line.push_back(*point);
        }
        return {line};
    }

    // A copy in the reference; the map converts pixels.
    [[nodiscard]] std::optional<IRef<ICoord>> InReference(const Site& site,
                                                          const Reference& reference) const {
        IRef<ICoord> copy = Made(CreateClassCoord());
        copy->SetReference(MakeReference(reference).Get());
        const IRef<ICoordinateTransfer> transfer = Made(CreateClassCoordinateTransfer());
        double x = 0.0;
        double y = 0.0;
        const bool isThere = site.coord->GetPixel(&x, &y) ? sheet_.Map()->FloatPixelToCoord(x, y, copy.Get())
                                                          : transfer->Transfer(site.coord.Get(), copy.Get());
        return isThere ? std::optional(copy) : std::nullopt;
    }

    [[nodiscard]] std::pair<double, double> Axes() const {
        double axes[2];
        Geodesic_LoadAxes(axes, sheet_.Datum());
        return {axes[0], axes[1]};
    }

    // The interfaces have no direct geodesic problem; the kernel does.
    [[nodiscard]] std::optional<PicturePoint> PlaceAt(const GeodezPayload& centre, double radius,
                                                      double azimuth) const {
        const auto [axisA, axisB] = Axes();
        const GeodesicResult end =
            Geodesic_DirectCore(centre.latitude, centre.longitude, radius, azimuth, axisA, axisB);
        return sheet_.ShownPointOf(DegreesCoord(end.latitude, end.longitude, sheet_.Datum()).Get());
    }

    [[nodiscard]] std::vector<Polyline> Ring(const GeodezPayload& centre, double radius) const {
        return TraceCurve([&](double part) { return PlaceAt(centre, radius, 360.0 * std::fmod(part, 1.0)); });
    }

    void AddRadius(const GeodezPayload& centre, double radius) {
        const std::string text = LengthText(radius);
        InnerLabel label{{}, "radius", ColourOf(BLACK)};
        for (const double azimuth : {0.0, 180.0, 90.0, 270.0}) {
            const std::optional<PicturePoint> point = PlaceAt(centre, radius, azimuth);
            if (!point) continue;
            label.candidates.push_back(TextAbove(*point, 2.0, text, LABEL_SIZE));
            label.candidates.push_back(TextBelow(*point, 2.0, text, LABEL_SIZE));
        }
        drawing_.innerLabels.push_back(std::move(label));
    }

    // Returns nothing if a corner has no pixel.
    std::optional<Polyline> Outline(const std::vector<Site>& sites) {
        Polyline outline;
        for (const Site& site : sites) {
            const std::optional<PicturePoint> point = PlaceOf(site);
            if (!point) return std::nullopt;
            outline.push_back(*point);
        }
        return outline;
    }

    using Parts = std::array<std::vector<Polyline>, PART_COUNT>;

    void AddParts(const OverlayLayer& overlay, const Polyline& first, const Polyline& second) {
        const IRef<IArray> lists[PART_COUNT] = {Made(CreateClassArray()), Made(CreateClassArray()),
                                                Made(CreateClassArray()), Made(CreateClassArray())};
        const IRef<ICoordinateArea> area = Made(CreateClassCoordinateArea());
        const std::int32_t code =
            area->OverlayPixels(sheet_.Map(), PixelsOf(overlay.first).Get(), PixelsOf(overlay.second).Get(),
                                lists[0].Get(), lists[1].Get(), lists[2].Get(), lists[3].Get());
        if (code < 0) return AddProblem(layer_.where, "cannot overlay the polygons");

        Parts parts = WholeParts(code, first, second);
        for (std::size_t part = 0; part < PART_COUNT; ++part) {
            for (std::uint32_t i = 0; i < lists[part]->GetCount(); ++i)
                parts[part].push_back(PolylineOf(Made(IRef<IArray>(lists[part]->GetAt(i)))));
        }
        AddPartShapes(parts, code);
    }

    // The parts of two polygons with outlines that do not cross, for which the library returns none. An inner
    // outline is a hole of the outer one.
    static Parts WholeParts(std::int32_t code, const Polyline& first, const Polyline& second) {
        switch (code) {
            case 1:
                return {{{}, {}, {}, {first}}};
            case 2:
                return {{{}, {first, second}, {}, {first}}};
            case 3:
                return {{{}, {}, {first, second}, {second}}};
            case 4:
                return {};
            default:
                return {{{}, {second}, {first}, {}}};
        }
    }

    void AddPartShapes(const Parts& parts, std::int32_t code) {
        static const std::array<const char*, PART_COUNT> names = {"in neither", "only in the second",
                                                                  "only in the first", "in both"};
        static const std::array<const char*, PART_COUNT> classes = {"neither", "only-second", "only-first",
                                                                    "both"};
        static const std::array<const char*, 6> relations = {"no common area",      "same area",
                                                             "first inside second", "second inside first",
                                                             "crossing outlines",   "touching outlines"};
        const std::string name = layer_.name.empty() ? "two polygons" : layer_.name;
        drawing_.legend.push_back(
            {LegendEntry::Sample::NONE, {}, name + ": " + relations.at(static_cast<std::size_t>(code))});
        for (const std::size_t part : {2U, 1U, 3U, 0U}) {
            if (parts[part].empty()) continue;
            AddArea(std::string("overlay ") + classes[part], parts[part], PartStyle(part));
            drawing_.legend.push_back({LegendEntry::Sample::AREA, PartStyle(part), names[part]});
        }
    }

    // The library works on pixels of the map; here all corners have one.
    [[nodiscard]] IRef<IArray> PixelsOf(const std::vector<Site>& sites) const {
        IRef<IArray> pixels = Made(CreateClassArray());
        const IRef<ICoordinateReference> reference =
            MakeReference({.datum = sheet_.Datum(), .system = KOORD_FLOATPIXEL});
        for (const Site& site : sites) {
            const PicturePoint at = sheet_.NearPixelOf(site.coord.Get()).value_or(PicturePoint{});
            const IRef<ICoord> pixel = Made(CreateClassCoord());
            pixel->SetReference(reference.Get());
            pixel->SetPixel(at.x, at.y);
            pixels->Add(pixel.Get());
        }
        return pixels;
    }

    [[nodiscard]] Polyline PolylineOf(const IRef<IArray>& pixels) const {
        Polyline line;
        for (std::uint32_t i = 0; i < pixels->GetCount(); ++i) {
            if (const auto point = sheet_.PointOf(Made(IRef<ICoord>(pixels->GetAt(i))).Get()))
                line.push_back(*point);
        }
        return line;
    }

    const MapSheet& sheet_;
    const Layer& layer_;
    IRef<ILinePoints> lines_;
    Drawing drawing_;
    std::size_t outside_ = 0;  // markers beyond the frame
};

}  // namespace

Drawing DrawLayer(const MapSheet& sheet, const Layer& layer, std::size_t gridIndex) {
    if (const auto* grid = std::get_if<GridLayer>(&layer.content))
        return DrawGrid(sheet, layer, *grid, gridIndex);
    if (const auto* borders = std::get_if<BordersLayer>(&layer.content))
        return DrawBorders(sheet, layer, *borders);
    LayerDrawer drawer(sheet, layer);
    std::visit([&drawer](const auto& content) { drawer.Draw(content); }, layer.content);
    return drawer.Take();
}

}  // namespace tessara::toolkit

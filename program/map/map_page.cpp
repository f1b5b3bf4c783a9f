#include "map/map_page.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "conversion/names.h"
#include "conversion/numbers.h"
#include "map/map_layers.h"
#include "map/map_projection.h"
#include "map/map_styles.h"
#include "map/svg.h"

namespace tessara::program {
namespace {

constexpr double TITLE_SIZE = 20.0;
constexpr double LEGEND_SIZE = 13.0;
constexpr double BOLD = 1.12;  // as wide as plain letters
constexpr double PADDING = 12.0;
constexpr double LEGEND_GAP = 14.0;
constexpr double ROW = 22.0;
constexpr double SAMPLE = 34.0;
constexpr double SAMPLE_GAP = 8.0;
constexpr double ENTRY_GAP = 28.0;

constexpr double MARKER_RADIUS = 4.0;
constexpr double FRAME_CLEARANCE = 5.0;
constexpr double LINE_HEIGHT = 1.3;
constexpr double FARTHEST_ABOVE = 48.0;    // three rows of labels
constexpr double FARTHEST_BESIDE = 160.0;  // two columns
constexpr std::array<std::int64_t, 13> STRIDES = {1,   2,   5,    10,   20,   50,   100,
                                                  200, 500, 1000, 2000, 5000, 10000};
constexpr const char* FONT = "DejaVu Sans, Verdana, Arial, Helvetica, sans-serif";

struct StyledText {
    PlacedText text;
    std::string classes;
    std::string colour;
    bool isBold = false;
};

PlacedText BesideFrame(const FrameLabel& label, double clearance) {
    switch (label.side) {
        case Side::LEFT:
            return TextLeftOf(label.at, clearance, label.text, LABEL_SIZE);
        case Side::RIGHT:
            return TextRightOf(label.at, clearance, label.text, LABEL_SIZE);
        case Side::TOP:
            return TextAbove(label.at, clearance, label.text, LABEL_SIZE);
        default:
            return TextBelow(label.at, clearance, label.text, LABEL_SIZE);
    }
}

// At the frame, or so far outward that it clears what stands there: in rows above and below, by the width of
// what is in the way on the sides.
std::vector<PlacedText> OutwardPlaces(const FrameLabel& label) {
    const bool isBeside = label.side == Side::LEFT || label.side == Side::RIGHT;
    const double step = isBeside ? 1.0 : LABEL_SIZE * LINE_HEIGHT;
    std::vector<PlacedText> places;
    for (double outward = 0.0; outward <= (isBeside ? FARTHEST_BESIDE : FARTHEST_ABOVE); outward += step)
        places.push_back(BesideFrame(label, FRAME_CLEARANCE + outward));
    return places;
}

// Whether those of every so many labels stand clear of each other.
bool AreClear(const std::vector<FrameLabel>& labels, std::int64_t stride) {
    LabelPlacer placer;
    return std::all_of(labels.begin(), labels.end(), [&](const FrameLabel& label) {
        return label.ordinal % stride != 0 || placer.Place({BesideFrame(label, FRAME_CLEARANCE)});
    });
}

std::int64_t StrideOf(const std::vector<FrameLabel>& labels) {
    for (const std::int64_t stride : STRIDES) {
        if (AreClear(labels, stride)) return stride;
    }
    return STRIDES.back();
}

std::vector<FrameLabel> OnSide(const FrameLabels& labels, Side side) {
    std::vector<FrameLabel> onSide;
    std::copy_if(labels.labels.begin(), labels.labels.end(), std::back_inserter(onSide),
                 [side](const FrameLabel& label) { return label.side == side; });
    return onSide;
}

std::string PathOf(const std::vector<Polyline>& lines, bool isClosed) {
    std::string path;
    for (const Polyline& line : lines) {
        char command = 'M';
        for (const PicturePoint& point : line) {
            path += command + SvgNumber(point.x) + " " + SvgNumber(point.y);
            command = 'L';
        }
        if (isClosed) path += "Z";
    }
    return path;
}

SvgAttributes AttributesOf(const Style& style) {
    SvgAttributes attributes{{"fill", style.fill}, {"stroke", style.stroke}};
    if (style.fillOpacity != 1.0) attributes.emplace_back("fill-opacity", FormatPlain(style.fillOpacity));
    if (style.stroke != "none") attributes.emplace_back("stroke-width", FormatPlain(style.width));
    if (!style.dash.empty()) attributes.emplace_back("stroke-dasharray", style.dash);
    return attributes;
}

SvgAttributes With(SvgAttributes attributes, const SvgAttributes& more) {
    attributes.insert(attributes.end(), more.begin(), more.end());
    return attributes;
}

class Page {
  public:
    Page(const MapDescription& description, double size)
        : description_(description),
          sheet_(description.sheet, description.window, size),
          bounds_{0.0, 0.0, sheet_.Width(), sheet_.Height()} {}

    MapPage Draw() {
        DrawLayers();
        PlaceFrameLabels();
        PlaceInnerLabels();
        PlaceLegend();
        PlaceTitle();
        return {Write(), std::move(problems_)};
    }

  private:
    void DrawLayers() {
        std::size_t grids = 0;
        for (const Layer& layer : description_.layers) {
            drawings_.push_back(DrawLayer(sheet_, layer, grids));
            if (std::holds_alternative<GridLayer>(layer.content)) ++grids;
            const std::vector<std::string>& problems = drawings_.back().problems;
            problems_.insert(problems_.end(), problems.begin(), problems.end());
        }
    }

    // Borders come first: there are few of them, and the grid's own labels can step back.
    void PlaceFrameLabels() {
        for (const bool isBorder : {true, false}) {
            for (const Drawing& drawing : drawings_) {
                for (const FrameLabels& labels : drawing.frameLabels) {
                    if (labels.classes.starts_with("border") == isBorder) PlaceFrameLabels(labels);
                }
            }
        }
    }

    void PlaceFrameLabels(const FrameLabels& labels) {
        for (const Side side : {Side::TOP, Side::BOTTOM, Side::LEFT, Side::RIGHT}) {
            const std::vector<FrameLabel> onSide = OnSide(labels, side);
            const std::int64_t stride = StrideOf(onSide);
            for (const FrameLabel& label : onSide) {
                if (label.ordinal % stride != 0 || !IsNew(label)) continue;
                PlaceText(OutwardPlaces(label), labels.classes, labels.colour, std::nullopt);
            }
        }
    }

    // A border of two layers has one label.
    bool IsNew(const FrameLabel& label) {
        const bool isThere = std::any_of(labelled_.begin(), labelled_.end(), [&](const FrameLabel& other) {
            return other.text == label.text &&
                   std::hypot(other.at.x - label.at.x, other.at.y - label.at.y) < SAME_PLACE;
        });
        if (!isThere) labelled_.push_back(label);
        return !isThere;
    }

    void PlaceInnerLabels() {
        for (const Drawing& drawing : drawings_) {
            for (const Marker& marker : drawing.markers)
                placer_.Block(Box{marker.at.x, marker.at.y, marker.at.x, marker.at.y}.Grown(MARKER_RADIUS));
        }
        const Box window{0.0, 0.0, sheet_.Width(), sheet_.Height()};
        // The last layer is on top, and its names come first.
        for (auto drawing = drawings_.rbegin(); drawing != drawings_.rend(); ++drawing) {
            for (const InnerLabel& label : drawing->innerLabels)
                PlaceText(label.candidates, label.classes, label.colour, window);
        }
    }

    void PlaceText(const std::vector<PlacedText>& candidates, const std::string& classes,
                   const std::string& colour, const std::optional<Box>& area) {
        const std::optional<PlacedText> placed = placer_.Place(candidates, area);
        if (!placed) return;
        Extend(placed->Bounds());
        texts_.push_back({*placed, classes, colour});
    }

    void Extend(const Box& box) {
        bounds_ = {std::min(bounds_.left, box.left), std::min(bounds_.top, box.top),
                   std::max(bounds_.right, box.right), std::max(bounds_.bottom, box.bottom)};
    }

    // What the map is, and then all entries, in rows as wide as the window.
    void PlaceLegend() {
        const double y = bounds_.bottom + LEGEND_GAP + ROW / 2.0;
        AddLegendText({0.0, y}, SheetText());
        PicturePoint at{0.0, y + ROW};
        for (const Drawing& drawing : drawings_) {
            for (const LegendEntry& entry : drawing.legend) {
                const double sample = entry.sample == LegendEntry::Sample::NONE ? 0.0 : SAMPLE + SAMPLE_GAP;
                const double width = sample + TextWidth(entry.text, LEGEND_SIZE);
                if (at.x > 0.0 && at.x + width > sheet_.Width()) at = {0.0, at.y + ROW};
                samples_.emplace_back(at, entry);
                AddLegendText({at.x + sample, at.y}, entry.text);
                at.x += width + ENTRY_GAP;
            }
        }
        bounds_.bottom = std::max(bounds_.bottom, at.y + ROW / 2.0);
    }

    void AddLegendText(const PicturePoint& at, const std::string& text) {
        const PlacedText placed = TextRightOf(at, 0.0, text, LEGEND_SIZE);
        Extend(placed.Bounds());
        texts_.push_back({placed, "legend", ColourOf(BLACK)});
    }

    [[nodiscard]] std::string SheetText() const {
        const SheetDescription& sheet = description_.sheet;
        const Window& window = description_.window;
        std::string text = ProjectionName(sheet.projection) + " on " + DatumName(sheet.datum);
        if (sheet.scaleDenominator > 0) text += ", 1:" + std::to_string(sheet.scaleDenominator);
        if (sheet.resolution > 0.0) text += ", " + FormatPlain(sheet.resolution) + " pixels a millimetre";
        return text + "; columns " + FormatPlain(window.left) + " to " + FormatPlain(window.right) +
               ", rows " + FormatPlain(window.top) + " to " + FormatPlain(window.bottom);
    }

    void PlaceTitle() {
        if (description_.title.empty()) return;
        const PicturePoint baseline{0.0, bounds_.top - LEGEND_GAP};
        const PlacedText title{baseline, Anchor::START, TITLE_SIZE, description_.title};
        Box box = title.Bounds();
        box.right = box.left + (box.right - box.left) * BOLD;
        Extend(box);
        texts_.push_back({title, "title", ColourOf(BLACK), true});
    }

    std::string Write() {
        const Box page = bounds_.Grown(PADDING);
        SvgWriter svg(page.left, page.top, page.right - page.left, page.bottom - page.top);
        WriteDefinitions(svg);
        svg.Empty("rect", {{"class", "paper"},
                           {"x", SvgNumber(page.left)},
                           {"y", SvgNumber(page.top)},
                           {"width", SvgNumber(page.right - page.left)},
                           {"height", SvgNumber(page.bottom - page.top)},
                           {"fill", "#ffffff"}});
        WriteShapes(svg);
        WriteMarkers(svg);
        svg.Empty("rect", With({{"class", "frame"}}, With(WindowAttributes(), AttributesOf(FrameStyle()))));
        WriteSamples(svg);
        WriteTexts(svg);
        return svg.Finish();
    }

    static Style FrameStyle() { return {ColourOf(BLACK), 2.5, "", "none", 1.0}; }

    [[nodiscard]] SvgAttributes WindowAttributes() const {
        return {{"x", "0"},
                {"y", "0"},
                {"width", SvgNumber(sheet_.Width())},
                {"height", SvgNumber(sheet_.Height())}};
    }

    void WriteDefinitions(SvgWriter& svg) const {
        svg.Open("defs", {});
        svg.Open("clipPath", {{"id", "window"}});
        svg.Empty("rect", WindowAttributes());
        svg.Close();
        for (const Hatching& hatching : Hatchings()) {
            svg.Open("pattern", {{"id", hatching.id},
                                 {"width", "7"},
                                 {"height", "7"},
                                 {"patternUnits", "userSpaceOnUse"},
                                 {"patternTransform", "rotate(" + FormatPlain(hatching.angle) + ")"}});
            const std::string colour = ColourOf(hatching.colour);
            svg.Empty("rect", {{"width", "7"}, {"height", "7"}, {"fill", colour}, {"fill-opacity", "0.25"}});
            svg.Empty("rect", {{"width", "2.5"}, {"height", "7"}, {"fill", colour}});
            svg.Close();
        }
        svg.Close();
    }

    void WriteShapes(SvgWriter& svg) const {
        for (const Rank rank : {Rank::AREA, Rank::GRID, Rank::BORDER, Rank::OUTLINE, Rank::LINE}) {
            for (std::size_t i = 0; i < drawings_.size(); ++i) {
                for (const Shape& shape : drawings_[i].shapes) {
                    if (shape.rank == rank && !shape.paths.empty()) WriteShape(svg, i, shape);
                }
            }
        }
    }

    static void WriteShape(SvgWriter& svg, std::size_t layer, const Shape& shape) {
        const bool isArea = shape.rank == Rank::AREA;
        SvgAttributes attributes{{"class", "layer" + std::to_string(layer) + " " + shape.classes}};
        if (isArea) {
            attributes.emplace_back("clip-path", "url(#window)");
            attributes.emplace_back("fill-rule", "evenodd");
        } else {
            attributes.emplace_back("stroke-linejoin", "round");
        }
        svg.Open("g", With(std::move(attributes), AttributesOf(shape.style)));
        if (isArea) {
            svg.Empty("path", {{"d", PathOf(shape.paths, true)}});
        } else {
            for (const Polyline& line : shape.paths)
                svg.Empty("path", {{"d", PathOf({line}, false)}});
        }
        svg.Close();
    }

    void WriteMarkers(SvgWriter& svg) const {
        for (std::size_t i = 0; i < drawings_.size(); ++i) {
            for (const Marker& marker : drawings_[i].markers)
                WriteMarker(svg, "layer" + std::to_string(i) + " position", marker.at, marker.style);
        }
    }

    static void WriteMarker(SvgWriter& svg, const std::string& classes, const PicturePoint& at,
                            const Style& style) {
        svg.Empty("circle", With({{"class", classes},
                                  {"cx", SvgNumber(at.x)},
                                  {"cy", SvgNumber(at.y)},
                                  {"r", SvgNumber(MARKER_RADIUS)}},
                                 AttributesOf(style)));
    }

    void WriteSamples(SvgWriter& svg) const {
        for (const auto& [at, entry] : samples_) {
            switch (entry.sample) {
                case LegendEntry::Sample::LINE: {
                    Style style = entry.style;
                    style.fill = "none";
                    svg.Empty("path",
                              With({{"class", "sample"}, {"d", PathOf({{at, {at.x + SAMPLE, at.y}}}, false)}},
                                   AttributesOf(style)));
                    break;
                }
                case LegendEntry::Sample::AREA:
                    svg.Empty("rect", With({{"class", "sample"},
                                            {"x", SvgNumber(at.x)},
                                            {"y", SvgNumber(at.y - ROW * 0.3)},
                                            {"width", SvgNumber(SAMPLE)},
                                            {"height", SvgNumber(ROW * 0.6)}},
                                           AttributesOf(entry.style)));
                    break;
                case LegendEntry::Sample::MARKER:
                    WriteMarker(svg, "sample", {at.x + SAMPLE / 2.0, at.y}, entry.style);
                    break;
                case LegendEntry::Sample::NONE:
                    break;
            }
        }
    }

    // Those inside the frame have a rim of paper, which keeps lines off the letters.
    void WriteTexts(SvgWriter& svg) const {
        static constexpr std::array<const char*, 3> anchors = {"start", "middle", "end"};
        svg.Open("g", {{"font-family", FONT},
                       {"stroke", "#ffffff"},
                       {"stroke-width", "3"},
                       {"stroke-linejoin", "round"},
                       {"paint-order", "stroke"}});
        for (const StyledText& text : texts_) {
            SvgAttributes attributes{{"class", text.classes},
                                     {"x", SvgNumber(text.text.at.x)},
                                     {"y", SvgNumber(text.text.at.y)},
                                     {"font-size", FormatPlain(text.text.size)},
                                     {"fill", text.colour}};
            if (text.text.anchor != Anchor::START)
                attributes.emplace_back("text-anchor", anchors[static_cast<std::size_t>(text.text.anchor)]);
            if (text.isBold) attributes.emplace_back("font-weight", "bold");
            svg.Text("text", attributes, text.text.text);
        }
        svg.Close();
    }

    const MapDescription& description_;
    MapSheet sheet_;
    std::vector<Drawing> drawings_;
    std::vector<std::string> problems_;
    LabelPlacer placer_;
    std::vector<FrameLabel> labelled_;
    std::vector<StyledText> texts_;
    std::vector<std::pair<PicturePoint, LegendEntry>> samples_;
    Box bounds_;
};

}  // namespace

MapPage DrawMapPage(const MapDescription& description, double size) {
    return Page(description, size).Draw();
}

}  // namespace tessara::program

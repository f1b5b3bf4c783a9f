#include "drawing/map_layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "conversion/names.h"
#include "conversion/numbers.h"
#include "conversion/units.h"
#include "drawing/map_layers.h"
#include "drawing/map_styles.h"
#include "map/map_measures.h"
#include "map/map_projection.h"

namespace tessara::toolkit {
namespace {

constexpr double TITLE_SIZE = 20.0;
constexpr double LEGEND_SIZE = 13.0;
constexpr double BOLD = 1.12;  // width relative to regular letters
constexpr double PADDING = 12.0;
constexpr double LEGEND_GAP = 14.0;
constexpr double SAMPLE_GAP = 8.0;
constexpr double ENTRY_GAP = 28.0;
constexpr int LEGEND_COLUMNS = 3;
constexpr double TITLE_ROW = 26.0;
constexpr double SCALE_HEIGHT = 22.0;  // of the bar and the texts above it
constexpr double REMARK_GAP = 30.0;
constexpr double SCALE_TOLERANCE = 1.25;  // for a scale that holds at one latitude
constexpr double MEASURES_GAP = 6.0;

constexpr double FRAME_CLEARANCE = 5.0;
constexpr double LINE_HEIGHT = 1.3;
constexpr double FARTHEST_ABOVE = 48.0;    // three rows of labels
constexpr double FARTHEST_BESIDE = 160.0;  // two columns
constexpr std::array<std::int64_t, 13> STRIDES = {1,   2,   5,    10,   20,   50,   100,
                                                  200, 500, 1000, 2000, 5000, 10000};

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

// At the frame, or outward beyond other labels: by rows above and below the window, by the width of the label
// in the way on the sides.
std::vector<PlacedText> OutwardPlaces(const FrameLabel& label) {
    const bool isBeside = label.side == Side::LEFT || label.side == Side::RIGHT;
    const double step = isBeside ? 1.0 : LABEL_SIZE * LINE_HEIGHT;
    std::vector<PlacedText> places;
    for (double outward = 0.0; outward <= (isBeside ? FARTHEST_BESIDE : FARTHEST_ABOVE); outward += step)
        places.push_back(BesideFrame(label, FRAME_CLEARANCE + outward));
    return places;
}

// Whether every n-th label fits without overlaps.
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

class Layout {
  public:
    Layout(const MapDescription& description, double size)
        : description_(description), sheet_(description.sheet, description.window, size) {
        layout_.window = {0.0, 0.0, sheet_.Width(), sheet_.Height()};
        bounds_ = layout_.window;
    }

    MapLayout LayOut() {
        CheckScale();
        DrawLayers();
        PlaceFrameLabels();
        PlaceInnerLabels();
        NoteWhatIsLeftOut();
        PlaceLegend();
        PlaceTitle();
        layout_.paper = bounds_.Grown(PADDING);
        return std::move(layout_);
    }

  private:
    // Maps in degrees or with polynomials do not use the scale, so that it may be wrong.
    void CheckScale() {
        const SheetDescription& sheet = description_.sheet;
        if (!IsFreeOfScale(sheet.projection) || sheet.scaleDenominator == 0 || sheet.resolution == 0.0)
            return;
        const auto ground = GroundSizeAt(sheet_, {sheet_.Width() / 2.0, sheet_.Height() / 2.0});
        if (!ground) return;
        const double said = sheet.scaleDenominator / (sheet.resolution * MM_PER_METRE);
        const auto [least, most] =
            std::minmax({ground->across * sheet_.Zoom(), ground->down * sheet_.Zoom()});
        isScaleRight_ = said * SCALE_TOLERANCE >= least && said <= most * SCALE_TOLERANCE;
        if (isScaleRight_) return;
        layout_.problems.push_back("scale: 'scale' and 'resolution' give " + FormatPlain(said, 3) +
                                   " metres per pixel; the projection gives " + FormatPlain(least, 3) +
                                   " by " + FormatPlain(most, 3));
    }

    void DrawLayers() {
        std::size_t grids = 0;
        for (const Layer& layer : description_.layers) {
            layout_.drawings.push_back(DrawLayer(sheet_, layer, grids));
            if (std::holds_alternative<GridLayer>(layer.content)) ++grids;
            const std::vector<std::string>& problems = layout_.drawings.back().problems;
            layout_.problems.insert(layout_.problems.end(), problems.begin(), problems.end());
        }
    }

    // Borders come first, because they are few and grid labels can move outward.
    void PlaceFrameLabels() {
        for (const bool isBorder : {true, false}) {
            for (const Drawing& drawing : layout_.drawings) {
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

    // A border in two layers has one label.
    bool IsNew(const FrameLabel& label) {
        const bool isThere = std::any_of(labelled_.begin(), labelled_.end(), [&](const FrameLabel& other) {
            return other.text == label.text &&
                   std::hypot(other.at.x - label.at.x, other.at.y - label.at.y) < SAME_PLACE;
        });
        if (!isThere) labelled_.push_back(label);
        return !isThere;
    }

    void PlaceInnerLabels() {
        for (const Drawing& drawing : layout_.drawings) {
            for (const Marker& marker : drawing.markers)
                placer_.Block(Box{marker.at.x, marker.at.y, marker.at.x, marker.at.y}.Grown(MARKER_RADIUS));
        }
        // The last layer is on top, so its names are placed first.
        for (auto drawing = layout_.drawings.rbegin(); drawing != layout_.drawings.rend(); ++drawing) {
            for (const InnerLabel& label : drawing->innerLabels)
                if (!PlaceText(label.candidates, label.classes, label.colour, layout_.window) &&
                    label.classes == "name")
                    ++crowdedOut_;
        }
    }

    bool PlaceText(const std::vector<PlacedText>& candidates, const std::string& classes,
                   const std::string& colour, const std::optional<Box>& area) {
        const std::optional<PlacedText> placed = placer_.Place(candidates, area);
        if (!placed) return false;
        Extend(placed->Bounds());
        layout_.texts.push_back({*placed, classes, colour});
        return true;
    }

    void NoteWhatIsLeftOut() {
        for (const Drawing& drawing : layout_.drawings)
            layout_.notes.insert(layout_.notes.end(), drawing.notes.begin(), drawing.notes.end());
        if (crowdedOut_ > 0)
            layout_.notes.push_back(std::to_string(crowdedOut_) +
                                    (crowdedOut_ == 1 ? " name (no room)" : " names (no room)"));
    }

    void Extend(const Box& box) {
        bounds_ = {std::min(bounds_.left, box.left), std::min(bounds_.top, box.top),
                   std::max(bounds_.right, box.right), std::max(bounds_.bottom, box.bottom)};
    }

    // Below the map: scale bar and north arrow, projection, layers and omissions.
    void PlaceLegend() {
        double y = PlaceMeasures(bounds_.bottom + LEGEND_GAP);
        y = PlaceLines({0.0, y + LEGEND_ROW / 2.0}, SheetText(), "legend");
        y = PlaceEntries(y);
        if (layout_.notes.empty()) return;
        std::string notes = "Not shown: ";
        for (const std::string& note : layout_.notes)
            notes += (&note == &layout_.notes.front() ? "" : "; ") + note;
        PlaceLines({0.0, y}, notes, "note");
    }

    // Returns the position of the next item.
    double PlaceMeasures(double y) {
        const std::optional<ScaleBar> bar = MeasureScaleBar(sheet_);
        const std::optional<double> north = MeasureNorth(sheet_);
        if (bar) PlaceScaleBar(*bar, y + SCALE_HEIGHT - SCALE_BAR_HEIGHT);
        if (north) PlaceNorthArrow(*north, y + ARROW_LENGTH);
        return y + (north ? ARROW_LENGTH : bar ? SCALE_HEIGHT : 0.0) + (north || bar ? MEASURES_GAP : 0.0);
    }

    void PlaceScaleBar(const ScaleBar& bar, double y) {
        layout_.scaleBar = {{0.0, y}, bar.partLength, bar.parts};
        const double length = bar.partLength * bar.parts;
        const double top = y - SCALE_BAR_HEIGHT / 2.0;
        AddText(TextAbove({0.0, top}, 1.0, "0", LABEL_SIZE), "scale");
        AddText(TextAbove({length, top}, 1.0, LengthText(bar.partMetres * bar.parts), LABEL_SIZE), "scale");
        if (!bar.remark.empty())
            AddText(TextRightOf({length, y}, REMARK_GAP, bar.remark, LABEL_SIZE), "scale");
    }

    void PlaceNorthArrow(double direction, double foot) {
        const NorthArrow arrow{{layout_.window.right - ARROW_LENGTH, foot}, direction};
        layout_.northArrow = arrow;
        AddText(
            TextRightOf({arrow.at.x + ARROW_LENGTH / 3.0, foot - ARROW_LENGTH / 2.0}, 0.0, "N", LABEL_SIZE),
            "north");
    }

    double PlaceLines(PicturePoint at, const std::string& text, const std::string& classes) {
        for (const std::string& line : WrapText(text, LEGEND_SIZE, layout_.window.right)) {
            AddText(TextRightOf(at, 0.0, line, LEGEND_SIZE), classes);
            at.y += LEGEND_ROW;
        }
        bounds_.bottom = std::max(bounds_.bottom, at.y - LEGEND_ROW / 2.0);
        return at.y;
    }

    static double WidthOf(const LegendEntry& entry) {
        const double sample = entry.sample == LegendEntry::Sample::NONE ? 0.0 : SAMPLE_WIDTH + SAMPLE_GAP;
        return sample + TextWidth(entry.text, LEGEND_SIZE);
    }

    static double WidthOf(const Drawing& drawing) {
        double width = 0.0;
        for (const LegendEntry& entry : drawing.legend)
            width += WidthOf(entry) + ENTRY_GAP;
        return width;
    }

    // Each layer starts a column and uses as many as it needs.
    double PlaceEntries(double y) {
        const double column = layout_.window.right / LEGEND_COLUMNS;
        int filled = 0;
        for (const Drawing& drawing : layout_.drawings) {
            if (drawing.legend.empty()) continue;
            const int needed =
                std::clamp(static_cast<int>(std::ceil(WidthOf(drawing) / column)), 1, LEGEND_COLUMNS);
            if (filled + needed > LEGEND_COLUMNS) {
                y += LEGEND_ROW;
                filled = 0;
            }
            y = PlaceLayer(drawing, {filled * column, y});
            filled += needed;
        }
        y += filled > 0 ? LEGEND_ROW : 0.0;
        bounds_.bottom = std::max(bounds_.bottom, y - LEGEND_ROW / 2.0);
        return y;
    }

    // Places the entries of a layer in rows as wide as the window. Returns the last row.
    double PlaceLayer(const Drawing& drawing, PicturePoint at) {
        const double left = at.x;
        for (const LegendEntry& entry : drawing.legend) {
            if (at.x > left && at.x + WidthOf(entry) > layout_.window.right) at = {left, at.y + LEGEND_ROW};
            layout_.samples.push_back({at, entry});
            const double text =
                at.x + (entry.sample == LegendEntry::Sample::NONE ? 0.0 : SAMPLE_WIDTH + SAMPLE_GAP);
            double y = at.y - LEGEND_ROW;
            for (const std::string& line : WrapText(entry.text, LEGEND_SIZE, layout_.window.right - text))
                AddText(TextRightOf({text, y += LEGEND_ROW}, 0.0, line, LEGEND_SIZE), "legend");
            at = {at.x + WidthOf(entry) + ENTRY_GAP, y};
        }
        return at.y;
    }

    void AddText(const PlacedText& text, const std::string& classes) {
        Extend(text.Bounds());
        layout_.texts.push_back({text, classes, ColourOf(BLACK)});
    }

    [[nodiscard]] std::string SheetText() const {
        const SheetDescription& sheet = description_.sheet;
        const Window& window = description_.window;
        std::string text = ProjectionName(sheet.projection) + " on " + DatumName(sheet.datum);
        if (sheet.scaleDenominator > 0 && isScaleRight_)
            text += ", 1:" + std::to_string(sheet.scaleDenominator);
        if (sheet.resolution > 0.0) text += ", " + FormatPlain(sheet.resolution) + " pixels per millimetre";
        return text + "; columns " + FormatPlain(window.left) + " to " + FormatPlain(window.right) +
               ", rows " + FormatPlain(window.top) + " to " + FormatPlain(window.bottom);
    }

    void PlaceTitle() {
        const std::vector<std::string> lines =
            WrapText(description_.title, TITLE_SIZE * BOLD, layout_.window.right);
        double y = bounds_.top - LEGEND_GAP - static_cast<double>(lines.size() - 1) * TITLE_ROW;
        for (const std::string& line : lines) {
            if (line.empty()) continue;
            const PlacedText title{{0.0, y}, Anchor::START, TITLE_SIZE, line};
            Box box = title.Bounds();
            box.right = box.left + (box.right - box.left) * BOLD;
            Extend(box);
            layout_.texts.push_back({title, "title", ColourOf(BLACK), true});
            y += TITLE_ROW;
        }
    }

    const MapDescription& description_;
    MapSheet sheet_;
    LabelPlacer placer_;
    std::vector<FrameLabel> labelled_;
    MapLayout layout_;
    Box bounds_{};  // of all placed items
    std::size_t crowdedOut_ = 0;
    bool isScaleRight_ = true;
};

}  // namespace

MapLayout LayOutMap(const MapDescription& description, double size) {
    return Layout(description, size).LayOut();
}

}  // namespace tessara::toolkit

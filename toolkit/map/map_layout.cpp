#include "map/map_layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "conversion/names.h"
#include "conversion/numbers.h"
#include "map/map_layers.h"
#include "map/map_projection.h"
#include "map/map_styles.h"

namespace tessara::toolkit {
namespace {

constexpr double TITLE_SIZE = 20.0;
constexpr double LEGEND_SIZE = 13.0;
constexpr double BOLD = 1.12;  // as wide as plain letters
constexpr double PADDING = 12.0;
constexpr double LEGEND_GAP = 14.0;
constexpr double SAMPLE_GAP = 8.0;
constexpr double ENTRY_GAP = 28.0;

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

class Layout {
  public:
    Layout(const MapDescription& description, double size)
        : description_(description), sheet_(description.sheet, description.window, size) {
        layout_.window = {0.0, 0.0, sheet_.Width(), sheet_.Height()};
        bounds_ = layout_.window;
    }

    MapLayout LayOut() {
        DrawLayers();
        PlaceFrameLabels();
        PlaceInnerLabels();
        PlaceLegend();
        PlaceTitle();
        layout_.paper = bounds_.Grown(PADDING);
        return std::move(layout_);
    }

  private:
    void DrawLayers() {
        std::size_t grids = 0;
        for (const Layer& layer : description_.layers) {
            layout_.drawings.push_back(DrawLayer(sheet_, layer, grids));
            if (std::holds_alternative<GridLayer>(layer.content)) ++grids;
            const std::vector<std::string>& problems = layout_.drawings.back().problems;
            layout_.problems.insert(layout_.problems.end(), problems.begin(), problems.end());
        }
    }

    // Borders come first: there are few of them, and the grid's own labels can step back.
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
        for (const Drawing& drawing : layout_.drawings) {
            for (const Marker& marker : drawing.markers)
                placer_.Block(Box{marker.at.x, marker.at.y, marker.at.x, marker.at.y}.Grown(MARKER_RADIUS));
        }
        // The last layer is on top, and its names come first.
        for (auto drawing = layout_.drawings.rbegin(); drawing != layout_.drawings.rend(); ++drawing) {
            for (const InnerLabel& label : drawing->innerLabels)
                PlaceText(label.candidates, label.classes, label.colour, layout_.window);
        }
    }

    void PlaceText(const std::vector<PlacedText>& candidates, const std::string& classes,
                   const std::string& colour, const std::optional<Box>& area) {
        const std::optional<PlacedText> placed = placer_.Place(candidates, area);
        if (!placed) return;
        Extend(placed->Bounds());
        layout_.texts.push_back({*placed, classes, colour});
    }

    void Extend(const Box& box) {
        bounds_ = {std::min(bounds_.left, box.left), std::min(bounds_.top, box.top),
                   std::max(bounds_.right, box.right), std::max(bounds_.bottom, box.bottom)};
    }

    // What the map is, and then all entries, in rows as wide as the window.
    void PlaceLegend() {
        const double y = bounds_.bottom + LEGEND_GAP + LEGEND_ROW / 2.0;
        AddLegendText({0.0, y}, SheetText());
        PicturePoint at{0.0, y + LEGEND_ROW};
        for (const Drawing& drawing : layout_.drawings) {
            for (const LegendEntry& entry : drawing.legend) {
                const double sample =
                    entry.sample == LegendEntry::Sample::NONE ? 0.0 : SAMPLE_WIDTH + SAMPLE_GAP;
                const double width = sample + TextWidth(entry.text, LEGEND_SIZE);
                if (at.x > 0.0 && at.x + width > layout_.window.right) at = {0.0, at.y + LEGEND_ROW};
                layout_.samples.push_back({at, entry});
                AddLegendText({at.x + sample, at.y}, entry.text);
                at.x += width + ENTRY_GAP;
            }
        }
        bounds_.bottom = std::max(bounds_.bottom, at.y + LEGEND_ROW / 2.0);
    }

    void AddLegendText(const PicturePoint& at, const std::string& text) {
        const PlacedText placed = TextRightOf(at, 0.0, text, LEGEND_SIZE);
        Extend(placed.Bounds());
        layout_.texts.push_back({placed, "legend", ColourOf(BLACK)});
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
        layout_.texts.push_back({title, "title", ColourOf(BLACK), true});
    }

    const MapDescription& description_;
    MapSheet sheet_;
    LabelPlacer placer_;
    std::vector<FrameLabel> labelled_;
    MapLayout layout_;
    Box bounds_{};  // of all that is placed
};

}  // namespace

MapLayout LayOutMap(const MapDescription& description, double size) {
    return Layout(description, size).LayOut();
}

}  // namespace tessara::toolkit

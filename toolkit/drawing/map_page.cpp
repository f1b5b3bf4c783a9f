#include "drawing/map_page.h"

#include <array>
#include <cmath>
#include <utility>

#include "conversion/numbers.h"
#include "drawing/map_layout.h"
#include "drawing/map_styles.h"
#include "drawing/svg.h"

namespace tessara::toolkit {
namespace {

constexpr const char* FONT = "DejaVu Sans, Verdana, Arial, Helvetica, sans-serif";

// For coastlines, which are many and less exact.
constexpr int COAST_DECIMALS = 1;

std::string PathOf(const std::vector<Polyline>& lines, bool isClosed, int decimals = SVG_DECIMALS) {
    std::string path;
    for (const Polyline& line : lines) {
        char command = 'M';
        for (const PicturePoint& point : line) {
            path += command + SvgNumber(point.x, decimals) + " " + SvgNumber(point.y, decimals);
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

SvgAttributes AttributesOf(const Box& box) {
    return {{"x", SvgNumber(box.left)},
            {"y", SvgNumber(box.top)},
            {"width", SvgNumber(box.right - box.left)},
            {"height", SvgNumber(box.bottom - box.top)}};
}

SvgAttributes With(SvgAttributes attributes, const SvgAttributes& more) {
    attributes.insert(attributes.end(), more.begin(), more.end());
    return attributes;
}

class PageWriter {
  public:
    explicit PageWriter(const MapLayout& layout)
        : layout_(layout),
          svg_(layout.paper.left, layout.paper.top, layout.paper.right - layout.paper.left,
               layout.paper.bottom - layout.paper.top) {}

    std::string Write() {
        WriteDefinitions();
        svg_.Empty("rect",
                   With({{"class", "paper"}}, With(AttributesOf(layout_.paper), {{"fill", "#ffffff"}})));
        WriteShapes();
        WriteMarkers();
        svg_.Empty("rect", With({{"class", "frame"}},
                                With(AttributesOf(layout_.window), AttributesOf(FrameStyle()))));
        if (layout_.scaleBar) WriteScaleBar(*layout_.scaleBar);
        if (layout_.northArrow) WriteNorthArrow(*layout_.northArrow);
        WriteSamples();
        WriteTexts();
        return svg_.Finish();
    }

  private:
    static Style FrameStyle() { return {ColourOf(BLACK), 2.5, "", "none", 1.0}; }

    void WriteDefinitions() {
        svg_.Open("defs", {});
        svg_.Open("clipPath", {{"id", "window"}});
        svg_.Empty("rect", AttributesOf(layout_.window));
        svg_.Close();
        for (const Hatching& hatching : Hatchings()) {
            svg_.Open("pattern", {{"id", hatching.id},
                                  {"width", "7"},
                                  {"height", "7"},
                                  {"patternUnits", "userSpaceOnUse"},
                                  {"patternTransform", "rotate(" + FormatPlain(hatching.angle) + ")"}});
            const std::string colour = ColourOf(hatching.colour);
            svg_.Empty("rect", {{"width", "7"}, {"height", "7"}, {"fill", colour}, {"fill-opacity", "0.25"}});
            svg_.Empty("rect", {{"width", "2.5"}, {"height", "7"}, {"fill", colour}});
            svg_.Close();
        }
        svg_.Close();
    }

    void WriteShapes() {
        for (const Rank rank :
             {Rank::LAND, Rank::COAST, Rank::AREA, Rank::GRID, Rank::BORDER, Rank::OUTLINE, Rank::LINE}) {
            for (std::size_t i = 0; i < layout_.drawings.size(); ++i) {
                for (const Shape& shape : layout_.drawings[i].shapes) {
                    if (shape.rank == rank && !shape.paths.empty()) WriteShape(i, shape);
                }
            }
        }
    }

    void WriteShape(std::size_t layer, const Shape& shape) {
        const bool isArea = IsArea(shape.rank);
        const int decimals =
            shape.rank == Rank::LAND || shape.rank == Rank::COAST ? COAST_DECIMALS : SVG_DECIMALS;
        SvgAttributes attributes{{"class", "layer" + std::to_string(layer) + " " + shape.classes}};
        if (isArea) {
            attributes.emplace_back("clip-path", "url(#window)");
            attributes.emplace_back("fill-rule", "evenodd");
        } else {
            attributes.emplace_back("stroke-linejoin", "round");
        }
        svg_.Open("g", With(std::move(attributes), AttributesOf(shape.style)));
        if (isArea) {
            svg_.Empty("path", {{"d", PathOf(shape.paths, true, decimals)}});
        } else {
            for (const Polyline& line : shape.paths)
                svg_.Empty("path", {{"d", PathOf({line}, false, decimals)}});
        }
        svg_.Close();
    }

    void WriteMarkers() {
        for (std::size_t i = 0; i < layout_.drawings.size(); ++i) {
            for (const Marker& marker : layout_.drawings[i].markers)
                WriteMarker("layer" + std::to_string(i) + " position", marker.at, marker.style);
        }
    }

    void WriteMarker(const std::string& classes, const PicturePoint& at, const Style& style) {
        svg_.Empty("circle", With({{"class", classes},
                                   {"cx", SvgNumber(at.x)},
                                   {"cy", SvgNumber(at.y)},
                                   {"r", SvgNumber(MARKER_RADIUS)}},
                                  AttributesOf(style)));
    }

    void WriteScaleBar(const PlacedScaleBar& bar) {
        for (int part = 0; part < bar.parts; ++part) {
            const double left = bar.at.x + part * bar.partLength;
            const Style style{ColourOf(BLACK), 0.8, "", part % 2 == 0 ? ColourOf(BLACK) : "#ffffff", 1.0};
            svg_.Empty("rect",
                       With({{"class", "scale-bar"}},
                            With(AttributesOf(Box{left, bar.at.y - SCALE_BAR_HEIGHT / 2.0,
                                                  left + bar.partLength, bar.at.y + SCALE_BAR_HEIGHT / 2.0}),
                                 AttributesOf(style))));
        }
    }

    // A needle with a black eastern half.
    void WriteNorthArrow(const NorthArrow& arrow) {
        const PicturePoint middle{arrow.at.x, arrow.at.y - ARROW_LENGTH / 2.0};
        const double sine = std::sin(arrow.direction);
        const double cosine = std::cos(arrow.direction);
        const auto at = [&](double right, double up) {
            return PicturePoint{middle.x + right * cosine + up * sine, middle.y + right * sine - up * cosine};
        };
        const PicturePoint tip = at(0.0, ARROW_LENGTH / 2.0);
        const PicturePoint notch = at(0.0, -ARROW_LENGTH / 4.0);
        for (const double side : {-1.0, 1.0}) {
            const PicturePoint wing = at(side * ARROW_LENGTH / 4.0, -ARROW_LENGTH / 2.0);
            const Style style{ColourOf(BLACK), 0.8, "", side > 0.0 ? ColourOf(BLACK) : "#ffffff", 1.0};
            svg_.Empty("path", With({{"class", "north-arrow"}, {"d", PathOf({{tip, wing, notch}}, true)}},
                                    AttributesOf(style)));
        }
    }

    void WriteSamples() {
        for (const auto& [at, entry] : layout_.samples) {
            switch (entry.sample) {
                case LegendEntry::Sample::LINE: {
                    Style style = entry.style;
                    style.fill = "none";
                    svg_.Empty("path", With({{"class", "sample"},
                                             {"d", PathOf({{at, {at.x + SAMPLE_WIDTH, at.y}}}, false)}},
                                            AttributesOf(style)));
                    break;
                }
                case LegendEntry::Sample::AREA:
                    svg_.Empty("rect", With({{"class", "sample"},
                                             {"x", SvgNumber(at.x)},
                                             {"y", SvgNumber(at.y - LEGEND_ROW * 0.3)},
                                             {"width", SvgNumber(SAMPLE_WIDTH)},
                                             {"height", SvgNumber(LEGEND_ROW * 0.6)}},
                                            AttributesOf(entry.style)));
                    break;
                case LegendEntry::Sample::MARKER:
                    WriteMarker("sample", {at.x + SAMPLE_WIDTH / 2.0, at.y}, entry.style);
                    break;
                case LegendEntry::Sample::NONE:
                    break;
            }
        }
    }

    // Texts inside the frame have a white outline that separates letters from lines.
    void WriteTexts() {
        static constexpr std::array<const char*, 3> anchors = {"start", "middle", "end"};
        svg_.Open("g", {{"font-family", FONT},
                        {"stroke", "#ffffff"},
                        {"stroke-width", "3"},
                        {"stroke-linejoin", "round"},
                        {"paint-order", "stroke"}});
        for (const StyledText& text : layout_.texts) {
            SvgAttributes attributes{{"class", text.classes},
                                     {"x", SvgNumber(text.text.at.x)},
                                     {"y", SvgNumber(text.text.at.y)},
                                     {"font-size", FormatPlain(text.text.size)},
                                     {"fill", text.colour}};
            if (text.text.anchor != Anchor::START)
                attributes.emplace_back("text-anchor", anchors[static_cast<std::size_t>(text.text.anchor)]);
            if (text.isBold) attributes.emplace_back("font-weight", "bold");
            svg_.Text("text", attributes, text.text.text);
        }
        svg_.Close();
    }

    const MapLayout& layout_;
    SvgWriter svg_;
};

}  // namespace

MapPage DrawMapPage(const MapDescription& description, double size) {
    MapLayout layout = LayOutMap(description, size);
    std::string svg = PageWriter(layout).Write();
    return {std::move(svg), std::move(layout.problems), std::move(layout.notes)};
}

}  // namespace tessara::toolkit

#include "drawing/map_styles.h"

#include <array>

namespace tessara::toolkit {
namespace {

constexpr std::array<const char*, 8> COLOURS = {"#000000", "#e69f00", "#56b4e9", "#009e73",
                                                "#f0e442", "#0072b2", "#d55e00", "#cc79a7"};

constexpr const char* LAND_TINT = "#f1ece0";
constexpr const char* COAST_TINT = "#80766a";
constexpr const char* DASH = "6 3";

struct GridLook {
    std::size_t colour;
    const char* dash;
};

constexpr std::array GRID_LOOKS = {GridLook{BLUE, ""}, GridLook{BLUISH_GREEN, "6 3"},
                                   GridLook{BLACK, "1.5 2.5"}, GridLook{REDDISH_PURPLE, "9 2 2 2"}};

Style Stroke(std::size_t colour, double width, const char* dash = "") {
    return {ColourOf(colour), width, dash, "none", 1.0};
}

}  // namespace

std::string ColourOf(std::size_t number) {
    return COLOURS.at(number);
}

Style GridStyle(std::size_t index, std::optional<std::size_t> colour) {
    const GridLook& look = GRID_LOOKS[index % GRID_LOOKS.size()];
    return Stroke(colour.value_or(look.colour), 0.8, look.dash);
}

Style BorderStyle(std::optional<std::size_t> colour, bool isThin) {
    if (isThin) return Stroke(colour.value_or(BLACK), 0.5);
    return Stroke(colour.value_or(BLACK), 2.2, "14 3 3 3");
}

Style GeodesicStyle(std::optional<std::size_t> colour) {
    return Stroke(colour.value_or(VERMILLION), 2.0);
}

Style LineStyle(std::optional<std::size_t> colour) {
    return Stroke(colour.value_or(REDDISH_PURPLE), 2.0, "8 4");
}

Style RingStyle(std::optional<std::size_t> colour) {
    return Stroke(colour.value_or(ORANGE), 1.8, "10 2");
}

Style PolygonStyle(std::optional<std::size_t> colour) {
    Style style = Stroke(colour.value_or(BLACK), 1.4);
    style.fill = ColourOf(colour.value_or(YELLOW));
    style.fillOpacity = 0.25;
    return style;
}

// Below all other layers, in tints that no other layer uses.
Style LandStyle(const Look& look) {
    Style style{"none", 0.0, "", look.fill ? ColourOf(*look.fill) : LAND_TINT, look.opacity.value_or(1.0)};
    if (!look.isFilled) style.fill = "none";
    return style;
}

Style CoastStyle(const Look& look) {
    return {look.colour ? ColourOf(*look.colour) : COAST_TINT, look.width.value_or(0.8),
            look.isDashed ? DASH : "", "none", 1.0};
}

Style CountryBorderStyle() {
    return {COAST_TINT, 0.6, "5 2 1 2", "none", 1.0};
}

Style ShapeLineStyle(const Look& look) {
    return Stroke(look.colour.value_or(VERMILLION), look.width.value_or(1.6), look.isDashed ? DASH : "");
}

Style ShapeAreaStyle(const Look& look) {
    Style style = ShapeLineStyle(look);
    style.fillOpacity = look.opacity.value_or(0.25);
    if (look.isFilled) style.fill = ColourOf(look.fill.value_or(look.colour.value_or(VERMILLION)));
    return style;
}

Style MarkerStyle(std::optional<std::size_t> colour) {
    return {"#ffffff", 1.2, "", ColourOf(colour.value_or(BLACK)), 1.0};
}

Style PartStyle(std::size_t part) {
    static const std::array<Style, PART_COUNT> styles = {
        Style{"none", 0.0, "", ColourOf(YELLOW), 0.6}, Style{"none", 0.0, "", "url(#hatch-second)", 1.0},
        Style{"none", 0.0, "", "url(#hatch-first)", 1.0},
        Style{"none", 0.0, "", ColourOf(BLUISH_GREEN), 0.55}};
    return styles.at(part);
}

Style OutlineStyle() {
    return Stroke(BLACK, 1.4);
}

const std::vector<Hatching>& Hatchings() {
    static const std::vector<Hatching> hatchings = {{"hatch-first", ORANGE, 45.0},
                                                    {"hatch-second", SKY_BLUE, -45.0}};
    return hatchings;
}

}  // namespace tessara::toolkit

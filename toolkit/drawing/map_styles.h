// Colours, widths and dashes. No two kinds of objects differ in colour only.
#pragma once

#include <cstddef>

#include "drawing/map_drawing.h"
#include "map/map_description.h"

namespace tessara::toolkit {

// In the order of COLOUR_NAMES.
enum ColourNumber : std::size_t {
    BLACK,
    ORANGE,
    SKY_BLUE,
    BLUISH_GREEN,
    YELLOW,
    BLUE,
    VERMILLION,
    REDDISH_PURPLE,
};

[[nodiscard]] std::string ColourOf(std::size_t number);

// The given colour, or the default colour of the kind. Grids alternate between colours.
[[nodiscard]] Style GridStyle(std::size_t index, std::optional<std::size_t> colour);
[[nodiscard]] Style BorderStyle(std::optional<std::size_t> colour, bool isThin);
[[nodiscard]] Style GeodesicStyle(std::optional<std::size_t> colour);
[[nodiscard]] Style LineStyle(std::optional<std::size_t> colour);
[[nodiscard]] Style RingStyle(std::optional<std::size_t> colour);
[[nodiscard]] Style PolygonStyle(std::optional<std::size_t> colour);
[[nodiscard]] Style LandStyle(const Look& look);
[[nodiscard]] Style CoastStyle(const Look& look);
[[nodiscard]] Style CountryBorderStyle();
// Styles for shapes of a file.
[[nodiscard]] Style ShapeLineStyle(const Look& look);
[[nodiscard]] Style ShapeAreaStyle(const Look& look);
[[nodiscard]] Style MarkerStyle(std::optional<std::size_t> colour);

// The parts of an overlay, in the order neither, only second, only first, both.
inline constexpr std::size_t PART_COUNT = 4;
[[nodiscard]] Style PartStyle(std::size_t part);
[[nodiscard]] Style OutlineStyle();

// Hatchings for the fills of parts, as SVG patterns.
struct Hatching {
    const char* id;
    std::size_t colour;
    double angle;  // degrees
};
[[nodiscard]] const std::vector<Hatching>& Hatchings();

}  // namespace tessara::toolkit

// The layout of a page: what the layers draw in the window, texts that keep clear of each other, a title and
// a legend.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/labels.h"
#include "drawing/map_drawing.h"
#include "map/map_description.h"

namespace tessara::toolkit {

inline constexpr double MARKER_RADIUS = 4.0;
inline constexpr double LEGEND_ROW = 22.0;
inline constexpr double SAMPLE_WIDTH = 34.0;
inline constexpr double SCALE_BAR_HEIGHT = 6.0;
inline constexpr double ARROW_LENGTH = 30.0;

struct StyledText {
    PlacedText text;
    std::string classes;
    std::string colour;
    bool isBold = false;
};

// What the legend shows of an entry besides its text, from the middle of the left side on.
struct Sample {
    PicturePoint at;
    LegendEntry entry;
};

// A bar of parts that are black and white by turns; `at` is the middle of its left end.
struct PlacedScaleBar {
    PicturePoint at;
    double partLength;
    int parts;
};

// Its foot, and where it points to in radians clockwise from the top.
struct NorthArrow {
    PicturePoint at;
    double direction;
};

struct MapLayout {
    Box window;
    Box paper;
    std::optional<PlacedScaleBar> scaleBar;
    std::optional<NorthArrow> northArrow;
    std::vector<Drawing> drawings;  // of a layer each
    std::vector<StyledText> texts;
    std::vector<Sample> samples;
    std::vector<std::string> problems;  // what couldn't be drawn
    std::vector<std::string> notes;     // what is left out
};

// The longer side of the window becomes `size` units long. Throws DescriptionError if there is no such map.
[[nodiscard]] MapLayout LayOutMap(const MapDescription& description, double size);

}  // namespace tessara::toolkit

// The layout of a page: the drawings of the layers, texts without overlaps, a title and a legend.
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

// The sample of a legend entry, positioned by the middle of its left side.
struct Sample {
    PicturePoint at;
    LegendEntry entry;
};

// A bar of alternating black and white parts; `at` is the middle of its left end.
struct PlacedScaleBar {
    PicturePoint at;
    double partLength;
    int parts;
};

// The foot of the arrow and its direction in radians clockwise from the top.
struct NorthArrow {
    PicturePoint at;
    double direction;
};

struct MapLayout {
    Box window;
    Box paper;
    std::optional<PlacedScaleBar> scaleBar;
    std::optional<NorthArrow> northArrow;
    std::vector<Drawing> drawings;  // one for each layer
    std::vector<StyledText> texts;
    std::vector<Sample> samples;
    std::vector<std::string> problems;  // error messages
    std::vector<std::string> notes;     // omissions
};

// The longer side of the window becomes `size` units long. Throws DescriptionError for an invalid map.
[[nodiscard]] MapLayout LayOutMap(const MapDescription& description, double size);

}  // namespace tessara::toolkit

// The output of a layer: shapes, texts, and entries of the legend.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "drawing/clipping.h"
#include "drawing/labels.h"
#include "map/map_sheet.h"

namespace tessara::toolkit {

// Later ranks are drawn on top.
enum class Rank { LAND, COAST, AREA, GRID, BORDER, OUTLINE, LINE, MARKER };

[[nodiscard]] inline bool IsArea(Rank rank) {
    return rank == Rank::LAND || rank == Rank::AREA;
}

struct Style {
    std::string stroke = "none";
    double width = 0.0;
    std::string dash;  // empty for a solid line
    std::string fill = "none";
    double fillOpacity = 1.0;
};

// Lines of one style; areas if the style has a fill.
struct Shape {
    Rank rank;
    std::string classes;  // CSS classes that name the kind of shape
    std::vector<Polyline> paths;
    Style style;
};

struct Marker {
    PicturePoint at;
    Style style;
};

// A text at the frame, at the end of a grid line. If there are too many, every second, fifth ... remains:
// those with ordinals that are multiples.
struct FrameLabel {
    PicturePoint at;
    Side side;
    std::string text;
    std::int64_t ordinal;
};

struct FrameLabels {
    std::string classes;
    std::string colour;
    std::vector<FrameLabel> labels;
};

// A text inside the frame, at the first free one of several places; without a free place it is omitted.
struct InnerLabel {
    std::vector<PlacedText> candidates;
    std::string classes;
    std::string colour;
};

struct LegendEntry {
    enum class Sample { LINE, AREA, MARKER, NONE };

    Sample sample;
    Style style;
    std::string text;
};

struct Drawing {
    std::vector<Shape> shapes;
    std::vector<Marker> markers;
    std::vector<FrameLabels> frameLabels;
    std::vector<InnerLabel> innerLabels;
    std::vector<LegendEntry> legend;
    std::vector<std::string> problems;  // error messages
    std::vector<std::string> notes;     // omissions, for the reader of the map
};

// Picture units: the maximum distance of a polyline from its curve, and the distance within which two points
// coincide.
inline constexpr double LINE_TOLERANCE = 0.25;
inline constexpr double SAME_PLACE = 1.0;

inline constexpr double LABEL_SIZE = 12.0;
inline constexpr double NAME_SIZE = 14.0;

}  // namespace tessara::toolkit

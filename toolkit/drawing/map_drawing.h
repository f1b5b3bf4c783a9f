// What a layer puts into the picture: shapes, texts, and entries of the legend.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "drawing/clipping.h"
#include "drawing/labels.h"
#include "map/map_sheet.h"

namespace tessara::toolkit {

// By importance: what comes later lies on top.
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

// Lines of one style; areas where there is a fill.
struct Shape {
    Rank rank;
    std::string classes;  // names for the reader of the file: what it is
    std::vector<Polyline> paths;
    Style style;
};

struct Marker {
    PicturePoint at;
    Style style;
};

// A text at the frame, where a line of a grid ends. Of too many, every second, fifth ... is kept: those whose
// ordinals are multiples.
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

// A text inside the frame, at one of several places; it is left out where none has room.
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
    std::vector<std::string> problems;  // what can't be drawn
    std::vector<std::string> notes;     // what isn't, for the reader of the map
};

// Picture units: how far a chain of points may lie beside its line, and within which two places are one.
inline constexpr double LINE_TOLERANCE = 0.25;
inline constexpr double SAME_PLACE = 1.0;

inline constexpr double LABEL_SIZE = 12.0;
inline constexpr double NAME_SIZE = 14.0;

}  // namespace tessara::toolkit

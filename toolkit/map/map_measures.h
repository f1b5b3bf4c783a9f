// What a reader measures a map by: a scale bar, and where north is.
#pragma once

#include <optional>
#include <string>

#include "map/map_sheet.h"

namespace tessara::toolkit {

struct ScaleBar {
    double partLength;  // in the picture
    double partMetres;
    int parts;
    std::string remark;  // where it holds, if not everywhere; may be empty
};

// Along the rows, as long as a part of the window's width; nothing on a map whose scale differs too much
// within the window for any to be useful.
[[nodiscard]] std::optional<ScaleBar> MeasureScaleBar(const MapSheet& sheet);

// Metres on the ground of a unit of the picture, along the rows and along the columns.
struct GroundSize {
    double across, down;
};

[[nodiscard]] std::optional<GroundSize> GroundSizeAt(const MapSheet& sheet, const PicturePoint& point);

// The direction of north in radians clockwise from the top, on a map that has about the same everywhere in
// the window.
[[nodiscard]] std::optional<double> MeasureNorth(const MapSheet& sheet);

// A length as people write it: 500 m, 2.5 km.
[[nodiscard]] std::string LengthText(double metres);

// The greatest of 1, 2, 5, 10, 20 ... that isn't above a number.
[[nodiscard]] double RoundLengthBelow(double number);

}  // namespace tessara::toolkit

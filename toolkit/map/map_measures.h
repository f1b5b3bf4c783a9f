// The scale bar and the north direction of a map.
#pragma once

#include <optional>
#include <string>

#include "map/map_sheet.h"

namespace tessara::toolkit {

struct ScaleBar {
    double partLength;  // in the picture
    double partMetres;
    int parts;
    std::string remark;  // the validity of the scale; empty if it holds everywhere
};

// A scale bar along the rows; nothing if the scale varies too much within the window.
[[nodiscard]] std::optional<ScaleBar> MeasureScaleBar(const MapSheet& sheet);

// The ground length of a picture unit in metres, along the rows and along the columns.
struct GroundSize {
    double across, down;
};

[[nodiscard]] std::optional<GroundSize> GroundSizeAt(const MapSheet& sheet, const PicturePoint& point);

// The direction of north in radians clockwise from the top; nothing if it varies too much within the window.
[[nodiscard]] std::optional<double> MeasureNorth(const MapSheet& sheet);

// A length as a text: 500 m, 2.5 km.
[[nodiscard]] std::string LengthText(double metres);

// The largest of 1, 2, 5, 10, 20 ... up to a number.
[[nodiscard]] double RoundLengthBelow(double number);

}  // namespace tessara::toolkit

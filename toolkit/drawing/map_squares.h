// The squares of 100 km that the letters of UTMREF, BNG and ING name.
#pragma once

#include <string>
#include <vector>

#include "map/map_sheet.h"

namespace tessara::toolkit {

struct NamedSquare {
    std::string name;
    PicturePoint middle;  // the approximate middle of the visible part
    double width;         // of the visible part
};

// Empty for other systems, and if there are too many squares to read.
[[nodiscard]] std::vector<NamedSquare> SquaresOf(const MapSheet& sheet, const Reference& reference);

}  // namespace tessara::toolkit

// The squares of 100 km whose letters a position of UTMREF, BNG or ING begins with.
#pragma once

#include <string>
#include <vector>

#include "map/map_sheet.h"

namespace tessara::toolkit {

struct NamedSquare {
    std::string name;
    PicturePoint middle;  // of what the window shows of it, nearly
    double width;         // of that
};

// Nothing for other systems, and where there are more than anyone can read.
[[nodiscard]] std::vector<NamedSquare> SquaresOf(const MapSheet& sheet, const Reference& reference);

}  // namespace tessara::toolkit

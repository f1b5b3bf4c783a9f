// Generates descriptions of maps: of the surroundings of a position, or of the contents of a file.
#pragma once

#include <string>

#include "map/layer_files.h"

namespace tessara::toolkit {

struct Surroundings {
    double latitude, longitude;  // of the middle, in degrees on WGS84
    double width;                // metres from the left to the right side
};

inline constexpr double NARROWEST_MAP = 10.0;  // metres
inline constexpr double WIDEST_MAP = 4e7;

// The text of a description: a projection suitable for the latitude and the width, grids with some lines in
// the window, coastlines on a wide map, and the position. Throws DescriptionError for an invalid position or
// a width out of range.
[[nodiscard]] std::string DescribeMapAround(const Surroundings& around);

// The same for a file of GeoJSON or lines of degrees, with a layer that draws it. `name` is the name of the
// file in the description. Throws DescriptionError for a file without positions.
[[nodiscard]] std::string DescribeMapOf(const LayerFile& file, const std::string& name);

}  // namespace tessara::toolkit

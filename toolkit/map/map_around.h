// Descriptions of maps that nobody has to write: of the surroundings of a place, or of what a file holds.
#pragma once

#include <string>

#include "map/layer_files.h"

namespace tessara::toolkit {

struct Surroundings {
    double latitude, longitude;  // degrees on WGS84; of the middle
    double width;                // metres from the left to the right side
};

inline constexpr double NARROWEST_MAP = 10.0;  // metres
inline constexpr double WIDEST_MAP = 4e7;

// The text of a description: a projection that fits the latitude and the width, grids with steps that leave
// some lines of each in the window, coastlines on a map that is wide enough for them, and the place. Throws
// DescriptionError for a place that isn't on the earth or a width that is out of range.
[[nodiscard]] std::string DescribeMapAround(const Surroundings& around);

// The same of the positions of a file, which is GeoJSON or lines of degrees, and of a layer that draws them.
// `name` is how the description names it. Throws DescriptionError for a file without positions.
[[nodiscard]] std::string DescribeMapOf(const LayerFile& file, const std::string& name);

}  // namespace tessara::toolkit

// The page as SVG: window and frame, the layers by rank, texts and legend.
#pragma once

#include <string>
#include <vector>

#include "map/map_description.h"

namespace tessara::toolkit {

struct MapPage {
    std::string svg;
    std::vector<std::string> problems;  // error messages
    std::vector<std::string> notes;     // omissions, which the page lists below the map
};

// The longer side of the window becomes `size` units long. Throws DescriptionError for an invalid map.
[[nodiscard]] MapPage DrawMapPage(const MapDescription& description, double size);

}  // namespace tessara::toolkit

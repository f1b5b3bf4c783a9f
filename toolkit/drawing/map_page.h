// The page as SVG: window and frame, the layers by importance, texts and legend.
#pragma once

#include <string>
#include <vector>

#include "map/map_description.h"

namespace tessara::toolkit {

struct MapPage {
    std::string svg;
    std::vector<std::string> problems;  // what couldn't be drawn
    std::vector<std::string> notes;     // what is left out, as the page says below the map
};

// The longer side of the window becomes `size` units long. Throws DescriptionError if there is no such map.
[[nodiscard]] MapPage DrawMapPage(const MapDescription& description, double size);

}  // namespace tessara::toolkit

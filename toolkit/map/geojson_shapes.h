// The geometries of a GeoJSON text (RFC 7946) as points, lines and areas to draw.
#pragma once

#include <string>
#include <vector>

#include "map/layer_files.h"
#include "map/map_sites.h"
#include "map/picture_point.h"

namespace tessara::toolkit {

// Lines and rings on the datum of the map.
struct EarthShape {
    std::vector<EarthLine> lines;
    std::string name;  // may be empty
};

struct EarthLayerShapes {
    std::vector<Site> points;
    std::vector<EarthShape> lines;
    std::vector<EarthShape> areas;  // one for each polygon, with all its rings
};

struct GeoJsonForm {
    std::int32_t datum;  // of the text
    std::int32_t mapDatum;
    std::string nameKey;  // the property with the name of a feature
};

// Reads features, collections and geometries. Adds a message with the place of each invalid feature to
// `problems`, and reads the others. A segment of more than 180 degrees is taken the shorter way across the
// date line; a segment of exactly 360 degrees goes around the earth.
[[nodiscard]] EarthLayerShapes ReadGeoJson(const LayerFile& file, const GeoJsonForm& form,
                                           std::vector<std::string>* problems);

}  // namespace tessara::toolkit

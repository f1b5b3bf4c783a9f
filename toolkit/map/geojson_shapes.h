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
    std::vector<EarthShape> areas;  // the rings of a polygon each
};

struct GeoJsonForm {
    std::int32_t datum;  // of the text
    std::int32_t mapDatum;
    std::string nameKey;  // the property that has a feature's name
};

// Features, collections and geometries. A feature that can't be used goes into `problems` with its place in
// the file, and the others are read. A segment of more than half a turn goes the other way around, over the
// date line; one of a full turn goes around the earth.
[[nodiscard]] EarthLayerShapes ReadGeoJson(const LayerFile& file, const GeoJsonForm& form,
                                           std::vector<std::string>* problems);

}  // namespace tessara::toolkit

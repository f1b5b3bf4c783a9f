// The description of a map: projection, window and layers.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "conversion/references.h"
#include "map/geojson_shapes.h"
#include "map/json_reader.h"
#include "map/layer_files.h"
#include "map/map_sites.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

struct ReferenceSite {
    Site site;
    double x, y;  // the pixel
};

struct SheetDescription {
    IRef<IProjection> projection;
    std::int32_t scaleDenominator = 0;  // 0 without a scale
    double resolution = 0.0;            // pixels per millimetre of the sheet
    std::int32_t datum = DATUM_WGS84;
    std::vector<ReferenceSite> references;
};

struct Window {  // pixels of the map
    double left, top, right, bottom;

    [[nodiscard]] double Width() const { return right - left; }
    [[nodiscard]] double Height() const { return bottom - top; }
};

// Lines of equal east and north value of a system.
struct GridLayer {
    Reference reference;
    double eastStep, northStep;  // in units of the system
};

struct BordersLayer {  // of the zones of a system
    Reference reference;
};

struct PositionsLayer {
    std::vector<Site> sites;
};

struct LineLayer {  // from site to site
    enum class Straight { GEODESIC, ON_MAP, IN_SYSTEM };

    std::vector<Site> sites;
    Straight straight;
    Reference reference;  // of IN_SYSTEM
};

struct RingsLayer {
    Site centre;
    std::vector<double> radii;  // metres on the ellipsoid
};

struct PolygonLayer {  // edges are straight on the map
    std::vector<Site> sites;
};

struct OverlayLayer {
    std::vector<Site> first;
    std::vector<Site> second;
};

// The coastlines of the world, its land and the borders of its countries, on the datum of the map.
struct CoastLayer {
    bool hasBorders;
};

struct GeoJsonLayer {
    EarthLayerShapes shapes;
    std::string file;
};

// The style of a layer; empty members take the default of its kind.
struct Look {
    std::optional<std::size_t> colour;  // in COLOUR_NAMES
    std::optional<std::size_t> fill;    // of areas, likewise
    bool isFilled = true;
    std::optional<double> opacity;  // of the fill
    std::optional<double> width;    // of lines, in units of the picture
    bool isDashed = false;
};

struct Layer {
    std::string where;  // in the description, for messages
    std::string name;   // for the legend; may be empty
    Look look;
    std::variant<GridLayer, BordersLayer, PositionsLayer, LineLayer, RingsLayer, PolygonLayer, OverlayLayer,
                 CoastLayer, GeoJsonLayer>
        content;
};

struct MapDescription {
    std::string title;
    SheetDescription sheet;
    Window window;
    std::vector<Layer> layers;
    std::vector<std::string> problems;  // messages about invalid parts, which are omitted
};

// The colours of Okabe and Ito (Color Universal Design, 2008), which are distinguishable with any kind of
// colour vision.
inline constexpr std::array COLOUR_NAMES = {"black",  "orange", "sky blue",   "bluish green",
                                            "yellow", "blue",   "vermillion", "reddish purple"};

// Reads the text of a description. Throws DescriptionError.
[[nodiscard]] MapDescription ReadMapDescription(const std::string& text, const OpenLayerFile& open);

}  // namespace tessara::toolkit

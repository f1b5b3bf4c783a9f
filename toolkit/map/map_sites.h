// Reads the places of a map description: degrees, texts of any system, or pixels of the map.
#pragma once

#include <string>
#include <vector>

#include "conversion/references.h"
#include "map/json_reader.h"
#include "map/layer_files.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

struct Site {
    IRef<ICoord> coord;
    std::string name;   // may be empty
    std::string where;  // in the description, for messages
};

// Exceeds all pixels of a map.
inline constexpr double PIXEL_LIMIT = 1e9;

// Read the names of a datum and of a reference, whose default datum is that of the map.
[[nodiscard]] std::int32_t ReadDatum(const JsonValue& value);
[[nodiscard]] Reference ReadReference(const JsonValue& value, std::int32_t mapDatum);

// A column and a row.
[[nodiscard]] FloatPixelPayload ReadPixel(const JsonValue& value);

// One of
//     [48.1375, 11.5755]
//     {"at": [48.1375, 11.5755], "datum": "WGS84", "name": "Munich"}
//     {"system": "UTM@WGS84", "north": "N 5334791", "east": "32 691602", "name": "Munich"}
//     {"pixel": [400, 250], "name": "Munich"}
// on the datum of the map unless the place names one.
[[nodiscard]] Site ReadSite(const JsonValue& value, std::int32_t mapDatum);
[[nodiscard]] std::vector<Site> ReadSites(const JsonValue& value, std::size_t least, std::int32_t mapDatum);

// Degrees on a datum.
[[nodiscard]] IRef<ICoord> DegreesCoord(double latitude, double longitude, std::int32_t datum);

// Read the sites of a file in the formats of `tessara convert`: lines `latitude longitude [height] # name`,
// or columns with the north text, the east text and the name. Add messages about wrong lines to `problems`.
[[nodiscard]] std::vector<Site> ReadDegreesFile(const LayerFile& file, std::int32_t datum,
                                                std::vector<std::string>* problems);
[[nodiscard]] std::vector<Site> ReadTextsFile(const LayerFile& file, const Reference& reference,
                                              std::vector<std::string>* problems);

}  // namespace tessara::toolkit

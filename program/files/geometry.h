// Geometries of GeoJSON (RFC 7946): the nesting of their positions, stored separately from the positions.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/positions.h"
#include "files/json_scan.h"
#include "run/toolkit_names.h"

namespace tessara::program {

struct Geometry {
    std::string_view type = "Point";
    // A '.' for each position, and the brackets around them.
    std::string nesting = ".";
    std::vector<Geometry> parts;  // of a collection
};

// Reads the next value and appends its positions. Returns the error, or an empty text.
[[nodiscard]] std::string ReadGeometry(JsonScan& scan, Geometry* geometry, std::vector<Position>* positions);

// Whether the type of an object denotes a geometry.
[[nodiscard]] bool IsGeometryType(std::string_view type);

// Appends the geometry with its positions on WGS84, to a tenth of a millimetre.
void AppendGeometry(const Geometry& geometry, const std::vector<Position>& positions, std::string* json);

// Appends values with the nesting of the positions; a function writes the value with a given index. A
// collection becomes an array with an element for each geometry.
void AppendNested(const Geometry& geometry, const std::function<void(std::size_t)>& append,
                  std::string* json);

}  // namespace tessara::program

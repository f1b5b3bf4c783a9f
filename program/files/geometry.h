// Geometries of GeoJSON (RFC 7946): how their positions nest, apart from the positions themselves.
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
    // A point for each position, and the brackets around them.
    std::string nesting = ".";
    std::vector<Geometry> parts;  // of a collection
};

// Takes the next value, and appends its positions. What is wrong with it; empty if nothing is.
[[nodiscard]] std::string ReadGeometry(JsonScan& scan, Geometry* geometry, std::vector<Position>* positions);

// Whether an object with this type is a geometry.
[[nodiscard]] bool IsGeometryType(std::string_view type);

// Appends the geometry with its positions, which are those of WGS84, to a tenth of a millimetre.
void AppendGeometry(const Geometry& geometry, const std::vector<Position>& positions, std::string* json);

// Appends values that nest as the positions do: each is written by its place among them. A collection is an
// array of what its geometries give.
void AppendNested(const Geometry& geometry, const std::function<void(std::size_t)>& append,
                  std::string* json);

}  // namespace tessara::program

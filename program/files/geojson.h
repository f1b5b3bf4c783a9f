// GeoJSON: a FeatureCollection of points, which stand on WGS84, longitude first (RFC 7946).
#pragma once

#include <istream>
#include <string>

#include "files/records.h"

namespace tessara::program {

// Gives the features one by one, without keeping the file in memory.
void ReadGeoJson(std::istream& stream, const std::string& file, RecordSink* sink);

// The geometry of a position on WGS84, to a tenth of a millimetre.
[[nodiscard]] Json PointOf(const Position& position);

// The frame around features, and what stands between two of them.
inline constexpr const char* COLLECTION_START = "{\"type\":\"FeatureCollection\",\"features\":[\n";
inline constexpr const char* COLLECTION_SEPARATOR = ",\n";
inline constexpr const char* COLLECTION_END = "\n]}\n";

}  // namespace tessara::program

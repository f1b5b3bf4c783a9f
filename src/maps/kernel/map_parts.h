// Shared helpers of the map types.
#pragma once

#include "tessara/kernel/map_types.h"

namespace tessara {

[[nodiscard]] inline std::int32_t DatumOf(const MapParam& map) {
    return static_cast<std::int32_t>(map.datum);
}

// Metres per pixel and pixels per metre. They are computed by two expressions rather than as reciprocals,
// because stored results depend on the last digit.
[[nodiscard]] inline double MetresPerPixel(const MapParam& map) {
    return map.scaleDenominator / (map.resolution * 1000.0);
}
[[nodiscard]] inline double PixelsPerMetre(const MapParam& map) {
    return map.resolution * 1000.0 / map.scaleDenominator;
}

// Converts to degrees on a datum without range tests. *geodez is a GEODEZ record even on failure; its fields
// are then zero.
KoordStatus ToDegrees(const tagKOORD& record, std::int32_t datum, tagKOORD* geodez);
// The same, on the datum of the map.
KoordStatus ToDegrees(const tagKOORD& record, const MapParam& map, GeodezPayload* at);

// Writes a record of degrees on the datum of the map.
void PutDegrees(const MapParam& map, const GeodezPayload& at, tagKOORD* out);

}  // namespace tessara

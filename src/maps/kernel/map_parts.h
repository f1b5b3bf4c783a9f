// What the functions of the map types share.
#pragma once

#include "tessara/kernel/map_types.h"

namespace tessara {

[[nodiscard]] inline std::int32_t DatumOf(const MapParam& map) {
    return static_cast<std::int32_t>(map.datum);
}

// The ground size of a pixel, and pixels per metre on the ground. Two expressions, not reciprocals.
[[nodiscard]] inline double MetresPerPixel(const MapParam& map) {
    return map.scaleDenominator / (map.resolution * 1000.0);
}
[[nodiscard]] inline double PixelsPerMetre(const MapParam& map) {
    return map.resolution * 1000.0 / map.scaleDenominator;
}

// A record in degrees on a datum, never range checked. *geodez is a GEODEZ record also on failure, of zeros.
KoordStatus ToDegrees(const tagKOORD& record, std::int32_t datum, tagKOORD* geodez);
// The same on the datum of the map.
KoordStatus ToDegrees(const tagKOORD& record, const MapParam& map, GeodezPayload* at);

// A record of degrees on the datum of the map.
void PutDegrees(const MapParam& map, const GeodezPayload& at, tagKOORD* out);

}  // namespace tessara

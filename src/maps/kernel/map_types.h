// The two directions of each map type. Each function's outputs are written on KOORD_OK only, with the
// exceptions told here.
//
// X_PixelToWorld fills *out, which comes in with every byte zero, in the type's native system. Only GAUKRU
// and GAUKRU6 have a status there. Every other type gives up without one: *out stays as it is, and a record
// of type 0 can't be converted any further; AZYL and WAGNER-IV leave what they have reached, a record in
// degrees.
#pragma once

#include "tessara/kernel/map.h"

namespace tessara {

using MapPixelToWorldFunction = KoordStatus(const MapParam* map, double x, double y, tagKOORD* out);
using MapWorldToPixelFunction = KoordStatus(const MapParam* map, const tagKOORD* in, double* x, double* y);

MapPixelToWorldFunction MapUtm_PixelToWorld, MapGk_PixelToWorld, MapGk6_PixelToWorld, MapBmn_PixelToWorld,
    MapUps_PixelToWorld, MapTm_PixelToWorld, MapRd_PixelToWorld, MapCh_PixelToWorld, MapDd_PixelToWorld,
    MapEqualArc_PixelToWorld, MapPolynom_PixelToWorld, MapMercator_PixelToWorld, MapAzyl_PixelToWorld,
    MapLambert_PixelToWorld, MapLambertFr_PixelToWorld, MapVdg_PixelToWorld, MapWagnerIV_PixelToWorld;

MapWorldToPixelFunction MapUtm_WorldToPixel, MapGk_WorldToPixel, MapGk6_WorldToPixel, MapBmn_WorldToPixel,
    MapUps_WorldToPixel, MapTm_WorldToPixel, MapRd_WorldToPixel, MapCh_WorldToPixel, MapDd_WorldToPixel,
    MapEqualArc_WorldToPixel, MapPolynom_WorldToPixel, MapMercator_WorldToPixel, MapAzyl_WorldToPixel,
    MapLambert_WorldToPixel, MapLambertFr_WorldToPixel, MapVdg_WorldToPixel, MapWagnerIV_WorldToPixel;

// What the types share.

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

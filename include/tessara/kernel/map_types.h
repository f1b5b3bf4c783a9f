// The two directions of each map type, for callers who know the type of their map. They leave out what
// MapPixelToWorld and MapWorldToPixel (map.h) add: the choice of the type, the conversion into a wanted
// system and the rounding to whole pixels.
//
//     MapMercator_WorldToPixel(&map, &world, &x, &y);
//
// `map->params` holds the struct of the type. `map->type` is ignored, except by MapLambert, which serves
// LAMBERT2 and LAMBERTCC. MapTm serves TM, PO_MILITARY and LUREF, MapRd serves STEREOGR_NL; the other names
// are those of their types. No pointer may be null, and numbers aren't checked, as map.h says.
#pragma once

#include "tessara/kernel/map.h"

namespace tessara {

// The position of pixel (x, y), as a record of the type's own system and datum. *out must come in with every
// byte zero. GAUKRU and GAUKRU6 return KOORD_ERR_GK_EAST, with *out unchanged, for a pixel outside the
// strip. All others return KOORD_OK, also for a pixel without a position: *out is then unchanged, and a
// record of type 0 doesn't convert any further; AZYL and WAGNER-IV leave the record in degrees as far as
// they got.
using MapPixelToWorldFunction = KoordStatus(const MapParam* map, double x, double y, tagKOORD* out);

MapPixelToWorldFunction MapUtm_PixelToWorld, MapGk_PixelToWorld, MapGk6_PixelToWorld, MapBmn_PixelToWorld,
    MapUps_PixelToWorld, MapTm_PixelToWorld, MapRd_PixelToWorld, MapCh_PixelToWorld, MapDd_PixelToWorld,
    MapEqualArc_PixelToWorld, MapPolynom_PixelToWorld, MapMercator_PixelToWorld, MapAzyl_PixelToWorld,
    MapLambert_PixelToWorld, MapLambertFr_PixelToWorld, MapVdg_PixelToWorld, MapWagnerIV_PixelToWorld;

// The pixel of a position of any system that converts into the type's own, with the statuses of
// MapWorldToPixel. *x and *y are written with KOORD_OK only.
using MapWorldToPixelFunction = KoordStatus(const MapParam* map, const tagKOORD* in, double* x, double* y);

MapWorldToPixelFunction MapUtm_WorldToPixel, MapGk_WorldToPixel, MapGk6_WorldToPixel, MapBmn_WorldToPixel,
    MapUps_WorldToPixel, MapTm_WorldToPixel, MapRd_WorldToPixel, MapCh_WorldToPixel, MapDd_WorldToPixel,
    MapEqualArc_WorldToPixel, MapPolynom_WorldToPixel, MapMercator_WorldToPixel, MapAzyl_WorldToPixel,
    MapLambert_WorldToPixel, MapLambertFr_WorldToPixel, MapVdg_WorldToPixel, MapWagnerIV_WorldToPixel;

}  // namespace tessara

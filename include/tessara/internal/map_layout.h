// The byte offsets of a map's record and its parameters. They are part of the contract: a compiler with
// another layout stops here.
#pragma once

#include <cstddef>
#include <type_traits>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/map.h"

namespace tessara {

static_assert(std::is_trivially_copyable_v<MapParam> && std::is_standard_layout_v<MapParam>);
static_assert(sizeof(MapParam::reference) == 80 && sizeof(MapParam) == 456);

#define TESSARA_AT(Struct, field, byte) static_assert(offsetof(Struct, field) == (byte))
TESSARA_AT(MapReferenceNode, world, 0);
TESSARA_AT(MapReferenceNode, pixelX, 64);
TESSARA_AT(MapReferenceNode, pixelY, 68);
TESSARA_AT(MapReferenceNode, next, 72);
TESSARA_AT(MapParam, referenceCount, 0);
TESSARA_AT(MapParam, reference, 8);
TESSARA_AT(MapParam, scaleDenominator, 88);
TESSARA_AT(MapParam, resolution, 96);
TESSARA_AT(MapParam, datum, 104);
TESSARA_AT(MapParam, reserved1, 108);
TESSARA_AT(MapParam, reserved2, 112);
TESSARA_AT(MapParam, worldType, 116);
TESSARA_AT(MapParam, type, 120);
TESSARA_AT(MapParam, params, 128);

// The fields before a grid's origin have the offsets of the grid's payload, and the origin has those of the
// grid values.
TESSARA_AT(MapUtmParams, hemisphere, offsetof(UtmPayload, hemisphere));
TESSARA_AT(MapUtmParams, zone, offsetof(UtmPayload, wantedZone));
TESSARA_AT(MapUtmParams, originEasting, offsetof(UtmPayload, easting));
TESSARA_AT(MapUtmParams, originNorthing, offsetof(UtmPayload, northing));
TESSARA_AT(MapGkParams, meridian, offsetof(GkPayload, wantedMeridian));
TESSARA_AT(MapGkParams, originEasting, offsetof(GkPayload, easting));
TESSARA_AT(MapGkParams, originNorthing, offsetof(GkPayload, northing));
TESSARA_AT(MapBmnParams, meridian, offsetof(BmnPayload, wantedMeridian));
TESSARA_AT(MapBmnParams, originEasting, offsetof(BmnPayload, easting));
TESSARA_AT(MapBmnParams, originNorthing, offsetof(BmnPayload, northing));
TESSARA_AT(MapUpsParams, hemisphere, offsetof(UpsPayload, hemisphere));
TESSARA_AT(MapUpsParams, originEasting, offsetof(UpsPayload, easting));
TESSARA_AT(MapUpsParams, originNorthing, offsetof(UpsPayload, northing));
TESSARA_AT(MapTmParams, originLongitude, offsetof(TmPayload, originLongitude));
TESSARA_AT(MapTmParams, scale, offsetof(TmPayload, scale));
TESSARA_AT(MapTmParams, originEasting, offsetof(TmPayload, easting));
TESSARA_AT(MapTmParams, originNorthing, offsetof(TmPayload, northing));
TESSARA_AT(MapPlaneParams, originEasting, offsetof(GridPayload, easting));
TESSARA_AT(MapPlaneParams, originNorthing, offsetof(GridPayload, northing));
TESSARA_AT(MapVdgParams, originLatitude, offsetof(VdgPayload, originLatitude));
TESSARA_AT(MapPolynomParams, latFromPixel, 8);
TESSARA_AT(MapLambertFrParams, offsetX, 8);
TESSARA_AT(MapEqualArcParams, originLatitude, 8);
#undef TESSARA_AT

static_assert(sizeof(MapUtmParams) == 40 && sizeof(MapGkParams) == 40 && sizeof(MapBmnParams) == 40 &&
              sizeof(MapUpsParams) == 40 && sizeof(MapTmParams) == 72 && sizeof(MapPlaneParams) == 32);
static_assert(sizeof(MapDdParams) == 32 && sizeof(MapEqualArcParams) == 40 &&
              sizeof(MapPolynomParams) == MAP_PARAMS_SIZE);
static_assert(sizeof(MapLambert2Params) == 24 && sizeof(MapLambertFrParams) == 24 &&
              sizeof(MapLambertCcParams) == 80 && sizeof(MapMercatorParams) == 24 &&
              sizeof(MapAzylParams) == 24 && sizeof(MapVdgParams) == 16 && sizeof(MapWagnerIvParams) == 24 &&
              sizeof(MapNoneParams) == 88);

}  // namespace tessara

#include "maps/projection.h"

#include <algorithm>
#include <cstring>

#include "frame/tessara_string.h"
#include "maps/creation.h"
#include "tessara/kernel/names.h"

namespace tessara {

void Projection::GetProjectionName(ITessaraString* text) {
    FillWithName(text, Projection_Name(static_cast<std::int32_t>(map_.type)));
}

// Copies the parameters byte by byte, so that they come back exactly as they went in.
template <class Params>
bool Projection::CopyOut(std::initializer_list<MapType> types, Params* out) const {
    if (!out || std::find(types.begin(), types.end(), map_.type) == types.end()) return false;
    std::memcpy(out, map_.params, sizeof *out);
    return true;
}

bool Projection::GetWagnerIvParams(MapWagnerIvParams* out) {
    return CopyOut({MAP_WAGNER_IV}, out);
}
bool Projection::GetNoneParams(MapNoneParams* out) {
    return CopyOut({MAP_NONE}, out);
}
bool Projection::GetStereographicNlParams(MapPlaneParams* out) {
    return CopyOut({MAP_STEREOGR_NL}, out);
}
bool Projection::GetVanDerGrintenParams(MapVdgParams* out) {
    return CopyOut({MAP_VAN_DER_GRINTEN}, out);
}
bool Projection::GetPolynomParams(MapPolynomParams* out) {
    return CopyOut({MAP_POLYNOM}, out);
}
bool Projection::GetLambertCcParams(MapLambertCcParams* out) {
    return CopyOut({MAP_LAMBERTCC}, out);
}
bool Projection::GetLambertFrParams(MapLambertFrParams* out) {
    return CopyOut({MAP_LAMBERTFR}, out);
}
bool Projection::GetTmParams(MapTmParams* out) {
    return CopyOut({MAP_TM, MAP_PO_MILITARY, MAP_LUREF}, out);
}
bool Projection::GetUpsParams(MapUpsParams* out) {
    return CopyOut({MAP_UPS}, out);
}
bool Projection::GetDdParams(MapDdParams* out) {
    return CopyOut({MAP_DD}, out);
}
bool Projection::GetAzylParams(MapAzylParams* out) {
    return CopyOut({MAP_AZYL}, out);
}
bool Projection::GetChParams(MapPlaneParams* out) {
    return CopyOut({MAP_CH}, out);
}
bool Projection::GetBmnParams(MapBmnParams* out) {
    return CopyOut({MAP_BMN}, out);
}
bool Projection::GetMercatorParams(MapMercatorParams* out) {
    return CopyOut({MAP_MERCATOR}, out);
}
bool Projection::GetEqualArcParams(MapEqualArcParams* out) {
    return CopyOut({MAP_EQUALARC}, out);
}
bool Projection::GetLambert2Params(MapLambert2Params* out) {
    return CopyOut({MAP_LAMBERT2}, out);
}
bool Projection::GetGaussKruegerParams(MapGkParams* out) {
    return CopyOut({MAP_GAUKRU, MAP_GAUKRU6}, out);
}
bool Projection::GetUtmParams(MapUtmParams* out) {
    return CopyOut({MAP_UTM}, out);
}

bool Projection::GetMapParam(MapParam* out) {
    if (!out) return false;
    out->type = map_.type;
    out->worldType = map_.worldType;
    std::memcpy(out->params, map_.params, sizeof out->params);
    return true;
}

bool Projection::SetMapParam(const MapParam* in) {
    if (!in) return false;
    map_ = *in;
    return true;
}

IProjection* NewProjection(const MapParam& map) {
    return NewObject<Projection>(map);
}

IProjection* CreateClassProjection() {
    return NewObject<Projection>();
}

}  // namespace tessara

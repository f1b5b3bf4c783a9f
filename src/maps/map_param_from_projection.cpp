#include "maps/map_param_from_projection.h"

#include <array>
#include <cstring>

#include "tessara/internal/map_param_internal.h"
#include "tessara/projection.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

template <auto Getter>
struct Reader;

template <class Params, bool (IProjection::*Getter)(Params*)>
struct Reader<Getter> {
    static bool Read(IProjection* projection, MapParam* map) {
        Params params{};
        if (!(projection->*Getter)(&params)) return false;
        Store(*map, params);
        return true;
    }
};

using ReadFunction = bool(IProjection* projection, MapParam* map);

constexpr std::array<ReadFunction*, MAP_TYPE_COUNT> READERS{{
    nullptr,                                               // UNKNOWN
    nullptr,                                               // NONE
    Reader<&IProjection::GetUtmParams>::Read,              // UTM
    Reader<&IProjection::GetGaussKruegerParams>::Read,     // GAUKRU
    Reader<&IProjection::GetLambert2Params>::Read,         // LAMBERT2
    Reader<&IProjection::GetLambertFrParams>::Read,        // LAMBERTFR
    Reader<&IProjection::GetEqualArcParams>::Read,         // EQUALARC
    Reader<&IProjection::GetPolynomParams>::Read,          // POLYNOM
    Reader<&IProjection::GetMercatorParams>::Read,         // MERCATOR
    Reader<&IProjection::GetBmnParams>::Read,              // BMN
    Reader<&IProjection::GetChParams>::Read,               // CH
    Reader<&IProjection::GetAzylParams>::Read,             // AZYL
    Reader<&IProjection::GetDdParams>::Read,               // DD
    Reader<&IProjection::GetGaussKruegerParams>::Read,     // GAUKRU6
    Reader<&IProjection::GetUpsParams>::Read,              // UPS
    Reader<&IProjection::GetTmParams>::Read,               // TM
    Reader<&IProjection::GetTmParams>::Read,               // PO_MILITARY
    Reader<&IProjection::GetVanDerGrintenParams>::Read,    // VAN_DER_GRINTEN
    Reader<&IProjection::GetStereographicNlParams>::Read,  // STEREOGR_NL
    Reader<&IProjection::GetLambertCcParams>::Read,        // LAMBERTCC
    Reader<&IProjection::GetTmParams>::Read,               // LUREF
    Reader<&IProjection::GetWagnerIvParams>::Read,         // WAGNER-IV
}};

bool ReadRecord(IMapParamInternal* projection, MapParam* map) {
    // Copies through a record of its own: the projection's whole record could bring a chain that belongs to
    // another object.
    MapParam record;
    if (!projection->GetMapParam(&record)) return false;
    map->type = record.type;
    map->worldType = record.worldType;
    std::memcpy(map->params, record.params, sizeof map->params);
    return true;
}

bool ReadParameters(IProjection* projection, MapParam* map) {
    const std::uint32_t type = projection->GetProjectionType();
    if (type >= MAP_TYPE_COUNT || !READERS[type]) return false;
    map->type = type;
    if (type == MAP_POLYNOM) map->worldType = KOORD_GEODEZ;
    return READERS[type](projection, map);
}

}  // namespace

bool MapParamFromProjection(IUnknown* projection, MapParam* map) {
    const IRef<IMapParamInternal> record(projection);
    if (record.IsValid()) return ReadRecord(record.Get(), map);
    const IRef<IProjection> parameters(projection);
    return parameters.IsValid() && ReadParameters(parameters.Get(), map);
}

}  // namespace tessara

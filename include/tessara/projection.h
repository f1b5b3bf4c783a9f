// How a map is drawn: a map type and its parameters.
#pragma once

#include "tessara/kernel/map.h"
#include "tessara/unknown.h"

namespace tessara {

class ITessaraString;

inline constexpr GUID CLSID_Projection = ParseGuid("9421D26A-6D8D-464D-A60F-F79456DEDE4D");
inline constexpr GUID IID_IProjection = ParseGuid("E7697177-2DD8-48FB-87A7-0436D3B095D6");

// Example: the zone of a UTM map.
//
//     const tessara::IRef projection = tessara::CreateClassProjection();
//     tessara::MapUtmParams params{};
//     if (!map->GetProjection(projection) || !projection->GetUtmParams(&params)) return;  // zone 32
//
// IProjectionFactory makes projections; one from CreateClassProjection has the type MAP_UNKNOWN and receives
// that of a map through IMapCoordOperations::GetProjection.
class IProjection : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IProjection;

    // A MapType.
    virtual std::uint32_t GetProjectionType() = 0;
    // Replaces the text by the name of the type, from "UNKNOWN" to "WAGNER-IV"; a number above 21 has none
    // and gives an empty text.
    virtual void GetProjectionName(ITessaraString* text) = 0;

    // The parameters. Each getter is false, with nothing written, for a projection of another type and for
    // null.
    virtual bool GetWagnerIvParams(MapWagnerIvParams* out) = 0;
    virtual bool GetNoneParams(MapNoneParams* out) = 0;
    virtual bool GetStereographicNlParams(MapPlaneParams* out) = 0;
    virtual bool GetVanDerGrintenParams(MapVdgParams* out) = 0;
    virtual bool GetPolynomParams(MapPolynomParams* out) = 0;
    virtual bool GetLambertCcParams(MapLambertCcParams* out) = 0;
    virtual bool GetLambertFrParams(MapLambertFrParams* out) = 0;
    virtual bool GetTmParams(MapTmParams* out) = 0;  // TM, PO_MILITARY and LUREF
    virtual bool GetUpsParams(MapUpsParams* out) = 0;
    virtual bool GetDdParams(MapDdParams* out) = 0;
    virtual bool GetAzylParams(MapAzylParams* out) = 0;
    virtual bool GetChParams(MapPlaneParams* out) = 0;
    virtual bool GetBmnParams(MapBmnParams* out) = 0;
    virtual bool GetMercatorParams(MapMercatorParams* out) = 0;
    virtual bool GetEqualArcParams(MapEqualArcParams* out) = 0;
    virtual bool GetLambert2Params(MapLambert2Params* out) = 0;
    virtual bool GetGaussKruegerParams(MapGkParams* out) = 0;  // GAUKRU and GAUKRU6
    virtual bool GetUtmParams(MapUtmParams* out) = 0;

  protected:
    ~IProjection() = default;
};

// Creates a projection of type MAP_UNKNOWN with count 0: put it into an IRef at once. Null if memory runs
// out.
extern "C" [[nodiscard]] TESSARA_API IProjection* CreateClassProjection();

}  // namespace tessara

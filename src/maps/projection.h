#pragma once

#include <initializer_list>

#include "tessara/internal/map_param_internal.h"
#include "tessara/kernel/map.h"
#include "tessara/object.h"
#include "tessara/projection.h"

namespace tessara {

// Uses only type, world type and parameters of its record; a chain in the record belongs to another object.
class Projection : public IProjection, public IMapParamInternal {
  public:
    using Faces = FaceList<IProjection, IMapParamInternal>;

    Projection() = default;
    explicit Projection(const MapParam& map) : map_(map) {}

    std::uint32_t GetProjectionType() override { return map_.type; }
    void GetProjectionName(ITessaraString* text) override;

    bool GetWagnerIvParams(MapWagnerIvParams* out) override;
    bool GetNoneParams(MapNoneParams* out) override;
    bool GetStereographicNlParams(MapPlaneParams* out) override;
    bool GetVanDerGrintenParams(MapVdgParams* out) override;
    bool GetPolynomParams(MapPolynomParams* out) override;
    bool GetLambertCcParams(MapLambertCcParams* out) override;
    bool GetLambertFrParams(MapLambertFrParams* out) override;
    bool GetTmParams(MapTmParams* out) override;
    bool GetUpsParams(MapUpsParams* out) override;
    bool GetDdParams(MapDdParams* out) override;
    bool GetAzylParams(MapAzylParams* out) override;
    bool GetChParams(MapPlaneParams* out) override;
    bool GetBmnParams(MapBmnParams* out) override;
    bool GetMercatorParams(MapMercatorParams* out) override;
    bool GetEqualArcParams(MapEqualArcParams* out) override;
    bool GetLambert2Params(MapLambert2Params* out) override;
    bool GetGaussKruegerParams(MapGkParams* out) override;
    bool GetUtmParams(MapUtmParams* out) override;

    bool GetMapParam(MapParam* out) override;
    bool SetMapParam(const MapParam* in) override;

  protected:
    ~Projection() = default;

  private:
    template <class Params>
    bool CopyOut(std::initializer_list<MapType> types, Params* out) const;

    MapParam map_;
};

}  // namespace tessara

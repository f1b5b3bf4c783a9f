// A host's own projection, which implements IProjection and has no record.
#pragma once

#include <cstring>

#include "tessara/kernel/map.h"
#include "tessara/object.h"
#include "tessara/projection.h"

namespace tessara::testing {

class HostProjection : public IProjection {
  public:
    using Faces = FaceList<IProjection>;

    // With `gives` false every getter fails.
    explicit HostProjection(const MapParam& map, bool gives = true) : map_(map), gives_(gives) {}

    std::uint32_t GetProjectionType() override { return map_.type; }
    void GetProjectionName(ITessaraString*) override {}
    bool GetWagnerIvParams(MapWagnerIvParams* out) override { return Give(MAP_WAGNER_IV, out); }
    bool GetNoneParams(MapNoneParams* out) override { return Give(MAP_NONE, out); }
    bool GetStereographicNlParams(MapPlaneParams* out) override { return Give(MAP_STEREOGR_NL, out); }
    bool GetVanDerGrintenParams(MapVdgParams* out) override { return Give(MAP_VAN_DER_GRINTEN, out); }
    bool GetPolynomParams(MapPolynomParams* out) override { return Give(MAP_POLYNOM, out); }
    bool GetLambertCcParams(MapLambertCcParams* out) override { return Give(MAP_LAMBERTCC, out); }
    bool GetLambertFrParams(MapLambertFrParams* out) override { return Give(MAP_LAMBERTFR, out); }
    bool GetTmParams(MapTmParams* out) override {
        return Give(MAP_TM, out) || Give(MAP_PO_MILITARY, out) || Give(MAP_LUREF, out);
    }
    bool GetUpsParams(MapUpsParams* out) override { return Give(MAP_UPS, out); }
    bool GetDdParams(MapDdParams* out) override { return Give(MAP_DD, out); }
    bool GetAzylParams(MapAzylParams* out) override { return Give(MAP_AZYL, out); }
    bool GetChParams(MapPlaneParams* out) override { return Give(MAP_CH, out); }
    bool GetBmnParams(MapBmnParams* out) override { return Give(MAP_BMN, out); }
    bool GetMercatorParams(MapMercatorParams* out) override { return Give(MAP_MERCATOR, out); }
    bool GetEqualArcParams(MapEqualArcParams* out) override { return Give(MAP_EQUALARC, out); }
    bool GetLambert2Params(MapLambert2Params* out) override { return Give(MAP_LAMBERT2, out); }
    bool GetGaussKruegerParams(MapGkParams* out) override {
        return Give(MAP_GAUKRU, out) || Give(MAP_GAUKRU6, out);
    }
    bool GetUtmParams(MapUtmParams* out) override { return Give(MAP_UTM, out); }

  protected:
    ~HostProjection() = default;

  private:
    template <class Params>
    bool Give(MapType type, Params* out) const {
        if (!gives_ || map_.type != static_cast<std::uint32_t>(type)) return false;
        std::memcpy(out, map_.params, sizeof *out);
        return true;
    }

    MapParam map_;
    bool gives_;
};

}  // namespace tessara::testing

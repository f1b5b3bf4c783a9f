#pragma once

#include "maps/owned_map_param.h"
#include "tessara/ckoord.h"
#include "tessara/internal/map_param_internal.h"
#include "tessara/map_coord_operations.h"
#include "tessara/object.h"

namespace tessara {

class MapCoordOperations : public IMapCoordOperations, public IMapParamInternal {
  public:
    using Faces = FaceList<IMapCoordOperations, IMapParamInternal>;

    MapCoordOperations() = default;
    explicit MapCoordOperations(OwnedMapParam&& map) : map_(std::move(map)) {}

    bool GetMapDefinition(IArray* points, std::int32_t* scaleDenominator, double* resolution, IGeoDate* datum,
                          IProjection* projection) override;
    bool GetReferencePoint(IReferencePoint* out) override;
    bool GetReferencePoints(IArray* out) override;
    std::int32_t GetScaleDenominator() override { return map_->scaleDenominator; }
    double GetScale() override { return 1.0 / map_->scaleDenominator; }
    double GetResolution() override { return map_->resolution; }
    bool GetGeoDate(IGeoDate* out) override;
    bool GetProjection(IProjection* out) override;

    bool FloatPixelToCoord(double x, double y, ICoord* out) override;
    bool LongPixelToCoord(std::int32_t x, std::int32_t y, ICoord* out) override;
    bool PixelCoordToCoord(ICoord* pixel, ICoord* out) override;
    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override;
    bool CoordToLongPixel(ICoord* in, std::int32_t* x, std::int32_t* y) override;
    bool CoordToPixelCoord(ICoord* in, ICoord* pixel) override;
    // An operation of the class, behind those of the interface.
    virtual ~MapCoordOperations() = default;

    bool GetMapParam(MapParam* out) override;
    bool SetMapParam(const MapParam* in) override;

  private:
    bool ToWorld(const tagKOORD& pixel, ICoord* out);
    bool ToPixel(ICoord* in, CKoord* pixel);
    CKoord EmptyPixel(std::int32_t type);

    OwnedMapParam map_;
};

}  // namespace tessara

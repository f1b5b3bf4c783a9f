#pragma once

#include "tessara/object.h"
#include "tessara/projection_factory.h"

namespace tessara {

class ProjectionFactory : public IProjectionFactory {
  public:
    using Faces = FaceList<IProjectionFactory>;

    IProjection* CreateUtm(const MapUtmParams* params) override;
    IProjection* CreateGaussKrueger(const MapGkParams* params) override;
    IProjection* CreateGaussKrueger6(const MapGkParams* params) override;
    IProjection* CreateLambert2(const MapLambert2Params* params) override;
    IProjection* CreateEqualArc(const MapEqualArcParams* params) override;
    IProjection* CreatePolynom(const MapPolynomParams* params) override;
    IProjection* CreateMercator(const MapMercatorParams* params) override;
    IProjection* CreateBmn(const MapBmnParams* params) override;
    IProjection* CreateCh(const MapPlaneParams* params) override;
    IProjection* CreateAzyl(const MapAzylParams* params) override;
    IProjection* CreateDd(const MapDdParams* params) override;
    IProjection* CreateUps(const MapUpsParams* params) override;
    IProjection* CreateTm(const MapTmParams* params) override;
    IProjection* CreatePoMilitary(const MapTmParams* params) override;
    IProjection* CreateLuref(const MapTmParams* params) override;
    IProjection* CreateLambertFr(const MapLambertFrParams* params) override;
    IProjection* CreateLambertCc(const MapLambertCcParams* params) override;
    IProjection* CreatePolynomSecond(const MapPolynomParams* params) override;
    IProjection* CreateVanDerGrinten(const MapVdgParams* params) override;
    IProjection* CreateStereographicNl(const MapPlaneParams* params) override;
    IProjection* CreateNone(const MapNoneParams* params) override;
    IProjection* CreateWagnerIv(const MapWagnerIvParams* params) override;

  protected:
    ~ProjectionFactory() = default;
};

}  // namespace tessara

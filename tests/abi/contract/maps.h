// Projections, maps, and the interfaces that work on their pixels.
#pragma once

#include "abi/contract/objects.h"

namespace contract {

class IProjection : public IUnknown {
  public:
    static constexpr Guid ID = Id("E7697177-2DD8-48FB-87A7-0436D3B095D6");
    virtual uint32_t GetProjectionType() = 0;
    virtual void GetProjectionName(ITessaraString* name) = 0;
    virtual bool GetWagnerIvParams(MapWagnerIvParams* out) = 0;
    virtual bool GetNoneParams(MapNoneParams* out) = 0;
    virtual bool GetStereographicNlParams(MapPlaneParams* out) = 0;
    virtual bool GetVanDerGrintenParams(MapVdgParams* out) = 0;
    virtual bool GetPolynomParams(MapPolynomParams* out) = 0;
    virtual bool GetLambertCcParams(MapLambertCcParams* out) = 0;
    virtual bool GetLambertFrParams(MapLambertFrParams* out) = 0;
    virtual bool GetTmParams(MapTmParams* out) = 0;
    virtual bool GetUpsParams(MapUpsParams* out) = 0;
    virtual bool GetDdParams(MapDdParams* out) = 0;
    virtual bool GetAzylParams(MapAzylParams* out) = 0;
    virtual bool GetChParams(MapPlaneParams* out) = 0;
    virtual bool GetBmnParams(MapBmnParams* out) = 0;
    virtual bool GetMercatorParams(MapMercatorParams* out) = 0;
    virtual bool GetEqualArcParams(MapEqualArcParams* out) = 0;
    virtual bool GetLambert2Params(MapLambert2Params* out) = 0;
    virtual bool GetGaussKruegerParams(MapGkParams* out) = 0;
    virtual bool GetUtmParams(MapUtmParams* out) = 0;

  protected:
    ~IProjection() = default;
};

class IMapParamInternal : public IUnknown {
  public:
    static constexpr Guid ID = Id("99D5DAA8-0930-49F1-8D0F-257F2D6566C1");
    virtual bool GetMapParam(MapParam* out) = 0;
    virtual bool SetMapParam(const MapParam* in) = 0;

  protected:
    ~IMapParamInternal() = default;
};

class IProjectionFactory : public IUnknown {
  public:
    static constexpr Guid ID = Id("821CE8CD-1FE0-460C-AE06-69E91E97394E");
    virtual IProjection* CreateUtm(const MapUtmParams* params) = 0;
    virtual IProjection* CreateGaussKrueger(const MapGkParams* params) = 0;
    virtual IProjection* CreateGaussKrueger6(const MapGkParams* params) = 0;
    virtual IProjection* CreateLambert2(const MapLambert2Params* params) = 0;
    virtual IProjection* CreateEqualArc(const MapEqualArcParams* params) = 0;
    virtual IProjection* CreatePolynom(const MapPolynomParams* params) = 0;
    virtual IProjection* CreateMercator(const MapMercatorParams* params) = 0;
    virtual IProjection* CreateBmn(const MapBmnParams* params) = 0;
    virtual IProjection* CreateCh(const MapPlaneParams* params) = 0;
    virtual IProjection* CreateAzyl(const MapAzylParams* params) = 0;
    virtual IProjection* CreateDd(const MapDdParams* params) = 0;
    virtual IProjection* CreateUps(const MapUpsParams* params) = 0;
    virtual IProjection* CreateTm(const MapTmParams* params) = 0;
    virtual IProjection* CreatePoMilitary(const MapTmParams* params) = 0;
    virtual IProjection* CreateLuref(const MapTmParams* params) = 0;
    virtual IProjection* CreateLambertFr(const MapLambertFrParams* params) = 0;
    virtual IProjection* CreateLambertCc(const MapLambertCcParams* params) = 0;
    virtual IProjection* CreatePolynomSecond(const MapPolynomParams* params) = 0;
    virtual IProjection* CreateVanDerGrinten(const MapVdgParams* params) = 0;
    virtual IProjection* CreateStereographicNl(const MapPlaneParams* params) = 0;
    virtual IProjection* CreateNone(const MapNoneParams* params) = 0;
    virtual IProjection* CreateWagnerIv(const MapWagnerIvParams* params) = 0;

  protected:
    ~IProjectionFactory() = default;
};

class IReferencePoint : public IUnknown {
  public:
    static constexpr Guid ID = Id("1458B637-049B-4DBF-B9A4-3ACB522F141D");
    virtual bool SetFloat(ICoord* world, double x, double y) = 0;
    virtual bool SetLong(ICoord* world, int32_t x, int32_t y) = 0;
    virtual bool GetFloat(ICoord* world, double* x, double* y) = 0;
    virtual bool GetLong(ICoord* world, int32_t* x, int32_t* y) = 0;

  protected:
    ~IReferencePoint() = default;
};

class IMapCoordOperations : public IUnknown {
  public:
    static constexpr Guid ID = Id("B6573915-F3BD-404A-BB6F-2F47595B0086");
    virtual bool GetMapDefinition(IArray* points, int32_t* scaleDenominator, double* resolution,
                                  IGeoDate* datum, IProjection* projection) = 0;
    virtual bool GetReferencePoint(IReferencePoint* out) = 0;
    virtual bool GetReferencePoints(IArray* out) = 0;
    virtual int32_t GetScaleDenominator() = 0;
    virtual double GetScale() = 0;
    virtual double GetResolution() = 0;
    virtual bool GetGeoDate(IGeoDate* out) = 0;
    virtual bool GetProjection(IProjection* out) = 0;
    virtual bool FloatPixelToCoord(double x, double y, ICoord* out) = 0;
    virtual bool LongPixelToCoord(int32_t x, int32_t y, ICoord* out) = 0;
    virtual bool PixelCoordToCoord(ICoord* pixel, ICoord* out) = 0;
    virtual bool CoordToFloatPixel(ICoord* in, double* x, double* y) = 0;
    virtual bool CoordToLongPixel(ICoord* in, int32_t* x, int32_t* y) = 0;
    virtual bool CoordToPixelCoord(ICoord* in, ICoord* pixel) = 0;

  protected:
    ~IMapCoordOperations() = default;
};

class IMapCoordOperationsFactory : public IUnknown {
  public:
    static constexpr Guid ID = Id("D0C0CA6B-7659-40D9-B7FF-BEEA27EC9A30");
    virtual IMapCoordOperations* CreateFromReferencePointsScale(IArray* points, double scale,
                                                                double resolution, IGeoDate* datum,
                                                                IProjection* projection) = 0;
    virtual IMapCoordOperations* CreateFromReferencePointScale(IReferencePoint* point, double scale,
                                                               double resolution, IGeoDate* datum,
                                                               IProjection* projection) = 0;
    virtual IMapCoordOperations* CreateFromReferencePoints(IArray* points, int32_t scaleDenominator,
                                                           double resolution, IGeoDate* datum,
                                                           IProjection* projection) = 0;
    virtual IMapCoordOperations* CreateFromReferencePoint(IReferencePoint* point, int32_t scaleDenominator,
                                                          double resolution, IGeoDate* datum,
                                                          IProjection* projection) = 0;

  protected:
    ~IMapCoordOperationsFactory() = default;
};

class IMapCoordCreator : public IUnknown {
  public:
    static constexpr Guid ID = Id("CBEE70FA-A9C5-45F1-A78F-E6B2CF1C6CA1");
    virtual ~IMapCoordCreator() = default;
    virtual IArray* CreateCoords(uint32_t count) = 0;
    virtual ICoord* CreateCoord() = 0;
    virtual IArray* CreateCoordsFrom(IArray* source) = 0;
    virtual ICoord* CreateCoordFrom(ICoord* source) = 0;
    virtual bool ConvertCoords(IArray* coords) = 0;
    virtual bool ConvertCoord(ICoord* coord) = 0;
};

class IMapCoordCreatorFactory : public IUnknown {
  public:
    static constexpr Guid ID = Id("B861988E-EF3B-4E77-8112-936BF1E5B332");
    virtual ~IMapCoordCreatorFactory() = default;
    virtual IMapCoordCreator* CreateMapCoordCreator(IMapCoordOperations* map) = 0;
};

class ITransformableMapPixel : public IUnknown {
  public:
    static constexpr Guid ID = Id("53A5EC95-45B2-4496-8D63-76B88F97AB39");
    virtual bool FindValidCoordInRect(IMapCoordOperations* map, IRect* rect, ICoord* coord) = 0;
    virtual int32_t ClipLineToValid(IMapCoordOperations* map, ICoordinateReference* reference, IFloatPoint* a,
                                    IFloatPoint* b, IFloatPoint* first, IFloatPoint* second) = 0;

  protected:
    ~ITransformableMapPixel() = default;
};

class ITransformableInternal : public IUnknown {
  public:
    static constexpr Guid ID = Id("CE5B9B1D-C598-4F16-B13A-6C1E01006175");
    virtual bool FindValidCoordInPixelRect(IMapCoordOperations* map, const PixelRect* rect,
                                           ICoord* coord) = 0;

  protected:
    ~ITransformableInternal() = default;
};

}  // namespace contract

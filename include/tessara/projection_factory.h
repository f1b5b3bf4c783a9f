// Creates projections, with one operation for each map type.
#pragma once

#include "tessara/kernel/map.h"
#include "tessara/unknown.h"

namespace tessara {

class IProjection;

inline constexpr GUID CLSID_ProjectionFactory = ParseGuid("07CA8BBF-4E0D-4C55-8476-B46452780DD6");
inline constexpr GUID IID_IProjectionFactory = ParseGuid("821CE8CD-1FE0-460C-AE06-69E91E97394E");

// Example: a UTM sheet of 2.5 metres a pixel.
//
//     const tessara::MapUtmParams params{.hemisphere = 'N',
//                                        .zone = 32,
//                                        .originEasting = 675000.0,
//                                        .originNorthing = 5345000.0,
//                                        .metresPerPixelX = 2.5,
//                                        .metresPerPixelY = 2.5};
//     const tessara::IRef factory = tessara::CreateClassProjectionFactory();
//     const tessara::IRef projection = factory->CreateUtm(&params);
//
// Each operation creates a projection with count 0; null for null and if memory runs out.
// tessara/kernel/map.h explains the parameters. None is checked here: a zone or an order that doesn't exist
// fails when the map is used.
class IProjectionFactory : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IProjectionFactory;

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
    virtual IProjection* CreatePolynomSecond(const MapPolynomParams* params) = 0;  // as CreatePolynom
    virtual IProjection* CreateVanDerGrinten(const MapVdgParams* params) = 0;
    virtual IProjection* CreateStereographicNl(const MapPlaneParams* params) = 0;
    virtual IProjection* CreateNone(const MapNoneParams* params) = 0;
    virtual IProjection* CreateWagnerIv(const MapWagnerIvParams* params) = 0;

  protected:
    ~IProjectionFactory() = default;
};

// Creates a factory with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IProjectionFactory* CreateClassProjectionFactory();

}  // namespace tessara

#include "maps/projection_factory.h"

#include "maps/creation.h"
#include "tessara/kernel/map.h"

namespace tessara {
namespace {

template <class Params>
IProjection* Create(MapType type, const Params* params) {
    if (!params) return nullptr;
    MapParam map;
    map.type = type;
    if (type == MAP_POLYNOM) map.worldType = KOORD_GEODEZ;
    Store(map, *params);
    return NewProjection(map);
}

}  // namespace

IProjection* ProjectionFactory::CreateUtm(const MapUtmParams* params) {
    return Create(MAP_UTM, params);
}
IProjection* ProjectionFactory::CreateGaussKrueger(const MapGkParams* params) {
    return Create(MAP_GAUKRU, params);
}
IProjection* ProjectionFactory::CreateGaussKrueger6(const MapGkParams* params) {
    return Create(MAP_GAUKRU6, params);
}
IProjection* ProjectionFactory::CreateLambert2(const MapLambert2Params* params) {
    return Create(MAP_LAMBERT2, params);
}
IProjection* ProjectionFactory::CreateEqualArc(const MapEqualArcParams* params) {
    return Create(MAP_EQUALARC, params);
}
IProjection* ProjectionFactory::CreatePolynom(const MapPolynomParams* params) {
    return Create(MAP_POLYNOM, params);
}
IProjection* ProjectionFactory::CreateMercator(const MapMercatorParams* params) {
    return Create(MAP_MERCATOR, params);
}
IProjection* ProjectionFactory::CreateBmn(const MapBmnParams* params) {
    return Create(MAP_BMN, params);
}
IProjection* ProjectionFactory::CreateCh(const MapPlaneParams* params) {
    return Create(MAP_CH, params);
}
IProjection* ProjectionFactory::CreateAzyl(const MapAzylParams* params) {
    return Create(MAP_AZYL, params);
}
IProjection* ProjectionFactory::CreateDd(const MapDdParams* params) {
    return Create(MAP_DD, params);
}
IProjection* ProjectionFactory::CreateUps(const MapUpsParams* params) {
    return Create(MAP_UPS, params);
}
IProjection* ProjectionFactory::CreateTm(const MapTmParams* params) {
    return Create(MAP_TM, params);
}
IProjection* ProjectionFactory::CreatePoMilitary(const MapTmParams* params) {
    return Create(MAP_PO_MILITARY, params);
}
IProjection* ProjectionFactory::CreateLuref(const MapTmParams* params) {
    return Create(MAP_LUREF, params);
}
IProjection* ProjectionFactory::CreateLambertFr(const MapLambertFrParams* params) {
    return Create(MAP_LAMBERTFR, params);
}
IProjection* ProjectionFactory::CreateLambertCc(const MapLambertCcParams* params) {
    return Create(MAP_LAMBERTCC, params);
}
IProjection* ProjectionFactory::CreatePolynomSecond(const MapPolynomParams* params) {
    return Create(MAP_POLYNOM, params);
}
IProjection* ProjectionFactory::CreateVanDerGrinten(const MapVdgParams* params) {
    return Create(MAP_VAN_DER_GRINTEN, params);
}
IProjection* ProjectionFactory::CreateStereographicNl(const MapPlaneParams* params) {
    return Create(MAP_STEREOGR_NL, params);
}
IProjection* ProjectionFactory::CreateNone(const MapNoneParams* params) {
    return Create(MAP_NONE, params);
}
IProjection* ProjectionFactory::CreateWagnerIv(const MapWagnerIvParams* params) {
    return Create(MAP_WAGNER_IV, params);
}

IProjectionFactory* CreateClassProjectionFactory() {
    return NewObject<ProjectionFactory>();
}

}  // namespace tessara

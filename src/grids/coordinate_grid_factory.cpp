#include "grids/coordinate_grid_factory.h"

#include "grids/creation.h"
#include "tessara/kernel/koord.h"
#include "tessara/map_coord_operations.h"

namespace tessara {

ICoordinateGrid* CoordinateGridFactory::CreateFloatPixelGrid(IMapCoordOperations* map, std::int32_t datum,
                                                             double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_FLOATPIXEL, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateUtmGrid(IMapCoordOperations* map, std::int32_t datum,
                                                      double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_UTM, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateUtmrefGrid(IMapCoordOperations* map, std::int32_t datum,
                                                         double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_UTMREF, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateGeodezGrid(IMapCoordOperations* map, std::int32_t datum,
                                                         double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_GEODEZ, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateGeodezminGrid(IMapCoordOperations* map, std::int32_t datum,
                                                            double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_GEODEZMIN, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateGeogradGrid(IMapCoordOperations* map, std::int32_t datum,
                                                          double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_GEOGRAD, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateGeorefGrid(IMapCoordOperations* map, std::int32_t datum,
                                                         double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_GEOREF, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateGkGrid(IMapCoordOperations* map, std::int32_t datum,
                                                     double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_GK, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateBmnGrid(IMapCoordOperations* map, std::int32_t datum,
                                                      double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_BMN, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateOemGrid(IMapCoordOperations* map, std::int32_t datum,
                                                      double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_OEM, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateChGrid(IMapCoordOperations* map, std::int32_t datum,
                                                     double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_CH, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateGk6Grid(IMapCoordOperations* map, std::int32_t datum,
                                                      double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_GK6, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateGkAtGrid(IMapCoordOperations* map, std::int32_t datum,
                                                       double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_GKAT, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateUpsGrid(IMapCoordOperations* map, std::int32_t datum,
                                                      double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_UPS, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreatePoMilitaryGrid(IMapCoordOperations* map, std::int32_t datum,
                                                             double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_PO_MILITARY, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateTmGrid(IMapCoordOperations* map, std::int32_t datum,
                                                     double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_TM, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateVdgGrid(IMapCoordOperations* map, std::int32_t datum,
                                                      double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_VDG, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateBngGrid(IMapCoordOperations* map, std::int32_t datum,
                                                      double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_BNG, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateIngGrid(IMapCoordOperations* map, std::int32_t datum,
                                                      double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_ING, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateRdGrid(IMapCoordOperations* map, std::int32_t datum,
                                                     double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_RD, eastStep, northStep);
}

ICoordinateGrid* CoordinateGridFactory::CreateLurefGrid(IMapCoordOperations* map, std::int32_t datum,
                                                        double eastStep, double northStep) {
    return NewCoordinateGrid(map, datum, KOORD_LUREF, eastStep, northStep);
}

ICoordinateGridFactory* CreateClassCoordinateGridFactory() {
    return NewObject<CoordinateGridFactory>();
}

}  // namespace tessara

#pragma once

#include "tessara/coordinate_grid_factory.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateGridFactory : public ICoordinateGridFactory {
  public:
    using Faces = FaceList<ICoordinateGridFactory>;

    ICoordinateGrid* CreateFloatPixelGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                          double northStep) override;
    ICoordinateGrid* CreateUtmGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                   double northStep) override;
    ICoordinateGrid* CreateUtmrefGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                      double northStep) override;
    ICoordinateGrid* CreateGeodezGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                      double northStep) override;
    ICoordinateGrid* CreateGeodezminGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                         double northStep) override;
    ICoordinateGrid* CreateGeogradGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                       double northStep) override;
    ICoordinateGrid* CreateGeorefGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                      double northStep) override;
    ICoordinateGrid* CreateGkGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                  double northStep) override;
    ICoordinateGrid* CreateBmnGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                   double northStep) override;
    ICoordinateGrid* CreateOemGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                   double northStep) override;
    ICoordinateGrid* CreateChGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                  double northStep) override;
    ICoordinateGrid* CreateGk6Grid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                   double northStep) override;
    ICoordinateGrid* CreateGkAtGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                    double northStep) override;
    ICoordinateGrid* CreateUpsGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                   double northStep) override;
    ICoordinateGrid* CreatePoMilitaryGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                          double northStep) override;
    ICoordinateGrid* CreateTmGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                  double northStep) override;
    ICoordinateGrid* CreateVdgGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                   double northStep) override;
    ICoordinateGrid* CreateBngGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                   double northStep) override;
    ICoordinateGrid* CreateIngGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                   double northStep) override;
    ICoordinateGrid* CreateRdGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                  double northStep) override;
    ICoordinateGrid* CreateLurefGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                     double northStep) override;

  protected:
    ~CoordinateGridFactory() = default;
};

}  // namespace tessara

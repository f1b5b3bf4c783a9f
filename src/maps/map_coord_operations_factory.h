#pragma once

#include "tessara/map_coord_operations_factory.h"
#include "tessara/object.h"

namespace tessara {

class MapCoordOperationsFactory : public IMapCoordOperationsFactory {
  public:
    using Faces = FaceList<IMapCoordOperationsFactory>;

    IMapCoordOperations* CreateFromReferencePointsScale(IArray* points, double scale, double resolution,
                                                        IGeoDate* datum, IProjection* projection) override;
    IMapCoordOperations* CreateFromReferencePointScale(IReferencePoint* point, double scale,
                                                       double resolution, IGeoDate* datum,
                                                       IProjection* projection) override;
    IMapCoordOperations* CreateFromReferencePoints(IArray* points, std::int32_t scaleDenominator,
                                                   double resolution, IGeoDate* datum,
                                                   IProjection* projection) override;
    IMapCoordOperations* CreateFromReferencePoint(IReferencePoint* point, std::int32_t scaleDenominator,
                                                  double resolution, IGeoDate* datum,
                                                  IProjection* projection) override;

  protected:
    ~MapCoordOperationsFactory() = default;
};

}  // namespace tessara

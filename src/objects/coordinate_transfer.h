#pragma once

#include "tessara/coordinate_transfer.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateTransfer : public ICoordinateTransfer {
  public:
    using Faces = FaceList<ICoordinateTransfer>;

    bool Transfer(ICoord* source, ICoord* target) override;
    bool TransferNorth(ICoord* source, ICoord* target) override;
    bool TransferEast(ICoord* source, ICoord* target) override;
    bool TransferToMap(IMapCoordOperations* map, ICoord* source, ICoord* target) override;
    bool TransferBetweenMaps(IMapCoordOperations* sourceMap, ICoord* source, IMapCoordOperations* targetMap,
                             ICoord* target) override;

  protected:
    ~CoordinateTransfer() = default;
};

}  // namespace tessara

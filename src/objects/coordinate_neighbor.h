#pragma once

#include "tessara/coordinate_neighbor.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateNeighbor : public ICoordinateNeighbor {
  public:
    using Faces = FaceList<ICoordinateNeighbor>;

    bool GetNorthNeighbor(ICoord* source, ICoord* target) override;
    bool GetSouthNeighbor(ICoord* source, ICoord* target) override;
    bool GetEastNeighbor(ICoord* source, ICoord* target) override;
    bool GetWestNeighbor(ICoord* source, ICoord* target) override;

  protected:
    ~CoordinateNeighbor() = default;
};

}  // namespace tessara

#pragma once

#include "tessara/coordinate_compare.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateCompare : public ICoordinateCompare {
  public:
    using Faces = FaceList<ICoordinateCompare>;

    std::int32_t CompareNorthSouth(ICoord* first, ICoord* second) override;
    std::int32_t CompareEastWest(ICoord* first, ICoord* second) override;

  protected:
    ~CoordinateCompare() = default;
};

}  // namespace tessara

#pragma once

#include "tessara/coordinate_average.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateAverage : public ICoordinateAverage {
  public:
    using Faces = FaceList<ICoordinateAverage>;

    bool Average(ICoord* first, ICoord* second, ICoord* result) override;

  protected:
    ~CoordinateAverage() = default;
};

}  // namespace tessara

#pragma once

#include "tessara/coordinate_init.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateInit : public ICoordinateInit {
  public:
    using Faces = FaceList<ICoordinateInit>;

    bool InitCoord(ICoord* coord) override;

  protected:
    ~CoordinateInit() = default;
};

}  // namespace tessara

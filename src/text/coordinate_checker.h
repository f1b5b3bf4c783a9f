#pragma once

#include "tessara/coordinate_checker.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateChecker : public ICoordinateChecker {
  public:
    using Faces = FaceList<ICoordinateChecker>;

    bool CheckCoord(ICoord* coord) override;
    bool CheckInSystemArea(ICoord* coord) override;
    bool CheckConvertible(ICoord* coord, ICoordinateReference* reference) override;

  protected:
    ~CoordinateChecker() = default;
};

}  // namespace tessara

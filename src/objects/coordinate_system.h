#pragma once

#include "tessara/coordinate_system.h"
#include "tessara/kernel/constants.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateSystem : public ICoordinateSystem {
  public:
    using Faces = FaceList<ICoordinateSystem>;

    std::int32_t GetSystem() override { return system_; }
    bool SetSystem(std::int32_t system) override;
    void GetName(ITessaraString* text) override;

  protected:
    ~CoordinateSystem() = default;

  private:
    std::int32_t system_ = NO_SYSTEM;
};

}  // namespace tessara

#pragma once

#include "tessara/map_coord_creator_factory.h"
#include "tessara/object.h"

namespace tessara {

class MapCoordCreatorFactory : public IMapCoordCreatorFactory {
  public:
    using Faces = FaceList<IMapCoordCreatorFactory>;

    IMapCoordCreator* CreateMapCoordCreator(IMapCoordOperations* map) override;

  protected:
    ~MapCoordCreatorFactory() override = default;
};

}  // namespace tessara

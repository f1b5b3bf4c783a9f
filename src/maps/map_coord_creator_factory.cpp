#include "maps/map_coord_creator_factory.h"

#include "maps/creation.h"
#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"

namespace tessara {

IMapCoordCreator* MapCoordCreatorFactory::CreateMapCoordCreator(IMapCoordOperations* map) {
    const IRef<IMapCoordOperations> operations(map);
    return operations.IsValid() ? NewMapCoordCreator(operations.Get()) : nullptr;
}

IMapCoordCreatorFactory* CreateClassMapCoordCreatorFactory() {
    return NewObject<MapCoordCreatorFactory>();
}

}  // namespace tessara

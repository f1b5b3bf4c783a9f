#pragma once

#include "tessara/coordinate_reference.h"
#include "tessara/map_coord_creator.h"
#include "tessara/map_coord_operations.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class MapCoordCreator : public IMapCoordCreator {
  public:
    using Faces = FaceList<IMapCoordCreator>;

    explicit MapCoordCreator(IMapCoordOperations* map);

    IArray* CreateCoords(std::uint32_t count) override;
    ICoord* CreateCoord() override;
    IArray* CreateCoordsFrom(IArray* source) override;
    ICoord* CreateCoordFrom(ICoord* source) override;
    bool ConvertCoords(IArray* coords) override;
    bool ConvertCoord(ICoord* coord) override;

  protected:
    ~MapCoordCreator() override = default;

  private:
    IRef<IMapCoordOperations> map_;
    IRef<ICoordinateReference> reference_;  // FLOATPIXEL in the map's datum; empty if it couldn't be made
};

}  // namespace tessara

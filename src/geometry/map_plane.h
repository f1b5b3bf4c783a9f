// The plane of a map's pixels: carries records into the plane and back.
#pragma once

#include "geometry/plane_lines.h"
#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"

namespace tessara {

class MapPlane {
  public:
    explicit MapPlane(IMapCoordOperations* map);

    // False for a null or foreign map, and without memory.
    [[nodiscard]] bool IsComplete() const { return map_.IsValid() && scratch_.IsValid(); }

    // The map's datum.
    bool GetDatum(std::int32_t* datum) const;

    // The place of a record: a pixel by its numbers, a position through the map. False if the record has no
    // pixel; *point is then unchanged.
    bool ToPlane(const CKoord& koord, PlanePoint* point) const;

    // The position at a place, in the reference and with the height of *koord, in its natural zone. False if
    // the place has no position or the reference is a pixel system; *koord is then unchanged.
    bool ToWorld(const PlanePoint& point, CKoord* koord) const;

  private:
    IRef<IMapCoordOperations> map_;
    IRef<ICoord> scratch_;
};

}  // namespace tessara

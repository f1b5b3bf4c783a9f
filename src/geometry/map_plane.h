// The plane of a map's pixels: carries records into it and back.
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

    // False for a null or foreign map.
    [[nodiscard]] bool IsComplete() const { return map_.IsValid() && scratch_.IsValid(); }

    // The map's datum.
    static bool DatumOf(IMapCoordOperations* map, std::int32_t* datum);
    bool GetDatum(std::int32_t* datum) const { return DatumOf(map_.Get(), datum); }

    // Where a record lies: a pixel by its numbers, a position by the map. False if it has no pixel; *point is
    // then unchanged.
    bool ToPlane(const CKoord& koord, PlanePoint* point) const;

    // The position of a point in the reference and with the height that *koord has, in its natural zone.
    // False if it has none or the reference is a pixel one; *koord is then unchanged.
    bool ToWorld(const PlanePoint& point, CKoord* koord) const;

  private:
    IRef<IMapCoordOperations> map_;
    IRef<ICoord> scratch_;
};

}  // namespace tessara

#pragma once

#include "tessara/object.h"
#include "tessara/zone_coord_operations.h"

namespace tessara {

class ZoneCoordOperations : public IZoneCoordOperations {
  public:
    using Faces = FaceList<IZoneCoordOperations>;

    bool HasZones(ICoord* coord) override;
    std::int32_t GetEastBorder(ICoord* coord, ICoord* out) override;
    bool GetEastNeighbour(ICoord* coord, ICoord* out) override;
    std::int32_t GetWestBorder(ICoord* coord, ICoord* out) override;
    bool GetWestNeighbour(ICoord* coord, ICoord* out) override;
    bool GetZoneCentre(ICoord* coord, ICoord* out) override;
    std::int32_t GetZoneNumber(ICoord* coord) override;
    std::int32_t GetZoneFactor(ICoord* coord) override;
    bool MoveToZone(std::int32_t delta, ICoord* coord) override;
    bool GetEastNeighbourAtEquator(ICoord* coord, ICoord* out) override;
    bool GetWestNeighbourAtEquator(ICoord* coord, ICoord* out) override;

  protected:
    ~ZoneCoordOperations() = default;
};

}  // namespace tessara

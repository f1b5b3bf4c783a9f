#include "geometry/map_plane.h"

#include "objects/koord_access.h"

namespace tessara {

MapPlane::MapPlane(IMapCoordOperations* map)
    : map_(map), scratch_(map_.IsValid() ? CreateClassCoord() : nullptr) {}

bool MapPlane::GetDatum(std::int32_t* datum) const {
    return ReadMapDatum(map_.Get(), datum);
}

bool MapPlane::ToPlane(const CKoord& koord, PlanePoint* point) const {
    PlanePoint found{};
    if (!KoordToCoord(&koord, scratch_.Get())) return false;
    const bool isFound = IsPixelType(static_cast<std::int32_t>(koord.type))
                             ? scratch_->GetPixel(&found.x, &found.y)
                             : map_->CoordToFloatPixel(scratch_.Get(), &found.x, &found.y);
    if (isFound) *point = found;
    return isFound;
}

bool MapPlane::ToWorld(const PlanePoint& point, CKoord* koord) const {
    return KoordToCoord(koord, scratch_.Get()) && map_->FloatPixelToCoord(point.x, point.y, scratch_.Get()) &&
           KoordFromCoord(scratch_.Get(), koord);
}

}  // namespace tessara

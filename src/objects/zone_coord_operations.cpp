#include "objects/zone_coord_operations.h"

#include "objects/koord_access.h"
#include "objects/zone_borders.h"
#include "objects/zones.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/constants.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

bool WriteBorder(Compass side, ICoord* coord, ICoord* out) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && Zones_MoveToBorder(side, &koord) && KoordToCoord(&koord, out);
}

bool WriteBorderAtEquator(Compass side, ICoord* coord, ICoord* out) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && Zones_MoveToEquator(&koord) && Zones_MoveToBorder(side, &koord) &&
           KoordToCoord(&koord, out);
}

std::int32_t WriteLimit(Compass direction, ICoord* coord, ICoord* out) {
    const auto failure = static_cast<std::int32_t>(ZoneLimit::Failure);
    CKoord koord;
    if (!KoordFromCoord(coord, &koord) || !IRef<ICoord>(out).IsValid()) return failure;
    const ZoneLimit found = Zones_MoveToLimit(direction, &koord);
    if (found == ZoneLimit::Border && !KoordToCoord(&koord, out)) return failure;
    return static_cast<std::int32_t>(found);
}

}  // namespace

bool ZoneCoordOperations::HasZones(ICoord* coord) {
    const IRef<ICoord> source(coord);
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!source.IsValid() || !reference.IsValid()) return false;
    return source->GetReference(reference.Get()) && Zones_Exist(reference->GetSystem());
}

std::int32_t ZoneCoordOperations::GetEastBorder(ICoord* coord, ICoord* out) {
    return WriteLimit(Compass::North, coord, out);
}

bool ZoneCoordOperations::GetEastNeighbour(ICoord* coord, ICoord* out) {
    return WriteBorder(Compass::East, coord, out);
}

std::int32_t ZoneCoordOperations::GetWestBorder(ICoord* coord, ICoord* out) {
    return WriteLimit(Compass::South, coord, out);
}

bool ZoneCoordOperations::GetWestNeighbour(ICoord* coord, ICoord* out) {
    return WriteBorder(Compass::West, coord, out);
}

bool ZoneCoordOperations::GetEastNeighbourAtEquator(ICoord* coord, ICoord* out) {
    return WriteBorderAtEquator(Compass::East, coord, out);
}

bool ZoneCoordOperations::GetWestNeighbourAtEquator(ICoord* coord, ICoord* out) {
    return WriteBorderAtEquator(Compass::West, coord, out);
}

bool ZoneCoordOperations::GetZoneCentre(ICoord* coord, ICoord* out) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && Zones_MoveToCentre(&koord) && KoordToCoord(&koord, out);
}

std::int32_t ZoneCoordOperations::GetZoneNumber(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) ? Zones_Number(koord) : UNKNOWN_ZONE;
}

std::int32_t ZoneCoordOperations::GetZoneFactor(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) ? Zones_Factor(koord) : UNKNOWN_ZONE;
}

bool ZoneCoordOperations::MoveToZone(std::int32_t delta, ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && Zones_Move(delta, &koord) && KoordToCoord(&koord, coord);
}

IZoneCoordOperations* CreateClassZoneCoordOperations() {
    return NewObject<ZoneCoordOperations>();
}

}  // namespace tessara

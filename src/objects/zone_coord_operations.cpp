#include "objects/zone_coord_operations.h"

#include "objects/koord_access.h"
#include "objects/zones.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/constants.h"
#include "tessara/ref.h"

namespace tessara {

bool ZoneCoordOperations::HasZones(ICoord* coord) {
    const IRef<ICoord> source(coord);
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!source.IsValid() || !reference.IsValid()) return false;
    return source->GetReference(reference.Get()) && Zones_Exist(reference->GetSystem());
}

std::int32_t ZoneCoordOperations::GetEastBorder(ICoord*, ICoord*) {
    return -1;
}
bool ZoneCoordOperations::GetEastNeighbour(ICoord*, ICoord*) {
    return false;
}
std::int32_t ZoneCoordOperations::GetWestBorder(ICoord*, ICoord*) {
    return -1;
}
bool ZoneCoordOperations::GetWestNeighbour(ICoord*, ICoord*) {
    return false;
}
bool ZoneCoordOperations::GetEastNeighbourAtEquator(ICoord*, ICoord*) {
    return false;
}
bool ZoneCoordOperations::GetWestNeighbourAtEquator(ICoord*, ICoord*) {
    return false;
}

bool ZoneCoordOperations::GetZoneCentre(ICoord* coord, ICoord* out) {
    const IRef<ICoord> source(coord);
    const IRef<ICoord> target(out);
    CKoord koord;
    return KoordFromCoord(source.Get(), &koord) && Zones_MoveToCentre(&koord) &&
           KoordToCoord(&koord, target.Get());
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
    const IRef<ICoord> target(coord);
    CKoord koord;
    return KoordFromCoord(target.Get(), &koord) && Zones_Move(delta, &koord) &&
           KoordToCoord(&koord, target.Get());
}

IZoneCoordOperations* CreateClassZoneCoordOperations() {
    return NewObject<ZoneCoordOperations>();
}

}  // namespace tessara

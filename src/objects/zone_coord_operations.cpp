#include "objects/zone_coord_operations.h"

#include "objects/koord_access.h"
#include "records/zone_borders.h"
#include "records/zones.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/constants.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

// Each operation works on a copy of the record, since both coordinates may be the same object.

bool WriteBorder(Compass side, ICoord* coord, ICoord* out) {
    const IRef<ICoord> source(coord);
    const IRef<ICoord> target(out);
    CKoord koord;
    return KoordFromCoord(source.Get(), &koord) && zones::MoveToBorder(side, &koord) &&
           KoordToCoord(&koord, target.Get());
}

bool WriteBorderAtEquator(Compass side, ICoord* coord, ICoord* out) {
    const IRef<ICoord> source(coord);
    const IRef<ICoord> target(out);
    CKoord koord;
    return KoordFromCoord(source.Get(), &koord) && zones::MoveToEquator(&koord) &&
           zones::MoveToBorder(side, &koord) && KoordToCoord(&koord, target.Get());
}

ZoneLimit WriteLimit(Compass direction, ICoord* coord, ICoord* out) {
    const IRef<ICoord> source(coord);
    const IRef<ICoord> target(out);
    CKoord koord;
    if (!target.IsValid() || !KoordFromCoord(source.Get(), &koord)) return ZoneLimit::Failure;
    const ZoneLimit found = zones::MoveToLimit(direction, &koord);
    if (found != ZoneLimit::Border) return found;
    return KoordToCoord(&koord, target.Get()) ? found : ZoneLimit::Failure;
}

}  // namespace

bool ZoneCoordOperations::HasZones(ICoord* coord) {
    const IRef<ICoord> source(coord);
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!source.IsValid() || !reference.IsValid()) return false;
    return source->GetReference(reference.Get()) && zones::Exist(reference->GetSystem());
}

std::int32_t ZoneCoordOperations::GetEastBorder(ICoord* coord, ICoord* out) {
    return static_cast<std::int32_t>(WriteLimit(Compass::North, coord, out));
}

bool ZoneCoordOperations::GetEastNeighbour(ICoord* coord, ICoord* out) {
    return WriteBorder(Compass::East, coord, out);
}

std::int32_t ZoneCoordOperations::GetWestBorder(ICoord* coord, ICoord* out) {
    return static_cast<std::int32_t>(WriteLimit(Compass::South, coord, out));
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
    const IRef<ICoord> source(coord);
    const IRef<ICoord> target(out);
    CKoord koord;
    return KoordFromCoord(source.Get(), &koord) && zones::MoveToCentre(&koord) &&
           KoordToCoord(&koord, target.Get());
}

std::int32_t ZoneCoordOperations::GetZoneNumber(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) ? zones::Number(koord) : UNKNOWN_ZONE;
}

std::int32_t ZoneCoordOperations::GetZoneFactor(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) ? zones::Factor(koord) : UNKNOWN_ZONE;
}

bool ZoneCoordOperations::MoveToZone(std::int32_t delta, ICoord* coord) {
    const IRef<ICoord> target(coord);
    CKoord koord;
    return KoordFromCoord(target.Get(), &koord) && zones::Move(delta, &koord) &&
           KoordToCoord(&koord, target.Get());
}

IZoneCoordOperations* CreateClassZoneCoordOperations() {
    return NewObject<ZoneCoordOperations>();
}

}  // namespace tessara

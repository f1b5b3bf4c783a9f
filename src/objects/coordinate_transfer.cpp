#include "objects/coordinate_transfer.h"

#include <array>

#include "objects/koord_access.h"
#include "records/axis_copy.h"
#include "records/reference.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/map.h"
#include "tessara/map_coord_operations.h"
#include "tessara/projection.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

// The reference to convert into: the target's own, in which the numbers for "none" stand for the source's.
Reference WantedReference(const CKoord& source, const CKoord& target) {
    Reference wanted = ReferenceOf(target);
    if (wanted.datum == NO_DATUM) wanted.datum = ReferenceOf(source).datum;
    if (wanted.system == NO_SYSTEM) wanted.system = ReferenceOf(source).system;
    return wanted;
}

bool TransferAxis(Axis axis, ICoord* source, ICoord* target) {
    const IRef<ICoord> result(target);  // holds the target while it is read and written
    CKoord from;
    CKoord to;
    if (!KoordFromCoord(source, &from) || !KoordFromCoord(result.Get(), &to)) return false;
    if (ReferenceOf(from) != ReferenceOf(to)) return false;
    return CopyAxis(axis, from, &to) && KoordToCoord(&to, result.Get());
}

// The coordinate system in which a map of each type is drawn; NO_SYSTEM for numbers that aren't maps.
constexpr std::array<std::int32_t, MAP_TYPE_COUNT> MAP_SYSTEMS{{
    NO_SYSTEM,          // UNKNOWN
    NO_SYSTEM,          // NONE
    KOORD_UTM,          // UTM
    KOORD_GK,           // GAUKRU
    KOORD_GEODEZ,       // LAMBERT2
    KOORD_GEODEZ,       // LAMBERTFR
    KOORD_GEODEZ,       // EQUALARC
    KOORD_GEODEZ,       // POLYNOM
    KOORD_GEODEZ,       // MERCATOR
    KOORD_BMN,          // BMN
    KOORD_CH,           // CH
    KOORD_GEODEZ,       // AZYL
    KOORD_GEODEZ,       // DD
    KOORD_GK6,          // GAUKRU6
    KOORD_UPS,          // UPS
    KOORD_TM,           // TM
    KOORD_PO_MILITARY,  // PO_MILITARY
    KOORD_VDG,          // VAN_DER_GRINTEN
    KOORD_RD,           // STEREOGR_NL
    KOORD_GEODEZ,       // LAMBERTCC
    KOORD_LUREF,        // LUREF
    KOORD_GEODEZ,       // WAGNER-IV
}};

bool ReadMapReference(IMapCoordOperations* map, ICoordinateReference* reference) {
    std::int32_t datum = NO_DATUM;
    const IRef<IProjection> projection(CreateClassProjection());
    if (!projection.IsValid() || !ReadMapDatum(map, &datum) || !map->GetProjection(projection.Get())) {
        return false;
    }
    const std::uint32_t type = projection->GetProjectionType();
    const std::int32_t system = type < MAP_TYPE_COUNT ? MAP_SYSTEMS[type] : NO_SYSTEM;
    return reference->SetDatum(datum) && reference->SetSystem(system);
}

// Gives the coordinate the map's datum and, unless it is a pixel already, the system FLOATPIXEL.
bool MakePixelOf(IMapCoordOperations* map, ICoord* coord) {
    std::int32_t datum = NO_DATUM;
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!reference.IsValid() || !ReadMapDatum(map, &datum) || !coord->GetReference(reference.Get())) {
        return false;
    }
    const bool isPixel = IsPixelType(reference->GetSystem());
    if (reference->GetDatum() == datum && isPixel) return true;
    return reference->SetDatum(datum) && (isPixel || reference->SetSystem(KOORD_FLOATPIXEL)) &&
           coord->SetReference(reference.Get());
}

// The target may be the source pixel itself and lose its value with its reference, so the pixel is copied
// first.
bool TransferPixel(IMapCoordOperations* map, ICoord* source, ICoordinateReference* wanted, ICoord* target) {
    const IRef<ICoord> pixel(CreateClassCoord());
    return CopyCoord(source, pixel.Get()) && target->SetReference(wanted) &&
           map->PixelCoordToCoord(pixel.Get(), target);
}

}  // namespace

bool CoordinateTransfer::Transfer(ICoord* source, ICoord* target) {
    const IRef<ICoord> result(target);
    CKoord from;
    CKoord to;
    if (!KoordFromCoord(source, &from) || !result.IsValid() || !KoordFromCoord(target, &to)) return false;
    const Reference wanted = WantedReference(from, to);

    if (!KoordToCoord(&from, target)) return false;
    if (ReferenceOf(from) == wanted) return true;
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    return reference.IsValid() && reference->SetDatum(wanted.datum) && reference->SetSystem(wanted.system) &&
           result->SetReference(reference.Get());
}

bool CoordinateTransfer::TransferNorth(ICoord* source, ICoord* target) {
    return TransferAxis(Axis::North, source, target);
}

bool CoordinateTransfer::TransferEast(ICoord* source, ICoord* target) {
    return TransferAxis(Axis::East, source, target);
}

bool CoordinateTransfer::TransferToMap(IMapCoordOperations* map, ICoord* source, ICoord* target) {
    const IRef<IMapCoordOperations> on(map);
    const IRef<ICoord> from(source);
    const IRef<ICoord> result(target);
    const IRef<ICoordinateReference> wanted(CreateClassCoordinateReference());
    const IRef<ICoordinateReference> given(CreateClassCoordinateReference());
    if (!on.IsValid() || !from.IsValid() || !result.IsValid() || !wanted.IsValid() || !given.IsValid()) {
        return false;
    }
    if (!ReadMapReference(on.Get(), wanted.Get()) || !from->GetReference(given.Get())) return false;
    if (IsPixelType(given->GetSystem())) {
        return TransferPixel(on.Get(), from.Get(), wanted.Get(), result.Get());
    }
    return result->SetReference(wanted.Get()) && Transfer(source, target);
}

bool CoordinateTransfer::TransferBetweenMaps(IMapCoordOperations* sourceMap, ICoord* source,
                                             IMapCoordOperations* targetMap, ICoord* target) {
    const IRef<IMapCoordOperations> from(sourceMap);
    const IRef<IMapCoordOperations> to(targetMap);
    const IRef<ICoord> pixel(source);
    const IRef<ICoord> result(target);
    // A new coordinate has the reference WGS84 GEODEZ.
    const IRef<ICoord> world(CreateClassCoord());
    if (!from.IsValid() || !to.IsValid() || !pixel.IsValid() || !result.IsValid() || !world.IsValid()) {
        return false;
    }
    return from->PixelCoordToCoord(source, world.Get()) && MakePixelOf(to.Get(), result.Get()) &&
           to->CoordToPixelCoord(world.Get(), target);
}

ICoordinateTransfer* CreateClassCoordinateTransfer() {
    return NewObject<CoordinateTransfer>();
}

}  // namespace tessara

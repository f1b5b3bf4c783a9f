#include "objects/coordinate_transfer.h"

#include "objects/axis_copy.h"
#include "objects/koord_access.h"
#include "tessara/coordinate_reference.h"
#include "tessara/kernel/constants.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

struct ReferencePair {
    std::int32_t datum;
    std::int32_t system;

    bool operator==(const ReferencePair&) const = default;
};

ReferencePair ReferenceOf(const CKoord& koord) {
    return {static_cast<std::int32_t>(koord.datum), static_cast<std::int32_t>(koord.type)};
}

// What a target keeps: its own reference, but for the numbers that stand for none.
ReferencePair WantedReference(const CKoord& source, const CKoord& target) {
    ReferencePair wanted = ReferenceOf(target);
    if (wanted.datum == NO_DATUM) wanted.datum = ReferenceOf(source).datum;
    if (wanted.system == NO_SYSTEM) wanted.system = ReferenceOf(source).system;
    return wanted;
}

bool TransferAxis(Axis axis, ICoord* source, ICoord* target) {
    const IRef<ICoord> result(target);  // held while it is read and then written
    CKoord from;
    CKoord to;
    if (!KoordFromCoord(source, &from) || !KoordFromCoord(result.Get(), &to)) return false;
    if (ReferenceOf(from) != ReferenceOf(to)) return false;
    return CopyAxis(axis, from, &to) && KoordToCoord(&to, result.Get());
}

}  // namespace

bool CoordinateTransfer::Transfer(ICoord* source, ICoord* target) {
    const IRef<ICoord> result(target);
    CKoord from;
    CKoord to;
    if (!KoordFromCoord(source, &from) || !result.IsValid() || !KoordFromCoord(target, &to)) return false;
    const ReferencePair wanted = WantedReference(from, to);

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

bool CoordinateTransfer::TransferToMap(IMapCoordOperations*, ICoord*, ICoord*) {
    return false;
}

bool CoordinateTransfer::TransferBetweenMaps(IMapCoordOperations*, ICoord*, IMapCoordOperations*, ICoord*) {
    return false;
}

ICoordinateTransfer* CreateClassCoordinateTransfer() {
    return NewObject<CoordinateTransfer>();
}

}  // namespace tessara

#include "objects/coordinate_compare.h"

#include "objects/koord_access.h"
#include "records/compare_records.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

std::int32_t Compare(Axis axis, ICoord* first, ICoord* second) {
    const IRef<ICoord> firstCoord(first);
    const IRef<ICoord> secondCoord(second);
    CKoord a;
    CKoord b;
    if (!KoordFromCoord(firstCoord.Get(), &a) || !KoordFromCoord(secondCoord.Get(), &b)) {
        return NOT_COMPARABLE;
    }
    return CompareRecords(axis, a, b);
}

}  // namespace

std::int32_t CoordinateCompare::CompareNorthSouth(ICoord* first, ICoord* second) {
    return Compare(Axis::North, first, second);
}

std::int32_t CoordinateCompare::CompareEastWest(ICoord* first, ICoord* second) {
    return Compare(Axis::East, first, second);
}

ICoordinateCompare* CreateClassCoordinateCompare() {
    return NewObject<CoordinateCompare>();
}

}  // namespace tessara

#include "objects/coordinate_average.h"

#include "objects/koord_access.h"
#include "records/average_records.h"
#include "tessara/ref.h"

namespace tessara {

bool CoordinateAverage::Average(ICoord* first, ICoord* second, ICoord* result) {
    const IRef<ICoord> firstCoord(first);
    const IRef<ICoord> secondCoord(second);
    const IRef<ICoord> resultCoord(result);
    CKoord a;
    CKoord b;
    if (!KoordFromCoord(firstCoord.Get(), &a) || !KoordFromCoord(secondCoord.Get(), &b)) return false;
    tagKOORD mean;
    if (!AverageRecords(a, b, &mean)) return false;
    const CKoord koord(mean);
    return KoordToCoord(&koord, resultCoord.Get());
}

ICoordinateAverage* CreateClassCoordinateAverage() {
    return NewObject<CoordinateAverage>();
}

}  // namespace tessara

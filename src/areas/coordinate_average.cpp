#include "areas/coordinate_average.h"

#include "areas/average_records.h"
#include "objects/koord_access.h"

namespace tessara {

bool CoordinateAverage::Average(ICoord* first, ICoord* second, ICoord* result) {
    CKoord a;
    CKoord b;
    if (!KoordFromCoord(first, &a) || !KoordFromCoord(second, &b)) return false;
    tagKOORD mean;
    if (!Average_Records(a, b, &mean)) return false;
    const CKoord koord(mean);
    return KoordToCoord(&koord, result);
}

ICoordinateAverage* CreateClassCoordinateAverage() {
    return NewObject<CoordinateAverage>();
}

}  // namespace tessara

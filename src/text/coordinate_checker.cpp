#include "text/coordinate_checker.h"

#include "objects/koord_access.h"
#include "records/check_record.h"
#include "tessara/coordinate_reference.h"
#include "tessara/ref.h"

namespace tessara {

bool CoordinateChecker::CheckCoord(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && IsLegalRecord(koord);
}

bool CoordinateChecker::CheckInSystemArea(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && IsInSystemArea(koord);
}

bool CoordinateChecker::CheckConvertible(ICoord* coord, ICoordinateReference* reference) {
    const IRef<ICoordinateReference> target(reference);
    CKoord koord;
    return target.IsValid() && KoordFromCoord(coord, &koord) &&
           IsConvertible(koord, target->GetDatum(), target->GetSystem());
}

ICoordinateChecker* CreateClassCoordinateChecker() {
    return NewObject<CoordinateChecker>();
}

}  // namespace tessara

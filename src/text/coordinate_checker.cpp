#include "text/coordinate_checker.h"

#include "objects/koord_access.h"
#include "tessara/coordinate_reference.h"
#include "tessara/ref.h"
#include "text/check_record.h"

namespace tessara {

bool CoordinateChecker::CheckCoord(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && Check_Record(koord);
}

bool CoordinateChecker::CheckInSystemArea(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && Check_InSystemArea(koord);
}

bool CoordinateChecker::CheckConvertible(ICoord* coord, ICoordinateReference* reference) {
    const IRef<ICoordinateReference> target(reference);
    CKoord koord;
    return target.IsValid() && KoordFromCoord(coord, &koord) &&
           Check_Convertible(koord, target->GetDatum(), target->GetSystem());
}

ICoordinateChecker* CreateClassCoordinateChecker() {
    return NewObject<CoordinateChecker>();
}

}  // namespace tessara

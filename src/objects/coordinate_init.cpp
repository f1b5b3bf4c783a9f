#include "objects/coordinate_init.h"

#include "objects/koord_access.h"
#include "records/default_koord.h"
#include "tessara/ref.h"

namespace tessara {

bool CoordinateInit::InitCoord(ICoord* coord) {
    const IRef<ICoord> target(coord);
    CKoord koord;
    return KoordFromCoord(target.Get(), &koord) && ResetToDefault(&koord) &&
           KoordToCoord(&koord, target.Get());
}

ICoordinateInit* CreateClassCoordinateInit() {
    return NewObject<CoordinateInit>();
}

}  // namespace tessara

#include "objects/coordinate_init.h"

#include "objects/default_koord.h"
#include "objects/koord_access.h"

namespace tessara {

bool CoordinateInit::InitCoord(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && ResetToDefault(&koord) && KoordToCoord(&koord, coord);
}

ICoordinateInit* CreateClassCoordinateInit() {
    return NewObject<CoordinateInit>();
}

}  // namespace tessara

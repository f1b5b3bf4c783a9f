#include "objects/koord_access.h"

#include "tessara/ref.h"

namespace tessara {

bool KoordFromCoord(ICoord* coord, CKoord* out) {
    const IRef<ICoordInternal> source(coord);
    return source.IsValid() && source->GetKoord(out);
}

bool KoordToCoord(const CKoord* koord, ICoord* coord) {
    const IRef<ICoordInternal> target(coord);
    return target.IsValid() && target->SetKoord(koord);
}

bool CopyCoord(ICoord* source, ICoord* target) {
    CKoord koord;
    return KoordFromCoord(source, &koord) && KoordToCoord(&koord, target);
}

}  // namespace tessara

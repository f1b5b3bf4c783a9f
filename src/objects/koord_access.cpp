#include "objects/koord_access.h"

#include "tessara/geo_date.h"
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
    const IRef<ICoord> from(source);
    const IRef<ICoord> to(target);
    CKoord koord;
    return KoordFromCoord(from.Get(), &koord) && KoordToCoord(&koord, to.Get());
}

bool ReadMapDatum(IMapCoordOperations* map, std::int32_t* datum) {
    const IRef<IGeoDate> date(CreateClassGeoDate());
    if (!date.IsValid() || !map->GetGeoDate(date.Get())) return false;
    *datum = date->GetDatum();
    return true;
}

}  // namespace tessara

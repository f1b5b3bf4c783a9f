#include "objects/map_datum.h"

#include "tessara/geo_date.h"
#include "tessara/ref.h"

namespace tessara {

bool ReadMapDatum(IMapCoordOperations* map, std::int32_t* datum) {
    const IRef<IGeoDate> date(CreateClassGeoDate());
    if (!date.IsValid() || !map->GetGeoDate(date.Get())) return false;
    *datum = date->GetDatum();
    return true;
}

}  // namespace tessara

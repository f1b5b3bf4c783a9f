#include "objects/geo_date.h"

#include "frame/tessara_string.h"
#include "records/reference.h"
#include "tessara/kernel/datum.h"

namespace tessara {

bool GeoDate::SetDatum(std::int32_t datum) {
    if (!IsReferenceDatum(datum)) return false;
    datum_ = datum;
    return true;
}

void GeoDate::GetName(ITessaraString* text) {
    FillWithName(text, Datum_Name(datum_));
}

IGeoDate* CreateClassGeoDate() {
    return NewObject<GeoDate>();
}

}  // namespace tessara

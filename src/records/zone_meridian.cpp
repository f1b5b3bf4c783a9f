#include "records/zone_meridian.h"

#include "records/axis_copy.h"
#include "records/convert_records.h"
#include "tessara/kernel/convert.h"

namespace tessara {

bool zones::StepAlongMeridian(double longitude, double latitude, RangeCheck check, tagKOORD* record,
                              GeodezPayload* position) {
    const tagKOORD before = *record;
    tagKOORD point = MakeKoord(static_cast<std::int32_t>(record->datum), KOORD_GEODEZ);
    Store(point, GeodezPayload{latitude, longitude, 0.0});
    if (ConvertRecord(point, record, check) != KOORD_OK) return false;
    return CopyAxis(Axis::North, before, record) && ToGeodez(*record, position);
}

}  // namespace tessara

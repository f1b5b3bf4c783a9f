#include "records/convert_records.h"

#include "records/zones.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

bool Convert(std::int32_t system, std::int16_t wantedZone, RangeCheck check, tagKOORD* record) {
    tagKOORD target = MakeKoord(static_cast<std::int32_t>(record->datum), system);
    zones::Want(wantedZone, &target);
    if (ConvertRecord(*record, &target, check) != KOORD_OK) return false;
    *record = target;
    return true;
}

}  // namespace

bool ConvertTo(std::int32_t system, tagKOORD* record) {
    return Convert(system, NO_WANTED_ZONE, RangeCheck::On, record);
}

bool ConvertInZone(std::int32_t system, RangeCheck check, tagKOORD* record) {
    return Convert(system, static_cast<std::int16_t>(zones::Number(*record)), check, record);
}

bool ToGeodez(const tagKOORD& record, GeodezPayload* position) {
    tagKOORD geodez = record;
    if (!ConvertTo(KOORD_GEODEZ, &geodez)) return false;
    *position = Load<GeodezPayload>(geodez);
    return true;
}

bool RenewLetters(tagKOORD* record) {
    tagKOORD renewed = *record;
    if (!ConvertTo(KOORD_GEODEZ, &renewed)) return false;
    if (!ConvertTo(static_cast<std::int32_t>(record->type), &renewed)) return false;
    *record = renewed;
    return true;
}

}  // namespace tessara

#include "text/check_record.h"

#include <algorithm>

#include "areas/compare_records.h"
#include "areas/system_extremes.h"
#include "objects/convert_records.h"
#include "objects/default_koord.h"
#include "objects/zone_borders.h"
#include "objects/zones.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/limits.h"
#include "text/utmref_pieces.h"

namespace tessara {
namespace {

constexpr std::int32_t UNCHECKED = 0;

bool IsKernelReference(std::int32_t datum, std::int32_t system) {
    return datum >= 0 && datum < DATUM_COUNT && system >= 0 && system < KOORD_TYPE_COUNT;
}

// Whether `inner` doesn't lie beyond `limit` in a direction. What can't be compared lies beyond.
bool IsWithin(Compass direction, const tagKOORD& limit, const tagKOORD& inner) {
    const Axis axis = AxisOf(direction);
    return SignOf(direction) > 0.0 ? Compare_Records(axis, limit, inner) >= 0
                                   : Compare_Records(axis, inner, limit) >= 0;
}

// A reference may name a metre from half a metre outside its zone, to which a position inside was rounded,
// and from some more where half a metre of northing moves the border.
constexpr double REFERENCE_REACH = 0.55;  // metres

bool IsReferenceWithinBorder(Compass side, const tagKOORD& reference) {
    tagKOORD utm = reference;
    if (!ConvertInZone(KOORD_UTM, UNCHECKED, &utm)) return false;
    Zones_Want(NO_WANTED_ZONE, &utm);
    tagKOORD border = utm;
    return Zones_MoveToBorder(side, &border) &&
           SignOf(side) * (Zones_East(utm) - Zones_East(border)) <= REFERENCE_REACH;
}

bool IsWithinBorder(Compass side, const tagKOORD& record) {
    if (record.type == KOORD_UTMREF) return IsReferenceWithinBorder(side, record);
    tagKOORD border = record;
    return Zones_MoveToBorder(side, &border) && IsWithin(side, border, record);
}

bool IsWithinZone(const tagKOORD& record) {
    tagKOORD centre = record;
    if (!Zones_MoveToCentre(&centre)) return false;
    if (Zones_Number(centre) != Zones_Number(record)) return true;
    if (Zones_Wanted(record) == NO_WANTED_ZONE && Zones_IsWellInside(record)) return true;
    const std::int32_t side = Compare_Records(Axis::East, record, centre);
    if (side == NOT_COMPARABLE) return false;
    if (side == 0) return true;
    return IsWithinBorder(side > 0 ? Compass::East : Compass::West, record);
}

// To degrees on the record's own datum and back: the kernel's range tests judge the values. A reference that
// lies within its zone ends at 180 degrees, whatever its rounding adds.
bool SurvivesRoundTrip(const tagKOORD& record) {
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_GEODEZ);
    if (KoordConvert(&record, &geodez) != KOORD_OK) return false;
    if (record.type == KOORD_UTMREF) {
        auto position = Load<GeodezPayload>(geodez);
        position.longitude = std::clamp(position.longitude, UTM_LIMITS.west, UTM_LIMITS.east);
        Store(geodez, position);
    }
    tagKOORD back = record;
    return KoordConvert(&geodez, &back) == KOORD_OK;
}

}  // namespace

bool Check_InSystemArea(const tagKOORD& record) {
    const auto system = static_cast<std::int32_t>(record.type);
    SystemExtremes limits;
    if (!System_Extremes(static_cast<std::int32_t>(record.datum), system, &limits)) return false;
    for (const Compass direction : {Compass::North, Compass::South, Compass::East, Compass::West}) {
        if (!IsWithin(direction, limits[static_cast<std::size_t>(direction)], record)) return false;
    }
    return !Zones_Exist(system) || IsWithinZone(record);
}

bool Check_Record(const tagKOORD& record) {
    if (!Check_InSystemArea(record)) return false;
    const auto datum = static_cast<std::int32_t>(record.datum);
    const auto system = static_cast<std::int32_t>(record.type);
    if (IsPixelType(system)) return true;
    if (!IsKernelReference(datum, system)) return false;
    if (!SurvivesRoundTrip(record)) return false;
    return record.type != KOORD_UTMREF || Utmref_HasExistingPieces(record);
}

bool Check_Convertible(const tagKOORD& record, std::int32_t datum, std::int32_t system) {
    if (!Check_Record(record) || !IsKernelReference(datum, system)) return false;
    if (static_cast<std::int32_t>(record.datum) == datum && static_cast<std::int32_t>(record.type) == system)
        return true;
    CKoord target;
    return DefaultKoord(datum, system, &target) && KoordConvert(&record, &target) == KOORD_OK &&
           Check_InSystemArea(target);
}

}  // namespace tessara

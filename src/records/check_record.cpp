#include "records/check_record.h"

#include <algorithm>

#include "records/compare_records.h"
#include "records/convert_records.h"
#include "records/default_koord.h"
#include "records/system_extremes.h"
#include "records/utmref_squares.h"
#include "records/zone_borders.h"
#include "records/zones.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

bool IsKernelReference(std::int32_t datum, std::int32_t system) {
    return datum >= 0 && datum < DATUM_COUNT && system >= 0 && system < KOORD_TYPE_COUNT;
}

// Whether `inner` doesn't lie beyond `limit` in a direction. False if the two can't be compared.
bool IsWithin(Compass direction, const tagKOORD& limit, const tagKOORD& inner) {
    const Axis axis = AxisOf(direction);
    return SignOf(direction) > 0.0 ? CompareRecords(axis, limit, inner) >= 0
                                   : CompareRecords(axis, inner, limit) >= 0;
}

// A reference may name a metre up to half a metre outside its zone, to which a position inside was rounded,
// and a little further where half a metre of northing moves the border.
constexpr double REFERENCE_REACH = 0.55;  // metres

bool IsReferenceWithinBorder(Compass side, const tagKOORD& reference) {
    tagKOORD utm = reference;
    if (!ConvertInZone(KOORD_UTM, RangeCheck::Off, &utm)) return false;
    zones::Want(NO_WANTED_ZONE, &utm);
    tagKOORD border = utm;
    return zones::MoveToBorder(side, &border) &&
           SignOf(side) * (zones::East(utm) - zones::East(border)) <= REFERENCE_REACH;
}

bool IsWithinBorder(Compass side, const tagKOORD& record) {
    if (record.type == KOORD_UTMREF) return IsReferenceWithinBorder(side, record);
    tagKOORD border = record;
    return zones::MoveToBorder(side, &border) && IsWithin(side, border, record);
}

bool IsWithinZone(const tagKOORD& record) {
    tagKOORD centre = record;
    if (!zones::MoveToCentre(&centre)) return false;
    if (zones::Wanted(record) == NO_WANTED_ZONE && zones::IsWellInside(record)) return true;
    const std::int32_t side = CompareRecords(Axis::East, record, centre);
    if (side == NOT_COMPARABLE) return false;
    if (side == 0) return true;
    return IsWithinBorder(side > 0 ? Compass::East : Compass::West, record);
}

// Converts to degrees on the record's own datum and back, so that the kernel's range tests judge the values.
// A reference within its zone may exceed 180 degrees by its rounding, which is cut off.
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

bool IsInSystemArea(const tagKOORD& record) {
    const auto system = static_cast<std::int32_t>(record.type);
    SystemExtremes limits;
    if (!FindSystemExtremes(static_cast<std::int32_t>(record.datum), system, &limits)) return false;
    for (const Compass direction : {Compass::North, Compass::South, Compass::East, Compass::West}) {
        if (!IsWithin(direction, limits[static_cast<std::size_t>(direction)], record)) return false;
    }
    return !zones::Exist(system) || IsWithinZone(record);
}

bool IsLegalRecord(const tagKOORD& record) {
    if (!IsInSystemArea(record)) return false;
    const auto datum = static_cast<std::int32_t>(record.datum);
    const auto system = static_cast<std::int32_t>(record.type);
    if (IsPixelType(system)) return true;
    if (!IsKernelReference(datum, system)) return false;
    if (!SurvivesRoundTrip(record)) return false;
    return record.type != KOORD_UTMREF || utmref::NamesSquare(record);
}

bool IsConvertible(const tagKOORD& record, std::int32_t datum, std::int32_t system) {
    if (!IsLegalRecord(record) || !IsKernelReference(datum, system)) return false;
    if (static_cast<std::int32_t>(record.datum) == datum && static_cast<std::int32_t>(record.type) == system)
        return true;
    CKoord target;
    return DefaultKoord(datum, system, &target) && KoordConvert(&record, &target) == KOORD_OK &&
           IsInSystemArea(target);
}

}  // namespace tessara

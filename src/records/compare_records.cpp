#include "records/compare_records.h"

#include <cstdlib>
#include <cstring>

#include "numerics/rounding.h"
#include "records/axis_values.h"
#include "records/convert_records.h"
#include "records/default_koord.h"
#include "records/same_parameters.h"
#include "records/zones.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/zone_systems.h"

namespace tessara {
namespace {

std::int32_t Order(double first, double second) {
    if (first == second) return 0;
    return first > second ? 1 : -1;
}

// Position codes don't depend on the datum; they are read on one that always exists.
bool ReadCode(tagKOORD* record) {
    record->datum = DATUM_WGS84;
    return ConvertTo(KOORD_GEODEZ, record);
}

// Reads the letters of one axis only. The other axis and the precision are those of the default record,
// whose precision includes no minutes: GEOREF positions compare by whole degrees.
bool ReadGeoref(Axis axis, tagKOORD* record) {
    const auto given = Load<GeorefPayload>(*record);
    CKoord fresh;
    if (!DefaultKoord(DATUM_WGS84, KOORD_GEOREF, &fresh)) return false;
    auto payload = Load<GeorefPayload>(fresh);
    if (axis == Axis::East) {
        payload.lonZone = given.lonZone;
        payload.lonDegree = given.lonDegree;
        payload.lonMinutes = given.lonMinutes;
    } else {
        payload.latZone = given.latZone;
        payload.latDegree = given.latDegree;
        payload.latMinutes = given.latMinutes;
    }
    Store(*record, payload);
    return ReadCode(record);
}

// Computes the full values of a lettered grid from its letters.
bool ReadLetterGrid(tagKOORD* record) {
    record->datum = DATUM_WGS84;
    return RenewLetters(record);
}

bool IsWanted(const WantedZones& range, std::int32_t wanted) {
    return wanted >= range.first && wanted <= range.last && (wanted - range.first) % range.step == 0;
}

// Whether a UTM record wants the zone that is both its own and its natural one; converting it would only add
// rounding.
bool IsNaturalUtm(const tagKOORD& record, double longitude) {
    if (record.type != KOORD_UTM) return false;
    const auto payload = Load<UtmPayload>(record);
    return payload.wantedZone == payload.zone && UTM_NaturalMeridian(longitude) == UtmMeridian(payload.zone);
}

// Rewrites a record that wants a zone in its natural zone, so that eastings can be compared.
bool MoveToNaturalZone(tagKOORD* record) {
    const std::int32_t wanted = zones::Wanted(*record);
    const WantedZones& range = SystemOf(*record).zones.wantedZones;
    if (!IsWanted(range, wanted)) return true;

    if (wanted == range.outerWest || wanted == range.outerEast) {
        tagKOORD centre = *record;
        if (!zones::MoveToCentre(&centre)) return false;
        const std::int32_t side = Order(zones::East(*record), zones::East(centre));
        if (wanted == range.outerWest && side < 0) return true;
        if (wanted == range.outerEast && side > 0) return true;
    }
    GeodezPayload position;
    if (!ToGeodez(*record, &position)) return false;
    if (IsNaturalUtm(*record, position.longitude)) return true;
    return ConvertTo(static_cast<std::int32_t>(record->type), record);
}

// Converts to UTM in the zone that the letters name, with the easting in whole metres. Near a border the
// rounded metre may lie in the next zone, but the record keeps its own.
bool ReadUtmref(tagKOORD* record) {
    if (!ConvertInZone(KOORD_UTM, RangeCheck::Off, record)) return false;
    zones::Want(NO_WANTED_ZONE, record);
    zones::SetEast(Trunc(zones::East(*record)), record);
    return true;
}

// Brings a record into the form whose values are compared.
bool Prepare(Axis axis, tagKOORD* record) {
    switch (SystemOf(*record).form) {
        case Form::Zoned:
            return axis == Axis::North || MoveToNaturalZone(record);
        case Form::Squares:
            return ReadUtmref(record) && Prepare(axis, record);
        case Form::Parts:
            return record->type == KOORD_GEOREF ? ReadGeoref(axis, record) : ReadCode(record);
        case Form::Cartesian:
            return ConvertTo(KOORD_GEODEZ, record);
        case Form::LetterGrid:
            return ReadLetterGrid(record);
        default:
            return true;
    }
}

std::int32_t CompareZoned(const tagKOORD& first, const tagKOORD& second) {
    const std::int32_t firstZone = zones::Number(first);
    const std::int32_t secondZone = zones::Number(second);
    if (firstZone == UNKNOWN_ZONE || secondZone == UNKNOWN_ZONE) return NOT_COMPARABLE;
    if (firstZone != secondZone) return firstZone > secondZone ? 1 : -1;
    return Order(zones::East(first), zones::East(second));
}

std::int32_t CompareUps(const tagKOORD& first, const tagKOORD& second) {
    const char firstLetter = Load<UpsPayload>(first).hemisphere;
    const char secondLetter = Load<UpsPayload>(second).hemisphere;
    const auto isNorth = [](char letter) { return letter == 'N' || letter == 'n'; };
    const auto isSouth = [](char letter) { return letter == 'S' || letter == 's'; };
    if (isNorth(firstLetter) && isSouth(secondLetter)) return 1;
    if (isSouth(firstLetter) && isNorth(secondLetter)) return -1;
    return Order(axes::Value(Axis::North, first), axes::Value(Axis::North, second));
}

// A record may hold NaN, such as the longitude of a point on the earth's axis, and still equals itself.
bool AreSame(const tagKOORD& first, const tagKOORD& second) {
    return std::memcmp(&first, &second, sizeof first) == 0;
}

std::int32_t CompareNorthSouth(const tagKOORD& first, const tagKOORD& second) {
    switch (SystemOf(first).form) {
        case Form::Pixels:
            // Rows grow southward.
            return Order(axes::Value(Axis::North, second), axes::Value(Axis::North, first));
        case Form::Polar:
            return CompareUps(first, second);
        default:
            return Order(axes::SignedNorthing(first), axes::SignedNorthing(second));
    }
}

std::int32_t CompareEastWest(const tagKOORD& first, const tagKOORD& second) {
    if (zones::Exist(static_cast<std::int32_t>(first.type))) return CompareZoned(first, second);
    return Order(axes::Value(Axis::East, first), axes::Value(Axis::East, second));
}

}  // namespace

std::int32_t CompareRecords(Axis axis, const tagKOORD& first, const tagKOORD& second) {
    if (first.datum != second.datum || first.type != second.type) return NOT_COMPARABLE;
    tagKOORD a = first;
    tagKOORD b = second;
    if (!Prepare(axis, &a) || !Prepare(axis, &b)) return NOT_COMPARABLE;
    if (!axes::IsNumber(static_cast<std::int32_t>(a.type))) return NOT_COMPARABLE;
    if (AreSame(first, second)) return 0;
    if (!HaveSameParameters(a, b)) return NOT_COMPARABLE;
    return axis == Axis::North ? CompareNorthSouth(a, b) : CompareEastWest(a, b);
}

}  // namespace tessara

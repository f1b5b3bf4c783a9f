#include "typed/judge.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "conversion/fields.h"
#include "conversion/made.h"
#include "conversion/statuses.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/range_checks.h"
#include "tessara/kernel/systems.h"

namespace tessara::toolkit {
namespace {

// The maximum round trip error of a valid position of TM, VDG and ECEF.
constexpr double SAME_METRE = 0.01;

// Steps per axis in the search for a legal position near the typed digits.
constexpr int SEARCH_STEPS = 6;
constexpr std::int32_t CHECKED = 1;  // by KoordConvertMany, against the limits of the target

Fault NoSquare() {
    return {"square", "zone and band do not contain this square", {}};
}

Fault FaultOf(KoordStatus status) {
    return {StatusCode(status), StatusReason(status), {}};
}

// The checker of the library rejects all of these.
bool IsBeyondTheChecker(const tagKOORD& record) {
    switch (static_cast<std::int32_t>(record.type)) {
        case KOORD_TM:
        case KOORD_ECEF:
        case KOORD_VDG:  // but for a part of those with the origin 0, 0
            return true;
        case KOORD_UPS:
            return Load<UpsPayload>(record).hemisphere == 'S';
        default:
            return false;
    }
}

double NumberAt(const tagKOORD& record, RecordField field) {
    double number = 0.0;
    std::memcpy(&number, record.payload + field.offset, sizeof number);
    return number;
}

bool AreSame(const tagKOORD& one, const tagKOORD& other) {
    const auto type = static_cast<std::int32_t>(one.type);
    const auto isSame = [&](RecordField field) {
        return std::fabs(NumberAt(one, field) - NumberAt(other, field)) < SAME_METRE;
    };
    return isSame(System_NorthText(type).back()) && isSame(System_EastText(type).back());
}

// Converts to degrees and back.
Fault CheckRoundTrip(const tagKOORD& record, const tagKOORD& degrees) {
    if (record.type == KOORD_UPS) {
        std::int32_t detail = KOORD_OK;
        return Range_CheckRecord(&record, &detail) == KOORD_OK ? Fault{} : FaultOf(detail);
    }
    tagKOORD back = record;
    const KoordStatus status = KoordConvert(&degrees, &back);
    if (status != KOORD_OK) return FaultOf(status);
    if (record.type == KOORD_ECEF || AreSame(record, back)) return {};
    return FaultOf(KOORD_ERR_OUTSIDE);
}

std::int64_t ZoneOf(const tagKOORD& record) {
    switch (static_cast<std::int32_t>(record.type)) {
        case KOORD_UTM:
            return Load<UtmPayload>(record).zone;
        case KOORD_UTMREF:
            return Load<UtmrefPayload>(record).zone;
        case KOORD_GK:
        case KOORD_GK6:
            return static_cast<std::int64_t>(Load<GkPayload>(record).easting / STRIP_MILLION);
        default:
            return Load<BmnPayload>(record).meridian;
    }
}

bool HasZones(const tagKOORD& record) {
    return WantedZone(static_cast<std::int32_t>(record.type), 28).has_value();
}

// Whether two references are the same but for the truncation of a metre.
bool AreSameReferences(const UtmrefPayload& one, const UtmrefPayload& other) {
    return one.band == other.band && one.column == other.column && one.row == other.row &&
           std::abs(one.easting - other.easting) <= 1 && std::abs(one.northing - other.northing) <= 1;
}

// Whether a record, which has the zone of its position, is what a conversion writes.
bool IsWrittenAs(const tagKOORD& record, const tagKOORD& natural) {
    return record.type == KOORD_UTMREF
               ? AreSameReferences(Load<UtmrefPayload>(record), Load<UtmrefPayload>(natural))
               : AreSame(record, natural);
}

// The fault of a position that converts but that the checker rejects. The checker's limits of UTM are the
// northings of its last parallels on the meridian of the zone; positions beside it, up to these parallels,
// exceed them.
Fault WhyRefused(const tagKOORD& record, const tagKOORD& degrees) {
    tagKOORD natural = DefaultRecord(
        {.datum = static_cast<std::int32_t>(record.datum), .system = static_cast<std::int32_t>(record.type)});
    const KoordStatus status = KoordConvert(&degrees, &natural);
    if (status != KOORD_OK) return FaultOf(status);
    if (HasZones(record) && ZoneOf(natural) != ZoneOf(record))
        return {"outside-zone",
                "the position is in zone " + std::to_string(ZoneOf(natural)) + ", not in " +
                    std::to_string(ZoneOf(record)),
                {}};
    const bool isUtm = record.type == KOORD_UTM || record.type == KOORD_UTMREF;
    if (isUtm && IsWrittenAs(record, natural)) return {};
    return record.type == KOORD_UTMREF ? NoSquare() : FaultOf(KOORD_ERR_OUTSIDE);
}

tagKOORD DegreesRecord(const tagKOORD& record, KoordStatus* status) {
    tagKOORD degrees = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_GEODEZ);
    *status = KoordConvert(&record, &degrees);
    return degrees;
}

// Of the zone that a position lies in.
tagKOORD NaturalReference(const tagKOORD& reference) {
    tagKOORD natural = MakeKoord(static_cast<std::int32_t>(reference.datum), KOORD_UTMREF);
    UtmrefPayload p{};
    p.wantedZone = NO_WANTED_ZONE;
    Store(natural, p);
    return natural;
}

// Moves a record by metres, in a system with metric axes.
tagKOORD Moved(const tagKOORD& record, double east, double north) {
    tagKOORD moved = record;
    const auto type = static_cast<std::int32_t>(record.type);
    const auto move = [&](RecordField field, double metres) {
        const double number = NumberAt(record, field) + metres;
        std::memcpy(moved.payload + field.offset, &number, sizeof number);
    };
    move(System_EastText(type).back(), east);
    move(System_NorthText(type).back(), north);
    return moved;
}

// The UTM position of a reference in its own zone.
tagKOORD UtmOf(const tagKOORD& reference, const tagKOORD& degrees) {
    const auto datum = static_cast<std::int32_t>(reference.datum);
    CKoord utm = DefaultRecord({.datum = datum, .system = KOORD_UTM});
    auto p = Load<UtmPayload>(utm);
    p.wantedZone = Load<UtmrefPayload>(reference).zone;
    Store(utm, p);
    KoordConvert(&degrees, &utm);
    p = Load<UtmPayload>(utm);
    p.wantedZone = NO_WANTED_ZONE;
    Store(utm, p);
    return utm;
}

// Whether the wanted zone is the one of the record.
bool IsInWantedZone(const Reading& reading) {
    if (reading.reference.parameters.empty() || !HasZones(reading.record)) return false;
    tagKOORD wanted = DefaultRecord(reading.reference);
    KoordStatus status = KOORD_OK;
    const tagKOORD degrees = DegreesRecord(reading.record, &status);
    if (status != KOORD_OK || KoordConvert(&degrees, &wanted) != KOORD_OK) return false;
    return ZoneOf(wanted) == ZoneOf(reading.record);
}

}  // namespace

Judge::Judge() : checker_(Made(CreateClassCoordinateChecker())), coord_(Made(CreateClassCoord())) {}

bool Judge::IsLegal(const tagKOORD& record) const {
    const CKoord koord(record);
    IRef<ICoordInternal>(coord_)->SetKoord(&koord);
    return checker_->CheckCoord(coord_.Get());
}

Fault Judge::Check(const Reading& reading) const {
    const tagKOORD& record = reading.record;
    if (IsPixel(static_cast<std::int32_t>(record.type))) return {};
    if (record.type == KOORD_UTMREF && IsWrittenAgain(record)) return {};
    const bool isBeyond = IsBeyondTheChecker(record);
    if (!isBeyond && IsLegal(record)) return {};

    KoordStatus status = KOORD_OK;
    const tagKOORD degrees = DegreesRecord(record, &status);
    if (record.type == KOORD_UTMREF && status == KOORD_ERR_GENERAL) return NoSquare();
    if (status != KOORD_OK) return FaultOf(status);
    if (!IsFinite(degrees)) return FaultOf(KOORD_ERR_OUTSIDE);
    if (isBeyond) return CheckRoundTrip(record, degrees);
    if (IsInWantedZone(reading)) return {};
    if (IsLegalNearby(reading, degrees)) return {};
    return WhyRefused(record, degrees);
}

// Typed digits stand for a range: half a unit to both sides if they were rounded, a whole unit if they were
// truncated. Some position in that range must be legal.
bool Judge::IsLegalNearby(const Reading& reading, const tagKOORD& degrees) const {
    const auto type = static_cast<std::int32_t>(reading.record.type);
    const bool isReference = type == KOORD_UTMREF;
    if (!isReference && !HasZones(reading.record)) return false;
    const tagKOORD place = isReference ? UtmOf(reading.record, degrees) : reading.record;
    const double first = isReference ? -0.5 : -1.0;
    for (int east = 0; east <= SEARCH_STEPS; ++east) {
        for (int north = 0; north <= SEARCH_STEPS; ++north) {
            const auto share = [&](int step) { return first + (1.0 - first) * step / SEARCH_STEPS; };
            if (IsLegal(Moved(place, share(east) * reading.eastResolution,
                              share(north) * reading.northResolution)))
                return true;
        }
    }
    return false;
}

bool IsWrittenAgain(const tagKOORD& reference) {
    KoordStatus status = KOORD_OK;
    const tagKOORD degrees = DegreesRecord(reference, &status);
    if (status != KOORD_OK) return false;
    tagKOORD natural = NaturalReference(reference);
    return KoordConvert(&degrees, &natural) == KOORD_OK && ZoneOf(natural) == ZoneOf(reference) &&
           IsWrittenAs(reference, natural);
}

std::vector<std::optional<GeodezPayload>> DegreesOfWrittenAgain(std::span<const tagKOORD> references) {
    const std::size_t count = references.size();
    if (count == 0) return {};
    const auto datum = static_cast<std::int32_t>(references.front().datum);
    std::vector<tagKOORD> degrees(count, MakeKoord(datum, KOORD_GEODEZ));
    std::vector<tagKOORD> naturals(count, NaturalReference(references.front()));
    std::vector<KoordStatus> read(count);
    std::vector<KoordStatus> written(count);
    KoordConvertMany(references.data(), degrees.data(), count, CHECKED, read.data());
    KoordConvertMany(degrees.data(), naturals.data(), count, CHECKED, written.data());
    std::vector<std::optional<GeodezPayload>> found(count);
    for (std::size_t i = 0; i < count; ++i) {
        const bool isAgain = read[i] == KOORD_OK && written[i] == KOORD_OK && IsFinite(degrees[i]) &&
                             ZoneOf(naturals[i]) == ZoneOf(references[i]) &&
                             IsWrittenAs(references[i], naturals[i]);
        if (isAgain) found[i] = Load<GeodezPayload>(degrees[i]);
    }
    return found;
}

bool DegreesOf(const tagKOORD& record, GeodezPayload* degrees) {
    KoordStatus status = KOORD_OK;
    const tagKOORD converted = DegreesRecord(record, &status);
    *degrees = Load<GeodezPayload>(converted);
    return status == KOORD_OK && IsFinite(converted);
}

}  // namespace tessara::toolkit

#include "prepared.h"

#include <cmath>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "systems/output_values.h"
#include "systems/system_row.h"
#include "tessara/ckoord.h"
#include "tessara/kernel/convert.h"

namespace tessara::web {
namespace {

constexpr double NO_WHOLE = 1e300;

double NumberAt(const SourceColumn& column, std::size_t row) {
    double value;
    std::memcpy(
        &value,
        static_cast<const std::byte*>(column.first) + static_cast<std::ptrdiff_t>(row) * column.stride,
        sizeof value);
    return value;
}

// Of target columns the strides are the sizes of their values.
template <class Value>
Value* Values(const TargetColumn& column) {
    return static_cast<Value*>(column.first);
}

// The columns of a block are JavaScript's copies.
void RefuseFractions(const SourceColumn& column, std::size_t count) {
    auto* const values = static_cast<double*>(const_cast<void*>(column.first));
    for (std::size_t i = 0; i < (column.stride == 0 ? 1 : count); ++i) {
        if (values[i] != std::floor(values[i])) values[i] = NO_WHOLE;
    }
}

// Degrees as a target aren't tested: what isn't finite in them has no result either.
KoordStatus StatusOfMissing(const OutputField& field) {
    return field.offset == 0 ? KOORD_ERR_GEO_LAT : KOORD_ERR_GEO_LON;
}

// The record that a conversion into a system starts from.
tagKOORD StartRecord(const toolkit::Reference& reference) {
    tagKOORD record = MakeKoord(reference.datum, reference.system);
    const PayloadBytes& payload = SystemOf(reference.system).defaultPayload;
    std::memcpy(record.payload, payload.data(), payload.size());
    toolkit::StoreParameters(reference.parameters, &record);
    return record;
}

// A record with the precision with which the minutes of positions are written.
tagKOORD WrittenGeoref(std::int32_t datum) {
    const tagKOORD degrees = MakeKoord(datum, KOORD_GEODEZ);
    tagKOORD record = MakeKoord(datum, KOORD_GEOREF);
    KoordConvert(&degrees, &record);
    return record;
}

// False for a number that the field can't hold.
bool PutField(const OutputField& field, const Slot& slot, tagKOORD* record) {
    if (IsOfLetters(field)) {
        std::memcpy(record->payload + field.offset, slot.bytes, field.count);
        return true;
    }
    double value;
    std::memcpy(&value, slot.bytes, sizeof value);
    return (!IsWhole(field) || value == std::floor(value)) && SetOutputValue(record, field, value);
}

// False for a number that isn't finite.
bool TakeField(const tagKOORD& record, const OutputField& field, Slot* slot) {
    if (IsOfLetters(field)) {
        std::memcpy(slot->bytes, record.payload + field.offset, field.count);
        return true;
    }
    const double value = OutputValue(record, field);
    std::memcpy(slot->bytes, &value, sizeof value);
    return std::isfinite(value);
}

}  // namespace

ColumnKind KindOf(const OutputField& field) {
    if (IsOfLetters(field)) return ColumnKind::Letters;
    return IsWhole(field) ? ColumnKind::Whole : ColumnKind::Number;
}

Handles<PreparedConversion>& Conversions() {
    static Handles<PreparedConversion> conversions;
    return conversions;
}

PreparedConversion::PreparedConversion(toolkit::Reference from, toolkit::Reference to)
    : from_(std::move(from)), to_(std::move(to)), source_(StartRecord(from_)), target_(StartRecord(to_)) {
    if (toolkit::IsPixel(from_.system) || toolkit::IsPixel(to_.system))
        throw std::invalid_argument("pixels are converted by a map");
    if (from_.system == KOORD_GEOREF) source_ = WrittenGeoref(from_.datum);
    single_.Prepare(source_, target_);
}

std::span<const OutputField> PreparedConversion::SourceFields() const {
    return System_Columns(from_.system);
}

std::span<const OutputField> PreparedConversion::TargetFields() const {
    return System_Columns(to_.system);
}

void PreparedConversion::Convert(const SourceColumns& from, const TargetColumns& to,
                                 std::size_t count) const {
    const auto sources = SourceFields();
    for (std::size_t k = 0; k < sources.size(); ++k) {
        if (KindOf(sources[k]) == ColumnKind::Whole && from.fields[k].first != nullptr)
            RefuseFractions(from.fields[k], count);
    }
    KoordConvertColumns(&source_, &from, &target_, &to, count, 1);
    if (to_.system == KOORD_ECEF && from.height.first != nullptr) Raise(to, from.height, count);

    auto* const statuses = Values<KoordStatus>(to.status);
    const auto targets = TargetFields();
    for (std::size_t k = 0; k < targets.size(); ++k) {
        if (KindOf(targets[k]) != ColumnKind::Number) continue;
        const double* const values = Values<double>(to.fields[k]);
        for (std::size_t i = 0; i < count; ++i) {
            if (statuses[i] == KOORD_OK && !std::isfinite(values[i]))
                statuses[i] = StatusOfMissing(targets[k]);
        }
    }
}

// Earth-centred positions are converted as if they were on the ellipsoid: their heights come in behind.
void PreparedConversion::Raise(const TargetColumns& to, const SourceColumn& heights,
                               std::size_t count) const {
    tagKOORD record = target_;
    double* const x = Values<double>(to.fields[0]);
    double* const y = Values<double>(to.fields[1]);
    double* const z = Values<double>(to.fields[2]);
    for (std::size_t i = 0; i < count; ++i) {
        Store(record, EcefPayload{x[i], y[i], z[i]});
        CKoord raised(record);
        raised.SetHeight(NumberAt(heights, i));
        const auto at = Load<EcefPayload>(raised);
        x[i] = at.x;
        y[i] = at.y;
        z[i] = at.z;
    }
}

KoordStatus PreparedConversion::ConvertRow(const Slot* from, std::uint32_t given, Slot* to) const {
    tagKOORD source = source_;
    const auto sources = SourceFields();
    for (std::size_t k = 0; k < sources.size(); ++k) {
        if (((given >> k) & 1U) == 0) continue;
        if (!PutField(sources[k], from[k], &source)) return KOORD_ERR_GENERAL;
    }
    tagKOORD target;
    const KoordStatus status = Convert(source, &target);
    if (status != KOORD_OK) return status;
    const auto targets = TargetFields();
    for (std::size_t k = 0; k < targets.size(); ++k) {
        if (!TakeField(target, targets[k], &to[k])) return StatusOfMissing(targets[k]);
    }
    return KOORD_OK;
}

KoordStatus PreparedConversion::Convert(const tagKOORD& source, tagKOORD* target) const {
    *target = target_;
    return single_.Convert(source, target, RangeCheck::On);
}

}  // namespace tessara::web

// Fields of a record by their place, as the rows of the table of systems name them.
#pragma once

#include <cstring>

#include "kernel/numeric.h"
#include "tessara/kernel/systems.h"

namespace tessara {

// The value of a field, of the type that its kind names.
template <class Value>
[[nodiscard]] Value ValueOf(const tagKOORD& record, RecordField field) {
    Value value;
    std::memcpy(&value, record.payload + field.offset, sizeof value);
    return value;
}

template <class Value>
void SetValue(tagKOORD* record, RecordField field, Value value) {
    std::memcpy(record->payload + field.offset, &value, sizeof value);
}

// How many bytes a field of a kind takes.
[[nodiscard]] constexpr std::size_t SizeOf(FieldKind kind) {
    switch (kind) {
        case FieldKind::None:
            return 0;
        case FieldKind::Letter:
            return 1;
        case FieldKind::LetterPair:
        case FieldKind::Whole16:
        case FieldKind::Minutes:
            return 2;
        case FieldKind::Whole32:
        case FieldKind::Metres:
            return 4;
        case FieldKind::Number:
            break;
    }
    return 8;
}

inline void CopyField(RecordField field, const tagKOORD& source, tagKOORD* target) {
    std::memcpy(target->payload + field.offset, source.payload + field.offset, SizeOf(field.kind));
}

// A field of digits as a number; 0.0 for letters and for no field.
[[nodiscard]] inline double NumberOf(const tagKOORD& record, RecordField field) {
    switch (field.kind) {
        case FieldKind::Whole16:
        case FieldKind::Minutes:
            return ValueOf<std::int16_t>(record, field);
        case FieldKind::Whole32:
        case FieldKind::Metres:
            return ValueOf<std::int32_t>(record, field);
        case FieldKind::Number:
            return ValueOf<double>(record, field);
        default:
            return 0.0;
    }
}

}  // namespace tessara

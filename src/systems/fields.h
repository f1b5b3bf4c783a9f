// Reads and writes the fields of a record by offset, as the rows of the table of systems describe them.
#pragma once

#include <cstring>

#include "kernel/numeric.h"
#include "tessara/kernel/systems.h"

namespace tessara {

// The value of a field, in the type that its kind names.
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

// The number of bytes of a field of this kind.
[[nodiscard]] constexpr std::size_t SizeOf(FieldKind kind) {
    switch (kind) {
        case FieldKind::None:  // GCOVR_EXCL_START: no axis has such a field
            return 0;
        case FieldKind::Letter:  // GCOVR_EXCL_STOP
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

// A numeric field as a double; 0.0 for letters and for an empty field.
[[nodiscard]] inline double NumberOf(const tagKOORD& record, RecordField field) {
    switch (field.kind) {
        case FieldKind::Whole16:  // GCOVR_EXCL_START: no axis counts by such a field
        case FieldKind::Minutes:
            return ValueOf<std::int16_t>(record, field);
        case FieldKind::Whole32:  // GCOVR_EXCL_STOP
        case FieldKind::Metres:
            return ValueOf<std::int32_t>(record, field);
        case FieldKind::Number:
            return ValueOf<double>(record, field);
        default:
            return 0.0;
    }
}

}  // namespace tessara

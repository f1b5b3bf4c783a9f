// What the north and the east text of each system are made of. Texts are written and read by the same table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "objects/axis.h"
#include "tessara/kernel/koord.h"

namespace tessara {

enum class FieldKind : std::uint8_t {
    None,
    Letter,      // a char
    LetterPair,  // two chars, side by side
    Whole16,     // an i16
    Whole32,     // an i32
    Metres,      // an i32 that is written with the decimals of the text
    Minutes,     // an i16 in as many digits as the record's GEOREF precision says
    Number,      // a double
};

struct TextField {
    FieldKind kind = FieldKind::None;
    std::uint8_t offset = 0;  // in the payload
};

// The fields of one text, in their order; none for a system without texts.
[[nodiscard]] std::span<const TextField> TextFieldsOf(Axis axis, std::uint32_t system);

// The value of a field, of the type that its kind names.
template <class Value>
[[nodiscard]] Value ValueOf(const tagKOORD& record, TextField field) {
    Value value;
    std::memcpy(&value, record.payload + field.offset, sizeof value);
    return value;
}

template <class Value>
void SetValue(tagKOORD* record, TextField field, Value value) {
    std::memcpy(record->payload + field.offset, &value, sizeof value);
}

}  // namespace tessara

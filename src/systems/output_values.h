// The fields of a record, as they are listed, by their values: doubles, or letters.
#pragma once

#include <cmath>
#include <cstring>
#include <limits>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/systems.h"

namespace tessara {

namespace output_values {

template <class Value>
[[nodiscard]] Value At(const tagKOORD& record, std::uint8_t offset) {
    Value value;
    std::memcpy(&value, record.payload + offset, sizeof value);
    return value;
}

// False for what isn't a number of the type; a fraction is cut off.
template <class Whole>
bool Put(tagKOORD* record, std::uint8_t offset, double value) {
    constexpr double least = std::numeric_limits<Whole>::min();
    constexpr double greatest = std::numeric_limits<Whole>::max();
    if (!(value > least - 1.0 && value < greatest + 1.0)) return false;
    const auto whole = static_cast<Whole>(value);
    std::memcpy(record->payload + offset, &whole, sizeof whole);
    return true;
}

}  // namespace output_values

[[nodiscard]] inline bool IsOfLetters(const OutputField& field) {
    return field.kind == OutputKind::Letters;
}

[[nodiscard]] inline bool IsWhole(const OutputField& field) {
    return field.kind == OutputKind::Whole16 || field.kind == OutputKind::Whole32 ||
           field.kind == OutputKind::GeorefMinutes || field.kind == OutputKind::SquareMetres;
}

// Not of letters.
[[nodiscard]] inline double OutputValue(const tagKOORD& record, const OutputField& field) {
    switch (field.kind) {
        case OutputKind::Whole16:
        case OutputKind::GeorefMinutes:
            return output_values::At<std::int16_t>(record, field.offset);
        case OutputKind::Whole32:
        case OutputKind::SquareMetres:
            return output_values::At<std::int32_t>(record, field.offset);
        default:
            return output_values::At<double>(record, field.offset);
    }
}

// False for a number that the field can't hold.
[[nodiscard]] inline bool SetOutputValue(tagKOORD* record, const OutputField& field, double value) {
    switch (field.kind) {
        case OutputKind::Whole16:
        case OutputKind::GeorefMinutes:
            return output_values::Put<std::int16_t>(record, field.offset, value);
        case OutputKind::Whole32:
        case OutputKind::SquareMetres:
            return output_values::Put<std::int32_t>(record, field.offset, value);
        default:
            std::memcpy(record->payload + field.offset, &value, sizeof value);
            return true;
    }
}

}  // namespace tessara

#include "conversion/fields.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "conversion/numbers.h"
#include "conversion/units.h"
#include "tessara/kernel/systems.h"

namespace tessara::toolkit {
namespace {

// Match the decimals of metres and degrees.
constexpr int MINUTE_DECIMALS = 7;
constexpr int SECOND_DECIMALS = 5;
constexpr int PIXEL_DECIMALS = 3;

// Decimal minutes do not carry into the degrees, so a value that rounds to 60 is written below 60.
constexpr double LAST_MINUTE = 59.9999999;

template <class Value>
Value ValueAt(const tagKOORD& record, const OutputField& field) {
    Value value;
    std::memcpy(&value, record.payload + field.offset, sizeof value);
    return value;
}

bool IsDouble(OutputKind kind) {
    switch (kind) {
        case OutputKind::Metres:
        case OutputKind::Degrees:
        case OutputKind::Minutes:
        case OutputKind::Seconds:
        case OutputKind::Pixels:
        case OutputKind::SquareNumber:
            return true;
        default:
            return false;
    }
}

Field MakeField(const tagKOORD& record, const OutputField& field) {
    const auto number = [&] { return ValueAt<double>(record, field); };
    const auto whole = [&] { return std::int64_t{ValueAt<std::int16_t>(record, field)}; };
    switch (field.kind) {
        case OutputKind::Letters: {
            const auto* const first = reinterpret_cast<const char*>(record.payload + field.offset);
            return {field.name, std::string(first, field.count)};
        }
        case OutputKind::Whole16:
            return {field.name, whole(), 1};
        case OutputKind::Whole32:
            return {field.name, std::int64_t{ValueAt<std::int32_t>(record, field)}, 1};
        case OutputKind::Metres:
            return {field.name, number(), METRE_DECIMALS};
        case OutputKind::Degrees:
            return {field.name, number(), DEGREE_DECIMALS};
        case OutputKind::Minutes:
            return {field.name, std::min(number(), LAST_MINUTE), MINUTE_DECIMALS};
        case OutputKind::Seconds:
            return {field.name, number(), SECOND_DECIMALS};
        case OutputKind::Pixels:
            return {field.name, number(), PIXEL_DECIMALS};
        case OutputKind::SquareMetres:
            return {field.name, std::int64_t{ValueAt<std::int32_t>(record, field)}, SQUARE_DIGITS};
        case OutputKind::SquareNumber:
            return {field.name, std::int64_t{std::llround(number())}, SQUARE_DIGITS};
        case OutputKind::GeorefMinutes:
            return {field.name, whole(), Load<GeorefPayload>(record).precision - 1};
        case OutputKind::None:
            break;
    }
    return {field.name, std::string()};
}

}  // namespace

std::string Field::Text() const {
    if (const auto* number = std::get_if<double>(&value)) return FormatNumber(*number, digits);
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return FormatWhole(*whole, digits);
    return std::get<std::string>(value);
}

std::vector<Field> FieldsOf(const tagKOORD& record) {
    std::vector<Field> fields;
    for (const OutputField& output : System_Outputs(static_cast<std::int32_t>(record.type)))
        fields.push_back(MakeField(record, output));
    return fields;
}

Field HeightField(double height) {
    return {"height", height, METRE_DECIMALS};
}

bool IsFinite(const tagKOORD& record) {
    const auto outputs = System_Outputs(static_cast<std::int32_t>(record.type));
    return std::all_of(outputs.begin(), outputs.end(), [&](const OutputField& field) {
        return !IsDouble(field.kind) || std::isfinite(ValueAt<double>(record, field));
    });
}

}  // namespace tessara::toolkit

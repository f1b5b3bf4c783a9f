// The coordinate types as data: names, units, and the fields of their records. A program that lists, writes
// or reads positions of any system uses them instead of a switch over the types:
//
//     for (const OutputField& field : System_Outputs(KOORD_UTM)) std::cout << field.name << ' ';
//
// writes "zone hemisphere easting northing".
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "tessara/kernel/koord.h"

namespace tessara {

enum class Unit : std::uint8_t { Pixel, Degree, Metre };

// The type of a field's bytes.
enum class FieldKind : std::uint8_t {
    None,
    Letter,      // a char
    LetterPair,  // two chars, side by side
    Whole16,     // an i16
    Whole32,     // an i32
    Metres,      // an i32 that texts show with decimals
    Minutes,     // an i16 of as many digits as the record's GEOREF precision says
    Number,      // a double
};

// A field of a record, by its offset in the payload.
struct RecordField {
    FieldKind kind = FieldKind::None;
    std::uint8_t offset = 0;
};

// How a program writes a field.
enum class OutputKind : std::uint8_t {
    None,
    Letters,        // `count` chars, side by side
    Whole16,        // an i16
    Whole32,        // an i32
    Metres,         // a double
    Degrees,        // a double
    Minutes,        // a double below 60
    Seconds,        // a double below 60
    Pixels,         // a double
    SquareMetres,   // an i32 of five digits: whole metres within a 100 km square
    SquareNumber,   // a double that is shown like SquareMetres
    GeorefMinutes,  // an i16 of one digit fewer than the record's precision
};

struct OutputField {
    const char* name = nullptr;
    OutputKind kind = OutputKind::None;
    std::uint8_t offset = 0;  // in the payload
    std::uint8_t count = 1;   // of letters
};

// The unit of a type's numbers; Metre for a number outside 0..23.
[[nodiscard]] Unit System_Unit(std::int32_t type);

// The fields of a type in the order in which programs list them; none for a type outside 0..22.
[[nodiscard]] std::span<const OutputField> System_Outputs(std::int32_t type);

// The fields of the north and the east text of a type, in order; none for a type without texts.
[[nodiscard]] std::span<const RecordField> System_NorthText(std::int32_t type);
[[nodiscard]] std::span<const RecordField> System_EastText(std::int32_t type);

}  // namespace tessara

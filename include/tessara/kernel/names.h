// The vocabulary of the system: numbers and names of projections, map types and coordinate types. No
// calculation looks anything up here; the tables fix the numbering.
#pragma once

#include <cstdint>
#include <span>

namespace tessara {

struct NameRow {
    std::uint32_t number;
    char name[24];  // zero-padded
};

// The tables, in the order of the vocabulary; van der Grinten stands last and out of sequence.
[[nodiscard]] std::span<const NameRow> Projection_Names();      // 22 rows, numbers 0..21
[[nodiscard]] std::span<const NameRow> MapType_Names();         // 18 rows, numbers 0..17
[[nodiscard]] std::span<const NameRow> CoordinateType_Names();  // 23 rows, numbers 0..22; 23 has no name

// The name of a number; null for a number that has none.
[[nodiscard]] const char* Projection_Name(std::int32_t projection);
[[nodiscard]] const char* MapType_Name(std::int32_t mapType);
[[nodiscard]] const char* CoordinateType_Name(std::int32_t type);

}  // namespace tessara

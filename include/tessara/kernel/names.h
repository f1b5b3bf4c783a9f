// The numbers and names of projections, map types and coordinate types. They fix the numbering; no
// calculation looks anything up here, and no library is needed to link with.
//
// Example:
//
//     const char* name = tessara::CoordinateType_Name(2);  // "UTM"
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace tessara {

struct NameRow {
    std::uint32_t number;
    char name[24];  // zero-padded
};

namespace internal {

inline constexpr std::array<NameRow, 22> PROJECTIONS{{
    {0, "UNKNOWN"},      {1, "NONE"},
    {2, "UTM"},          {3, "GAUKRU"},
    {4, "LAMBERT2"},     {5, "LAMBERTFR"},
    {6, "EQUALARC"},     {7, "POLYNOM"},
    {8, "MERCATOR"},     {9, "BMN"},
    {10, "CH"},          {11, "AZYL"},
    {12, "DD"},          {13, "GAUKRU6"},
    {14, "UPS"},         {15, "TM"},
    {16, "PO_MILITARY"}, {18, "STEREOGR_NL"},
    {19, "LAMBERTCC"},   {20, "LUREF"},
    {21, "WAGNER-IV"},   {17, "VAN_DER_GRINTEN"},
}};

inline constexpr std::array<NameRow, 18> MAP_TYPES{{
    {0, "UNKNOWN"},
    {1, "UTM"},
    {2, "GAUKRU"},
    {3, "LAMBERT2"},
    {4, "EQUALARC"},
    {5, "NONE"},
    {6, "MERCATOR"},
    {7, "BMN"},
    {8, "CH"},
    {9, "AZYL"},
    {10, "GAUKRU6"},
    {11, "UPS"},
    {12, "TM"},
    {14, "LAMBERTFR"},
    {15, "STEREOGR_NL"},
    {16, "LAMBERTCC"},
    {17, "WAGNER-IV"},
    {13, "VAN_DER_GRINTEN"},
}};

inline constexpr std::array<NameRow, 23> COORDINATE_TYPES{{
    {0, "LONGPIXEL"},  {1, "FLOATPIXEL"}, {2, "UTM"},    {3, "UTMREF"}, {4, "GEODEZ"},       {5, "GEOGRAD"},
    {6, "GEOREF"},     {7, "GK"},         {8, "BMN"},    {9, "OEM"},    {10, "CH"},          {11, "ECEF"},
    {12, "GEODEZMIN"}, {13, "GK6"},       {14, "GK-AT"}, {15, "UPS"},   {16, "PO_MILITARY"}, {17, "TM"},
    {18, "VDG"},       {19, "BNG"},       {20, "ING"},   {21, "RD"},    {22, "LUREF"},
}};

[[nodiscard]] constexpr const char* NameIn(std::span<const NameRow> table, std::int32_t number) {
    for (const NameRow& row : table) {
        if (row.number == static_cast<std::uint32_t>(number)) return row.name;
    }
    return nullptr;
}

}  // namespace internal

// The tables: 22 projections with the numbers 0..21, 18 map types with 0..17, and 23 coordinate types with
// 0..22 (type 23 has no name). Rows are in the order of their numbers, except that van der Grinten comes
// last.
[[nodiscard]] constexpr std::span<const NameRow> Projection_Names() {
    return internal::PROJECTIONS;
}
[[nodiscard]] constexpr std::span<const NameRow> MapType_Names() {
    return internal::MAP_TYPES;
}
[[nodiscard]] constexpr std::span<const NameRow> CoordinateType_Names() {
    return internal::COORDINATE_TYPES;
}

// The name of a number; null for a number without one.
[[nodiscard]] constexpr const char* Projection_Name(std::int32_t projection) {
    return internal::NameIn(internal::PROJECTIONS, projection);
}
[[nodiscard]] constexpr const char* MapType_Name(std::int32_t mapType) {
    return internal::NameIn(internal::MAP_TYPES, mapType);
}
[[nodiscard]] constexpr const char* CoordinateType_Name(std::int32_t type) {
    return internal::NameIn(internal::COORDINATE_TYPES, type);
}

}  // namespace tessara

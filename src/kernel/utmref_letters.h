// The alphabets of UTMREF.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "kernel/letters.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/utmref.h"

namespace tessara {

// Bands and rows count away from the equator, columns eastward.
inline constexpr std::string_view UTMREF_NORTH_BANDS = "NPQRSTUVWX";
inline constexpr std::string_view UTMREF_SOUTH_BANDS = "MLKJHGFEDC";
inline constexpr std::string_view UTMREF_COLUMNS_BY_ZONE[3] = {"STUVWXYZ", "ABCDEFGH",
                                                               "JKLMNPQR"};  // zone modulo 3
inline constexpr std::string_view UTMREF_ROWS_AA = "ABCDEFGHJKLMNPQRSTUV";
inline constexpr std::string_view UTMREF_ROWS_AL = "LMNPQRSTUVABCDEFGHJK";

inline constexpr std::int32_t UTMREF_ROW_CYCLE = 20;
inline constexpr std::int32_t UTMREF_EVEN_ZONE_ROW_SHIFT = 5;
inline constexpr double UTMREF_BAND_DEGREES = 8.0;

struct UtmrefBand {
    bool south;
    double nearEdge;  // degrees from the equator
    double farEdge;
};

namespace utmref {

// Which of the three alphabets of columns a zone has.
[[nodiscard]] constexpr std::size_t ColumnSet(std::int32_t zone) {
    const std::int32_t rest = zone % 3;
    return static_cast<std::size_t>(rest < 0 ? rest + 3 : rest);
}
[[nodiscard]] constexpr std::string_view ColumnLetters(std::int32_t zone) {
    return UTMREF_COLUMNS_BY_ZONE[ColumnSet(zone)];
}

// Of the codes of the ellipsoids, those whose rows begin with A.
inline constexpr std::uint32_t SCHEME_AA =
    1u << ELLIPSOID_INTERNATIONAL | 1u << ELLIPSOID_WGS84 | 1u << ELLIPSOID_AUSTRALIAN |
    1u << ELLIPSOID_EVEREST_BRUNEI | 1u << ELLIPSOID_EVEREST_INDIA_1830 | 1u << ELLIPSOID_EVEREST_INDIA_1956 |
    1u << ELLIPSOID_EVEREST_PAKISTAN | 1u << ELLIPSOID_EVEREST_MALAYSIA_1948 |
    1u << ELLIPSOID_EVEREST_MALAYSIA_1969 | 1u << ELLIPSOID_GRS_1980 | 1u << ELLIPSOID_SOUTH_AMERICAN_1969 |
    1u << ELLIPSOID_WGS72 | 1u << ELLIPSOID_USER_DEFINED;

[[nodiscard]] constexpr bool HasSchemeAA(std::uint32_t ellipsoid) {
    return ellipsoid < 32 && (SCHEME_AA >> ellipsoid & 1) != 0;
}

[[nodiscard]] constexpr std::string_view RowLetters(std::uint32_t ellipsoid) {
    return HasSchemeAA(ellipsoid) ? UTMREF_ROWS_AA : UTMREF_ROWS_AL;
}

// The letters of all rows of a hemisphere's grid, from its origin northward, in the zones whose rows aren't
// shifted. The last row, which begins at the equator, is a single line.
inline constexpr std::size_t UTMREF_ROW_COUNT =
    static_cast<std::size_t>(UTM_SOUTHERN_FALSE_NORTHING / SQUARE_METRES) + 1;
using AllRows = std::array<char, UTMREF_ROW_COUNT + UTMREF_EVEN_ZONE_ROW_SHIFT>;

consteval AllRows RepeatRows(std::string_view letters) {
    AllRows rows{};
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = letters[i % letters.size()];
    return rows;
}

inline constexpr AllRows ALL_ROWS_AA = RepeatRows(UTMREF_ROWS_AA);
inline constexpr AllRows ALL_ROWS_AL = RepeatRows(UTMREF_ROWS_AL);

[[nodiscard]] constexpr const AllRows& AllRowsOf(std::uint32_t ellipsoid) {
    return HasSchemeAA(ellipsoid) ? ALL_ROWS_AA : ALL_ROWS_AL;
}

// The number of letters by which the rows of a zone are shifted.
[[nodiscard]] constexpr std::int32_t RowShift(std::int32_t zone) {
    return zone % 2 == 0 ? UTMREF_EVEN_ZONE_ROW_SHIFT : 0;
}

// Finds the band of a letter. False if the letter names no band.
[[nodiscard]] constexpr bool FindBand(char letter, UtmrefBand* band) {
    const std::int32_t northIndex = LetterIndex(UTMREF_NORTH_BANDS, letter);
    const std::int32_t southIndex = LetterIndex(UTMREF_SOUTH_BANDS, letter);
    if (northIndex == NO_LETTER && southIndex == NO_LETTER) return false;

    band->south = southIndex != NO_LETTER;
    band->nearEdge = UTMREF_BAND_DEGREES * (band->south ? southIndex : northIndex);
    band->farEdge =
        letter == UTMREF_NORTH_BANDS.back() ? UTM_LIMITS.north : band->nearEdge + UTMREF_BAND_DEGREES;
    return true;
}

}  // namespace utmref

}  // namespace tessara

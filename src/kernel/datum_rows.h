// The datum table for the kernel: look-ups by number, and constants derived from a row at compile time.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "kernel/ellipsoids.h"
#include "tessara/kernel/datum.h"

namespace tessara {

using internal::DATUMS;

// Tables of all datums are constant data. A build that has to be small computes them, to the same bits, when
// it is loaded.
#if defined(TESSARA_TABLES_AT_LOAD)
#define TESSARA_TABLE const
#define TESSARA_COMPUTED inline
#else
#define TESSARA_TABLE constexpr
#define TESSARA_COMPUTED consteval
#endif

// Datum_Row for use within the kernel, inline because a call would cost more than the look-up.
[[nodiscard]] inline const DatumRow* RowOf(std::int32_t datum) {
    return datum >= 0 && datum < DATUM_COUNT ? &DATUMS[static_cast<std::size_t>(datum)] : nullptr;
}

// The parameters of the steps from a datum to the hub WGS84 and back.
constexpr HubParams ToHubOf(const DatumRow& row) {
    return {.f = row.f,
            .a = row.a,
            .e2 = row.e2,
            .df = WGS84_F - row.f,
            .da = WGS84_A - row.a,
            .dx = row.dx,
            .dy = row.dy,
            .dz = row.dz};
}

constexpr HubParams FromHubOf(const DatumRow& row) {
    return {.f = WGS84_F,
            .a = WGS84_A,
            .e2 = DATUMS[DATUM_WGS84].e2,
            .df = -(WGS84_F - row.f),
            .da = -(WGS84_A - row.a),
            .dx = -row.dx,
            .dy = -row.dy,
            .dz = -row.dz};
}

// compute(figure) for the ellipsoid of each datum, indexed by the number of the datum.
template <class Constants>
TESSARA_COMPUTED std::array<Constants, DATUM_COUNT> ForEachDatum(Constants (*compute)(const EllipsoidFigure&,
                                                                                      std::int32_t)) {
    std::array<Constants, DATUM_COUNT> table{};
    for (const DatumRow& row : DATUMS)
        table[row.id] = compute(ELLIPSOIDS[row.ellipsoid], static_cast<std::int32_t>(row.id));
    return table;
}

// Datum_Shift between two datums 0..238, in degrees, with the constants of their rows computed at compile
// time.
void ShiftBetween(std::int32_t sourceDatum, std::int32_t targetDatum, double latLon[2]);

}  // namespace tessara

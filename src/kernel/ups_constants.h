// The constants of UPS for each ellipsoid, computed at compile time.
#pragma once

#include <cstdint>

#include "kernel/compile_time_math.h"
#include "kernel/datum_rows.h"
#include "kernel/ellipsoids.h"
#include "tessara/kernel/ups.h"

namespace tessara {

consteval UpsConstants ComputeUpsConstants(const EllipsoidFigure& figure) {
    const double a = figure.a;
    const double f = figure.Flattening();
    const double b = (1.0 - f) * a;
    const double e2 = (a * a - b * b) / (a * a);
    const bool isSphere = f == 0.0 || e2 < 0.0;
    UpsConstants c{};
    c.a = a;
    c.inverseFlattening = isSphere ? 0.0 : 1.0 / f;
    c.b = isSphere ? a : b;
    c.e2 = isSphere ? 0.0 : e2;
    using compile_time::Wide;
    const Wide e = compile_time::Sqrt(c.e2);
    c.e = static_cast<double>(e);
    // ((1 - e) / (1 + e))^(e/2) is exp(-e atanh e).
    c.poleRadius = static_cast<double>(Wide(2.0 * a) * compile_time::Exp(-e * compile_time::Atanh(e)) /
                                       compile_time::Sqrt(Wide(1.0) - e * e));

    const double d = c.e2;
    const double d2 = d * d;
    const double d3 = d2 * d;
    const double d4 = d2 * d2;
    c.s2 = d / 2.0 + 5.0 * d2 / 24.0 + d3 / 12.0 + 13.0 * d4 / 360.0;
    c.s4 = 7.0 * d2 / 48.0 + 29.0 * d3 / 240.0 + 811.0 * d4 / 11520.0;
    c.s6 = 7.0 * d3 / 120.0 + 81.0 * d4 / 1120.0;
    c.s8 = 4279.0 * d4 / 161280.0;
    return c;
}

inline constexpr auto UPS_CONSTANTS = ForEachEllipsoid<UpsConstants>(ComputeUpsConstants);

// Null for an id outside 0..238.
[[nodiscard]] inline const UpsConstants* UpsConstantsOf(std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    return row ? &UPS_CONSTANTS[row->ellipsoid] : nullptr;
}

}  // namespace tessara

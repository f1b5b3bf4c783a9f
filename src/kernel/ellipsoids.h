// The figures of the ellipsoids: constant data, and the only place where they stand. What a projection
// derives from them alone can be computed at compile time, one entry an ellipsoid.
#pragma once

#include <array>
#include <cstddef>

#include "tessara/kernel/datum.h"

namespace tessara {

inline constexpr double SPHERE = 0.0;

struct EllipsoidFigure {
    EllipsoidCode code;
    const char* name;
    double a;                  // semi-major axis, metres
    double inverseFlattening;  // SPHERE: none

    [[nodiscard]] constexpr bool IsDefined() const { return a > 0.0; }
    [[nodiscard]] constexpr double Flattening() const {
        return inverseFlattening == SPHERE ? 0.0 : 1.0 / inverseFlattening;
    }
    [[nodiscard]] constexpr double EccentricitySquared() const {
        const double f = Flattening();
        return 2.0 * f - f * f;
    }
};

// The unknown ellipsoid and the Malaysian Everest of 1969 have a number and no figures, as no datum uses
// them; the user-defined one has no name.
inline constexpr std::array<EllipsoidFigure, 26> ELLIPSOIDS{{
    {ELLIPSOID_UNKNOWN, "UNKNOWN", 0.0, 0.0},
    {ELLIPSOID_KUGEL, "KUGEL", 6371000.0, SPHERE},
    {ELLIPSOID_INTERNATIONAL, "INTERNATIONAL", 6378388.0, 297.0},
    {ELLIPSOID_BESSEL, "BESSEL", 6377397.155, 299.1528128},
    {ELLIPSOID_CLARKE, "CLARKE", 6378206.4, 294.9786982},
    {ELLIPSOID_WGS84, "WGS84", 6378137.0, 298.257223563},
    {ELLIPSOID_KRASSOVSKY, "KRASSOVSKY", 6378245.0, 298.3},
    {ELLIPSOID_AIRY_1830, "AIRY_1830", 6377563.396, 299.3249646},
    {ELLIPSOID_AUSTRALIAN, "AUSTRALIAN", 6378160.0, 298.25},
    {ELLIPSOID_BESSEL_NAMIBIA_1841, "BESSEL_NAMIBIA_1841", 6377483.865, 299.1528128},
    {ELLIPSOID_CLARKE_1880, "CLARKE_1880", 6378249.145, 293.465},
    {ELLIPSOID_EVEREST_BRUNEI, "EVEREST_BRUNEI", 6377298.556, 300.8017},
    {ELLIPSOID_EVEREST_INDIA_1830, "EVEREST_INDIA_1830", 6377276.345, 300.8017},
    {ELLIPSOID_EVEREST_INDIA_1956, "EVEREST_INDIA_1956", 6377301.243, 300.8017},
    {ELLIPSOID_EVEREST_PAKISTAN, "EVEREST_PAKISTAN", 6377309.613, 300.8017},
    {ELLIPSOID_EVEREST_MALAYSIA_1948, "EVEREST_MALAYSIA_1948", 6377304.063, 300.8017},
    {ELLIPSOID_EVEREST_MALAYSIA_1969, "EVEREST_MALAYSIA_1969", 0.0, 0.0},
    {ELLIPSOID_GRS_1980, "GRS_1980", 6378137.0, 298.257222101},
    {ELLIPSOID_HELMERT_1906, "HELMERT_1906", 6378200.0, 298.3},
    {ELLIPSOID_HOUGH_1960, "HOUGH_1960", 6378270.0, 297.0},
    {ELLIPSOID_INDONESIAN_1974, "INDONESIAN_1974", 6378160.0, 298.247},
    {ELLIPSOID_MOD_AIRY, "MOD_AIRY", 6377340.189, 299.3249646},
    {ELLIPSOID_MOD_FISCHER_1960, "MOD_FISCHER_1960", 6378155.0, 298.3},
    {ELLIPSOID_SOUTH_AMERICAN_1969, "SOUTH_AMERICAN_1969", 6378160.0, 298.25},
    {ELLIPSOID_WGS72, "WGS72", 6378135.0, 298.26},
    {ELLIPSOID_USER_DEFINED, nullptr, 6378137.0, 298.257223563},
}};

static_assert([] {
    for (std::size_t i = 0; i < ELLIPSOIDS.size(); ++i) {
        if (ELLIPSOIDS[i].code != i) return false;
    }
    return true;
}());

// compute(figure) for each ellipsoid, by its code; what has no figures stays zero.
template <class Constants>
consteval std::array<Constants, ELLIPSOIDS.size()> ForEachEllipsoid(
    Constants (*compute)(const EllipsoidFigure&)) {
    std::array<Constants, ELLIPSOIDS.size()> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (ELLIPSOIDS[i].IsDefined()) table[i] = compute(ELLIPSOIDS[i]);
    }
    return table;
}

}  // namespace tessara

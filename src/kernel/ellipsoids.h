// Constants that a projection derives from the figures of an ellipsoid alone, computed at compile time with
// one entry for each ellipsoid.
#pragma once

#include <array>
#include <cstddef>

#include "tessara/internal/datum_table.h"

namespace tessara {

using internal::EllipsoidFigure;
using internal::ELLIPSOIDS;
using internal::SPHERE;

// compute(figure) for each ellipsoid, indexed by its code; entries of codes without figures stay zero.
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

// Transverse Mercator for one row of a block, within a strip.
#pragma once

#include <cmath>

#include "columns/block.h"
#include "kernel/numeric.h"
#include "kernel/transverse_mercator_constants.h"
#include "kernel/transverse_mercator_core.h"
#include "tessara/kernel/constants.h"

namespace tessara::tm {

// The constants of a datum 0..238 as the loops keep them.
struct ForwardRow {
    double a;
    LatitudeSeries series;
    double c[5];

    explicit ForwardRow(std::int32_t datum) {
        const TmConstants& constants = *TmForwardConstants(datum);
        const Figure figure = FigureOf(constants);
        a = figure.a;
        series = CONFORMAL_SERIES[figure.ellipsoid];
        std::copy(std::begin(constants.seriesCoef), std::end(constants.seriesCoef), c);
    }
    ForwardRow() = default;

    // The plane of TM_Forward, before scale and false values; `dLon` in radians.
    [[nodiscard]] Plane PlaneOf(Block& block, std::size_t row, double dLon) const {
        const double latitude = block.latitude[row] * RADIANS_PER_DEGREE;
        block.Refuse(row, !IsInStrip(dLon, latitude));
        return Forward<Reach::Near>(dLon, LatitudeAsSeen(latitude), series, c);
    }
};

struct InverseRow {
    double a, e2;
    LatitudeSeries series;
    double c[5];

    explicit InverseRow(std::int32_t datum) {
        const TmConstants& constants = *TmInverseConstants(datum);
        const Figure figure = FigureOf(constants);
        a = figure.a;
        e2 = figure.e2;
        series = LATITUDE_SERIES[figure.ellipsoid];
        std::copy(std::begin(constants.seriesCoef), std::end(constants.seriesCoef), c);
    }
    InverseRow() = default;

    // 1 / (k a c0), by which metres become units of the plane.
    [[nodiscard]] double PerUnit(double k) const { return 1.0 / (k * a * c[0]); }

    // Radians.
    [[nodiscard]] Position PositionOf(Block& block, std::size_t row, const Plane& plane) const {
        const Position position = Inverse<Reach::Near>(plane, series, e2, c);
        block.Refuse(row, !position.isInReach);
        return position;
    }
};

// A position in degrees, put onto the limits that it lies next to.
inline void Snap(Block& block, std::size_t row, double latitude, double longitude, const Limits& limits) {
    block.latitude[row] = SnappedToEither(limits.south, limits.north, latitude, LIMIT_TOLERANCE_DEGREES);
    block.longitude[row] = SnappedToEither(limits.west, limits.east, longitude, LIMIT_TOLERANCE_DEGREES);
}

}  // namespace tessara::tm

#include "columns/origin_loops.h"

#include "columns/block_loop.h"
#include "columns/transverse_mercator_row.h"
#include "kernel/datum_rows.h"
#include "numerics/conditions.h"

namespace tessara {
namespace {

struct FromOrigin {
    tm::ForwardRow tm;
    TmParams params;
    double originNorth;
    Limits limits;

    void operator()(Block& block, std::size_t row) const {
        const double dLon = (block.longitude[row] - params.originLongitude) * RADIANS_PER_DEGREE;
        const Plane plane = tm.PlaneOf(block, row, dLon);
        const Plane grid = tm::FromOrigin({tm.a * plane.north, tm.a * plane.east}, params, originNorth);
        const double easting = SnappedToEither(limits.west, limits.east, grid.east, LIMIT_TOLERANCE_METRES);
        const double northing =
            SnappedToEither(limits.south, limits.north, grid.north, LIMIT_TOLERANCE_METRES);
        block.east[row] = easting;
        block.north[row] = northing;
        block.Refuse(row, !AllOf(easting >= limits.west, easting <= limits.east, northing >= limits.south,
                                 northing <= limits.north));
    }
};

struct ToOrigin {
    tm::InverseRow tm;
    TmParams params;
    double perUnit, originUnits;

    void operator()(Block& block, std::size_t row) const {
        const Plane plane{(block.north[row] - params.falseNorthing) * perUnit + originUnits,
                          (block.east[row] - params.falseEasting) * perUnit};
        const tm::Position position = tm.PositionOf(block, row, plane);
        block.latitude[row] = position.phi * DEGREES_PER_RADIAN;
        // A zero without a sign.
        block.longitude[row] = (position.lambda + 0.0) * DEGREES_PER_RADIAN + params.originLongitude;
    }
};

double OriginNorthOf(const grids::FixedGrid& grid, std::int32_t datum) {
    return grid.originNorthings[RowOf(datum)->ellipsoid];
}

}  // namespace

BlockStep OriginForward(const TmParams& params, double originNorth, const Limits& limits,
                        std::int32_t datum) {
    return StepOver(FromOrigin{tm::ForwardRow(datum), params, originNorth, limits});
}

BlockStep OriginInverse(const TmParams& params, double originNorth, std::int32_t datum) {
    const tm::InverseRow tm(datum);
    const double radius = tm.a * tm.c[0];
    return StepOver(ToOrigin{tm, params, 1.0 / (params.scale * radius), originNorth / radius});
}

BlockStep GridForward(const grids::FixedGrid& grid, std::int32_t datum) {
    return OriginForward(grid.projection, OriginNorthOf(grid, datum), grid.limits, datum);
}

BlockStep GridInverse(const grids::FixedGrid& grid, std::int32_t datum) {
    return OriginInverse(grid.projection, OriginNorthOf(grid, datum), datum);
}

}  // namespace tessara

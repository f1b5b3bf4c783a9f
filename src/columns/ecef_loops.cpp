#include "columns/ecef_loops.h"

#include <cmath>

#include "columns/block_loop.h"
#include "kernel/datum_rows.h"
#include "kernel/ecef_formulas.h"
#include "numerics/conditions.h"

namespace tessara {
namespace {

using ecef::Figure;
using ecef::Latitude;

struct ToSpace {
    Figure figure;

    void operator()(Block& block, std::size_t row) const {
        const double phi = block.latitude[row] * RADIANS_PER_DEGREE;
        const double lambda = block.longitude[row] * RADIANS_PER_DEGREE;
        const EcefPayload point = ecef::PointOf(figure, SinCosOrdinary(phi), SinCosOrdinary(lambda));
        block.east[row] = point.x;
        block.north[row] = point.y;
        block.up[row] = point.z;
        block.Refuse(row, !AllOf(std::fabs(phi) <= ORDINARY_ANGLE, std::fabs(lambda) <= ORDINARY_ANGLE));
    }
};

// Of Newton's steps the first two are done here, which is one more than points within a hundred metres of the
// ellipsoid need; whoever needs more is special.
struct FromSpace {
    Figure figure;

    void operator()(Block& block, std::size_t row) const {
        constexpr double steepest = 1e150;
        const double x = block.east[row];
        const double y = block.north[row];
        const double z = block.up[row];
        const double p = std::sqrt(x * x + y * y);
        const double tangent = ecef::FirstTangent(figure, p, z);
        const Latitude start = ecef::LatitudeOf(tangent);
        const double first = ecef::StepFrom(start, figure, p, z);
        const Latitude once = Turned(start, first);
        const double second = ecef::StepFrom(once, figure, p, z);
        const Latitude twice = Turned(once, second);
        const bool isOnce = !(first > ecef::LATITUDE_TOLERANCE);
        const Latitude found{isOnce ? once.angle : twice.angle,
                             {isOnce ? once.direction.sine : twice.direction.sine,
                              isOnce ? once.direction.cosine : twice.direction.cosine}};
        block.latitude[row] = found.angle * DEGREES_PER_RADIAN;
        block.longitude[row] = ecef::LongitudeOf(x, y) * DEGREES_PER_RADIAN;
        block.height[row] = ecef::HeightOf(found, figure, p);
        block.Refuse(row, !AllOf(p > 0.0, std::fabs(tangent) < steepest, IsSmall(first * first)));
        block.Refuse(row,
                     AllOf(!isOnce, !AllOf(second <= ecef::LATITUDE_TOLERANCE, IsSmall(second * second))));
    }

    static Latitude Turned(const Latitude& lat, double step) {
        return {lat.angle - step, Difference(lat.direction, SinCosBySeries(step))};
    }
};

Figure FigureOf(std::int32_t datum) {
    const DatumRow& row = *RowOf(datum);
    return {row.a, row.e2};
}

}  // namespace

BlockStep EcefForward(std::int32_t datum) {
    return StepOver(ToSpace{FigureOf(datum)});
}

BlockStep EcefInverse(std::int32_t datum) {
    return StepOver(FromSpace{FigureOf(datum)});
}

}  // namespace tessara

#include "columns/ups_loops.h"

#include <cmath>

#include "columns/block_loop.h"
#include "kernel/numeric.h"
#include "kernel/ups_constants.h"
#include "kernel/ups_formulas.h"
#include "numerics/arcs.h"
#include "numerics/conditions.h"

namespace tessara {
namespace {

using ups::AtEdge;
using ups::AXIS_TOLERANCE;
using ups::FALSE_ORIGIN;
using ups::Forward;
using ups::GridPoint;
using ups::LatitudeOf;
using ups::SCALE;

struct ToPolarGrid {
    double e2, poleRadius;

    void operator()(Block& block, std::size_t row) const {
        const double latitude = block.latitude[row];
        const double phi = std::fabs(latitude) * RADIANS_PER_DEGREE;
        const double lambda = block.longitude[row] * RADIANS_PER_DEGREE;
        const GridPoint point =
            Forward(SinCosOrdinary(phi), SinCosOrdinary(lambda), latitude < 0.0, e2, poleRadius);
        block.east[row] = point.easting;
        block.north[row] = point.northing;
        block.south[row] = latitude < 0.0 ? 1.0 : 0.0;
        block.Refuse(row, !AllOf(phi <= ORDINARY_ANGLE, std::fabs(lambda) <= ORDINARY_ANGLE));
    }
};

// A pole itself is special.
struct FromPolarGrid {
    UpsConstants c;

    void operator()(Block& block, std::size_t row) const {
        const double sign = block.south[row] != 0.0 ? 1.0 : -1.0;
        const double dx = SnapTo(0.0, block.east[row] - FALSE_ORIGIN, AXIS_TOLERANCE);
        const double dy = SnapTo(0.0, std::fabs(block.north[row]) - FALSE_ORIGIN, AXIS_TOLERANCE);
        const double square = dx * dx + dy * dy;
        const double t = std::sqrt(square) / (c.poleRadius * SCALE);
        const double latitude = LatitudeOf(AtanBySeries(t), DoubledOfTangentUpTo1(t), c);
        block.latitude[row] = AtEdge(-(sign * latitude));
        block.longitude[row] = Atan2Ordinary(dx, sign * dy) * DEGREES_PER_RADIAN;
        block.Refuse(row, !AllOf(square > 0.0, IsSmall(t * t)));
    }
};

}  // namespace

BlockStep UpsForward(std::int32_t datum) {
    const UpsConstants& c = *UpsConstantsOf(datum);
    return StepOver(ToPolarGrid{c.e2, c.poleRadius});
}

BlockStep UpsInverse(std::int32_t datum) {
    return StepOver(FromPolarGrid{*UpsConstantsOf(datum)});
}

}  // namespace tessara

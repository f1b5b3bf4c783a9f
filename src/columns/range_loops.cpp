#include "columns/range_loops.h"

#include <cmath>

#include "columns/block_loop.h"
#include "numerics/conditions.h"

namespace tessara {
namespace {

struct Within {
    Limits limits;

    void operator()(Block& block, std::size_t row) const {
        const double latitude = block.latitude[row], longitude = block.longitude[row];
        block.Refuse(row, !AllOf(longitude >= limits.west, longitude <= limits.east, latitude >= limits.south,
                                 latitude <= limits.north));
    }
};

struct WithinPolar {
    double nearest, furthest;

    void operator()(Block& block, std::size_t row) const {
        const double distance = std::fabs(block.latitude[row]);
        block.Refuse(row, !AllOf(distance >= nearest, distance <= furthest));
    }
};

}  // namespace

BlockStep PolarWithin(double nearest, double furthest) {
    return StepOver(WithinPolar{nearest, furthest});
}

BlockStep PositionWithin(const Limits& limits) {
    return StepOver(Within{limits});
}

}  // namespace tessara

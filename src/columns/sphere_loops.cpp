#include "columns/sphere_loops.h"

#include "columns/block_loop.h"
#include "kernel/datum_rows.h"
#include "kernel/dutch_formulas.h"
#include "kernel/numeric.h"
#include "kernel/swiss_formulas.h"
#include "numerics/conditions.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

// A limit itself is reached from beyond it, too, which is special.
void StoreWithin(const Limits& limits, double east, double north, bool isNear, Block& block,
                 std::size_t row) {
    block.east[row] = SnappedToEither(limits.west, limits.east, east, LIMIT_TOLERANCE_METRES);
    block.north[row] = SnappedToEither(limits.south, limits.north, north, LIMIT_TOLERANCE_METRES);
    block.Refuse(row, !AllOf(isNear, east >= limits.west, east <= limits.east, north >= limits.south,
                             north <= limits.north));
}

struct ToCh {
    void operator()(Block& block, std::size_t row) const {
        const swiss::GridPoint point = swiss::Forward<Reach::Near>(block.latitude[row], block.longitude[row]);
        StoreWithin(CH_LIMITS, point.easting, point.northing, point.isNear, block, row);
    }
};

struct FromCh {
    void operator()(Block& block, std::size_t row) const {
        const swiss::Position position = swiss::Inverse<Reach::Near>(block.east[row], block.north[row]);
        block.latitude[row] = position.latitude;
        block.longitude[row] = position.longitude;
        block.Refuse(row, !position.isNear);
    }
};

struct ToRd {
    dutch::Sphere sphere;
    double e2;

    void operator()(Block& block, std::size_t row) const {
        const dutch::GridPoint point =
            dutch::Forward<Reach::Near>(block.latitude[row], block.longitude[row], sphere, e2);
        StoreWithin(RD_LIMITS, point.easting, point.northing, point.isNear, block, row);
    }
};

struct FromRd {
    dutch::Sphere sphere;
    LatitudeSeries series;

    void operator()(Block& block, std::size_t row) const {
        const dutch::Position position =
            dutch::Inverse<Reach::Near>(block.east[row], block.north[row], sphere, series);
        block.latitude[row] = position.latitude;
        block.longitude[row] = position.longitude;
        block.Refuse(row, !position.isNear);
    }
};

}  // namespace

BlockStep ChForward() {
    return StepOver(ToCh{});
}

BlockStep ChInverse() {
    return StepOver(FromCh{});
}

BlockStep RdForward(std::int32_t datum) {
    const DatumRow& row = *RowOf(datum);
    return StepOver(ToRd{dutch::SPHERES[row.ellipsoid], row.e2});
}

BlockStep RdInverse(std::int32_t datum) {
    const std::uint32_t ellipsoid = RowOf(datum)->ellipsoid;
    return StepOver(FromRd{dutch::SPHERES[ellipsoid], LATITUDE_SERIES[ellipsoid]});
}

}  // namespace tessara

#include "columns/world_loops.h"

#include "columns/block_loop.h"
#include "kernel/datum_rows.h"
#include "kernel/lambert_formulas.h"
#include "kernel/van_der_grinten_formulas.h"

namespace tessara {
namespace {

struct ToCone {
    lambert::Cone cone;

    void operator()(Block& block, std::size_t row) const {
        const lambert::GridPoint point =
            lambert::Forward<Cases::Choose>(block.latitude[row], block.longitude[row], cone);
        block.east[row] = point.easting;
        block.north[row] = point.northing;
        block.Refuse(row, !point.isOrdinary);
    }
};

struct FromCone {
    lambert::Cone cone;
    LatitudeSeries series;

    void operator()(Block& block, std::size_t row) const {
        const lambert::Position position =
            lambert::Inverse<Cases::Choose>(block.east[row], block.north[row], cone, series);
        block.latitude[row] = position.latitude;
        block.longitude[row] = position.longitude;
        block.Refuse(row, !position.isOrdinary);
    }
};

struct Origin {
    double latitude, longitude;  // degrees
    double a;
};

struct ToCircle {
    Origin origin;

    void operator()(Block& block, std::size_t row) const {
        const vdg::Point point = vdg::Forward<Cases::Choose>(
            (block.latitude[row] - origin.latitude) * RADIANS_PER_DEGREE,
            (block.longitude[row] - origin.longitude) * RADIANS_PER_DEGREE, origin.a);
        block.east[row] = point.x;
        block.north[row] = point.y;
        block.Refuse(row, !point.isOrdinary);
    }
};

struct FromCircle {
    Origin origin;

    void operator()(Block& block, std::size_t row) const {
        const vdg::Offsets offsets = vdg::Inverse<Cases::Choose>(block.east[row], block.north[row], origin.a);
        block.latitude[row] = offsets.phi * DEGREES_PER_RADIAN + origin.latitude;
        block.longitude[row] = offsets.lambda * DEGREES_PER_RADIAN + origin.longitude;
        block.Refuse(row, !offsets.isOrdinary);
    }
};

Origin OriginOf(const VdgPayload& payload, std::int32_t datum) {
    return {payload.originLatitude, payload.originLongitude, RowOf(datum)->a};
}

}  // namespace

BlockStep ConeForward(const LambertCC& lcc) {
    return StepOver(ToCone{lambert::ConeOf(lcc)});
}

BlockStep ConeInverse(const LambertCC& lcc) {
    return StepOver(FromCone{lambert::ConeOf(lcc), LATITUDE_SERIES[RowOf(lcc.datum)->ellipsoid]});
}

BlockStep VdgForward(const VdgPayload& origin, std::int32_t datum) {
    return StepOver(ToCircle{OriginOf(origin, datum)});
}

BlockStep VdgInverse(const VdgPayload& origin, std::int32_t datum) {
    return StepOver(FromCircle{OriginOf(origin, datum)});
}

}  // namespace tessara

#include "systems/projection.h"

#include "kernel/lambert_cone.h"
#include "kernel/transverse_mercator_constants.h"
#include "systems/reading.h"

namespace tessara {
namespace {

LambertCC ConeOf(const LambertCCPayload& p, std::int32_t datum) {
    constexpr double scale = 1.0;
    LambertCC cone{};
    PrepareCone(datum, p.parallel1, p.parallel2, scale, p.falseEasting, p.falseNorthing, p.originLatitude,
                p.originLongitude, &cone);
    return cone;
}

}  // namespace

void PrepareOrigin(const tagKOORD& record, Projection* projection) {
    projection->originNorth =
        TmOriginNorthing(Load<TmPayload>(record).originLatitude, *TmForwardConstants(DatumOf(record)));
}

void PrepareCone(const tagKOORD& record, Projection* projection) {
    projection->cone = ConeOf(Load<LambertCCPayload>(record), DatumOf(record));
}

}  // namespace tessara

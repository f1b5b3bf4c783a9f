#include "systems/projection.h"

#include "kernel/lambert_cone.h"
#include "kernel/transverse_mercator_constants.h"
#include "systems/reading.h"

namespace tessara {
void PrepareOrigin(const tagKOORD& record, Projection* projection) {
    projection->originNorth =
        TmOriginNorthing(Load<TmPayload>(record).originLatitude, *TmForwardConstants(DatumOf(record)));
}

void PrepareCone(const tagKOORD& record, Projection* projection) {
    constexpr double scale = 1.0;
    const auto p = Load<LambertCCPayload>(record);
    PrepareCone(DatumOf(record), p.parallel1, p.parallel2, scale, p.falseEasting, p.falseNorthing,
                p.originLatitude, p.originLongitude, &projection->cone);
}

}  // namespace tessara

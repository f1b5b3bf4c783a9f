#include "tessara/kernel/fixed_grids.h"

#include "kernel/numeric.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

constexpr TmParams PO_MILITARY{-8.1331086111, 39.6682583333, 200000.0, 300000.0, 1.0};
constexpr TmParams LUREF{6.16666666667, 49.8333333333, 80000.0, 100000.0, 1.0};

KoordStatus FromGeodetic(const TmParams& grid, const Limits& limits, const double latLon[2],
                         GridPayload* payload, const TmConstants* forward) {
    double easting;
    double northing;
    const KoordStatus status = TM_ForwardParam(latLon, &grid, &easting, &northing, forward);
    payload->easting = SnapToEither(limits.west, limits.east, easting, LIMIT_TOLERANCE_METRES);
    payload->northing = SnapToEither(limits.south, limits.north, northing, LIMIT_TOLERANCE_METRES);
    return status;
}

}  // namespace

KoordStatus POMilitary_FromGeodetic(const double latLon[2], GridPayload* payload,
                                    const TmConstants* forward) {
    return FromGeodetic(PO_MILITARY, PO_MILITARY_LIMITS, latLon, payload, forward);
}

KoordStatus POMilitary_ToGeodetic(const GridPayload* payload, double latLon[2], const TmConstants* forward,
                                  const TmConstants* inverse) {
    return TM_InverseParam(payload->easting, payload->northing, &PO_MILITARY, latLon, forward, inverse);
}

KoordStatus LUREF_FromGeodetic(const double latLon[2], GridPayload* payload, const TmConstants* forward) {
    return FromGeodetic(LUREF, LUREF_LIMITS, latLon, payload, forward);
}

KoordStatus LUREF_ToGeodetic(const GridPayload* payload, double latLon[2], const TmConstants* forward,
                             const TmConstants* inverse) {
    return TM_InverseParam(payload->easting, payload->northing, &LUREF, latLon, forward, inverse);
}

}  // namespace tessara

#include "tessara/kernel/austrian_grids.h"

#include <cmath>
#include "kernel/austrian_constants.h"
#include "kernel/grid_factors.h"
#include "kernel/numeric.h"
#include "kernel/transverse_mercator_constants.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

using austria::AustrianGrid;
using austria::BMN;
using austria::FALSE_EASTINGS;
using austria::FALSE_NORTHING;
using austria::FERRO;
using austria::GKAT;
using austria::NaturalIndex;
using austria::OEM;

// The index of one of the three meridians, or -1.
int MeridianIndex(std::int32_t meridian) {
    for (int i = 0; i < 3; ++i) {
        if (AUSTRIAN_MERIDIANS[i] == meridian) return i;
    }
    return -1;
}

KoordStatus FromGeodetic(const AustrianGrid& grid, const double latLon[2], BmnPayload* payload,
                         const TmConstants* forward) {
    int i = MeridianIndex(payload->wantedMeridian);
    if (i < 0) i = MeridianIndex(BMN_NaturalMeridian(latLon[1]));
    const double dLon = (latLon[1] + FERRO - AUSTRIAN_MERIDIANS[i]) * RADIANS_PER_DEGREE;
    double easting;
    double northing;
    TM_Forward(dLon, latLon[0] * RADIANS_PER_DEGREE, 1.0, FALSE_EASTINGS[i], FALSE_NORTHING, &easting,
               &northing, forward);
    payload->meridian = AUSTRIAN_MERIDIANS[i];
    payload->easting = easting + grid.eastShifts[i];
    payload->northing = northing + grid.northShift;
    return KOORD_OK;
}

KoordStatus ToGeodetic(const AustrianGrid& grid, const BmnPayload* payload, double latLon[2],
                       const TmConstants* inverse) {
    latLon[0] = 0.0;
    latLon[1] = 0.0;
    const int i = MeridianIndex(payload->meridian);
    if (i < 0) return KOORD_ERR_MERIDIAN;
    double lon;
    double lat;
    TM_Inverse(payload->easting - grid.eastShifts[i], payload->northing - grid.northShift, 1.0,
               FALSE_EASTINGS[i], FALSE_NORTHING, AUSTRIAN_MERIDIANS[i], &lon, &lat, inverse);
    lon -= FERRO;
    const Limits& limits = AUSTRIAN_LIMITS;
    latLon[0] = SnapToEither(limits.south, limits.north, lat, LIMIT_TOLERANCE_DEGREES);
    latLon[1] = SnapToEither(limits.west, limits.east, lon, LIMIT_TOLERANCE_DEGREES);
    return KOORD_OK;
}

}  // namespace

std::int32_t BMN_NaturalMeridian(double lon) {
    return AUSTRIAN_MERIDIANS[NaturalIndex(lon + FERRO)];
}

KoordStatus BMN_FromGeodetic(const double latLon[2], BmnPayload* payload, const TmConstants* forward) {
    return FromGeodetic(BMN, latLon, payload, forward);
}

KoordStatus BMN_ToGeodetic(const BmnPayload* payload, double latLon[2], const TmConstants* inverse) {
    return ToGeodetic(BMN, payload, latLon, inverse);
}

KoordStatus OEM_FromGeodetic(const double latLon[2], BmnPayload* payload, const TmConstants* forward) {
    return FromGeodetic(OEM, latLon, payload, forward);
}

KoordStatus OEM_ToGeodetic(const BmnPayload* payload, double latLon[2], const TmConstants* inverse) {
    return ToGeodetic(OEM, payload, latLon, inverse);
}

KoordStatus GKAT_FromGeodetic(const double latLon[2], BmnPayload* payload, const TmConstants* forward) {
    return FromGeodetic(GKAT, latLon, payload, forward);
}

KoordStatus GKAT_ToGeodetic(const BmnPayload* payload, double latLon[2], const TmConstants* inverse) {
    const bool isNearTheThree =
        payload->meridian > AUSTRIAN_MERIDIANS[0] - 3 && payload->meridian < AUSTRIAN_MERIDIANS[2] + 3;
    if (!isNearTheThree) return KOORD_ERR_MERIDIAN;
    return ToGeodetic(GKAT, payload, latLon, inverse);
}

KoordStatus BMN_Factors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    const int i = MeridianIndex(Load<BmnPayload>(record).meridian);
    if (i < 0) return KOORD_ERR_MERIDIAN;
    TM_Factors(latLon, AUSTRIAN_MERIDIANS[i] - FERRO, 1.0,
               *TmForwardConstants(static_cast<std::int32_t>(record.datum)), factors);
    return KOORD_OK;
}

}  // namespace tessara

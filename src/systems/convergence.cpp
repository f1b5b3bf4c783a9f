#include "tessara/kernel/convergence.h"

#include <cmath>

#include "kernel/datum_rows.h"
#include "systems/reading.h"
#include "systems/system_row.h"

namespace tessara {

bool Grid_HasFactors(std::int32_t type) {
    return SystemOf(type).factors != nullptr;
}

KoordStatus Grid_Factors(const tagKOORD* record, const double* latLon, GridFactors* factors) {
    if (record == nullptr || factors == nullptr) return KOORD_ERR_GENERAL;
    if (RowOf(DatumOf(*record)) == nullptr) return KOORD_ERR_DATUM;
    const SystemRow& row = SystemOf(*record);
    if (row.factors == nullptr) return KOORD_ERR_TYPE;

    double position[3] = {};
    if (latLon == nullptr) {
        Projection projection;
        PrepareProjection(*record, &projection);
        const KoordStatus status = row.read(*record, projection, position);
        if (status != KOORD_OK) return status;
        latLon = position;
    }
    GridFactors found;
    const KoordStatus status = row.factors(*record, latLon, &found);
    if (status != KOORD_OK) return status;
    if (!std::isfinite(found.convergence) || !std::isfinite(found.scale)) return KOORD_ERR_GENERAL;
    *factors = found;
    return KOORD_OK;
}

}  // namespace tessara

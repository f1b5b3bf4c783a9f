#include "systems/free_projections.h"

#include "kernel/datum_rows.h"
#include "kernel/ecef_formulas.h"
#include "kernel/grid_factors.h"
#include "kernel/transverse_mercator_constants.h"
#include "systems/reading.h"
#include "tessara/kernel/ecef.h"
#include "tessara/kernel/van_der_grinten.h"

namespace tessara {

TmParams ParamsOf(const TmPayload& p) {
    return {p.originLongitude, p.originLatitude, p.falseEasting, p.falseNorthing, p.scale};
}

KoordStatus RefuseToRead(const tagKOORD& /*source*/, const Projection& /*projection*/, double* /*position*/) {
    return KOORD_ERR_TYPE;
}

KoordStatus RefuseToWrite(const double* /*position*/, const Projection& /*projection*/,
                          tagKOORD* /*target*/) {
    return KOORD_ERR_TYPE;
}

KoordStatus VDG_ReadPayload(const VdgPayload* payload, double* latLon, std::int32_t datum) {
    return VDG_ToGeodetic(payload, datum, latLon);
}

KoordStatus ECEF_Read(const tagKOORD& source, const Projection& /*projection*/, double* position) {
    tagKOORD work = MakeKoord(DatumOf(source), KOORD_GEODEZ);
    const KoordStatus status = ECEF_ToGeodetic(&source, &work);
    const auto payload = Load<GeodezPayload>(work);
    GEODEZ_ToGeodetic(&payload, position);
    return status;
}

KoordStatus ECEF_Write(const double* position, const Projection& /*projection*/, tagKOORD* target) {
    ecef::Write(position[0], position[1], *RowOf(DatumOf(*target)), target);
    return KOORD_OK;
}

KoordStatus TM_Read(const tagKOORD& source, const Projection& projection, double* position) {
    const auto p = Load<TmPayload>(source);
    TmInverseFromOrigin(p.easting, p.northing, ParamsOf(p), projection.originNorth, position,
                        *TmInverseConstants(DatumOf(source)));
    return KOORD_OK;
}

KoordStatus TM_Write(const double* position, const Projection& projection, tagKOORD* target) {
    auto* p = PayloadIn<TmPayload>(target);
    TmForwardFromOrigin(position, ParamsOf(*p), projection.originNorth, &p->easting, &p->northing,
                        *TmForwardConstants(DatumOf(*target)));
    return KOORD_OK;
}

KoordStatus LAMBERTCC_Read(const tagKOORD& source, const Projection& projection, double* position) {
    const auto p = Load<LambertCCPayload>(source);
    LambertCC_Inverse(p.easting, p.northing, position, &projection.cone);
    return KOORD_OK;
}

KoordStatus LAMBERTCC_Write(const double* position, const Projection& projection, tagKOORD* target) {
    auto* p = PayloadIn<LambertCCPayload>(target);
    LambertCC_Forward(position, &p->easting, &p->northing, &projection.cone);
    return KOORD_OK;
}

KoordStatus TM_RecordFactors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    const auto p = Load<TmPayload>(record);
    TM_Factors(latLon, p.originLongitude, p.scale, *TmForwardConstants(DatumOf(record)), factors);
    return KOORD_OK;
}

KoordStatus LAMBERTCC_RecordFactors(const tagKOORD& record, const double* latLon, GridFactors* factors) {
    Projection projection;
    PrepareCone(record, &projection);
    LambertCC_Factors(latLon, projection.cone, factors);
    return KOORD_OK;
}

}  // namespace tessara

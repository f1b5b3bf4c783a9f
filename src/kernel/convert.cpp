#include "tessara/kernel/convert.h"

#include "kernel/datum_rows.h"
#include "kernel/transverse_mercator_constants.h"
#include "tessara/kernel/austrian_grids.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/dutch_grid.h"
#include "tessara/kernel/ecef.h"
#include "tessara/kernel/fixed_grids.h"
#include "tessara/kernel/georef.h"
#include "tessara/kernel/lambert.h"
#include "tessara/kernel/lettered_grids.h"
#include "tessara/kernel/range_checks.h"
#include "tessara/kernel/swiss_grid.h"
#include "tessara/kernel/transverse_mercator.h"
#include "tessara/kernel/ups.h"
#include "tessara/kernel/utmref.h"
#include "tessara/kernel/van_der_grinten.h"
#include "tessara/kernel/zone_systems.h"

namespace tessara {
namespace {

std::int32_t DatumOf(const tagKOORD& record) {
    return static_cast<std::int32_t>(record.datum);
}

// Read and Write run one form's conversion. What a conversion takes besides the position and the payload -
// nothing, the datum, constants for one or both directions - is told by its signature alone.

template <class Payload>
KoordStatus Read(const tagKOORD& source, double* position,
                 KoordStatus (*toGeodetic)(const Payload*, double*, const TmConstants*)) {
    const auto payload = Load<Payload>(source);
    return toGeodetic(&payload, position, TmInverseConstants(DatumOf(source)));
}

template <class Payload>
KoordStatus Read(const tagKOORD& source, double* position,
                 KoordStatus (*toGeodetic)(const Payload*, double*, const TmConstants*, const TmConstants*)) {
    const auto payload = Load<Payload>(source);
    return toGeodetic(&payload, position, TmForwardConstants(DatumOf(source)),
                      TmInverseConstants(DatumOf(source)));
}

template <class Payload>
KoordStatus Read(const tagKOORD& source, double* position,
                 KoordStatus (*toGeodetic)(const Payload*, double*, std::int32_t)) {
    const auto payload = Load<Payload>(source);
    return toGeodetic(&payload, position, DatumOf(source));
}

template <class Payload>
KoordStatus Read(const tagKOORD& source, double* position,
                 void (*toGeodetic)(const Payload*, double*, std::int32_t)) {
    const auto payload = Load<Payload>(source);
    toGeodetic(&payload, position, DatumOf(source));
    return KOORD_OK;
}

template <class Payload>
KoordStatus Read(const tagKOORD& source, double* position,
                 KoordStatus (*toGeodetic)(const Payload*, double*)) {
    const auto payload = Load<Payload>(source);
    return toGeodetic(&payload, position);
}

template <class Payload>
KoordStatus Read(const tagKOORD& source, double* position, void (*toGeodetic)(const Payload*, double*)) {
    const auto payload = Load<Payload>(source);
    toGeodetic(&payload, position);
    return KOORD_OK;
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target,
                  KoordStatus (*fromGeodetic)(const double*, Payload*, const TmConstants*)) {
    auto payload = Load<Payload>(*target);
    const KoordStatus status = fromGeodetic(position, &payload, TmForwardConstants(DatumOf(*target)));
    Store(*target, payload);
    return status;
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target,
                  KoordStatus (*fromGeodetic)(const double*, Payload*, std::int32_t)) {
    auto payload = Load<Payload>(*target);
    const KoordStatus status = fromGeodetic(position, &payload, DatumOf(*target));
    Store(*target, payload);
    return status;
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target,
                  void (*fromGeodetic)(const double*, Payload*, std::int32_t)) {
    auto payload = Load<Payload>(*target);
    fromGeodetic(position, &payload, DatumOf(*target));
    Store(*target, payload);
    return KOORD_OK;
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target,
                  KoordStatus (*fromGeodetic)(const double*, Payload*)) {
    auto payload = Load<Payload>(*target);
    const KoordStatus status = fromGeodetic(position, &payload);
    Store(*target, payload);
    return status;
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target, void (*fromGeodetic)(const double*, Payload*)) {
    auto payload = Load<Payload>(*target);
    fromGeodetic(position, &payload);
    Store(*target, payload);
    return KOORD_OK;
}

// The forms whose functions have another shape.

void GEODEZ_ToGeodetic(const GeodezPayload* payload, double* position) {
    position[0] = payload->latitude;
    position[1] = payload->longitude;
    position[2] = payload->height;
}

void GEODEZ_FromGeodetic(const double* position, GeodezPayload* payload) {
    *payload = {position[0], position[1], position[2]};
}

KoordStatus ECEF_Read(const tagKOORD& source, double* position) {
    tagKOORD work = MakeKoord(DatumOf(source), KOORD_GEODEZ);
    const KoordStatus status = ECEF_ToGeodetic(&source, &work);
    const auto payload = Load<GeodezPayload>(work);
    GEODEZ_ToGeodetic(&payload, position);
    return status;
}

KoordStatus ECEF_Write(const double* position, tagKOORD* target) {
    tagKOORD work = MakeKoord(DatumOf(*target), KOORD_GEODEZ);
    Store(work, GeodezPayload{position[0], position[1], position[2]});
    return ECEF_FromGeodetic(&work, target);
}

TmParams ParamsOf(const TmPayload& p) {
    return {p.originLongitude, p.originLatitude, p.falseEasting, p.falseNorthing, p.scale};
}

KoordStatus TM_ToGeodetic(const TmPayload* payload, double* latLon, const TmConstants* forward,
                          const TmConstants* inverse) {
    const TmParams params = ParamsOf(*payload);
    return TM_InverseParam(payload->easting, payload->northing, &params, latLon, forward, inverse);
}

KoordStatus TM_FromGeodetic(const double* latLon, TmPayload* payload, const TmConstants* forward) {
    const TmParams params = ParamsOf(*payload);
    return TM_ForwardParam(latLon, &params, &payload->easting, &payload->northing, forward);
}

KoordStatus VDG_Read(const VdgPayload* payload, double* latLon, std::int32_t datum) {
    return VDG_ToGeodetic(payload, datum, latLon);
}

LambertCC ConeOf(const LambertCCPayload& p, std::int32_t datum) {
    constexpr double scale = 1.0;
    LambertCC cone{};
    LambertCC_Init(datum, p.parallel1, p.parallel2, scale, p.falseEasting, p.falseNorthing, p.originLatitude,
                   p.originLongitude, &cone);
    return cone;
}

void LAMBERTCC_ToGeodetic(const LambertCCPayload* payload, double* latLon, std::int32_t datum) {
    const LambertCC cone = ConeOf(*payload, datum);
    LambertCC_Inverse(payload->easting, payload->northing, latLon, &cone);
}

void LAMBERTCC_FromGeodetic(const double* latLon, LambertCCPayload* payload, std::int32_t datum) {
    const LambertCC cone = ConeOf(*payload, datum);
    LambertCC_Forward(latLon, &payload->easting, &payload->northing, &cone);
}

// The first phase: a record to latitude, longitude and height on its own datum. `position` comes in as zeros.
KoordStatus ReadPosition(const tagKOORD& source, double* position) {
    switch (source.type) {
        case KOORD_UTM:
            return Read(source, position, UTM_ToGeodetic);
        case KOORD_UTMREF:
            return Read(source, position, UTMREF_ToGeodetic);
        case KOORD_GEODEZ:
            return Read(source, position, GEODEZ_ToGeodetic);
        case KOORD_GEOGRAD:
            return Read(source, position, GEOGRAD_ToGeodetic);
        case KOORD_GEOREF:
            return Read(source, position, GEOREF_ToGeodetic);
        case KOORD_GK:
            return Read(source, position, GK_ToGeodetic);
        case KOORD_BMN:
            return Read(source, position, BMN_ToGeodetic);
        case KOORD_OEM:
            return Read(source, position, OEM_ToGeodetic);
        case KOORD_CH:
            return Read(source, position, CH_ToGeodetic);
        case KOORD_ECEF:
            return ECEF_Read(source, position);
        case KOORD_GEODEZMIN:
            return Read(source, position, GEODEZMIN_ToGeodetic);
        case KOORD_GK6:
            return Read(source, position, GK6_ToGeodetic);
        case KOORD_GKAT:
            return Read(source, position, GKAT_ToGeodetic);
        case KOORD_UPS:
            return Read(source, position, UPS_ToGeodetic);
        case KOORD_PO_MILITARY:
            return Read(source, position, POMilitary_ToGeodetic);
        case KOORD_TM:
            return Read(source, position, TM_ToGeodetic);
        case KOORD_VDG:
            return Read(source, position, VDG_Read);
        case KOORD_BNG:
            return Read(source, position, BNG_ToGeodetic);
        case KOORD_ING:
            return Read(source, position, ING_ToGeodetic);
        case KOORD_RD:
            return Read(source, position, RD_ToGeodetic);
        case KOORD_LUREF:
            return Read(source, position, LUREF_ToGeodetic);
        case KOORD_LAMBERTCC:
            return Read(source, position, LAMBERTCC_ToGeodetic);
        default:
            return KOORD_ERR_TYPE;
    }
}

// The last phase: a position on the target's datum to the target's form.
KoordStatus WritePosition(const double* position, tagKOORD* target) {
    switch (target->type) {
        case KOORD_UTM:
            return Write(position, target, UTM_FromGeodetic);
        case KOORD_UTMREF:
            return Write(position, target, UTMREF_FromGeodetic);
        case KOORD_GEODEZ:
            return Write(position, target, GEODEZ_FromGeodetic);
        case KOORD_GEOGRAD:
            return Write(position, target, GEOGRAD_FromGeodetic);
        case KOORD_GEOREF:
            return Write(position, target, GEOREF_FromGeodetic);
        case KOORD_GK:
            return Write(position, target, GK_FromGeodetic);
        case KOORD_BMN:
            return Write(position, target, BMN_FromGeodetic);
        case KOORD_OEM:
            return Write(position, target, OEM_FromGeodetic);
        case KOORD_CH:
            return Write(position, target, CH_FromGeodetic);
        case KOORD_ECEF:
            return ECEF_Write(position, target);
        case KOORD_GEODEZMIN:
            return Write(position, target, GEODEZMIN_FromGeodetic);
        case KOORD_GK6:
            return Write(position, target, GK6_FromGeodetic);
        case KOORD_GKAT:
            return Write(position, target, GKAT_FromGeodetic);
        case KOORD_UPS:
            return Write(position, target, UPS_FromGeodetic);
        case KOORD_PO_MILITARY:
            return Write(position, target, POMilitary_FromGeodetic);
        case KOORD_TM:
            return Write(position, target, TM_FromGeodetic);
        case KOORD_VDG:
            return Write(position, target, VDG_FromGeodetic);
        case KOORD_BNG:
            return Write(position, target, BNG_FromGeodetic);
        case KOORD_ING:
            return Write(position, target, ING_FromGeodetic);
        case KOORD_RD:
            return Write(position, target, RD_FromGeodetic);
        case KOORD_LUREF:
            return Write(position, target, LUREF_FromGeodetic);
        case KOORD_LAMBERTCC:
            return Write(position, target, LAMBERTCC_FromGeodetic);
        default:
            return KOORD_ERR_TYPE;
    }
}

KoordStatus ShiftPosition(std::int32_t sourceDatum, std::int32_t targetDatum, double* position) {
    if (sourceDatum == targetDatum) return KOORD_OK;
    HubParams toHub;
    HubParams fromHub;
    Datum_LoadToHub(sourceDatum, &toHub);
    Datum_LoadFromHub(targetDatum, &fromHub);
    return Datum_Shift(position, position, &toHub, &fromHub, sourceDatum, targetDatum);
}

}  // namespace

KoordStatus KoordConvert(const tagKOORD* source, tagKOORD* target) {
    return KoordConvertEx(source, target, 1);
}

KoordStatus KoordConvertEx(const tagKOORD* source, tagKOORD* target, std::int32_t checkRange) {
    if (source == nullptr || target == nullptr) return KOORD_ERR_GENERAL;
    if (RowOf(DatumOf(*source)) == nullptr || RowOf(DatumOf(*target)) == nullptr) {
        return KOORD_ERR_DATUM;
    }

    double position[3] = {};
    KoordStatus status = ReadPosition(*source, position);
    if (status != KOORD_OK) return status;
    status = ShiftPosition(DatumOf(*source), DatumOf(*target), position);
    if (status != KOORD_OK) return status;

    std::int32_t detail = KOORD_OK;
    if (checkRange == 1 && target->type != KOORD_GEODEZ) {
        const auto type = static_cast<std::int32_t>(target->type);
        if (Range_CheckGeodetic(position, type, &detail) != KOORD_OK) return detail;
    }
    status = WritePosition(position, target);
    if (detail == KOORD_CHECK_AFTER && Range_CheckRecord(target, &detail) != KOORD_OK) return detail;
    return status;
}

}  // namespace tessara

#include "tessara/kernel/convert.h"

#include <cstddef>
#include <cstring>
#include <new>

#include "kernel/datum_rows.h"
#include "kernel/datum_shift.h"
#include "kernel/transverse_mercator_constants.h"
#include "tessara/kernel/austrian_grids.h"
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

// The payload as an object in the record itself. A local copy would be written field by field and read back
// in longer pieces, which a processor can't do before the fields have reached memory.
template <class Payload>
Payload* PayloadIn(tagKOORD* record) {
    return ::new (static_cast<void*>(record->payload)) Payload(Load<Payload>(*record));
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
    return fromGeodetic(position, PayloadIn<Payload>(target), TmForwardConstants(DatumOf(*target)));
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target,
                  KoordStatus (*fromGeodetic)(const double*, Payload*, std::int32_t)) {
    return fromGeodetic(position, PayloadIn<Payload>(target), DatumOf(*target));
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target,
                  void (*fromGeodetic)(const double*, Payload*, std::int32_t)) {
    fromGeodetic(position, PayloadIn<Payload>(target), DatumOf(*target));
    return KOORD_OK;
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target,
                  KoordStatus (*fromGeodetic)(const double*, Payload*)) {
    return fromGeodetic(position, PayloadIn<Payload>(target));
}

template <class Payload>
KoordStatus Write(const double* position, tagKOORD* target, void (*fromGeodetic)(const double*, Payload*)) {
    fromGeodetic(position, PayloadIn<Payload>(target));
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

// What a record's datum, type and parameters determine before any position is known, where it takes
// computing: everything else stands in tables. Only what the type needs is set.
struct Projection {
    double originNorth;  // TM, metres
    LambertCC cone;      // LAMBERTCC
};

// The parameters that a projection is computed from are the first bytes of the payload.
std::size_t ParameterBytes(std::uint32_t type) {
    if (type == KOORD_TM) return offsetof(TmPayload, easting);
    return type == KOORD_LAMBERTCC ? offsetof(LambertCCPayload, easting) : 0;
}

inline void PrepareProjection(const tagKOORD& record, Projection* projection) {
    if (record.type == KOORD_TM) {
        projection->originNorth =
            TmOriginNorthing(Load<TmPayload>(record).originLatitude, *TmForwardConstants(DatumOf(record)));
    } else if (record.type == KOORD_LAMBERTCC) {
        projection->cone = ConeOf(Load<LambertCCPayload>(record), DatumOf(record));
    }
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

// The first phase: a record to latitude, longitude and height on its own datum. `position` comes in as zeros.
KoordStatus ReadPosition(const tagKOORD& source, const Projection& projection, double* position) {
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
            return TM_Read(source, projection, position);
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
            return LAMBERTCC_Read(source, projection, position);
        default:
            return KOORD_ERR_TYPE;
    }
}

// The last phase: a position on the target's datum to the target's form.
KoordStatus WritePosition(const double* position, const Projection& projection, tagKOORD* target) {
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
            return TM_Write(position, projection, target);
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
            return LAMBERTCC_Write(position, projection, target);
        default:
            return KOORD_ERR_TYPE;
    }
}

// Whether a record of the type is in range whenever it could be written: the lettered grids refuse what lies
// outside themselves, and the other two have no range.
bool IsInRangeOnceWritten(std::uint32_t type) {
    return type == KOORD_BNG || type == KOORD_ING || type == KOORD_ECEF || type == KOORD_VDG;
}

// A conversion between two projections on datums of the table, prepared for any number of positions.
class Conversion {
  public:
    void Prepare(const tagKOORD& source, const tagKOORD& target) {
        PrepareProjection(source, &source_);
        PrepareProjection(target, &target_);
    }

    KoordStatus Convert(const tagKOORD& source, tagKOORD* target, std::int32_t checkRange) const {
        double position[3] = {};
        KoordStatus status = ReadPosition(source, source_, position);
        if (status != KOORD_OK) return status;
        if (source.datum != target->datum) ShiftBetween(DatumOf(source), DatumOf(*target), position);

        std::int32_t detail = KOORD_OK;
        if (checkRange == 1 && target->type != KOORD_GEODEZ) {
            const auto type = static_cast<std::int32_t>(target->type);
            if (Range_CheckGeodetic(position, type, &detail) != KOORD_OK) return detail;
        }
        status = WritePosition(position, target_, target);
        if (detail != KOORD_CHECK_AFTER || (status == KOORD_OK && IsInRangeOnceWritten(target->type))) {
            return status;
        }
        return Range_CheckRecord(target, &detail) == KOORD_OK ? status : detail;
    }

  private:
    Projection source_, target_;
};

bool HaveDatums(const tagKOORD& source, const tagKOORD& target) {
    return RowOf(DatumOf(source)) != nullptr && RowOf(DatumOf(target)) != nullptr;
}

// A conversion that is prepared anew only where another projection begins.
class RunOfConversions {
  public:
    KoordStatus Convert(const tagKOORD& source, tagKOORD* target, std::int32_t checkRange) {
        if (!isPrepared_ || !HaveSameProjection(source, firstSource_) ||
            !HaveSameProjection(*target, firstTarget_)) {
            isPrepared_ = HaveDatums(source, *target);
            if (!isPrepared_) return KOORD_ERR_DATUM;
            conversion_.Prepare(source, *target);
            firstSource_ = source;
            firstTarget_ = *target;
        }
        return conversion_.Convert(source, target, checkRange);
    }

  private:
    static bool HaveSameProjection(const tagKOORD& record, const tagKOORD& other) {
        return record.datum == other.datum && record.type == other.type &&
               std::memcmp(record.payload, other.payload, ParameterBytes(record.type)) == 0;
    }

    bool isPrepared_ = false;
    Conversion conversion_;
    tagKOORD firstSource_, firstTarget_;  // copies: the caller's may overlap
};

}  // namespace

KoordStatus KoordConvert(const tagKOORD* source, tagKOORD* target) {
    return KoordConvertEx(source, target, 1);
}

KoordStatus KoordConvertEx(const tagKOORD* source, tagKOORD* target, std::int32_t checkRange) {
    if (source == nullptr || target == nullptr) return KOORD_ERR_GENERAL;
    if (!HaveDatums(*source, *target)) return KOORD_ERR_DATUM;
    Conversion conversion;
    conversion.Prepare(*source, *target);
    return conversion.Convert(*source, target, checkRange);
}

KoordStatus KoordConvertMany(const tagKOORD* source, tagKOORD* target, std::size_t count,
                             std::int32_t checkRange, KoordStatus* status) {
    const bool hasRecords = source != nullptr && target != nullptr;
    KoordStatus first = KOORD_OK;
    RunOfConversions run;
    for (std::size_t i = 0; i < count; ++i) {
        const KoordStatus result =
            hasRecords ? run.Convert(source[i], &target[i], checkRange) : KOORD_ERR_GENERAL;
        if (status != nullptr) status[i] = result;
        if (first == KOORD_OK) first = result;
    }
    return first;
}

}  // namespace tessara

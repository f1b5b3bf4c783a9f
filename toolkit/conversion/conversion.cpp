#include "conversion/conversion.h"

#include <utility>

#include "conversion/fields.h"
#include "tessara/kernel/convert.h"

namespace tessara::toolkit {
namespace {

tagKOORD DegreesRecord(const Position& position, std::int32_t datum) {
    tagKOORD record = MakeKoord(datum, KOORD_GEODEZ);
    Store(record, GeodezPayload{position.latitude, position.longitude, position.height.value_or(0.0)});
    return record;
}

}  // namespace

Conversion::Conversion(std::int32_t from, Reference to)
    : from_(from), to_(std::move(to)), target_(DefaultRecord(to_)) {}

KoordStatus Conversion::Convert(const Position& position, CKoord* result) const {
    return Convert(CKoord(DegreesRecord(position, from_)), result);
}

KoordStatus Conversion::Convert(const CKoord& source, CKoord* result) const {
    const bool isThere =
        source.type == target_.type && source.datum == target_.datum && to_.parameters.empty();
    if (isThere) {
        *result = source;
        return KOORD_OK;
    }
    CKoord target = target_;
    const KoordStatus status = KoordConvert(&source, &target);
    if (status != KOORD_OK) return status;
    target.SetHeight(source.GetHeight());
    if (!IsFinite(target)) return KOORD_ERR_OUTSIDE;
    *result = target;
    return KOORD_OK;
}

}  // namespace tessara::toolkit

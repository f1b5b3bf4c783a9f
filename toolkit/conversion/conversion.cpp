#include "conversion/conversion.h"

#include "conversion/coords.h"

namespace tessara::toolkit {
namespace {

tagKOORD DegreesRecord(const Position& position, std::int32_t datum) {
    tagKOORD record = MakeKoord(datum, KOORD_GEODEZ);
    Store(record, GeodezPayload{position.latitude, position.longitude, position.height.value_or(0.0)});
    return record;
}

}  // namespace

Conversion::Conversion(std::int32_t from, Reference to)
    : from_(from), to_(to), reference_(MakeReference(to)) {}

std::optional<CKoord> Conversion::Convert(const Position& position) const {
    const IRef<ICoord> coord = CoordOf(DegreesRecord(position, from_));
    if (!coord->SetReference(reference_.Get())) return std::nullopt;
    return KoordOf(coord.Get());
}

}  // namespace tessara::toolkit

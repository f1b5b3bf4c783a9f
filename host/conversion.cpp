#include "conversion.h"

namespace tessara::program {
namespace {

CKoord GeodezKoord(const Position& position, std::int32_t datum) {
    tagKOORD record = MakeKoord(datum, KOORD_GEODEZ);
    Store(record, GeodezPayload{position.latitude, position.longitude, position.height.value_or(0.0)});
    return CKoord(record);
}

}  // namespace

Conversion::Conversion(std::int32_t from, Reference to)
    : from_(from), to_(to), reference_(CreateClassCoordinateReference()) {
    reference_->SetDatum(to.datum);
    reference_->SetSystem(to.system);
}

std::optional<CKoord> Conversion::Convert(const Position& position) const {
    const IRef<ICoord> coord(CreateClassCoord());
    const IRef<ICoordInternal> inner(coord);
    CKoord koord = GeodezKoord(position, from_);
    inner->SetKoord(&koord);
    if (!coord->SetReference(reference_.Get())) return std::nullopt;
    inner->GetKoord(&koord);
    return koord;
}

}  // namespace tessara::program

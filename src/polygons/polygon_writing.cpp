#include "polygons/polygon_writing.h"

#include <exception>

#include "objects/koord_access.h"

namespace tessara {
namespace {

// Empty if a point of the ring has no coordinate.
IRef<IArray> ListOf(const Ring& ring, const RingForm& form) {
    IRef<IArray> list(CreateClassArray());
    if (!list.IsValid()) return {};
    const std::size_t count = form.isClosed ? ring.size() : ring.size() - 1;
    for (std::size_t i = 0; i < count; ++i) {
        const IRef<ICoord> coord(CreateClassCoord());
        CKoord koord;
        if (!form.write(ring[i], &koord) || !KoordToCoord(&koord, coord.Get())) return {};
        list->Add(coord.Get());
    }
    return list;
}

}  // namespace

RingForm PixelForm(std::int32_t datum) {
    const auto write = [datum](const PlanePoint& place, CKoord* koord) {
        tagKOORD record = MakeKoord(datum, KOORD_FLOATPIXEL);
        Store(record, FloatPixelPayload{place.x, place.y});
        *koord = CKoord(record);
        return true;
    };
    return {write, true};
}

RingForm PositionForm(const MapPlane& map, const Reference& reference) {
    const auto write = [&map, reference](const PlanePoint& place, CKoord* koord) {
        *koord = CKoord(MakeKoord(reference.datum, reference.system));
        return map.ToWorld(place, koord);
    };
    return {write, false};
}

bool AppendRings(const std::vector<Ring>& rings, const RingForm& form, IArray* list) try {
    for (const Ring& ring : rings) {
        const IRef<IArray> part = ListOf(ring, form);
        if (!part.IsValid()) return false;
        list->Add(part.Get());
    }
    return true;
} catch (const std::exception&) {
    return false;
}

}  // namespace tessara

#include "geometry/line_reading.h"

#include "objects/koord_access.h"
#include "tessara/coordinate_reference.h"

namespace tessara {
namespace {

template <class Reader>
bool ReadLine(IArray* line, std::vector<PlanePoint>* places, const Reader& read) {
    const std::uint32_t count = line->GetCount();
    places->clear();
    for (std::uint32_t i = 0; i < count; ++i) {
        const IRef<ICoord> coord(line->GetAt(i));
        PlanePoint place{};
        if (!coord.IsValid() || !read(coord.Get(), &place)) return false;
        places->push_back(place);
    }
    return true;
}

}  // namespace

bool PixelOfCoord(ICoord* coord, PlanePoint* point) {
    const IRef<ICoord> pixel(coord);
    PlanePoint place{};
    if (!pixel.IsValid() || !pixel->GetPixel(&place.x, &place.y)) return false;
    *point = place;
    return true;
}

bool PixelOfCoord(IMapCoordOperations* map, ICoord* coord, PlanePoint* point) {
    const IRef<ICoord> held(coord);
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!held.IsValid() || !reference.IsValid() || !held->GetReference(reference.Get())) return false;
    if (IsPixelType(reference->GetSystem())) return PixelOfCoord(held.Get(), point);
    PlanePoint place{};
    if (!map->CoordToFloatPixel(held.Get(), &place.x, &place.y)) return false;
    *point = place;
    return true;
}

bool ReadLineOnMap(const MapPlane& map, IArray* line, std::vector<PlanePoint>* places) {
    return ReadLine(line, places, [&](ICoord* coord, PlanePoint* place) {
        CKoord koord;
        return KoordFromCoord(coord, &koord) && map.ToPlane(koord, place);
    });
}

bool ReadValidLineOnMap(IMapCoordOperations* map, IArray* line, std::vector<PlanePoint>* places) {
    return ReadLine(line, places,
                    [map](ICoord* coord, PlanePoint* place) { return PixelOfCoord(map, coord, place); });
}

bool ReadPixelLine(IArray* line, std::vector<PlanePoint>* places) {
    return ReadLine(line, places,
                    [](ICoord* coord, PlanePoint* place) { return PixelOfCoord(coord, place); });
}

}  // namespace tessara

#include "maps/map_coord_creator.h"

#include <exception>

#include "frame/fresh.h"
#include "maps/creation.h"
#include "objects/koord_access.h"
#include "tessara/array.h"
#include "tessara/geo_date.h"

namespace tessara {
namespace {

IRef<ICoordinateReference> PixelReferenceOf(IMapCoordOperations* map) {
    const IRef<IGeoDate> datum(CreateClassGeoDate());
    IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    const bool isMade = datum.IsValid() && reference.IsValid() && map->GetGeoDate(datum.Get()) &&
                        reference->SetDatum(datum->GetDatum()) && reference->SetSystem(KOORD_FLOATPIXEL);
    return isMade ? reference : IRef<ICoordinateReference>();
}

// Reads the reference of a coordinate. False also if the coordinate doesn't give it.
bool ReadSystem(ICoord* coord, ICoordinateReference* reference) {
    return reference != nullptr && coord->GetReference(reference);
}

}  // namespace

MapCoordCreator::MapCoordCreator(IMapCoordOperations* map)
    : map_(map), reference_(map_.IsValid() ? PixelReferenceOf(map_.Get()) : IRef<ICoordinateReference>()) {}

ICoord* MapCoordCreator::CreateCoord() {
    if (!reference_.IsValid()) return nullptr;
    Fresh<ICoord> coord(CreateClassCoord());
    if (!coord.IsValid() || !coord->SetReference(reference_.Get())) return nullptr;
    return coord.HandOut();
}

IArray* MapCoordCreator::CreateCoords(std::uint32_t count) try {
    if (count == 0) return nullptr;
    Fresh<IArray> coords(CreateClassArray());
    if (!coords.IsValid()) return nullptr;
    for (std::uint32_t i = 0; i < count; ++i) {
        const IRef<ICoord> coord(CreateCoord());
        if (!coord.IsValid()) return nullptr;
        coords->Add(coord.Get());
    }
    return coords.HandOut();
} catch (const std::exception&) {
    return nullptr;
}

ICoord* MapCoordCreator::CreateCoordFrom(ICoord* source) {
    const IRef<ICoord> from(source);
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!from.IsValid() || !map_.IsValid() || !ReadSystem(from.Get(), reference.Get())) return nullptr;
    double x = 0.0;
    double y = 0.0;
    const bool hasPixel = IsPixelType(reference->GetSystem()) ? from->GetPixel(&x, &y)
                                                              : map_->CoordToFloatPixel(from.Get(), &x, &y);
    if (!hasPixel) return nullptr;

    Fresh<ICoord> coord(CreateCoord());
    if (!coord.IsValid() || !coord->SetPixel(x, y) || !coord->SetHeight(from->GetHeight())) return nullptr;
    return coord.HandOut();
}

IArray* MapCoordCreator::CreateCoordsFrom(IArray* source) try {
    const IRef<IArray> from(source);
    const std::uint32_t count = from.IsValid() ? from->GetCount() : 0;
    if (count == 0) return nullptr;
    Fresh<IArray> coords(CreateClassArray());
    if (!coords.IsValid()) return nullptr;
    for (std::uint32_t i = 0; i < count; ++i) {
        const IRef<ICoord> element(from->GetAt(i));
        const IRef<ICoord> coord(CreateCoordFrom(element.Get()));
        if (!coord.IsValid()) return nullptr;
        coords->Add(coord.Get());
    }
    return coords.HandOut();
} catch (const std::exception&) {
    return nullptr;
}

bool MapCoordCreator::ConvertCoord(ICoord* coord) {
    const IRef<ICoord> target(coord);
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!target.IsValid() || !map_.IsValid() || !ReadSystem(target.Get(), reference.Get())) return false;
    const double height = target->GetHeight();
    double x = 0.0;
    double y = 0.0;
    if (IsPixelType(reference->GetSystem())) {
        if (!target->GetPixel(&x, &y)) return false;
        // Even a LONGPIXEL takes its place as two doubles; map_coord_creator.h warns of it.
        tagKOORD record = MakeKoord(reference->GetDatum(), reference->GetSystem());
        Store(record, FloatPixelPayload{x, y});
        const CKoord pixel(record);
        if (!KoordToCoord(&pixel, target.Get())) return false;
    } else {
        if (!map_->CoordToFloatPixel(target.Get(), &x, &y)) return false;
        if (!target->SetReference(reference_.Get()) || !target->SetPixel(x, y)) return false;
    }
    return target->SetHeight(height);
}

bool MapCoordCreator::ConvertCoords(IArray* coords) {
    const IRef<IArray> targets(coords);
    const std::uint32_t count = targets.IsValid() ? targets->GetCount() : 0;
    for (std::uint32_t i = 0; i < count; ++i) {
        const IRef<ICoord> element(targets->GetAt(i));
        if (!ConvertCoord(element.Get())) return false;
    }
    return count > 0;
}

IMapCoordCreator* NewMapCoordCreator(IMapCoordOperations* map) {
    return NewObject<MapCoordCreator>(map);
}

}  // namespace tessara

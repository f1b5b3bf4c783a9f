#include "maps/map_coord_operations.h"

#include <exception>

#include "maps/creation.h"
#include "objects/koord_access.h"
#include "records/default_koord.h"
#include "systems/reference.h"
#include "tessara/array.h"
#include "tessara/coordinate_reference.h"
#include "tessara/geo_date.h"
#include "tessara/projection.h"
#include "tessara/ref.h"
#include "tessara/reference_point.h"

namespace tessara {
namespace {

bool FillPoint(const MapReferenceNode& node, IReferencePoint* point) {
    const CKoord world(node.world);
    const IRef<ICoord> coord(CreateClassCoord());
    return KoordToCoord(&world, coord.Get()) && point->SetLong(coord.Get(), node.pixelX, node.pixelY);
}

}  // namespace

bool MapCoordOperations::GetMapDefinition(IArray* points, std::int32_t* scaleDenominator, double* resolution,
                                          IGeoDate* datum, IProjection* projection) {
    const IRef<IArray> list(points);
    const IRef<IGeoDate> date(datum);
    const IRef<IProjection> drawn(projection);
    if (!date.IsValid() || !drawn.IsValid() || !scaleDenominator || !resolution) return false;
    // This tests the type that the caller's object came with, not the type of the map.
    if (!list.IsValid() && drawn->GetProjectionType() != MAP_POLYNOM) return false;

    if (list.IsValid() && !GetReferencePoints(points)) return false;
    *scaleDenominator = GetScaleDenominator();
    *resolution = GetResolution();
    return GetGeoDate(datum) && GetProjection(projection);
}

bool MapCoordOperations::GetReferencePoint(IReferencePoint* out) {
    const IRef<IReferencePoint> point(out);
    return point.IsValid() && map_->referenceCount == 1 && FillPoint(map_->reference, point.Get());
}

bool MapCoordOperations::GetReferencePoints(IArray* out) try {
    const IRef<IArray> points(out);
    if (!points.IsValid()) return false;
    points->Clear();
    const MapReferenceNode* node = &map_->reference;
    for (std::uint32_t i = 0; i < map_->referenceCount && node; ++i, node = node->next) {
        const IRef<IReferencePoint> point(CreateClassReferencePoint());
        if (!point.IsValid() || !FillPoint(*node, point.Get())) return false;
        points->Add(point.Get());
    }
    return true;
} catch (const std::exception&) {
    return false;
}

bool MapCoordOperations::GetGeoDate(IGeoDate* out) {
    const IRef<IGeoDate> date(out);
    return date.IsValid() && date->SetDatum(static_cast<std::int32_t>(map_->datum));
}

bool MapCoordOperations::GetProjection(IProjection* out) {
    const IRef<IProjection> projection(out);
    const IRef<IMapParamInternal> record(projection);
    return record.IsValid() && record->SetMapParam(&*map_);
}

// A pixel record in this map's datum. Its values mean nothing yet.
CKoord MapCoordOperations::EmptyPixel(std::int32_t type) {
    return CKoord(MakeKoord(static_cast<std::int32_t>(map_->datum), type));
}

// A pixel without a position leaves `out` with the default position of its reference.
bool MapCoordOperations::ToWorld(const tagKOORD& pixel, ICoord* out) {
    const IRef<ICoord> target(out);
    if (map_->type == MAP_UNKNOWN || !target.IsValid()) return false;
    CKoord world;
    if (!KoordFromCoord(out, &world)) return false;
    const double height = IsEarthCentre(world) ? 0.0 : target->GetHeight();
    if (!ResetToDefault(&world) || !KoordToCoord(&world, out)) return false;
    if (IsPixel(world) || MapPixelToWorld(&*map_, &pixel, &world) != KOORD_OK) return false;
    world.SetHeight(height);
    return KoordToCoord(&world, out);
}

bool MapCoordOperations::FloatPixelToCoord(double x, double y, ICoord* out) {
    CKoord pixel = EmptyPixel(KOORD_FLOATPIXEL);
    Store(pixel, FloatPixelPayload{x, y});
    return ToWorld(pixel, out);
}

bool MapCoordOperations::LongPixelToCoord(std::int32_t x, std::int32_t y, ICoord* out) {
    CKoord pixel = EmptyPixel(KOORD_LONGPIXEL);
    Store(pixel, LongPixelPayload{x, y});
    return ToWorld(pixel, out);
}

bool MapCoordOperations::PixelCoordToCoord(ICoord* pixel, ICoord* out) {
    const IRef<ICoord> target(out);  // held, because it may be the same object as `pixel`
    CKoord record;
    return KoordFromCoord(pixel, &record) && IsPixel(record) && ToWorld(record, target.Get());
}

// On entry *pixel has the pixel type that is wanted.
bool MapCoordOperations::ToPixel(ICoord* in, CKoord* pixel) {
    CKoord world;
    if (!KoordFromCoord(in, &world) || IsPixel(world)) return false;
    return MapWorldToPixel(&*map_, &world, pixel) == KOORD_OK;
}

bool MapCoordOperations::CoordToFloatPixel(ICoord* in, double* x, double* y) {
    CKoord pixel = EmptyPixel(KOORD_FLOATPIXEL);
    if (!x || !y || !ToPixel(in, &pixel)) return false;
    const auto at = Load<FloatPixelPayload>(pixel);
    *x = at.x;
    *y = at.y;
    return true;
}

bool MapCoordOperations::CoordToLongPixel(ICoord* in, std::int32_t* x, std::int32_t* y) {
    CKoord pixel = EmptyPixel(KOORD_LONGPIXEL);
    if (!x || !y || !ToPixel(in, &pixel)) return false;
    const auto at = Load<LongPixelPayload>(pixel);
    *x = at.x;
    *y = at.y;
    return true;
}

bool MapCoordOperations::CoordToPixelCoord(ICoord* in, ICoord* pixel) {
    const IRef<ICoord> source(in);
    const IRef<ICoord> target(pixel);
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    if (!source.IsValid() || !target.IsValid() || !reference.IsValid()) return false;
    if (!target->GetReference(reference.Get()) || !IsPixelType(reference->GetSystem())) return false;

    CKoord record = EmptyPixel(reference->GetSystem());
    if (!ToPixel(in, &record)) return false;
    record.SetHeight(source->GetHeight());
    return KoordToCoord(&record, pixel);
}

bool MapCoordOperations::GetMapParam(MapParam* out) {
    if (!out) return false;
    *out = *map_;
    return true;
}

bool MapCoordOperations::SetMapParam(const MapParam* in) {
    if (!in) return false;
    map_.Adopt(*in);
    return true;
}

IMapCoordOperations* NewMapCoordOperations(OwnedMapParam&& map) {
    return NewObject<MapCoordOperations>(std::move(map));
}

IMapCoordOperations* CreateClassMapCoordOperations() {
    return NewObject<MapCoordOperations>();
}

}  // namespace tessara

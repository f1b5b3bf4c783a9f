#include "maps/map_coord_operations_factory.h"

#include <new>
#include <utility>

#include "kernel/numeric.h"
#include "maps/creation.h"
#include "maps/map_param_from_projection.h"
#include "objects/koord_access.h"
#include "tessara/array.h"
#include "tessara/geo_date.h"
#include "tessara/projection.h"
#include "tessara/ref.h"
#include "tessara/reference_point.h"

namespace tessara {
namespace {

std::int32_t DenominatorOf(double scale) {
    return TruncateToInt32(1.0 / scale + 0.5);
}

// Fills a node from a reference point. False for any other object, and for a reference point without a
// position.
bool FillNode(IUnknown* element, MapReferenceNode* node) {
    const IRef<IReferencePoint> point(element);
    const IRef<ICoord> coord(CreateClassCoord());
    if (!point.IsValid() || !coord.IsValid()) return false;
    if (!point->GetLong(coord.Get(), &node->pixelX, &node->pixelY)) return false;
    CKoord world;
    if (!KoordFromCoord(coord.Get(), &world)) return false;
    node->world = world;
    return true;
}

bool AddReferences(IReferencePoint* point, MapParam* map) {
    map->referenceCount = 1;
    return FillNode(point, &map->reference);
}

// Each node is linked before it is filled, so that the owner of the record can free all of them at any time.
bool AddReferences(IArray* points, MapParam* map) {
    const std::uint32_t count = points->GetCount();
    MapReferenceNode* node = &map->reference;
    for (std::uint32_t i = 0; i < count; ++i) {
        if (i > 0) {
            node->next = new (std::nothrow) MapReferenceNode;
            node = node->next;
        }
        if (!node || !FillNode(points->GetAt(i), node)) return false;
        map->referenceCount = i + 1;
    }
    return true;
}

// `references` is one reference point or a list of reference points.
template <class References>
IMapCoordOperations* Build(References* references, std::int32_t scaleDenominator, double resolution,
                           IGeoDate* datum, IProjection* projection) {
    const IRef<References> points(references);
    const IRef<IProjection> drawn(projection);
    const IRef<IGeoDate> date(datum);
    if (!drawn.IsValid() || !date.IsValid()) return nullptr;
    if (!points.IsValid() && drawn->GetProjectionType() != MAP_POLYNOM) return nullptr;

    OwnedMapParam map;
    if (!MapParamFromProjection(drawn.Get(), &*map)) return nullptr;
    const bool hasReferences = points.IsValid() && map->type != MAP_POLYNOM;
    if (hasReferences && !AddReferences(points.Get(), &*map)) return nullptr;
    map->scaleDenominator = scaleDenominator;
    map->resolution = resolution;
    map->datum = static_cast<std::uint32_t>(date->GetDatum());
    return NewMapCoordOperations(std::move(map));
}

}  // namespace

IMapCoordOperations* MapCoordOperationsFactory::CreateFromReferencePointsScale(IArray* points, double scale,
                                                                               double resolution,
                                                                               IGeoDate* datum,
                                                                               IProjection* projection) {
    return CreateFromReferencePoints(points, DenominatorOf(scale), resolution, datum, projection);
}

IMapCoordOperations* MapCoordOperationsFactory::CreateFromReferencePointScale(IReferencePoint* point,
                                                                              double scale, double resolution,
                                                                              IGeoDate* datum,
                                                                              IProjection* projection) {
    return CreateFromReferencePoint(point, DenominatorOf(scale), resolution, datum, projection);
}

IMapCoordOperations* MapCoordOperationsFactory::CreateFromReferencePoints(IArray* points,
                                                                          std::int32_t scaleDenominator,
                                                                          double resolution, IGeoDate* datum,
                                                                          IProjection* projection) {
    return Build(points, scaleDenominator, resolution, datum, projection);
}

IMapCoordOperations* MapCoordOperationsFactory::CreateFromReferencePoint(IReferencePoint* point,
                                                                         std::int32_t scaleDenominator,
                                                                         double resolution, IGeoDate* datum,
                                                                         IProjection* projection) {
    return Build(point, scaleDenominator, resolution, datum, projection);
}

IMapCoordOperationsFactory* CreateClassMapCoordOperationsFactory() {
    return NewObject<MapCoordOperationsFactory>();
}

}  // namespace tessara

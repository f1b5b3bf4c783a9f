#include "areas/helper_map.h"

#include "objects/koord_access.h"
#include "tessara/geo_date.h"
#include "tessara/kernel/map.h"
#include "tessara/map_coord_operations_factory.h"
#include "tessara/projection.h"
#include "tessara/projection_factory.h"
#include "tessara/reference_point.h"

namespace tessara {
namespace {

constexpr std::int32_t SCALE_DENOMINATOR = 100000;
constexpr double RESOLUTION = 10.0;  // pixels per millimetre of the sheet
constexpr MapWagnerIvParams WAGNER_IV{0.0, 1.0, 1.0};
constexpr double UPS_METRES_PER_PIXEL = 10.0;

IRef<IProjection> ProjectionFor(const tagKOORD& position) {
    const IRef<IProjectionFactory> factory(CreateClassProjectionFactory());
    if (!factory.IsValid()) return {};
    if (position.type != KOORD_UPS) return IRef<IProjection>(factory->CreateWagnerIv(&WAGNER_IV));
    const auto at = Load<UpsPayload>(position);
    const MapUpsParams params{at.hemisphere, at.easting, at.northing, UPS_METRES_PER_PIXEL,
                              UPS_METRES_PER_PIXEL};
    return IRef<IProjection>(factory->CreateUps(&params));
}

}  // namespace

IRef<IMapCoordOperations> MakeHelperMap(const CKoord& position) {
    if (IsPixelType(static_cast<std::int32_t>(position.type))) return {};
    const IRef<ICoord> coord(CreateClassCoord());
    const IRef<IReferencePoint> point(CreateClassReferencePoint());
    const IRef<IGeoDate> datum(CreateClassGeoDate());
    const IRef<IProjection> projection = ProjectionFor(position);
    const IRef<IMapCoordOperationsFactory> factory(CreateClassMapCoordOperationsFactory());
    if (!point.IsValid() || !datum.IsValid() || !projection.IsValid() || !factory.IsValid()) return {};
    if (!KoordToCoord(&position, coord.Get()) || !point->SetFloat(coord.Get(), 0.0, 0.0)) return {};
    if (!datum->SetDatum(DATUM_WGS84)) return {};
    return IRef<IMapCoordOperations>(factory->CreateFromReferencePoint(
        point.Get(), SCALE_DENOMINATOR, RESOLUTION, datum.Get(), projection.Get()));
}

}  // namespace tessara

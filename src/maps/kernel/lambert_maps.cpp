// Maps on Lambert's conformal conic projection: LAMBERT2 and LAMBERTCC with their own parameters, LAMBERTFR
// with the parameters of the French zones.
#include "maps/kernel/map_parts.h"
#include "tessara/kernel/lambert.h"

namespace tessara {
namespace {

// A raster on the projection's plane. For a datum that doesn't exist the cone stays empty; the conversion
// from or to degrees then fails.
struct LambertSheet {
    LambertCC cone;
    double metresPerPixelX, metresPerPixelY;
    double pixelX, pixelY;  // the pixel of the false origin
};

// The reference of the raster is the origin of the projection, halfway between the parallels.
LambertSheet Lambert2Sheet(const MapParam& map) {
    const auto params = Load<MapLambert2Params>(map);
    const double metresPerPixel = MetresPerPixel(map);
    LambertSheet sheet{LambertCC{}, metresPerPixel, metresPerPixel, static_cast<double>(map.reference.pixelX),
                       static_cast<double>(map.reference.pixelY)};
    LambertCC_Init(DatumOf(map), params.parallel1, params.parallel2, 1.0, 0.0, 0.0,
                   (params.parallel1 + params.parallel2) / 2.0, params.originLongitude, &sheet.cone);
    return sheet;
}

LambertSheet LambertCcSheet(const MapParam& map) {
    const auto params = Load<MapLambertCcParams>(map);
    LambertSheet sheet{LambertCC{}, params.metresPerPixelX, params.metresPerPixelY, params.pixelX,
                       params.pixelY};
    LambertCC_Init(DatumOf(map), params.parallel1, params.parallel2, 1.0, params.falseEasting,
                   params.falseNorthing, params.originLatitude, params.originLongitude, &sheet.cone);
    return sheet;
}

LambertSheet SheetOf(const MapParam& map) {
    return map.type == MAP_LAMBERT2 ? Lambert2Sheet(map) : LambertCcSheet(map);
}

bool HasFrenchZone(const MapLambertFrParams& params) {
    return params.zone >= 1 && params.zone <= 4;
}

}  // namespace

KoordStatus MapLambert_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const LambertSheet sheet = SheetOf(*map);
    const double easting = (x - sheet.pixelX) * sheet.metresPerPixelX + sheet.cone.falseEasting;
    const double northing = (sheet.pixelY - y) * sheet.metresPerPixelY + sheet.cone.falseNorthing;
    double latLon[2];
    LambertCC_Inverse(easting, northing, latLon, &sheet.cone);
    PutDegrees(*map, {latLon[0], latLon[1], 0.0}, out);
    return KOORD_OK;
}

KoordStatus MapLambert_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    GeodezPayload at{};
    const KoordStatus status = ToDegrees(*in, *map, &at);
    if (status != KOORD_OK) return status;
    const double latLon[2] = {at.latitude, at.longitude};
    const LambertSheet sheet = SheetOf(*map);
    double easting = 0.0;
    double northing = 0.0;
    LambertCC_Forward(latLon, &easting, &northing, &sheet.cone);
    *x = (easting - sheet.cone.falseEasting) / sheet.metresPerPixelX + sheet.pixelX;
    *y = sheet.pixelY - (northing - sheet.cone.falseNorthing) / sheet.metresPerPixelY;
    return KOORD_OK;
}

KoordStatus MapLambertFr_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const auto params = Load<MapLambertFrParams>(*map);
    if (!HasFrenchZone(params)) return KOORD_OK;
    LambertFR zone;
    LambertFR_Init(params.zone, DatumOf(*map), &zone);
    const double metresPerPixel = MetresPerPixel(*map);
    const double X = (x - map->reference.pixelX) * metresPerPixel + params.offsetX;
    const double Y = (map->reference.pixelY - y) * metresPerPixel + params.offsetY;
    double latLon[2];
    LambertFR_Inverse(X, Y, latLon, &zone);
    PutDegrees(*map, {latLon[0], latLon[1], 0.0}, out);
    return KOORD_OK;
}

KoordStatus MapLambertFr_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    GeodezPayload at{};
    const KoordStatus status = ToDegrees(*in, *map, &at);
    if (status != KOORD_OK) return status;
    const double latLon[2] = {at.latitude, at.longitude};
    const auto params = Load<MapLambertFrParams>(*map);
    if (!HasFrenchZone(params)) return KOORD_ERR_GENERAL;
    LambertFR zone;
    LambertFR_Init(params.zone, DatumOf(*map), &zone);
    double X = 0.0;
    double Y = 0.0;
    LambertFR_Forward(latLon, &X, &Y, &zone);
    const double metresPerPixel = MetresPerPixel(*map);
    *x = (X - params.offsetX) / metresPerPixel + map->reference.pixelX;
    *y = map->reference.pixelY - (Y - params.offsetY) / metresPerPixel;
    return KOORD_OK;
}

}  // namespace tessara

// The conversions between pixel and position for all map types: they read and write pixels and call the pair
// of functions of the type.
#include <array>

#include "kernel/numeric.h"
#include "maps/kernel/map_parts.h"
#include "systems/not_a_number.h"
#include "systems/range_check.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

struct MapForm {
    MapPixelToWorldFunction* pixelToWorld;
    MapWorldToPixelFunction* worldToPixel;
};

constexpr MapForm NO_MAP{nullptr, nullptr};
constexpr MapForm TM_MAP{MapTm_PixelToWorld, MapTm_WorldToPixel};
constexpr MapForm LAMBERT_MAP{MapLambert_PixelToWorld, MapLambert_WorldToPixel};

constexpr std::array<MapForm, MAP_TYPE_COUNT> MAP_FORMS{{
    NO_MAP,                                                  // UNKNOWN
    NO_MAP,                                                  // NONE
    {MapUtm_PixelToWorld, MapUtm_WorldToPixel},              // UTM
    {MapGk_PixelToWorld, MapGk_WorldToPixel},                // GAUKRU
    LAMBERT_MAP,                                             // LAMBERT2
    {MapLambertFr_PixelToWorld, MapLambertFr_WorldToPixel},  // LAMBERTFR
    {MapEqualArc_PixelToWorld, MapEqualArc_WorldToPixel},    // EQUALARC
    {MapPolynom_PixelToWorld, MapPolynom_WorldToPixel},      // POLYNOM
    {MapMercator_PixelToWorld, MapMercator_WorldToPixel},    // MERCATOR
    {MapBmn_PixelToWorld, MapBmn_WorldToPixel},              // BMN
    {MapCh_PixelToWorld, MapCh_WorldToPixel},                // CH
    {MapAzyl_PixelToWorld, MapAzyl_WorldToPixel},            // AZYL
    {MapDd_PixelToWorld, MapDd_WorldToPixel},                // DD
    {MapGk6_PixelToWorld, MapGk6_WorldToPixel},              // GAUKRU6
    {MapUps_PixelToWorld, MapUps_WorldToPixel},              // UPS
    TM_MAP,                                                  // TM
    TM_MAP,                                                  // PO_MILITARY
    {MapVdg_PixelToWorld, MapVdg_WorldToPixel},              // VAN_DER_GRINTEN
    {MapRd_PixelToWorld, MapRd_WorldToPixel},                // STEREOGR_NL
    LAMBERT_MAP,                                             // LAMBERTCC
    TM_MAP,                                                  // LUREF
    {MapWagnerIV_PixelToWorld, MapWagnerIV_WorldToPixel},    // WAGNER-IV
}};

// Null for a number that isn't a map type.
const MapForm* FormOf(const MapParam& map) {
    if (map.type >= MAP_TYPE_COUNT) return nullptr;
    const MapForm& form = MAP_FORMS[map.type];
    return form.pixelToWorld ? &form : nullptr;
}

bool ReadPixel(const tagKOORD& pixel, FloatPixelPayload* at) {
    if (pixel.type == KOORD_FLOATPIXEL) {
        *at = Load<FloatPixelPayload>(pixel);
        return true;
    }
    if (pixel.type != KOORD_LONGPIXEL) return false;
    const auto whole = Load<LongPixelPayload>(pixel);
    *at = {static_cast<double>(whole.x), static_cast<double>(whole.y)};
    return true;
}

bool WritePixel(const FloatPixelPayload& at, tagKOORD* pixel) {
    if (pixel->type == KOORD_FLOATPIXEL) {
        Store(*pixel, FloatPixelPayload{WithOneNan(at.x), WithOneNan(at.y)});
        return true;
    }
    if (pixel->type != KOORD_LONGPIXEL) return false;
    Store(*pixel, LongPixelPayload{RoundPixel(at.x), RoundPixel(at.y)});
    return true;
}

bool IsGeographic(std::uint32_t type) {
    return type == KOORD_GEODEZ || type == KOORD_GEOGRAD || type == KOORD_GEODEZMIN;
}

}  // namespace

KoordStatus ToDegrees(const tagKOORD& record, std::int32_t datum, tagKOORD* geodez) {
    *geodez = MakeKoord(datum, KOORD_GEODEZ);
    return ConvertRecord(record, geodez, RangeCheck::Off);
}

KoordStatus ToDegrees(const tagKOORD& record, const MapParam& map, GeodezPayload* at) {
    tagKOORD geodez;
    const KoordStatus status = ToDegrees(record, DatumOf(map), &geodez);
    *at = Load<GeodezPayload>(geodez);
    return status;
}

void PutDegrees(const MapParam& map, const GeodezPayload& at, tagKOORD* out) {
    *out = MakeKoord(DatumOf(map), KOORD_GEODEZ);
    Store(*out, at);
}

KoordStatus MapPixelToWorld(const MapParam* map, const tagKOORD* pixel, tagKOORD* world) {
    if (!map || !pixel || !world) return KOORD_ERR_GENERAL;
    FloatPixelPayload at{};
    if (!ReadPixel(*pixel, &at)) return KOORD_ERR_PIXEL_TYPE;
    const MapForm* form = FormOf(*map);
    if (!form) return KOORD_ERR_MAP_TYPE;

    tagKOORD native{};
    const KoordStatus status = form->pixelToWorld(map, at.x, at.y, &native);
    if (status != KOORD_OK) return status;
    // A map may extend beyond the limits of its own system. Only a position wanted in another grid has to be
    // within the limits of that grid.
    const bool isFree = world->type == native.type || IsGeographic(world->type);
    return ConvertRecord(native, world, isFree ? RangeCheck::Off : RangeCheck::On);
}

KoordStatus MapWorldToPixel(const MapParam* map, const tagKOORD* world, tagKOORD* pixel) {
    if (!map || !world || !pixel) return KOORD_ERR_GENERAL;
    const MapForm* form = FormOf(*map);
    if (!form) return KOORD_ERR_MAP_TYPE;

    FloatPixelPayload at{};
    const KoordStatus status = form->worldToPixel(map, world, &at.x, &at.y);
    if (status != KOORD_OK) return status;
    return WritePixel(at, pixel) ? KOORD_OK : KOORD_ERR_PIXEL_TYPE;
}

}  // namespace tessara

// Maps whose raster is parallel to the axes of a grid. Pixels and grid values are related linearly; the
// conversion into the grid does the projection.
#include "kernel/numeric.h"
#include "maps/kernel/map_parts.h"
#include "systems/range_check.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

constexpr double STRIP_WIDTH = 999999.99;  // metres between the ends of a strip

// The relation between pixel and grid value, for any payload with a grid value and any parameters with an
// origin and a pixel size.

template <class Payload, class Params>
void GridFromPixel(const Params& map, double x, double y, Payload* grid) {
    grid->easting = x * map.metresPerPixelX + map.originEasting;
    grid->northing = map.originNorthing - y * map.metresPerPixelY;
}

template <class Payload, class Params>
void PixelFromGrid(const Params& map, const Payload& grid, double* x, double* y) {
    *x = (grid.easting - map.originEasting) / map.metresPerPixelX;
    *y = (map.originNorthing - grid.northing) / map.metresPerPixelY;
}

// Whether a conversion that ended with a status has written a grid value. Where a position has no meridian
// it leaves zeros.
template <class Payload>
bool IsWritten(const Payload& grid) {
    return grid.easting != 0.0 || grid.northing != 0.0;
}

// A position that is already in the map's system isn't tested against the limits of that system.
RangeCheck CheckFor(const tagKOORD& in, KoordType native) {
    return in.type == static_cast<std::uint32_t>(native) ? RangeCheck::Off : RangeCheck::On;
}

// Converts a position into the grid. On entry *grid holds the zone and constants for the conversion; a
// status other than KOORD_OK may leave it written in part.
template <class Payload>
KoordStatus ToGrid(const MapParam& map, const tagKOORD& in, KoordType native, RangeCheck check,
                   Payload* grid) {
    tagKOORD target = MakeKoord(DatumOf(map), native);
    Store(target, *grid);
    const KoordStatus status = ConvertRecord(in, &target, check);
    *grid = Load<Payload>(target);
    return status;
}

// Both directions for grids without special rules. `grid` holds what the grid's record needs.

template <class Params, class Payload>
KoordStatus PlainPixelToWorld(const MapParam& map, KoordType native, Payload grid, double x, double y,
                              tagKOORD* out) {
    GridFromPixel(Load<Params>(map), x, y, &grid);
    *out = MakeKoord(DatumOf(map), native);
    Store(*out, grid);
    return KOORD_OK;
}

template <class Params, class Payload>
KoordStatus PlainWorldToPixel(const MapParam& map, KoordType native, Payload grid, const tagKOORD& in,
                              RangeCheck check, double* x, double* y) {
    const KoordStatus status = ToGrid(map, in, native, check, &grid);
    if (status != KOORD_OK) return status;
    PixelFromGrid(Load<Params>(map), grid, x, y);
    return KOORD_OK;
}

char Hemisphere(char letter) {
    Hemisphere_Normalise(&letter);
    return letter;
}

// GAUKRU and GAUKRU6: strips.

struct StripMap {
    KoordType native;
    std::int32_t width;   // degrees from one meridian to the next
    std::int32_t offset;  // degrees; strip n has the meridian n * width - offset
};

constexpr StripMap GK_MAP{KOORD_GK, 3, 0};
constexpr StripMap GK6_MAP{KOORD_GK6, 6, 3};

// The lowest easting of the strip. West of Greenwich eastings count down from the strip's million, so that
// every pixel there lies outside.
double StripBegin(const StripMap& form, std::int16_t meridian) {
    const std::int32_t strip = (meridian + form.offset) / form.width;
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(strip) * 1000000u);
}

KoordStatus StripPixelToWorld(const StripMap& form, const MapParam& map, double x, double y, tagKOORD* out) {
    const auto params = Load<MapGkParams>(map);
    GkPayload grid{};
    grid.wantedMeridian = params.meridian;
    GridFromPixel(params, x, y, &grid);

    const double low = StripBegin(form, params.meridian);
    const double high = low + STRIP_WIDTH;
    if (low > grid.easting || high < grid.easting) return KOORD_ERR_GK_EAST;
    *out = MakeKoord(DatumOf(map), form.native);
    Store(*out, grid);
    return KOORD_OK;
}

KoordStatus StripWorldToPixel(const StripMap& form, const MapParam& map, const tagKOORD& in, double* x,
                              double* y) {
    const auto params = Load<MapGkParams>(map);
    GkPayload grid{};
    grid.wantedMeridian = params.meridian;
    const KoordStatus status = ToGrid(map, in, form.native, CheckFor(in, form.native), &grid);
    // A position beside the strip still has a grid value and thus a pixel.
    const bool isBeside = status == KOORD_ERR_GK_EAST && IsWritten(grid);
    if (status != KOORD_OK && !isBeside) return status;
    PixelFromGrid(params, grid, x, y);
    return KOORD_OK;
}

// UTM.

// A position beyond the limits of longitude has a pixel as well, however far it is from the map's zone.
KoordStatus ToUtm(const MapParam& map, const tagKOORD& in, UtmPayload* grid) {
    const UtmPayload wanted = *grid;
    const KoordStatus status = ToGrid(map, in, KOORD_UTM, CheckFor(in, KOORD_UTM), grid);
    if (status != KOORD_ERR_EAST_LOW && status != KOORD_ERR_EAST_HIGH) return status;
    *grid = wanted;
    const KoordStatus beyond = ToGrid(map, in, KOORD_UTM, RangeCheck::Off, grid);
    return beyond == KOORD_ERR_ZONE_DISTANT && IsWritten(*grid) ? KOORD_OK : beyond;
}

TmPayload TmConstantsOf(const MapTmParams& params) {
    TmPayload grid{};
    grid.originLongitude = params.originLongitude;
    grid.originLatitude = params.originLatitude;
    grid.falseEasting = params.falseEasting;
    grid.falseNorthing = params.falseNorthing;
    grid.scale = params.scale;
    return grid;
}

}  // namespace

KoordStatus MapUtm_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const auto params = Load<MapUtmParams>(*map);
    UtmPayload grid{};
    grid.hemisphere = Hemisphere(params.hemisphere);
    grid.zone = params.zone;
    GridFromPixel(params, x, y, &grid);
    if (grid.northing < 0.0) {
        grid.northing += UTM_SOUTHERN_FALSE_NORTHING;
        grid.hemisphere = params.hemisphere == 'N' ? 'S' : 'N';
    }
    *out = MakeKoord(DatumOf(*map), KOORD_UTM);
    Store(*out, grid);
    return KOORD_OK;
}

KoordStatus MapUtm_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    const auto params = Load<MapUtmParams>(*map);
    UtmPayload grid{};
    grid.hemisphere = Hemisphere(params.hemisphere);
    grid.wantedZone = params.zone;
    const KoordStatus status = ToUtm(*map, *in, &grid);
    if (status != KOORD_OK) return status;

    if (grid.hemisphere == 'N' && params.hemisphere == 'S') grid.northing += UTM_SOUTHERN_FALSE_NORTHING;
    if (grid.hemisphere == 'S' && params.hemisphere == 'N') grid.northing -= UTM_SOUTHERN_FALSE_NORTHING;
    PixelFromGrid(params, grid, x, y);
    return KOORD_OK;
}

KoordStatus MapGk_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    return StripPixelToWorld(GK_MAP, *map, x, y, out);
}

KoordStatus MapGk_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    return StripWorldToPixel(GK_MAP, *map, *in, x, y);
}

KoordStatus MapGk6_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    return StripPixelToWorld(GK6_MAP, *map, x, y, out);
}

KoordStatus MapGk6_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    return StripWorldToPixel(GK6_MAP, *map, *in, x, y);
}

KoordStatus MapBmn_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    BmnPayload grid{};
    grid.wantedMeridian = Load<MapBmnParams>(*map).meridian;
    grid.meridian = grid.wantedMeridian;
    return PlainPixelToWorld<MapBmnParams>(*map, KOORD_BMN, grid, x, y, out);
}

KoordStatus MapBmn_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    BmnPayload grid{};
    grid.wantedMeridian = Load<MapBmnParams>(*map).meridian;
    return PlainWorldToPixel<MapBmnParams>(*map, KOORD_BMN, grid, *in, CheckFor(*in, KOORD_BMN), x, y);
}

KoordStatus MapUps_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    UpsPayload grid{};
    grid.hemisphere = Hemisphere(Load<MapUpsParams>(*map).hemisphere);
    return PlainPixelToWorld<MapUpsParams>(*map, KOORD_UPS, grid, x, y, out);
}

KoordStatus MapUps_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    UpsPayload grid{};
    grid.hemisphere = Hemisphere(Load<MapUpsParams>(*map).hemisphere);
    return PlainWorldToPixel<MapUpsParams>(*map, KOORD_UPS, grid, *in, RangeCheck::Off, x, y);
}

KoordStatus MapTm_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const TmPayload grid = TmConstantsOf(Load<MapTmParams>(*map));
    return PlainPixelToWorld<MapTmParams>(*map, KOORD_TM, grid, x, y, out);
}

KoordStatus MapTm_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    const TmPayload grid = TmConstantsOf(Load<MapTmParams>(*map));
    return PlainWorldToPixel<MapTmParams>(*map, KOORD_TM, grid, *in, CheckFor(*in, KOORD_TM), x, y);
}

KoordStatus MapRd_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    return PlainPixelToWorld<MapPlaneParams>(*map, KOORD_RD, GridPayload{}, x, y, out);
}

KoordStatus MapRd_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    return PlainWorldToPixel<MapPlaneParams>(*map, KOORD_RD, GridPayload{}, *in, CheckFor(*in, KOORD_RD), x,
                                             y);
}

// Offsets from the origin are whole metres: 0.5 is added whatever the sign, and the result is truncated.
// Negative offsets thus round differently, which is part of the contract.
KoordStatus MapCh_PixelToWorld(const MapParam* map, double x, double y, tagKOORD* out) {
    const auto params = Load<MapPlaneParams>(*map);
    const std::int32_t east = TruncateToInt32(x * params.metresPerPixelX + 0.5);
    const std::int32_t south = TruncateToInt32(y * params.metresPerPixelY + 0.5);
    // Not a number, or an offset beyond 32 bits.
    if (east == INT32_MIN || south == INT32_MIN) return KOORD_OK;
    *out = MakeKoord(DatumOf(*map), KOORD_CH);
    Store(*out, GridPayload{east + params.originEasting, params.originNorthing - south});
    return KOORD_OK;
}

KoordStatus MapCh_WorldToPixel(const MapParam* map, const tagKOORD* in, double* x, double* y) {
    return PlainWorldToPixel<MapPlaneParams>(*map, KOORD_CH, GridPayload{}, *in, CheckFor(*in, KOORD_CH), x,
                                             y);
}

}  // namespace tessara

#include "conversion/statuses.h"

#include <algorithm>
#include <iterator>

namespace tessara::toolkit {
namespace {

struct StatusRow {
    KoordStatus status;
    const char* code;
    const char* reason;
};

constexpr StatusRow UNKNOWN{KOORD_ERR_GENERAL, "no-position", "the system has no such position"};

constexpr StatusRow ROWS[] = {
    UNKNOWN,
    {KOORD_ERR_DATUM, "datum", "there is no such datum"},
    {KOORD_ERR_MERIDIAN, "strip", "there is no such strip or meridian"},
    {KOORD_ERR_UTM_ZONE, "zone", "zones are 1 to 60"},
    {KOORD_ERR_ZONE_DISTANT, "distant-zone", "the wanted zone is too far from the position"},
    {KOORD_ERR_GRID_RANGE, "outside-grid", "it is outside the grid, or its letters aren't the grid's"},
    {KOORD_ERR_TYPE, "not-convertible", "nothing is converted to or from this system"},
    {KOORD_ERR_OUTSIDE, "outside-area", "it is outside the area of the system"},
    {KOORD_ERR_UTM_LON, "longitude", "the longitude is outside -180..180"},
    {KOORD_ERR_UTM_LAT, "latitude", "the latitude is outside -80..84"},
    {KOORD_ERR_GEO_LAT, "latitude", "the latitude is outside -90..90, or a part of it isn't below 60"},
    {KOORD_ERR_GEO_LON, "longitude", "the longitude is outside -360..360, or a part of it isn't below 60"},
    {KOORD_ERR_HEMISPHERE, "hemisphere", "the letter of the hemisphere is unknown"},
    {KOORD_ERR_GEOREF_LON_ZONE, "letter", "the first letter is unknown"},
    {KOORD_ERR_GEOREF_LAT_ZONE, "letter", "the second letter is unknown"},
    {KOORD_ERR_GEOREF_LON_DEGREE, "letter", "the third letter is unknown"},
    {KOORD_ERR_GEOREF_LAT_DEGREE, "letter", "the fourth letter is unknown"},
    {KOORD_ERR_GEOREF_LON_MINUTES, "minutes", "the minutes of longitude aren't below 60"},
    {KOORD_ERR_GEOREF_LAT_MINUTES, "minutes", "the minutes of latitude aren't below 60"},
    {KOORD_ERR_CH_EAST_LOW, "easting", "the easting is below -200000"},
    {KOORD_ERR_CH_EAST_HIGH, "easting", "the easting is above 1500000"},
    {KOORD_ERR_CH_NORTH_LOW, "northing", "the northing is below -300000"},
    {KOORD_ERR_CH_NORTH_HIGH, "northing", "the northing is above 600000"},
    {KOORD_ERR_GK_LAT, "latitude", "the latitude is outside -80..80"},
    {KOORD_ERR_GK_EAST, "outside-strip",
     "the longitude is outside the area, or the easting leaves its strip"},
    {KOORD_ERR_GEOREF_PRECISION, "digits", "minutes have 2, 3 or 4 digits"},
    {KOORD_ERR_AT_LON, "longitude", "the longitude is outside 8.8333..17.8333, the Austrian limits"},
    {KOORD_ERR_AT_LAT, "latitude", "the latitude is outside 45..51, the Austrian limits"},
    {KOORD_ERR_UPS, "latitude", "the latitude isn't within 10 degrees of a pole"},
    {KOORD_ERR_GRID_LETTER, "letter", "the second letter of the square is unknown"},
    {KOORD_ERR_EAST_LOW, "east", "it is west of the area of the system"},
    {KOORD_ERR_EAST_HIGH, "east", "it is east of the area of the system"},
    {KOORD_ERR_NORTH_HIGH, "north", "it is north of the area of the system"},
    {KOORD_ERR_NORTH_LOW, "north", "it is south of the area of the system"},
};

const StatusRow& RowOf(KoordStatus status) {
    const StatusRow* const found = std::find_if(std::begin(ROWS), std::end(ROWS),
                                                [&](const StatusRow& row) { return row.status == status; });
    return found != std::end(ROWS) ? *found : UNKNOWN;
}

}  // namespace

const char* StatusCode(KoordStatus status) {
    return RowOf(status).code;
}

const char* StatusReason(KoordStatus status) {
    return RowOf(status).reason;
}

}  // namespace tessara::toolkit

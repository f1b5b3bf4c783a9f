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

constexpr StatusRow UNKNOWN{KOORD_ERR_GENERAL, "no-position", "the system cannot represent the position"};

constexpr StatusRow STATUS_ROWS[] = {
    UNKNOWN,
    {KOORD_ERR_DATUM, "datum", "unknown datum"},
    {KOORD_ERR_MERIDIAN, "strip", "unknown strip or meridian"},
    {KOORD_ERR_UTM_ZONE, "zone", "the zone is outside 1..60"},
    {KOORD_ERR_ZONE_DISTANT, "distant-zone", "the wanted zone is too far from the position"},
    {KOORD_ERR_GRID_RANGE, "outside-grid",
     "the position is outside the grid, or its letters do not belong to the grid"},
    {KOORD_ERR_TYPE, "not-convertible", "conversion to and from this system is not supported"},
    {KOORD_ERR_OUTSIDE, "outside-area", "the position is outside the area of the system"},
    {KOORD_ERR_UTM_LON, "longitude", "the longitude is outside -180..180"},
    {KOORD_ERR_UTM_LAT, "latitude", "the latitude is outside -80..84"},
    {KOORD_ERR_GEO_LAT, "latitude",
     "the latitude is outside -90..90, or its minutes or seconds are 60 or more"},
    {KOORD_ERR_GEO_LON, "longitude",
     "the longitude is outside -360..360, or its minutes or seconds are 60 or more"},
    {KOORD_ERR_HEMISPHERE, "hemisphere", "the hemisphere letter is invalid"},
    {KOORD_ERR_GEOREF_LON_ZONE, "letter", "the first letter is invalid"},
    {KOORD_ERR_GEOREF_LAT_ZONE, "letter", "the second letter is invalid"},
    {KOORD_ERR_GEOREF_LON_DEGREE, "letter", "the third letter is invalid"},
    {KOORD_ERR_GEOREF_LAT_DEGREE, "letter", "the fourth letter is invalid"},
    {KOORD_ERR_GEOREF_LON_MINUTES, "minutes", "the minutes of longitude are 60 or more"},
    {KOORD_ERR_GEOREF_LAT_MINUTES, "minutes", "the minutes of latitude are 60 or more"},
    {KOORD_ERR_CH_EAST_LOW, "easting", "the easting is below -200000"},
    {KOORD_ERR_CH_EAST_HIGH, "easting", "the easting is above 1500000"},
    {KOORD_ERR_CH_NORTH_LOW, "northing", "the northing is below -300000"},
    {KOORD_ERR_CH_NORTH_HIGH, "northing", "the northing is above 600000"},
    {KOORD_ERR_GK_LAT, "latitude", "the latitude is outside -80..80"},
    {KOORD_ERR_GK_EAST, "outside-strip",
     "the longitude is outside the area, or the easting is outside its strip"},
    {KOORD_ERR_GEOREF_PRECISION, "digits",
     "longitude 180 and latitude 90 have no GEOREF, and minutes must have 2, 3 or 4 digits"},
    {KOORD_ERR_AT_LON, "longitude", "the longitude is outside 8.8333..17.8333, the Austrian limits"},
    {KOORD_ERR_AT_LAT, "latitude", "the latitude is outside 45..51, the Austrian limits"},
    {KOORD_ERR_UPS, "latitude", "the latitude or the hemisphere letter is outside UPS"},
    {KOORD_ERR_GRID_LETTER, "letter", "the second letter of the square is invalid"},
    {KOORD_ERR_EAST_LOW, "east", "the longitude or easting is below the limit of the system"},
    {KOORD_ERR_EAST_HIGH, "east", "the longitude or easting is above the limit of the system"},
    {KOORD_ERR_NORTH_HIGH, "north", "the latitude or northing is above the limit of the system"},
    {KOORD_ERR_NORTH_LOW, "north", "the latitude or northing is below the limit of the system"},
};

const StatusRow& RowOf(KoordStatus status) {
    const StatusRow* const found = std::find_if(std::begin(STATUS_ROWS), std::end(STATUS_ROWS),
                                                [&](const StatusRow& row) { return row.status == status; });
    return found != std::end(STATUS_ROWS) ? *found : UNKNOWN;
}

}  // namespace

const char* StatusCode(KoordStatus status) {
    return RowOf(status).code;
}

const char* StatusReason(KoordStatus status) {
    return RowOf(status).reason;
}

}  // namespace tessara::toolkit

// The status codes of the kernel: 1 is success, 0 the failure of Geodesic_Inverse, all others are negative.
// No other file defines one.
#pragma once

#include <cstdint>

namespace tessara {

using KoordStatus = std::int32_t;

inline constexpr KoordStatus KOORD_OK = 1;              // success
inline constexpr KoordStatus GEODESIC_NO_SOLUTION = 0;  // no geodesic was found

inline constexpr KoordStatus KOORD_ERR_GENERAL = -3000;        // unresolvable reference or grid
inline constexpr KoordStatus KOORD_ERR_DATUM = -3104;          // datum id outside 0..238
inline constexpr KoordStatus KOORD_ERR_MERIDIAN = -3204;       // illegal strip prefix or meridian field
inline constexpr KoordStatus KOORD_ERR_UTM_ZONE = -3208;       // UTM zone outside 1..60 on input
inline constexpr KoordStatus KOORD_ERR_ZONE_DISTANT = -3209;   // wanted zone far off; the result is complete
inline constexpr KoordStatus KOORD_ERR_GRID_RANGE = -3210;     // outside the grid, or letters not in it
inline constexpr KoordStatus KOORD_ERR_MAP_TYPE = -3300;       // unknown map type
inline constexpr KoordStatus KOORD_ERR_POLYNOM_ORDER = -3304;  // polynomial order a map doesn't support
inline constexpr KoordStatus KOORD_ERR_TYPE = -3400;           // coordinate type not convertible here
inline constexpr KoordStatus KOORD_ERR_PIXEL_TYPE = -3404;     // a map function got a record without pixels
inline constexpr KoordStatus KOORD_ERR_OUTSIDE = -3410;        // the position has no GEOREF letters

// Internal: the limits of this target type are checked on the finished record. No conversion returns it.
inline constexpr KoordStatus KOORD_CHECK_AFTER = -3705;  // internal

inline constexpr KoordStatus KOORD_ERR_UTM_LON = -3706;             // UTM or UTMREF longitude
inline constexpr KoordStatus KOORD_ERR_UTM_LAT = -3708;             // UTM or UTMREF latitude
inline constexpr KoordStatus KOORD_ERR_GEO_LAT = -3713;             // geographic latitude or its parts
inline constexpr KoordStatus KOORD_ERR_GEO_LON = -3714;             // geographic longitude or its parts
inline constexpr KoordStatus KOORD_ERR_HEMISPHERE = -3721;          // letter neither of the two nor zero
inline constexpr KoordStatus KOORD_ERR_GEOREF_LON_ZONE = -3722;     // first GEOREF letter
inline constexpr KoordStatus KOORD_ERR_GEOREF_LAT_ZONE = -3723;     // second GEOREF letter
inline constexpr KoordStatus KOORD_ERR_GEOREF_LON_DEGREE = -3724;   // third GEOREF letter
inline constexpr KoordStatus KOORD_ERR_GEOREF_LAT_DEGREE = -3725;   // fourth GEOREF letter
inline constexpr KoordStatus KOORD_ERR_GEOREF_LON_MINUTES = -3726;  // minutes beyond the degree
inline constexpr KoordStatus KOORD_ERR_GEOREF_LAT_MINUTES = -3727;  // minutes beyond the degree
inline constexpr KoordStatus KOORD_ERR_CH_EAST_LOW = -3728;         // easting below -200000
inline constexpr KoordStatus KOORD_ERR_CH_EAST_HIGH = -3729;        // easting above 1500000
inline constexpr KoordStatus KOORD_ERR_CH_NORTH_LOW = -3730;        // northing below -300000
inline constexpr KoordStatus KOORD_ERR_CH_NORTH_HIGH = -3731;       // northing above 600000
inline constexpr KoordStatus KOORD_ERR_GK_LAT = -3732;              // GK or GK6 latitude
inline constexpr KoordStatus KOORD_ERR_GK_EAST = -3733;  // GK or GK6 longitude, or easting left the strip
inline constexpr KoordStatus KOORD_ERR_GEOREF_PRECISION = -3734;  // precision not 3, 4 or 5
inline constexpr KoordStatus KOORD_ERR_AT_LON = -3740;            // longitude outside the Austrian limits
inline constexpr KoordStatus KOORD_ERR_AT_LAT = -3741;            // latitude outside the Austrian limits
inline constexpr KoordStatus KOORD_ERR_UPS = -3749;               // UPS hemisphere letter or latitude
inline constexpr KoordStatus KOORD_ERR_GRID_LETTER = -3750;       // second BNG or ING letter; reserved
inline constexpr KoordStatus KOORD_ERR_EAST_LOW = -3760;          // longitude or easting below its limit
inline constexpr KoordStatus KOORD_ERR_EAST_HIGH = -3761;         // longitude or easting above its limit
inline constexpr KoordStatus KOORD_ERR_NORTH_HIGH = -3762;        // latitude or northing above its limit
inline constexpr KoordStatus KOORD_ERR_NORTH_LOW = -3763;         // latitude or northing below its limit

namespace internal {

struct StatusText {
    KoordStatus status;
    const char* text;
};

inline constexpr StatusText STATUS_TEXTS[] = {
    {KOORD_OK, "success"},
    {GEODESIC_NO_SOLUTION, "no geodesic was found"},
    {KOORD_ERR_GENERAL, "the reference or the grid can't be resolved"},
    {KOORD_ERR_DATUM, "the datum number is outside 0..238"},
    {KOORD_ERR_MERIDIAN, "the strip number or the meridian is illegal"},
    {KOORD_ERR_UTM_ZONE, "the UTM zone is outside 1..60"},
    {KOORD_ERR_ZONE_DISTANT, "the wanted zone is far from the position"},
    {KOORD_ERR_GRID_RANGE, "the position is outside the grid"},
    {KOORD_ERR_MAP_TYPE, "the map type is unknown"},
    {KOORD_ERR_POLYNOM_ORDER, "maps have no polynomials of this order"},
    {KOORD_ERR_TYPE, "the coordinate type can't be converted here"},
    {KOORD_ERR_PIXEL_TYPE, "the record is no pixel"},
    {KOORD_ERR_OUTSIDE, "the position is outside the area of the projection"},
    {KOORD_CHECK_AFTER, "to be decided on the finished record"},
    {KOORD_ERR_UTM_LON, "the longitude is outside the UTM zone"},
    {KOORD_ERR_UTM_LAT, "the latitude is outside 80 south to 84 north"},
    {KOORD_ERR_GEO_LAT, "the latitude, or a part of it, is out of range"},
    {KOORD_ERR_GEO_LON, "the longitude, or a part of it, is out of range"},
    {KOORD_ERR_HEMISPHERE, "the hemisphere letter is wrong"},
    {KOORD_ERR_GEOREF_LON_ZONE, "the first GEOREF letter is wrong"},
    {KOORD_ERR_GEOREF_LAT_ZONE, "the second GEOREF letter is wrong"},
    {KOORD_ERR_GEOREF_LON_DEGREE, "the third GEOREF letter is wrong"},
    {KOORD_ERR_GEOREF_LAT_DEGREE, "the fourth GEOREF letter is wrong"},
    {KOORD_ERR_GEOREF_LON_MINUTES, "the GEOREF minutes of longitude are out of range"},
    {KOORD_ERR_GEOREF_LAT_MINUTES, "the GEOREF minutes of latitude are out of range"},
    {KOORD_ERR_CH_EAST_LOW, "the easting is below the limit of the Swiss grid"},
    {KOORD_ERR_CH_EAST_HIGH, "the easting is above the limit of the Swiss grid"},
    {KOORD_ERR_CH_NORTH_LOW, "the northing is below the limit of the Swiss grid"},
    {KOORD_ERR_CH_NORTH_HIGH, "the northing is above the limit of the Swiss grid"},
    {KOORD_ERR_GK_LAT, "the latitude is outside the Gauss-Krueger area"},
    {KOORD_ERR_GK_EAST, "the longitude or the easting is outside the Gauss-Krueger strip"},
    {KOORD_ERR_GEOREF_PRECISION, "the GEOREF precision isn't 3, 4 or 5"},
    {KOORD_ERR_AT_LON, "the longitude is outside the Austrian limits"},
    {KOORD_ERR_AT_LAT, "the latitude is outside the Austrian limits"},
    {KOORD_ERR_UPS, "the latitude or the hemisphere letter is outside UPS"},
    {KOORD_ERR_GRID_LETTER, "the second grid letter is wrong"},
    {KOORD_ERR_EAST_LOW, "the position is west of the area of the system"},
    {KOORD_ERR_EAST_HIGH, "the position is east of the area of the system"},
    {KOORD_ERR_NORTH_HIGH, "the position is north of the area of the system"},
    {KOORD_ERR_NORTH_LOW, "the position is south of the area of the system"},
};

}  // namespace internal

// The meaning of a status as a clause without a full stop: "the datum number is outside 0..238". It is for
// messages; programs compare numbers. "unknown status" for any other number.
[[nodiscard]] constexpr const char* Koord_StatusText(KoordStatus status) {
    for (const internal::StatusText& row : internal::STATUS_TEXTS) {
        if (row.status == status) return row.text;
    }
    return "unknown status";
}

}  // namespace tessara

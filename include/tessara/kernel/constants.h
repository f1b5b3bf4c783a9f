// Numbers that are part of the contract. pi/180 and 180/pi are truncated decimals on purpose: results depend
// on their last bits, and stored ones must agree to the last digit.
#pragma once

#include <cstdint>

namespace tessara {

inline constexpr double RADIANS_PER_DEGREE = 0.0174532925199433;
inline constexpr double DEGREES_PER_RADIAN = 57.29577951308232;
inline constexpr double PI = 3.141592653589793;
inline constexpr double HALF_PI = 1.5707963267948966;
inline constexpr double QUARTER_PI = 0.7853981633974483;
inline constexpr double TWO_PI = 6.283185307179586;

inline constexpr std::int32_t DATUM_COUNT = 239;
inline constexpr std::int32_t DATUM_SPHERE = 0;
inline constexpr std::int32_t DATUM_WGS84 = 2;  // the hub of all datum shifts
inline constexpr std::int32_t DATUM_KKJ = 8;    // counts its GK strips from 18 degrees east
inline constexpr double WGS84_A = 6378137.0;
inline constexpr double WGS84_F = 0.0033528106647474805;

// The false northing of UTM in the south: there the equator has the northing 10000000 m.
inline constexpr double UTM_SOUTHERN_FALSE_NORTHING = 1.0e7;

// The easting of the central meridian of a zone or strip.
inline constexpr double ZONE_FALSE_EASTING = 500000.0;
inline constexpr std::int16_t UTM_ZONE_COUNT = 60;
inline constexpr std::int16_t DEFAULT_UTM_ZONE = 30;  // of a position that nothing is known of

// The central meridian of a UTM zone, in whole degrees.
[[nodiscard]] constexpr std::int32_t UtmMeridian(std::int32_t zone) {
    return 6 * zone - 183;
}
[[nodiscard]] constexpr bool IsUtmZone(std::int32_t zone) {
    return zone >= 1 && zone <= UTM_ZONE_COUNT;
}

// The factor of the strip number in an easting.
inline constexpr double STRIP_MILLION = 1.0e6;

// The Austrian meridians in degrees east of Ferro, and the eastings of their central lines.
inline constexpr std::int16_t AUSTRIAN_MERIDIANS[3] = {28, 31, 34};
inline constexpr double BMN_FIRST_CENTRE = 150000.0;
inline constexpr double OEM_FIRST_CENTRE = 450000.0;
inline constexpr double AUSTRIAN_CENTRE_STEP = 300000.0;

// The side of the squares of UTMREF, BNG and ING.
inline constexpr double SQUARE_METRES = 100000.0;

inline constexpr std::int32_t NO_DATUM = 999;
inline constexpr std::int32_t NO_SYSTEM = -1;
inline constexpr std::int16_t NO_WANTED_ZONE = -1000;  // also "no wanted meridian"
inline constexpr std::int16_t PRECISION_UNSET = 32767;
inline constexpr double UNKNOWN_DIFFERENCE = 2.2250738585072014e-308;
inline constexpr std::int32_t UNKNOWN_ZONE = INT32_MIN;
inline constexpr double MISSING_NUMBER = -1.7976931348623157e308;  // no result
inline constexpr double RAY_IN_PLANE = 1.7976931348623157e308;     // instead of the one place of a hit

}  // namespace tessara

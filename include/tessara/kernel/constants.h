// Numbers that are part of the contract. They are written exactly as the contract has them: pi/180 and
// 180/pi are truncated decimals, and results depend on their last bits.
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

// What UTM counts the northings of the southern hemisphere up by: there the equator is at 10000000 metres.
inline constexpr double UTM_SOUTHERN_FALSE_NORTHING = 1.0e7;

inline constexpr std::int32_t NO_DATUM = 999;
inline constexpr std::int32_t NO_SYSTEM = -1;
inline constexpr std::int16_t NO_WANTED_ZONE = -1000;  // also "no wanted meridian"
inline constexpr std::int16_t PRECISION_UNSET = 32767;
inline constexpr double UNKNOWN_DIFFERENCE = 2.2250738585072014e-308;
inline constexpr std::int32_t UNKNOWN_ZONE = INT32_MIN;
inline constexpr double MISSING_NUMBER = -1.7976931348623157e308;  // no result
inline constexpr double RAY_IN_PLANE = 1.7976931348623157e308;     // instead of the one place of a hit

}  // namespace tessara

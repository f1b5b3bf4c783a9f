// What the zoned grids' conversions of one position and of many share.
#pragma once

#include <cstdint>

#include "numerics/rounding.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/limits.h"

namespace tessara::zones {

inline constexpr double UTM_SCALE = 0.9996;

// A military reference has whole metres, and this is one.
inline constexpr double UTMREF_SNAP_DEGREES = 1e-5;

inline constexpr double STRIP_EASTING_END = 999999.999999;
inline constexpr double STRIP_SCALE = 1.0;

// The properties in which the strip systems differ.
struct StripSystem {
    std::int32_t width;      // degrees from one meridian to the next
    std::int32_t offset;     // strip n has the meridian n * width - offset, strip -n its negative
    std::int32_t kkjOrigin;  // degrees; on the datum KKJ strips count from here
    Limits limits;
};

inline constexpr StripSystem GK{3, 0, 18, GK_LIMITS};
inline constexpr StripSystem GK6{6, 3, 0, GK6_LIMITS};

[[nodiscard]] constexpr bool IsStripMeridian(const StripSystem& system, std::int32_t meridian) {
    return (meridian + system.offset) % system.width == 0 && meridian > -181 && meridian < 181;
}

[[nodiscard]] constexpr std::int32_t StripOrigin(const StripSystem& system, std::int32_t datum) {
    return datum == DATUM_KKJ ? system.kkjOrigin : 0;
}

// The meridian that a longitude lies nearest to, before whole turns are taken off; `truncate` cuts toward
// zero.

// Counted from Greenwich eastward for side 1 and westward for -1.
[[nodiscard]] constexpr double SixDegreeMeridian(double lon, double side) {
    return Trunc((lon + side * 6.0) / 6.0) * 6.0 - side * 3.0;
}
[[nodiscard]] constexpr double UtmMeridianOf(double lon) {
    return SixDegreeMeridian(lon, lon > 0.0 ? 1.0 : -1.0);
}
[[nodiscard]] constexpr double Gk6MeridianOf(double lon) {
    return SixDegreeMeridian(lon, lon >= 0.0 ? 1.0 : -1.0);
}
[[nodiscard]] constexpr double GkMeridianOf(double lon) {
    return Trunc((lon + (lon >= 0.0 ? 1.5 : -1.5)) / 3.0) * 3.0;
}

[[nodiscard]] constexpr bool IsSouth(char hemisphere) {
    return hemisphere == 'S' || hemisphere == 's';
}

// The distance to the equator, on which no position lies south.
[[nodiscard]] constexpr double NorthOfEquator(double latitude, double north) {
    return latitude == 0.0 && north < 0.0 ? 0.0 : north;
}

// The northing of either hemisphere.
[[nodiscard]] constexpr double UtmNorthing(double northOfEquator) {
    return northOfEquator < 0.0 ? northOfEquator + UTM_SOUTHERN_FALSE_NORTHING : northOfEquator;
}

}  // namespace tessara::zones

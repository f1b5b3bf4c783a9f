// A position that many of the headers' examples use: 48.1375 north 11.5755 east on WGS84.
#pragma once

namespace tessara::testing {

// In UTM zone 32, by GeoConvert -u -p 6.
inline constexpr double MUNICH_EASTING = 691602.659687;
inline constexpr double MUNICH_NORTHING = 5334791.144536;

// The headers say three decimals.
inline constexpr double HALF_MILLIMETRE = 0.0005;

}  // namespace tessara::testing

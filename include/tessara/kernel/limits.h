// The limits of the systems. A limit belongs to the area: only values beyond it are outside. Conversions
// move a value closer than the tolerance onto the limit.
#pragma once

namespace tessara {

struct Limits {
    double west, east;
    double south, north;
};

// Degrees of longitude and latitude.
inline constexpr Limits UTM_LIMITS{-180.0, 180.0, -80.0, 84.0};  // also UTMREF
inline constexpr Limits GEOGRAPHIC_LIMITS{-360.0, 360.0, -90.0, 90.0};
inline constexpr Limits GK_LIMITS{-181.5, 181.5, -80.0, 80.0};
inline constexpr Limits GK6_LIMITS{-180.0, 180.0, -80.0, 80.0};
inline constexpr Limits AUSTRIAN_LIMITS{8.833333333333332, 17.833333333333332, 45.0,
                                        51.0};  // BMN, OEM, GK-AT

// Metres of easting and northing.
inline constexpr Limits CH_LIMITS{-200000.0, 1500000.0, -300000.0, 600000.0};
inline constexpr Limits BNG_LIMITS{0.0, 700000.0, 0.0, 1300000.0};
inline constexpr Limits ING_LIMITS{0.0, 500000.0, 0.0, 500000.0};
inline constexpr Limits RD_LIMITS{-100000.0, 400000.0, 200000.0, 700000.0};
inline constexpr Limits PO_MILITARY_LIMITS{-800000.0, 1200000.0, -700000.0, 1300000.0};
inline constexpr Limits LUREF_LIMITS{0.0, 200000.0, 0.0, 200000.0};

// A value at less than this distance from a limit becomes the limit.
inline constexpr double LIMIT_TOLERANCE_DEGREES = 1e-7;
inline constexpr double LIMIT_TOLERANCE_METRES = 0.0001;

}  // namespace tessara

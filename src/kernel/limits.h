// Where each system ends: the limits the range tests compare with and the conversions snap onto.
// Latitudes and longitudes in degrees, grid values in metres.
#pragma once

namespace tessara {

inline constexpr double UTM_LATITUDE_SOUTH = -80.0;
inline constexpr double UTM_LATITUDE_NORTH = 84.0;

inline constexpr double GK_LATITUDE = 80.0;
inline constexpr double GK_LONGITUDE = 181.5;

inline constexpr double AUSTRIA_WEST = 8.833333333333332;
inline constexpr double AUSTRIA_EAST = 17.833333333333332;
inline constexpr double AUSTRIA_SOUTH = 45.0;
inline constexpr double AUSTRIA_NORTH = 51.0;

inline constexpr double CH_WEST = -200000.0;
inline constexpr double CH_EAST = 1500000.0;
inline constexpr double CH_SOUTH = -300000.0;
inline constexpr double CH_NORTH = 600000.0;

inline constexpr double PO_MILITARY_WEST = -800000.0;
inline constexpr double PO_MILITARY_EAST = 1200000.0;
inline constexpr double PO_MILITARY_SOUTH = -700000.0;
inline constexpr double PO_MILITARY_NORTH = 1300000.0;

inline constexpr double RD_WEST = -100000.0;
inline constexpr double RD_EAST = 400000.0;
inline constexpr double RD_SOUTH = 200000.0;
inline constexpr double RD_NORTH = 700000.0;

inline constexpr double LUREF_LOW = 0.0;  // both axes
inline constexpr double LUREF_HIGH = 200000.0;

inline constexpr double BNG_EAST = 700000.0;
inline constexpr double BNG_NORTH = 1300000.0;
inline constexpr double ING_EAST = 500000.0;
inline constexpr double ING_NORTH = 500000.0;

}  // namespace tessara

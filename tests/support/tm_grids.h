// Shared tests of the grids based on transverse Mercator: their accuracy, and the effect of their limits on
// positions nearby.
#pragma once

#include <gtest/gtest.h>

#include <cmath>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/limits.h"

namespace tessara::testing {

// Metres; divided by 111 km degrees.
inline constexpr double REFERENCE_TOLERANCE = 5e-6;
// The coefficient 1/61440 of the inverse series costs 1.3e-6.
inline constexpr double ROUND_TRIP_TOLERANCE = 2e-6;
inline constexpr double METRES_PER_DEGREE = 111000.0;

struct Geodetic {
    KoordStatus status;
    double lat;
    double lon;
};

inline void ExpectPosition(const Geodetic& position, double lat, double lon, double metres) {
    const double degrees = metres / METRES_PER_DEGREE;
    EXPECT_EQ(position.status, KOORD_OK);
    EXPECT_NEAR(position.lat, lat, degrees);
    EXPECT_NEAR(position.lon, lon, degrees / std::cos(lat * RADIANS_PER_DEGREE));
}

// A position strictly closer to a limit than 1e-7 degrees is on the limit. `outAndBack` takes a latitude and
// a longitude through the grid; (lat, lon) is some position well inside.
template <class OutAndBack>
void ExpectLimitsAttract(const OutAndBack& outAndBack, const Limits& limits, double lat, double lon) {
    for (const double near : {-5e-8, 5e-8}) {
        EXPECT_EQ(outAndBack(limits.south + near, lon).lat, limits.south);
        EXPECT_EQ(outAndBack(limits.north + near, lon).lat, limits.north);
    }
    EXPECT_EQ(outAndBack(lat, limits.west + 5e-8).lon, limits.west);
    EXPECT_EQ(outAndBack(lat, limits.east - 5e-8).lon, limits.east);

    constexpr double far = 2e-7;
    EXPECT_NE(outAndBack(limits.south + far, lon).lat, limits.south);
    EXPECT_NE(outAndBack(limits.north - far, lon).lat, limits.north);
    EXPECT_NE(outAndBack(lat, limits.west + far).lon, limits.west);
    EXPECT_NE(outAndBack(lat, limits.east - far).lon, limits.east);
}

}  // namespace tessara::testing

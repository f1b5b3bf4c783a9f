// Single steps of a datum shift.
#pragma once

#include <cstdint>

#include "tessara/kernel/datum.h"

namespace tessara::testing {

struct LatLon {
    double latLon[2];

    [[nodiscard]] double Latitude() const { return latLon[0]; }
    [[nodiscard]] double Longitude() const { return latLon[1]; }
};

[[nodiscard]] inline LatLon Step(const HubParams& params, double latitude, double longitude,
                                 std::int32_t keepOnGlobe = 1) {
    LatLon position{{latitude, longitude}};
    Molodensky_Apply(&params, position.latLon, keepOnGlobe);
    return position;
}

// A unit sphere that is moved without changing its shape: N = M = 1, so a translation is an angle.
[[nodiscard]] inline HubParams UnitSphere(double dx, double dy, double dz) {
    return {.f = 0.0, .a = 1.0, .e2 = 0.0, .df = 0.0, .da = 0.0, .dx = dx, .dy = dy, .dz = dz};
}

}  // namespace tessara::testing

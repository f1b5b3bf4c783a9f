// Measures for tests of the geometry in space.
#pragma once

#include <cmath>

#include "support/coords.h"
#include "support/records.h"
#include "tessara/kernel/koord.h"
#include "tessara/ref.h"
#include "tessara/vector.h"

namespace tessara::testing {

inline constexpr double PI_180 = 3.14159265358979323846 / 180.0;
// Half the minor axis in metres.
inline constexpr double WGS84_B = 6356752.314245179;

// A valid coordinate at latitude, longitude and height.
[[nodiscard]] inline IRef<ICoord> Place(double latitude, double longitude, double height = 0.0,
                                        std::int32_t datum = DATUM_WGS84) {
    return CoordOf(GeodezRecord(latitude, longitude, height, datum));
}

[[nodiscard]] inline double Dot(const Vector& a, const Vector& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

[[nodiscard]] inline Vector Minus(const Vector& a, const Vector& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

[[nodiscard]] inline Vector Moved(const Vector& a, double t, const Vector& b) {
    return {a[0] + t * b[0], a[1] + t * b[1], a[2] + t * b[2]};
}

[[nodiscard]] inline double Distance(const Vector& a, const Vector& b) {
    return std::sqrt(Dot(Minus(a, b), Minus(a, b)));
}

[[nodiscard]] inline Vector XyzOf(const IRef<ICoord>& ecef) {
    const auto [x, y, z] = PayloadOf<EcefPayload>(ecef);
    return {x, y, z};
}

// The value of the equation of the WGS84 ellipsoid at a point, turned into metres of height near the surface.
[[nodiscard]] inline double HeightAboveWgs84(const Vector& p) {
    const double b = 6356752.314245179;
    const double r = std::hypot(p[0] / 6378137.0, p[1] / 6378137.0, p[2] / b);
    return (r - 1.0) * std::sqrt(Dot(p, p));
}

// The tolerance for the height of EcefVectorToCoord in metres, for a position on an ellipsoid of eccentricity
// squared `e2`. Its last step in latitude is up to 1e-6 degrees and the height belongs to the latitude before
// that step, 6.4e6 m * 1.75e-8 = 0.112 m times the tangent of the latitude; the very first latitude is off by
// e2 h / (N + h) sin cos, which is at most e2 h in height. On top of that the rounding of a latitude near 90
// degrees to 1.4e-14 degrees counts 6.4e6 m / p times as height, where p is the distance from the axis.
[[nodiscard]] inline double HeightLimit(double latitude, double height, double e2) {
    const double p = (6.4e6 + height) * std::cos(latitude * PI_180);
    const double fromLatitude = 0.112 * (1.0 + height / 6.4e6) * std::fabs(std::tan(latitude * PI_180));
    const double fromStart = 1.01 * e2 * std::fabs(height);
    return std::fmin(fromLatitude, fromStart) + 0.02 / std::fabs(p) + 1e-8;
}

}  // namespace tessara::testing

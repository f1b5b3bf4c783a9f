// Mathematics that the conformal conics and the world projections share. Angles are radians.
#pragma once

namespace tessara {

// Isometric latitude of the latitude `lat` on an ellipsoid of eccentricity `e` (0.0: the sphere),
// Snyder, "Map Projections: A Working Manual", USGS Professional Paper 1395, 1987, section 3. Infinite at a
// pole.
[[nodiscard]] double IsometricLatitude(double e, double lat);

// Inverse hyperbolic tangent: infinite at -1 and 1, NaN beyond them.
[[nodiscard]] double Atanh(double x);

// 1.0, -1.0, or 0.0 for a zero of either sign and for NaN.
[[nodiscard]] double SignOf(double x);

}  // namespace tessara

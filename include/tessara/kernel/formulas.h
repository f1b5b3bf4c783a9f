// Formulas that several projections and maps share.
#pragma once

namespace tessara {

// -- Mathematics of the conformal conics and the world projections. Angles are radians.

// The isometric latitude of `lat` on an ellipsoid of eccentricity `e` (0.0 for the sphere), Snyder, "Map
// Projections: A Working Manual", USGS Professional Paper 1395, 1987, section 3. Infinite at a pole.
[[nodiscard]] double IsometricLatitude(double e, double lat);

// The inverse hyperbolic tangent: infinite at -1 and 1, NaN beyond them.
[[nodiscard]] double Atanh(double x);

// 1.0, -1.0, or 0.0 for a zero of either sign and for NaN.
[[nodiscard]] double SignOf(double x);

// -- The polynomials of calibrated maps: a coefficient array c and two doubles in any unit.

// c0 + c1 x + c2 y
[[nodiscard]] double Polynom_Linear(const double c[3], double x, double y);
// c0 + c1 x + c2 y + c3 xy
[[nodiscard]] double Polynom_Bilinear(const double c[4], double x, double y);
// c0 + c1 x + c2 y + c3 xy + c4 xx + c5 yy
[[nodiscard]] double Polynom_Quadratic(const double c[6], double x, double y);
// the quadratic + c6 xxy + c7 xyy + c8 xxx + c9 yyy
[[nodiscard]] double Polynom_Cubic(const double c[10], double x, double y);

}  // namespace tessara

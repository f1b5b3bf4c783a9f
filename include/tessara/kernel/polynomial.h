// The polynomials of calibrated maps: a coefficient array c and two doubles in any unit.
#pragma once

namespace tessara {

// c0 + c1 x + c2 y
[[nodiscard]] double Polynom_Linear(const double c[3], double x, double y);
// c0 + c1 x + c2 y + c3 xy
[[nodiscard]] double Polynom_Bilinear(const double c[4], double x, double y);
// c0 + c1 x + c2 y + c3 xy + c4 xx + c5 yy
[[nodiscard]] double Polynom_Quadratic(const double c[6], double x, double y);
// the quadratic + c6 xxy + c7 xyy + c8 xxx + c9 yyy
[[nodiscard]] double Polynom_Cubic(const double c[10], double x, double y);

}  // namespace tessara

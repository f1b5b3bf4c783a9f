#include "tessara/kernel/formulas.h"

#include "numerics/circular.h"
#include "numerics/logarithm.h"

namespace tessara {

double IsometricLatitude(double e, double lat) {
    const double sinLat = Sin(lat);
    return Atanh(sinLat) - e * Atanh(e * sinLat);
}

double Atanh(double x) {
    return 0.5 * Log((1.0 + x) / (1.0 - x));
}

double SignOf(double x) {
    if (x > 0.0) return 1.0;
    return x < 0.0 ? -1.0 : 0.0;
}

double Polynom_Linear(const double c[3], double x, double y) {
    return c[0] + c[1] * x + c[2] * y;
}

double Polynom_Bilinear(const double c[4], double x, double y) {
    return c[0] + c[1] * x + c[2] * y + c[3] * x * y;
}

double Polynom_Quadratic(const double c[6], double x, double y) {
    return c[0] + (c[4] * x + c[1]) * x + (c[5] * y + c[2]) * y + c[3] * x * y;
}

double Polynom_Cubic(const double c[10], double x, double y) {
    return Polynom_Quadratic(c, x, y) + c[6] * x * x * y + c[7] * y * y * x + c[8] * x * x * x +
           c[9] * y * y * y;
}

}  // namespace tessara

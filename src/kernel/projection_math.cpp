#include "tessara/kernel/projection_math.h"

#include <cmath>

namespace tessara {

double IsometricLatitude(double e, double lat) {
    const double sinLat = std::sin(lat);
    return Atanh(sinLat) - e * Atanh(e * sinLat);
}

double Atanh(double x) {
    return 0.5 * std::log((1.0 + x) / (1.0 - x));
}

double SignOf(double x) {
    if (x > 0.0) return 1.0;
    return x < 0.0 ? -1.0 : 0.0;
}

}  // namespace tessara

#include "numerics/arcs.h"

#include <limits>

#include "numerics/special_values.h"

namespace tessara::arcs {
namespace {

// Beside an infinite coordinate a finite one is nothing.
double Direction(double coordinate) {
    return TimesSignOf(Absolute(coordinate) == INFINITE ? 1.0 : 0.0, coordinate);
}

}  // namespace

double Atan2OfOther(double y, double x) {
    constexpr double scale = 0x1p600;
    const double larger = Absolute(x) < Absolute(y) ? Absolute(y) : Absolute(x);
    if (x != x || y != y) return std::numeric_limits<double>::quiet_NaN();
    if (larger == INFINITE) return Atan2Ordinary(Direction(y), Direction(x));
    // So far ahead nothing is left of the arctangent but its argument.
    if (x > 0.0 && Absolute(y) < x * 0x1p-60) return y / x;
    if (larger > GREATEST) return Atan2Ordinary(y / scale, x / scale);
    if (larger < LEAST) return Atan2Ordinary(y * scale, x * scale);
    return Atan2Ordinary(y, x);
}

}  // namespace tessara::arcs

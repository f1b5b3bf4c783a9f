#include "numerics/hypotenuse.h"

#include <cmath>

#include "numerics/double_pair.h"
#include "numerics/special_values.h"

namespace tessara {
namespace {

// Of magnitudes whose squares are normal numbers, or nothing beside each other.
double HypotOrdinary(double longer, double shorter) {
    const Pair square = Product(longer, longer);
    const Pair other = Product(shorter, shorter);
    const Pair sum = SumOfOrdered(square.high, other.high);
    const double root = std::sqrt(sum.high);
    const double rest = RestOfProduct(sum.high, root, root) + (sum.low + (square.low + other.low));
    return root + 0.5 * rest / root;
}

}  // namespace

double Hypot(double x, double y) {
    constexpr double greatest = 0x1p500;
    constexpr double least = 0x1p-400;
    constexpr double scale = 0x1p600;
    const double one = Absolute(x);
    const double other = Absolute(y);
    const double longer = one < other ? other : one;
    const double shorter = one < other ? one : other;
    if (longer >= least && longer <= greatest) return HypotOrdinary(longer, shorter);
    if (one == INFINITE || other == INFINITE) return INFINITE;
    if (longer == 0.0) return longer + shorter;
    return longer < 1.0 ? HypotOrdinary(longer * scale, shorter * scale) / scale
                        : HypotOrdinary(longer / scale, shorter / scale) * scale;
}

}  // namespace tessara

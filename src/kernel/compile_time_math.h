// Numbers of twice a double's digits, with square root, exponential and angle functions, for constants
// computed at compile time: right to the last place of the double that is kept, whatever a compiler's own
// longer numbers are.
//
// T. J. Dekker, "A floating-point technique for extending the available precision", Numerische Mathematik 18,
// 1971.
#pragma once

#include "numerics/double_pair.h"

namespace tessara::compile_time {

class Wide {
  public:
    constexpr Wide(double value) : pair_{value, 0.0} {}
    constexpr explicit Wide(Pair pair) : pair_(SumOfOrdered(pair.high, pair.low)) {}

    constexpr explicit operator double() const { return pair_.high; }
    [[nodiscard]] constexpr Pair Digits() const { return pair_; }

    friend constexpr Wide operator-(Wide x) { return Wide(Pair{-x.pair_.high, -x.pair_.low}); }

    friend constexpr Wide operator+(Wide x, Wide y) {
        const Pair highs = ExactSum(x.pair_.high, y.pair_.high);
        const Pair lows = ExactSum(x.pair_.low, y.pair_.low);
        const Pair sum = SumOfOrdered(highs.high, highs.low + lows.high);
        return Wide(Pair{sum.high, sum.low + lows.low});
    }

    friend constexpr Wide operator-(Wide x, Wide y) { return x + -y; }

    friend constexpr Wide operator*(Wide x, Wide y) {
        const Pair product = ExactProduct(x.pair_.high, y.pair_.high);
        const double low = product.low + (x.pair_.high * y.pair_.low + x.pair_.low * y.pair_.high);
        return Wide(Pair{product.high, low});
    }

    // By digits, as on paper.
    friend constexpr Wide operator/(Wide x, Wide y) {
        const double first = x.pair_.high / y.pair_.high;
        const Wide rest = x - y * Wide(Pair{first, 0.0});
        const double second = rest.pair_.high / y.pair_.high;
        const Wide last = rest - y * Wide(Pair{second, 0.0});
        return Wide(Pair{first, second}) + Wide(Pair{last.pair_.high / y.pair_.high, 0.0});
    }

    friend constexpr bool operator<(Wide x, Wide y) {
        return x.pair_.high < y.pair_.high || (x.pair_.high == y.pair_.high && x.pair_.low < y.pair_.low);
    }

  private:
    static constexpr Pair ExactProduct(double x, double y) {
        constexpr double splitter = 0x1p27 + 1.0;
        const double xUpper = splitter * x - (splitter * x - x);
        const double yUpper = splitter * y - (splitter * y - y);
        const double xLower = x - xUpper;
        const double yLower = y - yUpper;
        const double product = x * y;
        const double low =
            ((xUpper * yUpper - product) + xUpper * yLower + xLower * yUpper) + xLower * yLower;
        return {product, low};
    }

    Pair pair_;
};

// Newton's iteration from above, as long as it goes down.
constexpr Wide Sqrt(Wide x) {
    if (!(Wide(0.0) < x)) return 0.0;
    Wide root = Wide(1.0) < x ? x : 1.0;
    for (;;) {
        const Wide next = Wide(0.5) * (root + x / root);
        if (!(next < root)) return root;
        root = next;
    }
}

constexpr double NEGLIGIBLE = 0x1p-110;  // beside a sum of about 1

// Power series; for arguments of a few units.
constexpr Wide Exp(Wide x) {
    Wide term = 1.0;
    Wide sum = 1.0;
    for (double k = 1.0; Absolute(static_cast<double>(term)) > NEGLIGIBLE; k += 1.0) {
        term = term * x / k;
        sum = sum + term;
    }
    return sum;
}

// Power series, for |x| < 1; that of half the value, twice, converges sooner.
constexpr Wide Atanh(Wide x) {
    constexpr double slow = 0.3;
    if (Absolute(static_cast<double>(x)) > slow)
        return Wide(2.0) * Atanh(x / (Wide(1.0) + Sqrt(Wide(1.0) - x * x)));
    const Wide square = x * x;
    Wide power = x;
    Wide sum = x;
    for (double k = 3.0; Absolute(static_cast<double>(power)) > NEGLIGIBLE; k += 2.0) {
        power = power * square;
        sum = sum + power / k;
    }
    return sum;
}

// Power series; for angles up to a quarter turn.
constexpr Wide Sine(Wide x) {
    const Wide square = x * x;
    Wide term = x;
    Wide sum = x;
    for (double k = 2.0; Absolute(static_cast<double>(term)) > NEGLIGIBLE; k += 2.0) {
        term = -(term * square) / (k * (k + 1.0));
        sum = sum + term;
    }
    return sum;
}

}  // namespace tessara::compile_time

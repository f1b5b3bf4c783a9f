// Functions of doubles with 200 bits, by MPFR, and the errors of doubles.
#pragma once

#include <mpfr.h>

#include <algorithm>
#include <cmath>

#include "numerics/special_values.h"
#include "support/sanitized.h"

namespace tessara::testing {

// A number of 200 bits.
class Exact {
  public:
    Exact() { mpfr_init2(value_, 200); }
    explicit Exact(double x) : Exact() { mpfr_set_d(value_, x, MPFR_RNDN); }
    Exact(const Exact&) = delete;
    Exact& operator=(const Exact&) = delete;
    ~Exact() { mpfr_clear(value_); }

    [[nodiscard]] mpfr_ptr Value() { return value_; }
    [[nodiscard]] double Nearest() const { return mpfr_get_d(value_, MPFR_RNDN); }

    // The distance of a double, in units of the last place of the double nearest to the number.
    [[nodiscard]] double UnitsTo(double actual) const {
        const double nearest = Nearest();
        if (!std::isfinite(nearest) || !std::isfinite(actual)) {
            const bool isSame = nearest == actual || (std::isnan(nearest) && std::isnan(actual));
            return isSame ? 0.0 : INFINITE;
        }
        int exponent = 0;
        std::frexp(nearest, &exponent);
        Exact distance;
        mpfr_sub_d(distance.value_, value_, actual, MPFR_RNDN);
        mpfr_mul_2si(distance.value_, distance.value_, -std::max(exponent - 53, -1074), MPFR_RNDN);
        return std::fabs(distance.Nearest());
    }

  private:
    mpfr_t value_;
};

using ExactFunction = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_rnd_t);
using ExactFunctionOfTwo = int (*)(mpfr_ptr, mpfr_srcptr, mpfr_srcptr, mpfr_rnd_t);

// The largest error of a function over `count` arguments from next(), in units of the last place.
template <class Function, class Next>
double LargestError(Function function, ExactFunction exact, Next next, int count = 8000) {
    double largest = 0.0;
    Exact expected;
    for (int i = 0; i < Samples(count); ++i) {
        const double x = next();
        exact(expected.Value(), Exact(x).Value(), MPFR_RNDN);
        largest = std::max(largest, expected.UnitsTo(function(x)));
    }
    return largest;
}

template <class Function, class Next, class NextOther>
double LargestErrorOfTwo(Function function, ExactFunctionOfTwo exact, Next next, NextOther nextOther,
                         int count = 8000) {
    double largest = 0.0;
    Exact expected;
    for (int i = 0; i < Samples(count); ++i) {
        const double x = next();
        const double y = nextOther();
        exact(expected.Value(), Exact(x).Value(), Exact(y).Value(), MPFR_RNDN);
        largest = std::max(largest, expected.UnitsTo(function(x, y)));
    }
    return largest;
}

}  // namespace tessara::testing

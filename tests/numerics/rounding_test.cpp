#include "numerics/rounding.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"
#include "support/any_doubles.h"
#include "support/exact_functions.h"
#include "support/random.h"

namespace tessara {
namespace {

using testing::AnyFinite;
using testing::AnySize;
using testing::AreSame;
using testing::Random;

// The standard's functions are exact, too.
void ExpectSameIntegers(double x) {
    EXPECT_TRUE(AreSame(Trunc(x), std::trunc(x))) << x;
    EXPECT_TRUE(AreSame(Floor(x), std::floor(x))) << x;
    EXPECT_TRUE(AreSame(Ceil(x), std::ceil(x))) << x;
    EXPECT_TRUE(AreSame(Round(x), std::round(x))) << x;
}

TEST(Rounding, GivesTheStandardsIntegers) {
    Random random(1);
    for (int i = 0; i < 100000; ++i) {
        ExpectSameIntegers(AnySize(random, 1e-3, 1e17));
        ExpectSameIntegers(AnyFinite(random));
        ExpectSameIntegers(static_cast<double>(random.AnyInt32()) * 0.5);
    }
}

TEST(Rounding, GivesTheStandardsIntegersAtTheEnds) {
    for (const double x : {0.0, 5e-324, 0.49999999999999994, 0.5, 0.9999999999999999, 1.0, 1.5, 2.5,
                           0x1p51 - 0.5, 0x1p51 + 0.5, 0x1p52 - 0.5, 0x1p52, 0x1p53 + 2.0, 1e300, INFINITE}) {
        ExpectSameIntegers(x);
        ExpectSameIntegers(-x);
    }
    ExpectSameIntegers(NOT_A_NUMBER);
}

void ExpectExactRemainders(double x, double y) {
    testing::Exact expected;
    mpfr_fmod(expected.Value(), testing::Exact(x).Value(), testing::Exact(y).Value(), MPFR_RNDN);
    EXPECT_TRUE(AreSame(Fmod(x, y), expected.Nearest())) << x << ' ' << y;
    mpfr_remainder(expected.Value(), testing::Exact(x).Value(), testing::Exact(y).Value(), MPFR_RNDN);
    EXPECT_TRUE(AreSame(Remainder(x, y), expected.Nearest())) << x << ' ' << y;
}

TEST(Remainders, AreExact) {
    Random random(2);
    for (int i = 0; i < 20000; ++i) {
        ExpectExactRemainders(AnySize(random, 1e-5, 1e5), AnySize(random, 1e-5, 1e5));
        ExpectExactRemainders(AnySize(random, 1.0, 1e20), 360.0);
        ExpectExactRemainders(random.Below(100000) * 0.5, random.Below(100) + 1.0);
    }
    for (int i = 0; i < 1000; ++i)
        ExpectExactRemainders(AnyFinite(random), AnyFinite(random));
}

TEST(Remainders, OfSpecialValues) {
    for (const double x : {0.0, -0.0, 1.0, 249.0, 5e-324, -5e-324, 1e308, -1.7e308, INFINITE, NOT_A_NUMBER}) {
        for (const double y : {0.0, 498.0, 2.0, -2.0, 5e-324, 1e-323, 1.2e308, INFINITE, NOT_A_NUMBER})
            ExpectExactRemainders(x, y);
    }
}

}  // namespace
}  // namespace tessara

#include "numerics/double_pair.h"

#include <gtest/gtest.h>

#include "support/any_doubles.h"
#include "support/exact_functions.h"
#include "support/random.h"

namespace tessara {
namespace {

using testing::AnySize;
using testing::Exact;
using testing::Random;

// How far a pair is from a number, as a part of it.
double PartMissing(const Pair& pair, Exact* expected) {
    Exact missing;
    mpfr_sub_d(missing.Value(), expected->Value(), pair.high, MPFR_RNDN);
    mpfr_sub_d(missing.Value(), missing.Value(), pair.low, MPFR_RNDN);
    mpfr_div(missing.Value(), missing.Value(), expected->Value(), MPFR_RNDN);
    return std::fabs(missing.Nearest());
}

TEST(Pair, SumsAreExact) {
    Random random(1);
    for (int i = 0; i < 10000; ++i) {
        const double x = AnySize(random, 1e-5, 1e5);
        const double y = AnySize(random, 1e-5, 1e5);
        Exact expected(x);
        mpfr_add_d(expected.Value(), expected.Value(), y, MPFR_RNDN);
        EXPECT_EQ(PartMissing(ExactSum(x, y), &expected), 0.0) << x << ' ' << y;
        const bool isLarger = Absolute(x) >= Absolute(y);
        EXPECT_EQ(PartMissing(SumOfOrdered(isLarger ? x : y, isLarger ? y : x), &expected), 0.0);
    }
}

TEST(Pair, ProductsAndQuotientsHaveHalfAsManyDigitsMore) {
    Random random(2);
    for (int i = 0; i < 10000; ++i) {
        const double x = AnySize(random, 1e-5, 1e5);
        const double y = AnySize(random, 1e-5, 1e5);
        Exact expected(x);
        mpfr_mul_d(expected.Value(), expected.Value(), y, MPFR_RNDN);
        EXPECT_LT(PartMissing(Product(x, y), &expected), 0x1p-78) << x << ' ' << y;
        mpfr_set_d(expected.Value(), x, MPFR_RNDN);
        mpfr_div_d(expected.Value(), expected.Value(), y, MPFR_RNDN);
        EXPECT_LT(PartMissing(Quotient({x, 0.0}, {y, 0.0}), &expected), 0x1p-77) << x << ' ' << y;
    }
}

}  // namespace
}  // namespace tessara

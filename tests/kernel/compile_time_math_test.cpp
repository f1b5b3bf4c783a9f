#include "kernel/compile_time_math.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kernel/swiss_sphere.h"
#include "support/any_doubles.h"
#include "support/exact_functions.h"
#include "support/random.h"

namespace tessara::compile_time_math_test {
namespace {

using compile_time::Wide;
using testing::Exact;
using testing::ExactFunction;
using testing::Random;

constexpr double LAST_DIGITS = 0x1p-98;

// By which part of it a number differs from what it should be.
double PartMissing(Wide actual, Exact* expected) {
    Exact missing;
    mpfr_sub_d(missing.Value(), expected->Value(), actual.Digits().high, MPFR_RNDN);
    mpfr_sub_d(missing.Value(), missing.Value(), actual.Digits().low, MPFR_RNDN);
    mpfr_div(missing.Value(), missing.Value(), expected->Value(), MPFR_RNDN);
    return std::fabs(missing.Nearest());
}

void ExpectAllDigits(Wide (*function)(Wide), ExactFunction exact, double low, double high) {
    Random random(1);
    for (int i = 0; i < 1000; ++i) {
        const double x = random.Between(low, high);
        Exact expected;
        exact(expected.Value(), Exact(x).Value(), MPFR_RNDN);
        EXPECT_LT(PartMissing(function(x), &expected), LAST_DIGITS) << x;
    }
}

TEST(CompileTimeMath, FunctionsHaveTwiceADoublesDigits) {
    ExpectAllDigits(compile_time::Sqrt, mpfr_sqrt, 1e-3, 5.0);
    ExpectAllDigits(compile_time::Exp, mpfr_exp, -1.0, 1.0);
    ExpectAllDigits(compile_time::Atanh, mpfr_atanh, 0.01, 0.95);
    ExpectAllDigits(compile_time::Sine, mpfr_sin, 0.01, 1.6);
}

TEST(CompileTimeMath, OperationsHaveTwiceADoublesDigits) {
    Random random(2);
    for (int i = 0; i < 1000; ++i) {
        const double x = testing::AnySize(random, 1e-3, 1e3);
        const double y = testing::AnySize(random, 1e-3, 1e3);
        Exact expected;
        mpfr_div(expected.Value(), Exact(x).Value(), Exact(y).Value(), MPFR_RNDN);
        EXPECT_LT(PartMissing(Wide(x) / y, &expected), LAST_DIGITS);
        // (x / y + y) * y = x + y^2
        mpfr_mul(expected.Value(), Exact(y).Value(), Exact(y).Value(), MPFR_RNDN);
        mpfr_add_d(expected.Value(), expected.Value(), x, MPFR_RNDN);
        const double cancelled = (std::fabs(x) + y * y) / std::fabs(expected.Nearest());
        EXPECT_LT(PartMissing((Wide(x) / y + y) * y, &expected), LAST_DIGITS * cancelled) << x << ' ' << y;
    }
}

TEST(CompileTimeMath, RootOfZeroIsZero) {
    EXPECT_EQ(static_cast<double>(compile_time::Sqrt(0.0)), 0.0);
}

// k of the Swiss sphere in 200 bits: artanh of the origin's sines, on the sphere and on the ellipsoid.
TEST(CompileTimeMath, ConstantsAreRightToTheLastPlace) {
    Exact sinLat0, cos2, alpha, sinB0, e, k, term;
    mpfr_sin(sinLat0.Value(), Exact(swiss::ORIGIN_LATITUDE / DEGREES_PER_RADIAN).Value(), MPFR_RNDN);
    mpfr_sqr(cos2.Value(), sinLat0.Value(), MPFR_RNDN);
    mpfr_ui_sub(cos2.Value(), 1, cos2.Value(), MPFR_RNDN);
    mpfr_sqr(alpha.Value(), cos2.Value(), MPFR_RNDN);
    mpfr_mul_d(alpha.Value(), alpha.Value(), swiss::SECOND_E2, MPFR_RNDN);
    mpfr_add_ui(alpha.Value(), alpha.Value(), 1, MPFR_RNDN);
    mpfr_sqrt(alpha.Value(), alpha.Value(), MPFR_RNDN);
    mpfr_div(sinB0.Value(), sinLat0.Value(), alpha.Value(), MPFR_RNDN);
    mpfr_sqrt(e.Value(), Exact(swiss::E2).Value(), MPFR_RNDN);

    mpfr_mul(term.Value(), e.Value(), sinLat0.Value(), MPFR_RNDN);
    mpfr_atanh(term.Value(), term.Value(), MPFR_RNDN);
    mpfr_mul(term.Value(), term.Value(), e.Value(), MPFR_RNDN);
    mpfr_atanh(k.Value(), sinLat0.Value(), MPFR_RNDN);
    mpfr_sub(term.Value(), k.Value(), term.Value(), MPFR_RNDN);
    mpfr_mul(term.Value(), term.Value(), alpha.Value(), MPFR_RNDN);
    mpfr_atanh(k.Value(), sinB0.Value(), MPFR_RNDN);
    mpfr_sub(k.Value(), k.Value(), term.Value(), MPFR_RNDN);

    EXPECT_EQ(swiss::SPHERE.alpha, alpha.Nearest());
    EXPECT_EQ(swiss::SPHERE.sinB0, sinB0.Nearest());
    EXPECT_EQ(swiss::SPHERE.k, k.Nearest());
}

}  // namespace
}  // namespace tessara::compile_time_math_test

#include "numerics/logarithm.h"

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
using testing::LargestError;
using testing::Random;

TEST(Log, IsRightToTheLastPlace) {
    Random random(1);
    EXPECT_LT(LargestError(
                  Log, mpfr_log, [&] { return random.Between(0.01, 3.0); }, 100000),
              1.0);
    EXPECT_LT(LargestError(Log, mpfr_log, [&] { return 1.0 + AnySize(random, 1e-16, 0.1); }), 1.0);
    EXPECT_LT(LargestError(Log, mpfr_log, [&] { return std::fabs(AnyFinite(random)); }), 1.0);
    EXPECT_LT(LargestError(Log, mpfr_log, [&] { return std::ldexp(random.Between(0.0, 1.0), -1030); }), 1.0);
}

TEST(Log, OfSpecialValues) {
    EXPECT_TRUE(AreSame(Log(1.0), 0.0));
    EXPECT_EQ(Log(0.0), -INFINITE);
    EXPECT_EQ(Log(-0.0), -INFINITE);
    EXPECT_EQ(Log(INFINITE), INFINITE);
    for (const double none : {-1.0, -5e-324, -INFINITE, NOT_A_NUMBER})
        EXPECT_TRUE(std::isnan(Log(none))) << none;
}

TEST(Log, GrowsWhereAPowerOf2FollowsAnother) {
    for (const double border : {std::sqrt(0.5), 1.0, std::sqrt(2.0), std::sqrt(8.0)}) {
        double x = border * (1.0 - 1e-13);
        for (int i = 0; i < 3000; ++i) {
            const double next = std::nextafter(x, 10.0);
            ASSERT_LE(Log(x), Log(next)) << x;
            x = next;
        }
    }
}

TEST(Log, HasTheSameBitsAtCompileTime) {
    constexpr double compiled = LogOrdinary(52.156);
    volatile double x = 52.156;
    EXPECT_EQ(Log(x), compiled);
}

// Next to 1 the logarithm of a rounded quotient has no digit right.
TEST(LogOfRatio, IsRightToSomeUnitsNextToOne) {
    Random random(3);
    testing::Exact expected;
    for (int i = 0; i < 10000; ++i) {
        const double y = random.Between(0.1, 10.0);
        const double x = y * (1.0 + AnySize(random, 1e-15, 0.5));
        mpfr_div(expected.Value(), testing::Exact(x).Value(), testing::Exact(y).Value(), MPFR_RNDN);
        mpfr_log(expected.Value(), expected.Value(), MPFR_RNDN);
        EXPECT_LT(expected.UnitsTo(LogOfRatio(x, y)), 4.0) << x << ' ' << y;
    }
}

TEST(LogOfRatio, OfSpecialValues) {
    EXPECT_EQ(LogOfRatio(2.0, 2.0), 0.0);
    EXPECT_EQ(LogOfRatio(0.0, 2.0), -INFINITE);
    EXPECT_EQ(LogOfRatio(2.0, 0.0), INFINITE);
    EXPECT_EQ(LogOfRatio(INFINITE, 2.0), INFINITE);
    EXPECT_TRUE(std::isnan(LogOfRatio(-1.0, 2.0)));
    EXPECT_TRUE(std::isnan(LogOfRatio(NOT_A_NUMBER, 2.0)));
}

TEST(Artanh, IsRightToTheLastPlace) {
    Random random(2);
    EXPECT_LT(LargestError(
                  Artanh, mpfr_atanh, [&] { return random.Between(-1.0, 1.0); }, 100000),
              1.0);
    EXPECT_LT(LargestError(Artanh, mpfr_atanh, [&] { return AnySize(random, 1e-20, 0.2); }), 1.0);
    EXPECT_LT(LargestError(Artanh, mpfr_atanh, [&] { return 1.0 - std::fabs(AnySize(random, 1e-16, 0.1)); }),
              1.0);
}

TEST(Artanh, OfSpecialValues) {
    EXPECT_TRUE(AreSame(Artanh(0.0), 0.0));
    EXPECT_TRUE(AreSame(Artanh(-0.0), -0.0));
    EXPECT_EQ(Artanh(5e-324), 5e-324);
    EXPECT_EQ(Artanh(1.0), INFINITE);
    EXPECT_EQ(Artanh(-1.0), -INFINITE);
    for (const double none : {1.0 + 1e-15, -2.0, INFINITE, -INFINITE, NOT_A_NUMBER})
        EXPECT_TRUE(std::isnan(Artanh(none))) << none;
}

}  // namespace
}  // namespace tessara

#include "numerics/exponential.h"

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
using testing::LargestErrorOfTwo;
using testing::Random;

TEST(Exp, IsRightToTheLastPlace) {
    Random random(1);
    EXPECT_LT(LargestError(
                  Exp, mpfr_exp, [&] { return random.Between(-2.0, 2.0); }, 100000),
              1.0);
    EXPECT_LT(LargestError(Exp, mpfr_exp, [&] { return random.Between(-750.0, 715.0); }), 1.0);
    EXPECT_LT(LargestError(Exp, mpfr_exp, [&] { return AnySize(random, 1e-20, 0.5); }), 1.0);
}

TEST(Exp, OfSpecialValues) {
    EXPECT_EQ(Exp(0.0), 1.0);
    EXPECT_EQ(Exp(-0.0), 1.0);
    EXPECT_TRUE(AreSame(Exp(-INFINITE), 0.0));
    EXPECT_TRUE(AreSame(Exp(-1e308), 0.0));
    EXPECT_EQ(Exp(INFINITE), INFINITE);
    EXPECT_EQ(Exp(1e308), INFINITE);
    EXPECT_TRUE(std::isnan(Exp(NOT_A_NUMBER)));
}

TEST(ExpOfSmall, IsRightToSomeUnitsAndCompleteBeyond) {
    Random random(5);
    EXPECT_LT(LargestError(ExpOfSmall<>, mpfr_exp, [&] { return random.Between(-0.346, 0.346); }), 2.0);
    for (const double x : {0.347, -5.0, 800.0, -INFINITE, INFINITE})
        EXPECT_EQ(ExpOfSmall(x), Exp(x));
    EXPECT_TRUE(std::isnan(ExpOfSmall(NOT_A_NUMBER)));
}

// exp overflows beyond 709.78271289338397 and vanishes below -745.13321910194122: the logarithms of the
// largest double and of half the smallest.
TEST(Exp, EndsWhereDoublesEnd) {
    EXPECT_LT(Exp(709.782712893384), INFINITE);
    EXPECT_EQ(Exp(709.7827128933841), INFINITE);
    EXPECT_EQ(Exp(-745.1332191019411), 5e-324);
    EXPECT_EQ(Exp(-745.1332191019412), 0.0);
}

TEST(Exp, GrowsWhereAPowerOf2FollowsAnother) {
    const double halfLog2 = 0.34657359027997264;
    for (const double border : {-3.0 * halfLog2, -halfLog2, halfLog2, 3.0 * halfLog2}) {
        double x = border - 1e-13;
        for (int i = 0; i < 3000; ++i) {
            const double next = std::nextafter(x, 10.0);
            ASSERT_LE(Exp(x), Exp(next)) << x;
            x = next;
        }
    }
}

TEST(Exp, HasTheSameBitsAtCompileTime) {
    constexpr double compiled = ExpOrdinary(-1.375);
    volatile double x = -1.375;
    EXPECT_EQ(Exp(x), compiled);
}

TEST(Pow, IsRightToTheLastPlace) {
    Random random(2);
    const auto base = [&] { return std::fabs(AnySize(random, 1e-15, 1e15)); };
    EXPECT_LT(LargestErrorOfTwo(
                  Pow, mpfr_pow, base, [&] { return random.Between(-2.0, 2.0); }, 100000),
              1.0);
    const auto sized = [&] { return std::fabs(AnySize(random, 1e-3, 1e3)); };
    EXPECT_LT(LargestErrorOfTwo(Pow, mpfr_pow, sized, [&] { return random.Between(-10.0, 10.0); }), 1.0);
    const auto either = [&] { return random.Between(-9.0, 9.0); };
    EXPECT_LT(LargestErrorOfTwo(Pow, mpfr_pow, either, [&] { return random.Below(19) - 9.0; }), 1.0);
}

// With results of up to 2^1024 the logarithm needs ten digits more than it has.
TEST(Pow, OfAnythingIsRightToSomeUnits) {
    Random random(3);
    const auto base = [&] { return std::fabs(AnyFinite(random)); };
    EXPECT_LT(LargestErrorOfTwo(Pow, mpfr_pow, base, [&] { return random.Between(-1.1, 1.1); }), 8.0);
}

TEST(Pow, OfSmallBasesVanishesGradually) {
    // 10^-309 is subnormal: the digits of the double 0.001 leave it one of a few doubles.
    EXPECT_NEAR(Pow(0.001, 103.0), 1e-309, 10.0 * 5e-324);
    EXPECT_NEAR(Pow(-0.001, 103.0), -1e-309, 10.0 * 5e-324);
    EXPECT_EQ(Pow(0.001, 108.0), 0.0);
}

// The table of the C standard, annex F.9.4.4.
TEST(Pow, OfSpecialValues) {
    const struct {
        double base, exponent, expected;
    } rows[] = {
        {0.0, -3.0, INFINITE},
        {-0.0, -3.0, -INFINITE},
        {0.0, -2.0, INFINITE},
        {-0.0, -2.0, INFINITE},
        {-0.0, -2.5, INFINITE},
        {0.0, -INFINITE, INFINITE},
        {-0.0, -INFINITE, INFINITE},
        {0.0, -0.5, INFINITE},
        {0.0, 0.5, 0.0},
        {-0.0, 0.5, 0.0},
        {0.0, 3.0, 0.0},
        {-0.0, 3.0, -0.0},
        {-0.0, 2.0, 0.0},
        {-0.0, 2.5, 0.0},
        {-1.0, INFINITE, 1.0},
        {-1.0, -INFINITE, 1.0},
        {1.0, NOT_A_NUMBER, 1.0},
        {1.0, INFINITE, 1.0},
        {NOT_A_NUMBER, 0.0, 1.0},
        {7.5, -0.0, 1.0},
        {-2.0, 0.5, NOT_A_NUMBER},
        {0.5, -INFINITE, INFINITE},
        {2.0, -INFINITE, 0.0},
        {-0.5, INFINITE, 0.0},
        {-2.0, INFINITE, INFINITE},
        {0x1.0000000000001p0, INFINITE, INFINITE},
        {0x1.0000000000001p0, -INFINITE, 0.0},
        {0x1.fffffffffffffp-1, INFINITE, 0.0},
        {-0x1.fffffffffffffp-1, -INFINITE, INFINITE},
        {-INFINITE, -3.0, -0.0},
        {-INFINITE, -2.0, 0.0},
        {-INFINITE, 3.0, -INFINITE},
        {-INFINITE, 2.5, INFINITE},
        {INFINITE, -1.0, 0.0},
        {INFINITE, 0.5, INFINITE},
        {NOT_A_NUMBER, 1.0, NOT_A_NUMBER},
        {2.0, NOT_A_NUMBER, NOT_A_NUMBER},
        {-2.0, 3.0, -8.0},
        {-2.0, 4.0, 16.0},
        {2.0, 1024.0, INFINITE},
        {-2.0, 1025.0, -INFINITE},
        {2.0, -1074.0, 5e-324},
        {2.0, -1080.0, 0.0},
        {5e-324, 0.5, 0x1p-537},
        {-1.0, 1e300, 1.0},
    };
    for (const auto& [base, exponent, expected] : rows)
        EXPECT_TRUE(AreSame(Pow(base, exponent), expected)) << base << ' ' << exponent;
}

TEST(Sinh, IsRightToTheLastPlace) {
    Random random(4);
    EXPECT_LT(LargestError(
                  Sinh, mpfr_sinh, [&] { return random.Between(-1.5, 1.5); }, 100000),
              1.0);
    EXPECT_LT(LargestError(Sinh, mpfr_sinh, [&] { return random.Between(-45.0, 45.0); }), 1.0);
    EXPECT_LT(LargestError(Sinh, mpfr_sinh, [&] { return random.Between(-715.0, 715.0); }), 1.0);
    EXPECT_LT(LargestError(Sinh, mpfr_sinh, [&] { return AnySize(random, 1e-20, 1.0); }), 1.0);
}

TEST(Sinh, OfSpecialValues) {
    EXPECT_TRUE(AreSame(Sinh(0.0), 0.0));
    EXPECT_TRUE(AreSame(Sinh(-0.0), -0.0));
    EXPECT_EQ(Sinh(5e-324), 5e-324);
    EXPECT_LT(Sinh(710.4758), INFINITE);  // log 2 later than exp
    EXPECT_EQ(Sinh(710.4759), INFINITE);
    EXPECT_EQ(Sinh(-INFINITE), -INFINITE);
    EXPECT_TRUE(std::isnan(Sinh(NOT_A_NUMBER)));
}

}  // namespace
}  // namespace tessara

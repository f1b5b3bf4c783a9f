#include "numerics/circular.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"
#include "support/any_doubles.h"
#include "support/exact_functions.h"
#include "support/random.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

using testing::LargestError;
using testing::Random;

// Largest errors of all three, over the same kind of angles.
template <class Next>
void ExpectLastDigits(Next next, int count = 8000) {
    EXPECT_LT(LargestError(Sin, mpfr_sin, next, count), 1.0);
    EXPECT_LT(LargestError(Cos, mpfr_cos, next, count), 1.0);
    EXPECT_LT(LargestError(Tan, mpfr_tan, next, count), 1.0);
}

TEST(Circular, IsRightToTheLastPlaceWithinATurn) {
    Random random(1);
    ExpectLastDigits([&] { return random.Between(-TWO_PI, TWO_PI); }, 30000);
}

TEST(Circular, IsRightToTheLastPlaceForOrdinaryAngles) {
    Random random(2);
    ExpectLastDigits([&] { return random.Between(-ORDINARY_ANGLE, ORDINARY_ANGLE); });
    ExpectLastDigits([&] { return testing::AnySize(random, 1e-20, 1.0); });
}

// There nearly all digits of the angle cancel.
TEST(Circular, IsRightToTheLastPlaceNextToQuarterTurns) {
    int count = 0;
    const auto next = [&] {
        double angle = HALF_PI * (count / 5 % 660);
        for (int i = 0; i < std::abs(count % 5 - 2); ++i)
            angle = std::nextafter(angle, count % 5 < 2 ? -INFINITE : INFINITE);
        ++count;
        return angle;
    };
    ExpectLastDigits(next, 3300);
}

TEST(Circular, IsRightToTheLastPlaceForAnyAngle) {
    Random random(3);
    ExpectLastDigits([&] { return testing::AnyFinite(random); });
    ExpectLastDigits([&] { return random.Between(1000.0, 1e7); });
}

// The double that is nearest to a multiple of a quarter turn: J.-M. Muller, "Elementary Functions", 2nd
// edition, 2006, section 9.
TEST(Circular, IsRightToTheLastPlaceForTheWorstAngle) {
    const double worst = std::ldexp(6381956970095103.0, 797);
    ExpectLastDigits([&] { return worst; }, 1);
    EXPECT_NEAR(Cos(worst), -4.68716592425462761112e-19, 1e-34);
}

TEST(Circular, OfZeroKeepsTheSign) {
    EXPECT_TRUE(testing::AreSame(Sin(0.0), 0.0));
    EXPECT_TRUE(testing::AreSame(Sin(-0.0), -0.0));
    EXPECT_TRUE(testing::AreSame(Tan(0.0), 0.0));
    EXPECT_TRUE(testing::AreSame(Tan(-0.0), -0.0));
    EXPECT_EQ(Cos(0.0), 1.0);
    EXPECT_EQ(Cos(-0.0), 1.0);
}

TEST(Circular, OfTheSmallestNumberIsTheNumber) {
    EXPECT_EQ(Sin(5e-324), 5e-324);
    EXPECT_EQ(Tan(-5e-324), -5e-324);
}

TEST(Circular, OfNoAngleIsNoNumber) {
    for (const double none : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_TRUE(std::isnan(Sin(none)));
        EXPECT_TRUE(std::isnan(Cos(none)));
        EXPECT_TRUE(std::isnan(Tan(none)));
    }
}

TEST(Circular, IsOddOrEven) {
    Random random(4);
    for (int i = 0; i < 10000; ++i) {
        const double angle = i % 2 == 0 ? random.Between(0.0, 8.0) : testing::AnyFinite(random);
        EXPECT_EQ(Sin(-angle), -Sin(angle)) << angle;
        EXPECT_EQ(Cos(-angle), Cos(angle)) << angle;
        EXPECT_EQ(Tan(-angle), -Tan(angle)) << angle;
    }
}

// Sines don't fall, nor do tangents, where one polynomial follows the other.
TEST(Circular, GrowsAcrossTheEighthOfATurn) {
    double angle = PI / 4.0 * (1.0 - 1e-12);
    for (int i = 0; i < 20000; ++i) {
        const double next = std::nextafter(angle, 2.0);
        ASSERT_LE(Sin(angle), Sin(next)) << angle;
        ASSERT_GE(Cos(angle), Cos(next)) << angle;
        ASSERT_LE(Tan(angle), Tan(next)) << angle;
        angle = next;
    }
}

TEST(Circular, HasTheSameBitsAtCompileTime) {
    constexpr SinCos compiled = SinCosOrdinary(0.82);
    constexpr double tangent = TanOrdinary(-2.5);
    volatile double angle = 0.82;
    EXPECT_EQ(SinCosOf(angle).sine, compiled.sine);
    EXPECT_EQ(SinCosOf(angle).cosine, compiled.cosine);
    angle = -2.5;
    EXPECT_EQ(Tan(angle), tangent);
}

// 2/pi stands in the source in words of 32 bits. With a word wrong, one of these exponents shows it: each
// starts at another word.
TEST(Circular, IsRightToTheLastPlaceForAllExponents) {
    int exponent = 9;
    const auto next = [&] {
        ++exponent;
        return std::ldexp(1.0 + 0x1p-52 * 123456789.0 * exponent, exponent);
    };
    EXPECT_LT(LargestError(Sin, mpfr_sin, next, 1013), 1.0);
}

}  // namespace
}  // namespace tessara

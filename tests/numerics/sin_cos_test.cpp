#include "numerics/sin_cos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "numerics/special_values.h"
#include "support/any_doubles.h"
#include "support/exact_functions.h"
#include "support/random.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// The largest error of either function over angles of up to `reach`.
template <int RIGHT_ANGLES>
double LargestErrorUpTo(double reach) {
    testing::Random random(1746);
    double largest = 0.0;
    testing::Exact expected;
    const auto errorOf = [&](double actual) {
        mpfr_sub_d(expected.Value(), expected.Value(), actual, MPFR_RNDN);
        return std::fabs(expected.Nearest());
    };
    for (int i = 0; i < 20000; ++i) {
        testing::Exact angle(random.Between(-reach, reach));
        const SinCos actual = SinCosByDoubling<RIGHT_ANGLES>(angle.Nearest());
        mpfr_sin(expected.Value(), angle.Value(), MPFR_RNDN);
        largest = std::max(largest, errorOf(actual.sine));
        mpfr_cos(expected.Value(), angle.Value(), MPFR_RNDN);
        largest = std::max(largest, errorOf(actual.cosine));
    }
    return largest;
}

TEST(SinCosByDoubling, IsRightToSomeRoundings) {
    EXPECT_LT(LargestErrorUpTo<1>(HALF_PI), 3e-16);
    EXPECT_LT(LargestErrorUpTo<2>(PI), 1e-15);
}

TEST(SinCosByDoubling, IsThatOfTheLibraryBeyondItsReach) {
    for (const double angle : {3.2, -7.0, 1e5, 1e300}) {
        EXPECT_EQ(SinCosByDoubling<1>(angle).sine, SinCosOf(angle).sine);
        EXPECT_EQ(SinCosByDoubling<2>(angle).cosine, SinCosOf(angle).cosine);
    }
    for (const double none : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_TRUE(std::isnan(SinCosByDoubling<1>(none).sine));
        EXPECT_TRUE(std::isnan(SinCosByDoubling<2>(none).cosine));
    }
}

TEST(SinCosByDoubling, IsExactAtZeroAndSymmetric) {
    EXPECT_EQ(SinCosByDoubling<1>(0.0).sine, 0.0);
    EXPECT_EQ(SinCosByDoubling<1>(0.0).cosine, 1.0);
    for (const double angle : {1e-300, 0.1, 0.7, 1.5}) {
        EXPECT_EQ(SinCosByDoubling<1>(-angle).sine, -SinCosByDoubling<1>(angle).sine);
        EXPECT_EQ(SinCosByDoubling<2>(-angle).cosine, SinCosByDoubling<2>(angle).cosine);
    }
}

// Small or not, each is the complete function but for some roundings.
TEST(FunctionsOfSmall, AreRightToSomeUnits) {
    testing::Random random(2);
    const auto next = [&] { return testing::AnySize(random, 1e-10, 0.9); };
    EXPECT_LT(testing::LargestError(AtanOfSmall<>, mpfr_atan, next), 2.0);
    EXPECT_LT(testing::LargestError(AsinOfSmall<>, mpfr_asin, next), 3.0);
    EXPECT_LT(testing::LargestError(AtanhOfSmall<>, mpfr_atanh, next), 2.0);
    EXPECT_LT(testing::LargestError(SinhOfSmall<>, mpfr_sinh, next), 2.0);
}

TEST(FunctionsOfSmall, OfSpecialValues) {
    EXPECT_EQ(AsinOfSmall(1.0), HALF_PI);
    EXPECT_TRUE(std::isnan(AsinOfSmall(1.5)));
    EXPECT_EQ(AtanOfSmall(INFINITE), HALF_PI);
    EXPECT_TRUE(std::isnan(AtanOfSmall(NOT_A_NUMBER)));
}

// Constants of the compiler meet values of the processor where an origin has its false northing exactly.
TEST(SinCosByDoubling, HasTheSameBitsAtCompileTime) {
    constexpr SinCos compiled = SinCosByDoubling<1>(49.0 * RADIANS_PER_DEGREE);
    volatile double degrees = 49.0;
    const SinCos computed = SinCosByDoubling<1>(degrees * RADIANS_PER_DEGREE);
    EXPECT_EQ(compiled.sine, computed.sine);
    EXPECT_EQ(compiled.cosine, computed.cosine);
}

}  // namespace
}  // namespace tessara

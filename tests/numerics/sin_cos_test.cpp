#include "numerics/sin_cos.h"

#include <gtest/gtest.h>

#include <cfloat>

#include "support/doubles.h"
#include "support/random.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

static_assert(LDBL_MANT_DIG > DBL_MANT_DIG);

// The largest error of either function over angles of up to `reach`.
template <int RIGHT_ANGLES>
double LargestError(double reach) {
    testing::Random random(1746);
    long double largest = 0.0L;
    for (int i = 0; i < 100000; ++i) {
        const double angle = random.Between(-reach, reach);
        const SinCos actual = SinCosByDoubling<RIGHT_ANGLES>(angle);
        largest = std::fmax(largest, std::fabs(actual.sine - std::sin(static_cast<long double>(angle))));
        largest = std::fmax(largest, std::fabs(actual.cosine - std::cos(static_cast<long double>(angle))));
    }
    return static_cast<double>(largest);
}

TEST(SinCosByDoubling, IsRightToSomeRoundings) {
    EXPECT_LT(LargestError<1>(HALF_PI), 3e-16);
    EXPECT_LT(LargestError<2>(PI), 1e-15);
}

TEST(SinCosByDoubling, IsThatOfTheLibraryBeyondItsReach) {
    for (const double angle : {3.2, -7.0, 1e5, 1e300}) {
        EXPECT_EQ(SinCosByDoubling<1>(angle).sine, std::sin(angle));
        EXPECT_EQ(SinCosByDoubling<2>(angle).cosine, std::cos(angle));
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

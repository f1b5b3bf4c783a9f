#include "numerics/arcs.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"
#include "support/any_doubles.h"
#include "support/exact_functions.h"
#include "support/random.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

using testing::AnyFinite;
using testing::AnySize;
using testing::AreSame;
using testing::LargestError;
using testing::LargestErrorOfTwo;
using testing::Random;

constexpr double THREE_QUARTERS_PI = 2.356194490192345;

TEST(Atan, IsRightToTheLastPlace) {
    Random random(1);
    EXPECT_LT(LargestError(
                  Atan, mpfr_atan, [&] { return random.Between(-3.0, 3.0); }, 100000),
              1.0);
    EXPECT_LT(LargestError(Atan, mpfr_atan, [&] { return AnySize(random, 1e-10, 1e10); }), 1.0);
    EXPECT_LT(LargestError(Atan, mpfr_atan, [&] { return AnyFinite(random); }), 1.0);
}

TEST(Atan, OfSpecialValues) {
    EXPECT_TRUE(AreSame(Atan(0.0), 0.0));
    EXPECT_TRUE(AreSame(Atan(-0.0), -0.0));
    EXPECT_EQ(Atan(5e-324), 5e-324);
    EXPECT_EQ(Atan(1.0), HALF_PI / 2.0);
    EXPECT_EQ(Atan(INFINITE), HALF_PI);
    EXPECT_EQ(Atan(-INFINITE), -HALF_PI);
    EXPECT_EQ(Atan(1.7e308), HALF_PI);
    EXPECT_TRUE(std::isnan(Atan(NOT_A_NUMBER)));
}

TEST(Atan, GrowsWhereAPieceFollowsAnother) {
    for (const double border : {0.36, 0.72, 1.0, 1.0 / 0.72, 1.0 / 0.36}) {
        double x = border * (1.0 - 1e-13);
        for (int i = 0; i < 3000; ++i) {
            const double next = std::nextafter(x, 10.0);
            ASSERT_LE(Atan(x), Atan(next)) << x;
            x = next;
        }
    }
}

TEST(Asin, IsRightToTheLastPlace) {
    Random random(2);
    EXPECT_LT(LargestError(
                  Asin, mpfr_asin, [&] { return random.Between(-1.0, 1.0); }, 100000),
              1.0);
    EXPECT_LT(LargestError(Asin, mpfr_asin, [&] { return AnySize(random, 1e-20, 1e-2); }), 1.0);
    EXPECT_LT(LargestError(Asin, mpfr_asin, [&] { return 1.0 - std::fabs(AnySize(random, 1e-16, 0.1)); }),
              1.0);
}

TEST(Asin, OfSpecialValues) {
    EXPECT_TRUE(AreSame(Asin(0.0), 0.0));
    EXPECT_TRUE(AreSame(Asin(-0.0), -0.0));
    EXPECT_EQ(Asin(5e-324), 5e-324);
    EXPECT_EQ(Asin(1.0), HALF_PI);
    EXPECT_EQ(Asin(-1.0), -HALF_PI);
    for (const double none : {1.0 + 1e-15, -2.0, INFINITE, -INFINITE, NOT_A_NUMBER})
        EXPECT_TRUE(std::isnan(Asin(none))) << none;
}

TEST(Acos, IsRightToTheLastPlace) {
    Random random(3);
    EXPECT_LT(LargestError(
                  Acos, mpfr_acos, [&] { return random.Between(-1.0, 1.0); }, 100000),
              1.0);
    EXPECT_LT(LargestError(Acos, mpfr_acos, [&] { return AnySize(random, 1e-20, 1e-2); }), 1.0);
    EXPECT_LT(LargestError(Acos, mpfr_acos, [&] { return 1.0 - std::fabs(AnySize(random, 1e-16, 0.1)); }),
              1.0);
}

TEST(Acos, OfSpecialValues) {
    EXPECT_TRUE(AreSame(Acos(1.0), 0.0));
    EXPECT_EQ(Acos(-1.0), PI);
    EXPECT_EQ(Acos(0.0), HALF_PI);
    EXPECT_EQ(Acos(-0.0), HALF_PI);
    for (const double none : {1.0 + 1e-15, -2.0, INFINITE, -INFINITE, NOT_A_NUMBER})
        EXPECT_TRUE(std::isnan(Acos(none))) << none;
}

TEST(Atan2, IsRightToTheLastPlace) {
    Random random(4);
    const auto next = [&] { return random.Between(-1.0, 1.0); };
    EXPECT_LT(LargestErrorOfTwo(Atan2, mpfr_atan2, next, next, 30000), 1.0);
    const auto nextSize = [&] { return AnySize(random, 1e-5, 1e5); };
    EXPECT_LT(LargestErrorOfTwo(Atan2, mpfr_atan2, nextSize, nextSize), 1.0);
    const auto nextFinite = [&] { return AnyFinite(random); };
    EXPECT_LT(LargestErrorOfTwo(Atan2, mpfr_atan2, nextFinite, nextFinite), 1.0);
}

// The table of the C standard, annex F.9.1.4.
TEST(Atan2, OfSpecialValues) {
    const struct {
        double y, x, expected;
    } rows[] = {
        {0.0, 0.0, 0.0},
        {0.0, -0.0, PI},
        {0.0, 2.0, 0.0},
        {0.0, -2.0, PI},
        {2.0, 0.0, HALF_PI},
        {2.0, -0.0, HALF_PI},
        {2.0, INFINITE, 0.0},
        {2.0, -INFINITE, PI},
        {0.0, INFINITE, 0.0},
        {0.0, -INFINITE, PI},
        {INFINITE, 2.0, HALF_PI},
        {INFINITE, -2.0, HALF_PI},
        {INFINITE, 0.0, HALF_PI},
        {INFINITE, INFINITE, PI / 4.0},
        {INFINITE, -INFINITE, THREE_QUARTERS_PI},
        {5e-324, 1.0, 5e-324},
        {5e-324, 5e-324, PI / 4.0},
        {5e-324, -1.0, PI},
        {1e308, 1e308, PI / 4.0},
        {1e-300, 1e300, 0.0},
        {1e300, 1e-300, HALF_PI},
        {NOT_A_NUMBER, 1.0, NOT_A_NUMBER},
        {1.0, NOT_A_NUMBER, NOT_A_NUMBER},
        {INFINITE, NOT_A_NUMBER, NOT_A_NUMBER},
        {NOT_A_NUMBER, 0.0, NOT_A_NUMBER},
    };
    for (const auto& [y, x, expected] : rows) {
        EXPECT_TRUE(AreSame(Atan2(y, x), expected)) << y << ' ' << x;
        EXPECT_TRUE(AreSame(Atan2(-y, x), -expected)) << -y << ' ' << x;
    }
}

TEST(Atan2, HasTheSameBitsAtCompileTime) {
    constexpr double compiled = Atan2Ordinary(1.5, -2.25);
    volatile double y = 1.5;
    EXPECT_EQ(Atan2(y, -2.25), compiled);
}

}  // namespace
}  // namespace tessara

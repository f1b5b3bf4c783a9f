#include "numerics/hypotenuse.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"
#include "support/any_doubles.h"
#include "support/exact_functions.h"
#include "support/random.h"

namespace tessara {
namespace {

using testing::AnySize;
using testing::LargestErrorOfTwo;
using testing::Random;

TEST(Hypot, IsRightToTheLastPlace) {
    Random random(1);
    const auto next = [&] { return random.Between(-1000.0, 1000.0); };
    EXPECT_LT(LargestErrorOfTwo(Hypot, mpfr_hypot, next, next, 30000), 1.0);
    const auto nextSize = [&] { return AnySize(random, 1e-6, 1e6); };
    EXPECT_LT(LargestErrorOfTwo(Hypot, mpfr_hypot, nextSize, nextSize), 1.0);
    const auto nextFinite = [&] { return testing::AnyFinite(random); };
    EXPECT_LT(LargestErrorOfTwo(Hypot, mpfr_hypot, nextFinite, nextFinite), 1.0);
}

TEST(Hypot, OfSpecialValues) {
    EXPECT_EQ(Hypot(3.0, -4.0), 5.0);
    EXPECT_TRUE(testing::AreSame(Hypot(-0.0, 0.0), 0.0));
    EXPECT_TRUE(testing::AreSame(Hypot(-0.0, -0.0), 0.0));
    EXPECT_EQ(Hypot(5e-324, 0.0), 5e-324);
    EXPECT_EQ(Hypot(3e-310, 4e-310), 5e-310);
    EXPECT_EQ(Hypot(3e307, 4e307), 5e307);
    EXPECT_EQ(Hypot(1.7e308, 1.7e308), INFINITE);
    EXPECT_EQ(Hypot(-INFINITE, NOT_A_NUMBER), INFINITE);
    EXPECT_EQ(Hypot(NOT_A_NUMBER, INFINITE), INFINITE);
    EXPECT_TRUE(std::isnan(Hypot(NOT_A_NUMBER, 1.0)));
    EXPECT_TRUE(std::isnan(Hypot(1.0, NOT_A_NUMBER)));
    EXPECT_TRUE(std::isnan(Hypot(0.0, NOT_A_NUMBER)));
}

}  // namespace
}  // namespace tessara

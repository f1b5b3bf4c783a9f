#include "tessara/kernel/polynomial.h"

#include <gtest/gtest.h>

namespace tessara {
namespace {

// Powers of ten show in the result which coefficient went to which term: x = 2, y = 3 give the terms
// 1, x = 2, y = 3, xy = 6, xx = 4, yy = 9, xxy = 12, xyy = 18, xxx = 8, yyy = 27. All sums are exact.
constexpr double C[10] = {1.0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
constexpr double LINEAR = 1.0 + 2e1 + 3e2;
constexpr double BILINEAR = LINEAR + 6e3;
constexpr double QUADRATIC = BILINEAR + 4e4 + 9e5;
constexpr double CUBIC = QUADRATIC + 12e6 + 18e7 + 8e8 + 27e9;

TEST(Polynom, EveryTermHasItsCoefficient) {
    EXPECT_EQ(Polynom_Linear(C, 2.0, 3.0), LINEAR);
    EXPECT_EQ(Polynom_Bilinear(C, 2.0, 3.0), BILINEAR);
    EXPECT_EQ(Polynom_Quadratic(C, 2.0, 3.0), QUADRATIC);
    EXPECT_EQ(Polynom_Cubic(C, 2.0, 3.0), CUBIC);
}

TEST(Polynom, AtTheOriginIsTheConstant) {
    EXPECT_EQ(Polynom_Linear(C, 0.0, 0.0), 1.0);
    EXPECT_EQ(Polynom_Bilinear(C, 0.0, 0.0), 1.0);
    EXPECT_EQ(Polynom_Quadratic(C, 0.0, 0.0), 1.0);
    EXPECT_EQ(Polynom_Cubic(C, 0.0, 0.0), 1.0);
}

TEST(Polynom, SignsFollowThePowers) {
    // x = -2, y = 3: the terms with an odd power of x change sign.
    EXPECT_EQ(Polynom_Cubic(C, -2.0, 3.0), 1.0 - 2e1 + 3e2 - 6e3 + 4e4 + 9e5 + 12e6 - 18e7 - 8e8 + 27e9);
}

TEST(Polynom, ReadsNoMoreThanItsOrder) {
    // Arrays of exactly the order's length: what lies behind them belongs to somebody else.
    const double linear[3] = {C[0], C[1], C[2]};
    const double bilinear[4] = {C[0], C[1], C[2], C[3]};
    const double quadratic[6] = {C[0], C[1], C[2], C[3], C[4], C[5]};
    EXPECT_EQ(Polynom_Linear(linear, 2.0, 3.0), LINEAR);
    EXPECT_EQ(Polynom_Bilinear(bilinear, 2.0, 3.0), BILINEAR);
    EXPECT_EQ(Polynom_Quadratic(quadratic, 2.0, 3.0), QUADRATIC);
}

}  // namespace
}  // namespace tessara

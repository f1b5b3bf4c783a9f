#include "tessara/kernel/formulas.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"
#include "tessara/kernel/constants.h"

namespace tessara::formulas_test {
namespace {

constexpr double ROUNDING = 1e-15;  // a few units in the last place of numbers around 1

TEST(Atanh, UndoesTanh) {
    for (const double x : {-3.0, -0.5, -1e-9, 0.0, 1e-9, 0.5, 3.0})
        EXPECT_NEAR(Atanh(std::tanh(x)), x, 1e-13) << x;  // tanh 3 is so near to 1 that two digits are lost
}

TEST(Atanh, IsInfiniteAtOneAndNothingBeyond) {
    EXPECT_EQ(Atanh(1.0), INFINITE);
    EXPECT_EQ(Atanh(-1.0), -INFINITE);
    EXPECT_TRUE(std::isnan(Atanh(1.1)));
    EXPECT_TRUE(std::isnan(Atanh(-1.1)));
    EXPECT_TRUE(std::isnan(Atanh(NOT_A_NUMBER)));
}

TEST(SignOf, HasThreeValues) {
    EXPECT_EQ(SignOf(5e-324), 1.0);
    EXPECT_EQ(SignOf(INFINITE), 1.0);
    EXPECT_EQ(SignOf(-5e-324), -1.0);
    EXPECT_EQ(SignOf(-INFINITE), -1.0);
    EXPECT_EQ(SignOf(0.0), 0.0);
    EXPECT_EQ(SignOf(-0.0), 0.0);
    EXPECT_EQ(SignOf(NOT_A_NUMBER), 0.0);
}

TEST(IsometricLatitude, OnTheSphereIsGudermannsInverse) {
    // atanh(sin 30) = ln(3)/2, atanh(sin 45) = ln(1 + sqrt 2).
    EXPECT_NEAR(IsometricLatitude(0.0, PI / 6.0), std::log(3.0) / 2.0, ROUNDING);
    EXPECT_NEAR(IsometricLatitude(0.0, QUARTER_PI), std::log(1.0 + std::sqrt(2.0)), ROUNDING);
    EXPECT_EQ(IsometricLatitude(0.0, 0.0), 0.0);
}

TEST(IsometricLatitude, OnTheEllipsoidIsTheLogarithmOfMercator) {
    // The other common form: ln(tan(pi/4 + phi/2) ((1 - e sin phi)/(1 + e sin phi))^(e/2)).
    const double e = 0.08181919084262149;
    for (const double phi : {-1.4, -0.3, 0.2, 0.8, 1.5}) {
        const double eSin = e * std::sin(phi);
        const double expected =
            std::log(std::tan(QUARTER_PI + phi / 2.0) * std::pow((1.0 - eSin) / (1.0 + eSin), e / 2.0));
        EXPECT_NEAR(IsometricLatitude(e, phi), expected, 1e-13) << phi;  // sin loses two digits near the pole
        EXPECT_NEAR(IsometricLatitude(e, -phi), -IsometricLatitude(e, phi), 2.0 * ROUNDING) << phi;
    }
}

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
    // Arrays of exactly the length of the order: reading further would be out of bounds.
    const double linear[3] = {C[0], C[1], C[2]};
    const double bilinear[4] = {C[0], C[1], C[2], C[3]};
    const double quadratic[6] = {C[0], C[1], C[2], C[3], C[4], C[5]};
    EXPECT_EQ(Polynom_Linear(linear, 2.0, 3.0), LINEAR);
    EXPECT_EQ(Polynom_Bilinear(bilinear, 2.0, 3.0), BILINEAR);
    EXPECT_EQ(Polynom_Quadratic(quadratic, 2.0, 3.0), QUADRATIC);
}

}  // namespace
}  // namespace tessara::formulas_test

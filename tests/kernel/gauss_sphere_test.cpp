#include "kernel/gauss_sphere.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kernel/swiss_sphere.h"
#include "support/exact_functions.h"
#include "support/random.h"

namespace tessara::gauss_sphere_test {
namespace {

using testing::Exact;

constexpr double SMALLEST = 0.1;  // radians from the origin, where series end and logarithms begin
constexpr double ROUNDINGS = 1e-15;

const GaussSphere& Swiss() {
    return swiss::SPHERE.gauss;
}

// artanh(sin b) = n (artanh(sin phi) - e artanh(e sin phi)) + k, in 200 bits.
double SineOnSphere(double phi) {
    Exact sine, psi, part;
    mpfr_sin(sine.Value(), Exact(phi).Value(), MPFR_RNDN);
    mpfr_atanh(psi.Value(), sine.Value(), MPFR_RNDN);
    Exact e;
    mpfr_sqrt(e.Value(), Exact(swiss::E2).Value(), MPFR_RNDN);
    mpfr_mul(part.Value(), sine.Value(), e.Value(), MPFR_RNDN);
    mpfr_atanh(part.Value(), part.Value(), MPFR_RNDN);
    mpfr_mul(part.Value(), part.Value(), e.Value(), MPFR_RNDN);
    mpfr_sub(psi.Value(), psi.Value(), part.Value(), MPFR_RNDN);
    mpfr_mul_d(psi.Value(), psi.Value(), swiss::SPHERE.alpha, MPFR_RNDN);
    mpfr_add_d(psi.Value(), psi.Value(), swiss::SPHERE.k, MPFR_RNDN);
    mpfr_tanh(psi.Value(), psi.Value(), MPFR_RNDN);
    return psi.Nearest();
}

// Good everywhere, so that being near doesn't matter.
SinCos Onto(double phi, const GaussSphere& sphere, double e2) {
    bool isNear = true;
    return OntoSphere<Reach::Everywhere>(phi, sphere, e2, &isNear);
}

LatitudeAngle Off(SinCos b, const GaussSphere& sphere) {
    bool isNear = true;
    return OffSphere<Reach::Everywhere>(b, sphere, &isNear);
}

TEST(GaussSphere, OntoItIsRightToSomeRoundingsNearAndFar) {
    testing::Random random(1);
    for (int i = 0; i < 2000; ++i) {
        const double reach = i % 2 == 0 ? SMALLEST : 0.7;
        const double phi = Swiss().geodetic.angle + random.Between(-reach, reach);
        const SinCos b = Onto(phi, Swiss(), swiss::E2);
        EXPECT_NEAR(b.sine, SineOnSphere(phi), ROUNDINGS) << phi;
        EXPECT_NEAR(b.sine * b.sine + b.cosine * b.cosine, 1.0, ROUNDINGS) << phi;
    }
}

// The conformal latitude has the ellipsoid's own isometric latitude.
TEST(GaussSphere, OffItLeadsBackToTheConformalLatitude) {
    testing::Random random(2);
    for (int i = 0; i < 2000; ++i) {
        const double reach = i % 2 == 0 ? SMALLEST : 0.7;
        const double phi = Swiss().geodetic.angle + random.Between(-reach, reach);
        const auto [chi, direction] = Off(Onto(phi, Swiss(), swiss::E2), Swiss());
        const double step = LatitudeStep(LATITUDE_SERIES[ELLIPSOID_BESSEL], Doubled(direction));
        EXPECT_NEAR(chi + step, phi, 2.0 * ROUNDINGS) << phi;
        EXPECT_NEAR(std::sin(chi), direction.sine, ROUNDINGS) << phi;
    }
}

TEST(GaussSphere, MapsItsOriginExactly) {
    const SinCos b = Onto(Swiss().geodetic.angle, Swiss(), swiss::E2);
    EXPECT_EQ(b.sine, Swiss().onSphere.direction.sine);
    EXPECT_EQ(b.cosine, Swiss().onSphere.direction.cosine);
    EXPECT_EQ(Off(b, Swiss()).angle, Swiss().conformal.angle);
}

TEST(GaussSphere, BeyondThePolesThereIsNothing) {
    EXPECT_TRUE(std::isnan(Onto(1.7, Swiss(), swiss::E2).sine));
    EXPECT_TRUE(std::isnan(Onto(-2.0, Swiss(), swiss::E2).sine));
}

}  // namespace
}  // namespace tessara::gauss_sphere_test

#include "geometry/plane_ray.h"

#include <gtest/gtest.h>

#include "numerics/special_values.h"
#include "support/random.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

using testing::Random;

Triple operator*(double s, const Triple& v) {
    return {s * v[0], s * v[1], s * v[2]};
}
Triple operator+(const Triple& a, const Triple& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}

struct Tripod {
    Triple east;
    Triple north;
    Triple up;
};

// The axes at a latitude and longitude in radians.
Tripod TripodAt(double phi, double lambda) {
    const double sinPhi = std::sin(phi), cosPhi = std::cos(phi);
    const double sinLambda = std::sin(lambda), cosLambda = std::cos(lambda);
    return {{-sinLambda, cosLambda, 0.0},
            {-sinPhi * cosLambda, -sinPhi * sinLambda, cosPhi},
            {cosPhi * cosLambda, cosPhi * sinLambda, sinPhi}};
}

void ExpectMiss(const PlaneHit& hit) {
    EXPECT_EQ(hit.t, MISSING_NUMBER);
    EXPECT_EQ(hit.x, 0.0);
    EXPECT_EQ(hit.y, 0.0);
}

TEST(IntersectPlane, MeetsAPlaneInFrontAndBehind) {
    // The y-z plane through the origin, intersected by a ray from x = 10.
    const Triple E{0.0, 1.0, 0.0};
    const Triple N{0.0, 0.0, 1.0};
    // From (10, 1, 2) by t (-2, 3, 1): x is 0 at t = 5, y = 1 + 15, z = 2 + 5.
    const PlaneHit hit = IntersectPlane({10.0, 1.0, 2.0}, {-2.0, 3.0, 1.0}, E, N);
    EXPECT_DOUBLE_EQ(hit.t, 5.0);
    EXPECT_DOUBLE_EQ(hit.x, 16.0);
    EXPECT_DOUBLE_EQ(hit.y, 7.0);
    EXPECT_DOUBLE_EQ(IntersectPlane({10.0, 1.0, 2.0}, {2.0, -3.0, -1.0}, E, N).t, -5.0);
}

// The equation of the hit, everywhere and in all directions that aren't nearly in the plane. The distances
// are up to 1000 km, of which a double keeps 1e-10 m; near the equator and the poles, and by a slant of 1e-3,
// three digits are lost.
TEST(IntersectPlane, HitsSatisfyTheEquation) {
    Random random(651);
    const double special[] = {0.0, HALF_PI, -HALF_PI, 1e-300, -1e-17, 1e-12, 3e-9, 1e-7, 1e-6, -2e-6, 1e-5};
    for (int i = 0; i < 50000; ++i) {
        const double phi = i % 3 == 0 ? special[random.Below(11)] : random.Between(-HALF_PI, HALF_PI);
        const double lambda = i % 5 == 0 ? 0.5 * HALF_PI * random.Below(8) : random.Between(-PI, PI);
        const Tripod axes = TripodAt(phi, lambda);
        const Triple d{random.Between(-1e6, 1e6), random.Between(-1e6, 1e6), random.Between(-1e6, 1e6)};
        Triple D = axes.up;
        if (i % 2 == 0)
            D = D + random.Between(-1e3, 1e3) * axes.east + random.Between(-1e3, 1e3) * axes.north;
        const PlaneHit hit = IntersectPlane(d, D, axes.east, axes.north);
        ASSERT_NE(hit.t, MISSING_NUMBER) << phi << " " << lambda;
        ASSERT_NE(hit.t, RAY_IN_PLANE) << phi << " " << lambda;
        const Triple place = d + hit.t * D;
        const Triple inPlane = hit.x * axes.east + hit.y * axes.north;
        const double tolerance = i % 2 == 0 ? 1e-4 : 1e-6;
        for (std::size_t k = 0; k < 3; ++k)
            ASSERT_NEAR(place[k], inPlane[k], tolerance) << "phi " << phi << " lambda " << lambda;
    }
}

// A plane on the equator has a normal without a third component.
TEST(IntersectPlane, TheNormalOfAPlaneOnTheEquatorCrossesIt) {
    for (const double degrees : {0.0, 10.0, 45.0, 90.0, -120.0, 180.0}) {
        for (const double phi : {0.0, -0.0, 1e-320, 1e-16, -1e-10, 1e-8}) {
            const Tripod axes = TripodAt(phi, degrees * PI / 180.0);
            const Triple d = 1000.0 * axes.east + 2000.0 * axes.north + 50.0 * axes.up;
            const PlaneHit hit = IntersectPlane(d, axes.up, axes.east, axes.north);
            EXPECT_NEAR(hit.t, -50.0, 1e-9) << degrees << " " << phi;
            EXPECT_NEAR(hit.x, 1000.0, 1e-9) << degrees << " " << phi;
            EXPECT_NEAR(hit.y, 2000.0, 1e-9) << degrees << " " << phi;
        }
    }
}

TEST(IntersectPlane, ARayAlongTheEastAxisLiesInThePlane) {
    const Tripod axes = TripodAt(0.8, 0.3);
    const PlaneHit hit = IntersectPlane(5.0 * axes.east, axes.east, axes.east, axes.north);
    EXPECT_EQ(hit.t, RAY_IN_PLANE);
    // Of 5, some units of the last place.
    EXPECT_NEAR(hit.x, 5.0, 1e-14);
    EXPECT_EQ(hit.y, 0.0);
}

// Exact numbers, so that the comparison decides: a plane through (0, 0, 0) that is spanned by whole numbers.
TEST(IntersectPlane, ARayInThePlaneGivesThePlaceOfItsPoint) {
    struct Span {
        Triple E;
        Triple N;
    };
    // Each component of E the largest once, with ties, and planes square to each axis.
    const Span spans[] = {{{0.0, 1.0, 0.0}, {-1.0, 0.0, 0.0}}, {{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}},
                          {{4.0, 2.0, 1.0}, {1.0, 1.0, 3.0}},  {{1.0, 4.0, 2.0}, {3.0, 1.0, 1.0}},
                          {{1.0, 2.0, 4.0}, {1.0, 3.0, 1.0}},  {{2.0, 2.0, 1.0}, {1.0, -1.0, 3.0}},
                          {{2.0, 1.0, 2.0}, {-1.0, 5.0, 1.0}}, {{1.0, 2.0, 2.0}, {8.0, 1.0, -1.0}},
                          {{0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}},  {{0.0, 0.0, 1.0}, {1.0, 0.0, 0.0}},
                          {{1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}}};
    for (const auto& [E, N] : spans) {
        for (const Triple& D : {E, N, E + N, 2.0 * E + -3.0 * N}) {
            const PlaneHit hit = IntersectPlane(7.0 * E + 2.0 * N, D, E, N);
            EXPECT_EQ(hit.t, RAY_IN_PLANE) << E[0] << E[1] << E[2] << " " << D[0] << D[1] << D[2];
            EXPECT_DOUBLE_EQ(hit.x, 7.0) << E[0] << E[1] << E[2];
            EXPECT_DOUBLE_EQ(hit.y, 2.0) << E[0] << E[1] << E[2];
        }
    }
}

// Of components of equal size, the order of the pivots decides by which one to divide. Each case has one
// component in units of 2^30, in which the sum of the last division cancels nine digits; the other component
// of the tie has whole numbers of one digit. The expected results are the solutions of t D = x E + y N - d in
// fractions.
TEST(IntersectPlane, OfEqualComponentsThePivotIsTheThirdOrElseTheSecond) {
    const struct {
        Triple d, D, E, N;
        double t;
    } cases[] = {
        // The second and the third.
        {{-4.0, -9663676416.0, -9.0},
         {1.0, 2.0, 2.0},
         {5.0, 5368709120.0, 1.0},
         {5.0, 4831838208.0, 3.0},
         -18924699648.0 / 1476395003.0},
        // The first and the third.
        {{-1073741824.0, -4.0, -2.0},
         {2.0, 1.0, 2.0},
         {7516192768.0, 4.0, 7.0},
         {4831838208.0, 4.0, 7.0},
         -20.0},
        // The first and the second.
        {{-6442450944.0, -9.0, -4.0},
         {2.0, 2.0, 1.0},
         {3221225472.0, 1.0, 4.0},
         {3221225472.0, 8.0, 7.0},
         -78920024064.0 / 1610612711.0},
        // All three, of which the first or the second has the large numbers.
        {{-5368709120.0, -3.0, -7.0},
         {2.0, 2.0, 2.0},
         {9663676416.0, 6.0, 2.0},
         {3221225472.0, 3.0, 1.0},
         4.5},
        {{-9.0, -5368709120.0, -5.0},
         {2.0, 2.0, 2.0},
         {1.0, 6442450944.0, 8.0},
         {1.0, 3221225472.0, 5.0},
         9663676416.0 / 1073741825.0},
    };
    // Six units in the last place of t; the other component of the tie misses by 3e-6 at least.
    for (const auto& [d, D, E, N, t] : cases)
        EXPECT_NEAR(IntersectPlane(d, D, E, N).t, t, 1e-13) << D[0] << D[1] << D[2];
}

// b1 = 1 * 3 - 1 * 4 = -1 and b2 = 1 * 1 - 0 * 4 = 1.
TEST(IntersectPlane, OfEqualDivisorsOfXTheSecondCounts) {
    const PlaneHit hit = IntersectPlane({-9663676416.0, -3.0, -2.0}, {3.0, 1.0, 4.0}, {1.0, 0.0, 1.0},
                                        {5368709120.0, 3.0, 5.0});
    // In fractions; the first divisor misses by 6e-6.
    EXPECT_NEAR(hit.x, -13958643739.0 / 5368709118.0, 1e-14);
}

// The ray runs along N, 4e-6 m beside the plane. u = 1 * 1 - 0 * 0 = 1 and v = 1 * 1 - 0 * 0 = 1, so y is w2
// / v, from the second and third components, which are exact.
TEST(IntersectPlane, OfEqualDivisorsAlongThePlaneTheSecondCounts) {
    const PlaneHit hit =
        IntersectPlane({2.000004, 2.0, 7.0}, {1.0, 1.0, 0.0}, {0.0, 0.0, 1.0}, {1.0, 1.0, 0.0});
    EXPECT_EQ(hit.t, RAY_IN_PLANE);
    EXPECT_EQ(hit.x, 7.0);
    EXPECT_EQ(hit.y, 2.0);
}

TEST(IntersectPlane, ARayBesideThePlaneMisses) {
    const Triple E{0.0, 1.0, 0.0};
    const Triple N{-1.0, 0.0, 1.0};
    ExpectMiss(IntersectPlane({1.0, 0.0, 0.0}, E, E, N));
    ExpectMiss(IntersectPlane({0.0, 0.0, 1.0}, N, E, N));
    // Above the plane at a pole, whose axes have no third component.
    ExpectMiss(IntersectPlane({3.0, 4.0, 10.0}, {1.0, 1.0, 0.0}, {0.0, 1.0, 0.0}, {-1.0, 0.0, 0.0}));
}

TEST(IntersectPlane, WithoutADirectionThePointLiesInThePlaneOrNot) {
    const Triple E{4.0, 2.0, 1.0};
    const Triple N{1.0, 1.0, 3.0};
    const PlaneHit hit = IntersectPlane(7.0 * E + 2.0 * N, {0.0, 0.0, 0.0}, E, N);
    EXPECT_EQ(hit.t, RAY_IN_PLANE);
    EXPECT_DOUBLE_EQ(hit.x, 7.0);
    ExpectMiss(IntersectPlane({1.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, E, N));
}

TEST(IntersectPlane, ThePlacesOfTheOriginAreNoNegativeZeros) {
    for (const double lambda : {-2.0, -1.0, 0.5, 3.0}) {
        for (const double phi : {-1.2, -0.5, 0.4, 1.1}) {
            const Tripod axes = TripodAt(phi, lambda);
            const PlaneHit hit = IntersectPlane({0.0, 0.0, 0.0}, axes.up, axes.east, axes.north);
            EXPECT_EQ(hit.x, 0.0);
            EXPECT_EQ(hit.y, 0.0);
            EXPECT_EQ(hit.t, 0.0);
        }
    }
}

TEST(IntersectPlane, NumbersThatAreNotFiniteMiss) {
    const Triple E{0.0, 1.0, 0.0};
    const Triple N{0.0, 0.0, 1.0};
    const Triple D{1.0, 0.1, 0.1};
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE, 1e308}) {
        ExpectMiss(IntersectPlane({1.0, bad, 1.0}, {1e-9, 1.0, 10.0}, E, N));
        ExpectMiss(IntersectPlane({1e10, 1.0, 1.0}, {1e-300, bad, 1.0}, E, N));
    }
    ExpectMiss(IntersectPlane({1.0, 1.0, 1.0}, D, {NOT_A_NUMBER, 1.0, 0.0}, N));
    ExpectMiss(IntersectPlane({1.0, 1.0, 1.0}, D, E, {0.0, 0.0, INFINITE}));
    ExpectMiss(IntersectPlane({1.0, 1.0, 1.0}, D, {0.0, 0.0, 0.0}, {0.0, 0.0, 0.0}));
}

}  // namespace
}  // namespace tessara

#include "geometry/plane_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "numerics/special_values.h"
#include "support/random.h"

namespace tessara {
namespace {

using testing::Random;

constexpr double LARGEST = std::numeric_limits<double>::max();

TEST(ParameterOnSegment, IsTakenOnTheLongerAxis) {
    EXPECT_TRUE(IsLongerInX({0, 0}, {3, -2}));
    EXPECT_FALSE(IsLongerInX({0, 0}, {2, -3}));
    EXPECT_FALSE(IsLongerInX({0, 0}, {3, 3})) << "y, when neither is";
    // Beside the segment, so that the axes differ.
    EXPECT_EQ(ParameterOnSegment({1, 9}, {0, 0}, {4, 2}), 0.25);
    EXPECT_EQ(ParameterOnSegment({9, 1}, {0, 0}, {2, 4}), 0.25);
    EXPECT_EQ(ParameterOnSegment({9, 1}, {0, 0}, {4, 4}), 0.25);
    EXPECT_EQ(ParameterOnSegment({3, 0}, {4, 0}, {0, 0}), 0.25);
}

TEST(LineParameter, RunsFromZeroToOneAlongTheFirstSegment) {
    EXPECT_EQ(LineParameter({0, 0}, {4, 0}, {1, -1}, {1, 1}), 0.25);
    EXPECT_EQ(LineParameter({0, 0}, {4, 0}, {0, -1}, {0, 1}), 0.0);
    EXPECT_EQ(LineParameter({0, 0}, {4, 0}, {4, -1}, {4, 1}), 1.0);
    EXPECT_EQ(LineParameter({0, 0}, {4, 4}, {0, 2}, {2, 0}), 0.25);
}

TEST(LineParameter, GoesBeyondTheSegmentAndTakesTheSecondForALine) {
    EXPECT_EQ(LineParameter({0, 0}, {4, 0}, {-2, 5}, {-2, 6}), -0.5);
    EXPECT_EQ(LineParameter({0, 0}, {4, 0}, {8, 5}, {8, 6}), 2.0);
}

TEST(LineParameter, MarksParallelLinesWithoutACommonPoint) {
    EXPECT_EQ(LineParameter({0, 0}, {4, 0}, {0, 1}, {4, 1}), -LARGEST);
    EXPECT_EQ(LineParameter({0, 0}, {1, 2}, {1, 0}, {3, 4}), -LARGEST);
}

TEST(LineParameter, MarksCollinearLines) {
    EXPECT_EQ(LineParameter({0, 0}, {4, 0}, {10, 0}, {11, 0}), LARGEST);
    EXPECT_EQ(LineParameter({0, 0}, {1, 2}, {2, 4}, {-1, -2}), LARGEST);
}

TEST(LineParameter, LinesCloserThanTheRoundingOfTheirPlaceAreCollinear) {
    // At (1e6, 0) the tolerance is (1e6 + 1) * 2^-52 = 2.22e-10.
    EXPECT_EQ(LineParameter({1e6, 0}, {2e6, 0}, {0, 2.2e-10}, {1, 2.2e-10}), LARGEST);
    EXPECT_EQ(LineParameter({1e6, 0}, {2e6, 0}, {0, 2.3e-10}, {1, 2.3e-10}), -LARGEST);
    EXPECT_EQ(OnLineTolerance({3.0, 4.0}), 6.0 * 0x1p-52);
}

TEST(LineParameter, LinesAsFarApartAsTheRoundingAreParallel) {
    // At (3, 0) the tolerance is 4 * 2^-52 = 2^-50.
    EXPECT_EQ(LineParameter({3, 0}, {4, 0}, {0, 0x1p-50}, {1, 0x1p-50}), -LARGEST);
    EXPECT_EQ(LineParameter({3, 0}, {4, 0}, {0, 0x1p-51}, {1, 0x1p-51}), LARGEST);
}

TEST(LineParameter, OfASegmentAndAPointTheToleranceIsThatOfThePoint) {
    // 2^-52 at (0, 0), some 2^-32 at (1e6, 0).
    EXPECT_EQ(LineParameter({1e6, 0x1p-40}, {2e6, 0x1p-40}, {0, 0}, {0, 0}), -LARGEST);
    EXPECT_EQ(LineParameter({0, 0x1p-40}, {2e6, 0x1p-40}, {1e6, 0}, {1e6, 0}), 0.5);
}

TEST(LineParameter, APointOnTheLineOfTheOtherSegmentHasParameterZero) {
    EXPECT_EQ(LineParameter({2, 2}, {2, 2}, {0, 0}, {1, 1}), 0.0);  // beyond the segment, on its line
    EXPECT_EQ(LineParameter({2, 3}, {2, 3}, {0, 0}, {1, 1}), -LARGEST);
    EXPECT_EQ(LineParameter({2, 2}, {2, 2}, {2, 2}, {2, 2}), 0.0);
    EXPECT_EQ(LineParameter({2, 2}, {2, 2}, {2, 3}, {2, 3}), -LARGEST);
}

TEST(LineParameter, ASegmentThroughAPointIsMeasuredOnItsLongerAxis) {
    EXPECT_EQ(LineParameter({0, 0}, {8, 4}, {2, 1}, {2, 1}), 0.25);
    EXPECT_EQ(LineParameter({0, 0}, {4, 8}, {1, 2}, {1, 2}), 0.25);
    EXPECT_EQ(LineParameter({0, 0}, {0, 8}, {0, 2}, {0, 2}), 0.25);
    EXPECT_EQ(LineParameter({0, 0}, {8, 0}, {2, 0}, {2, 0}), 0.25);
    EXPECT_EQ(LineParameter({0, 0}, {-8, -8}, {-2, -2}, {-2, -2}), 0.25);
}

TEST(LineParameter, IsNoPlaceOnASegmentForNumbersThatArent) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        for (int which = 0; which < 8; ++which) {
            double v[8] = {0, 0, 4, 4, 0, 4, 4, 0};
            v[which] = bad;
            const double t = LineParameter({v[0], v[1]}, {v[2], v[3]}, {v[4], v[5]}, {v[6], v[7]});
            const double s = LineParameter({v[4], v[5]}, {v[6], v[7]}, {v[0], v[1]}, {v[2], v[3]});
            EXPECT_FALSE(t >= 0.0 && t <= 1.0 && s >= 0.0 && s <= 1.0) << bad << " at " << which;
        }
    }
}

TEST(SignedDistance, IsPositiveToTheLeftOfTheLine) {
    EXPECT_EQ(SignedDistance({0, 1}, {0, 0}, {1, 0}), 1.0);
    EXPECT_EQ(SignedDistance({0, 1}, {1, 0}, {0, 0}), -1.0);
    EXPECT_EQ(SignedDistance({7, -3}, {0, 0}, {1, 0}), -3.0);
    EXPECT_EQ(SignedDistance({5, 5}, {1, 1}, {3, 3}), 0.0);
}

TEST(SignedDistance, FromAPointIsThePlainDistance) {
    EXPECT_EQ(SignedDistance({4, 5}, {1, 1}, {1, 1}), 5.0);
    EXPECT_EQ(SignedDistance({-2, -3}, {1, 1}, {1, 1}), 5.0);
    EXPECT_EQ(SignedDistance({1, 1}, {1, 1}, {1, 1}), 0.0);
}

TEST(SignedDistance, DividesBeforeItSubtracts) {
    const double length = std::sqrt(10.0);
    EXPECT_EQ(SignedDistance({0.1, 0.4}, {0, 0}, {3, 1}), 0.4 * 3.0 / length - 0.1 * 1.0 / length);
}

TEST(FootPoint, DropsThePerpendicularAlsoBeyondTheSegment) {
    PlanePoint foot{};
    EXPECT_TRUE(FootPoint({5, 5}, {0, 0}, {1, 0}, &foot));
    EXPECT_EQ(foot, (PlanePoint{5, 0}));
    EXPECT_TRUE(FootPoint({-3, 5}, {2, 0}, {2, 8}, &foot));
    EXPECT_EQ(foot, (PlanePoint{2, 5}));
    EXPECT_TRUE(FootPoint({0, 4}, {0, 0}, {1, 1}, &foot));
    EXPECT_EQ(foot, (PlanePoint{2, 2}));
    EXPECT_TRUE(FootPoint({-1, 0}, {1, 1}, {3, 5}, &foot));  // t = (-2 * 2 - 1 * 4) / 20 = -0.4
    EXPECT_NEAR(foot.x, 0.2, 1e-15);
    EXPECT_NEAR(foot.y, -0.6, 1e-15);
}

TEST(FootPoint, AlongAnAxisNothingIsSquared) {
    // The square of 1e200 is infinite.
    PlanePoint foot{};
    EXPECT_TRUE(FootPoint({0.5e200, 5}, {0, 3}, {1e200, 3}, &foot));
    EXPECT_EQ(foot, (PlanePoint{0.5e200, 3}));
    EXPECT_TRUE(FootPoint({5, 0.5e200}, {3, 0}, {3, 1e200}, &foot));
    EXPECT_EQ(foot, (PlanePoint{3, 0.5e200}));
}

TEST(FootPoint, OfEqualPointsIsThatPoint) {
    PlanePoint foot{};
    EXPECT_FALSE(FootPoint({2, 2}, {1, 1}, {1, 1}, &foot));
    EXPECT_EQ(foot, (PlanePoint{1, 1}));
    foot = {};
    EXPECT_TRUE(FootPoint({1, 1}, {1, 1}, {1, 1}, &foot));
    EXPECT_EQ(foot, (PlanePoint{1, 1}));
}

TEST(FootPoint, TheWayToItIsPerpendicular) {
    Random random(11);
    for (int i = 0; i < 1000; ++i) {
        const PlanePoint a{random.Between(-1000, 1000), random.Between(-1000, 1000)};
        const PlanePoint b{random.Between(-1000, 1000), random.Between(-1000, 1000)};
        const PlanePoint p{random.Between(-1000, 1000), random.Between(-1000, 1000)};
        PlanePoint foot{};
        ASSERT_TRUE(FootPoint(p, a, b, &foot));
        const double length = std::hypot(b.x - a.x, b.y - a.y);
        const double along = ((p.x - foot.x) * (b.x - a.x) + (p.y - foot.y) * (b.y - a.y)) / length;
        // A few roundings of numbers below 1e4; t grows where the segment is short.
        EXPECT_NEAR(along, 0.0, 1e-11 * (1.0 + 1000.0 / length));
        EXPECT_NEAR(std::hypot(p.x - foot.x, p.y - foot.y), std::fabs(SignedDistance(p, a, b)),
                    1e-11 * (1.0 + 1000.0 / length));
    }
}

TEST(PointOnSegments, MarksHaveNoPlace) {
    for (const double mark : {LARGEST, -LARGEST}) {
        PlanePoint place{7, 8};
        EXPECT_FALSE(PointOnSegments({0, 0}, {1, 0}, {0, 1}, {1, 1}, mark, &place));
        EXPECT_EQ(place, (PlanePoint{7, 8}));
    }
}

TEST(PointOnSegments, IsTheFirstPlaceWhereItLiesOnBoth) {
    PlanePoint place{};
    EXPECT_TRUE(PointOnSegments({0, 0}, {4, 4}, {0, 2}, {2, 0}, 0.25, &place));
    EXPECT_EQ(place, (PlanePoint{1, 1}));
    // On the second segment it is 49 * (1 / 49), in doubles less than 1, but the distance from it is 0.
    ASSERT_LT(LineParameter({0, 0}, {49, 49}, {0, 1}, {2, 1}) * 49.0, 1.0);
    EXPECT_TRUE(PointOnSegments({0, 1}, {2, 1}, {0, 0}, {49, 49}, 0.5, &place));
    EXPECT_EQ(place, (PlanePoint{1, 1}));
}

// The exact lines y = x / 3 and x + y = 0.1 don't meet in doubles; x of the intersection is 0.075, y is
// 0.025.
TEST(PointOnSegments, AnAxisOnWhichBothSegmentsRunTakesTheMean) {
    const PlanePoint a1{0, 0}, a2{3, 1}, b1{0, 0.1}, b2{0.1, 0};
    PlanePoint onA{}, onB{};
    const double t = LineParameter(a1, a2, b1, b2);
    const double s = LineParameter(b1, b2, a1, a2);
    onA = {t * 3.0, t * 1.0};
    onB = {s * 0.1, s * -0.1 + 0.1};
    PlanePoint place{};
    const bool isOne = PointOnSegments(a1, a2, b1, b2, t, &place);
    EXPECT_EQ(isOne, SignedDistance(onA, b1, b2) == 0.0 || onA == onB);
    EXPECT_GE(place.x, std::min(onA.x, onB.x));
    EXPECT_LE(place.x, std::max(onA.x, onB.x));
    EXPECT_GE(place.y, std::min(onA.y, onB.y));
    EXPECT_LE(place.y, std::max(onA.y, onB.y));
    EXPECT_NEAR(place.x, 0.075, 1e-16);
    EXPECT_NEAR(place.y, 0.025, 1e-16);
}

TEST(PointOnSegments, LiesExactlyOnAxisParallelSegments) {
    Random random(12);
    for (int i = 0; i < 2000; ++i) {
        const double line = random.Between(-1000, 1000);
        const PlanePoint a1{random.Between(-1000, 1000), random.Between(-1000, line)};
        const PlanePoint a2{random.Between(-1000, 1000), random.Between(line, 1000)};
        const PlanePoint low{-2000, line}, high{2000, line};
        PlanePoint place{};
        PointOnSegments(a1, a2, low, high, LineParameter(a1, a2, low, high), &place);
        EXPECT_EQ(place.y, line);
        PointOnSegments(low, high, a1, a2, LineParameter(low, high, a1, a2), &place);
        EXPECT_EQ(place.y, line);
        // The same with the axes exchanged.
        const PlanePoint c1{a1.y, a1.x}, c2{a2.y, a2.x}, left{line, -2000}, right{line, 2000};
        PointOnSegments(c1, c2, left, right, LineParameter(c1, c2, left, right), &place);
        EXPECT_EQ(place.x, line);
        PointOnSegments(left, right, c1, c2, LineParameter(left, right, c1, c2), &place);
        EXPECT_EQ(place.x, line);
    }
}

TEST(PointOnSegments, OnOneLineThereIsNothingToReconcile) {
    // Off the line by rounding, on parallel segments: 0.3 / 0.7 is no double.
    const PlanePoint a1{0, 0}, a2{0.7, 0.3}, b1{1.4, 0.6}, b2{-0.7, -0.3};
    ASSERT_EQ(LineParameter(b1, b2, a1, a2), LARGEST);
    for (double t = 0.0; t <= 1.0; t += 0.0625) {
        PlanePoint place{};
        EXPECT_TRUE(PointOnSegments(a1, a2, b1, b2, t, &place));
        EXPECT_EQ(place, (PlanePoint{t * 0.7, t * 0.3}));
    }
}

}  // namespace
}  // namespace tessara

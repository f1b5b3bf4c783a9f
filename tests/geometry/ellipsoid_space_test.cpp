#include "geometry/ellipsoid_space.h"

#include <gtest/gtest.h>

#include <optional>

#include "numerics/special_values.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/space.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

using testing::HeightLimit;
using testing::Random;
using testing::WGS84_B;

constexpr EllipsoidAxes WGS84{6378137.0, 0.0066943799901413165};  // e2 = 2f - f^2

bool IsSettled(const EcefPayload& point, const EllipsoidAxes& ellipsoid = WGS84) {
    GeodezPayload position{};
    return SpacePosition(ellipsoid, point, &position);
}

TEST(LoadEllipsoid, KnowsTheDatumsOfTheTable) {
    EllipsoidAxes ellipsoid{};
    EXPECT_TRUE(LoadEllipsoid(2, &ellipsoid));
    EXPECT_EQ(ellipsoid.a, 6378137.0);
    // Published to fourteen decimals.
    EXPECT_NEAR(ellipsoid.e2, 0.00669437999014, 1e-14);
    EXPECT_TRUE(LoadEllipsoid(0, &ellipsoid));
    EXPECT_EQ(ellipsoid.e2, 0.0);
    EXPECT_TRUE(LoadEllipsoid(238, &ellipsoid));
    EXPECT_FALSE(LoadEllipsoid(239, &ellipsoid));
    EXPECT_FALSE(LoadEllipsoid(-1, &ellipsoid));
    EXPECT_FALSE(LoadEllipsoid(999, &ellipsoid));
}

// 1e-6 m: a few units in the last place of a double of the size of the earth, and those of the figures.
TEST(SpacePoint, AgreesWithIndependentFigures) {
    for (const auto& row : testing::ReadReferenceFile("geometry/earth_centred.txt")) {
        EllipsoidAxes ellipsoid{};
        ASSERT_TRUE(LoadEllipsoid(static_cast<std::int32_t>(row.Number(0)), &ellipsoid));
        const EcefPayload point = SpacePoint(ellipsoid, {row.Number(1), row.Number(2), row.Number(3)});
        for (const std::size_t column : {4u, 7u}) {
            EXPECT_NEAR(point.x, row.Number(column), 1e-6) << row.place;
            EXPECT_NEAR(point.y, row.Number(column + 1), 1e-6) << row.place;
            EXPECT_NEAR(point.z, row.Number(column + 2), 1e-6) << row.place;
        }
    }
}

TEST(SpacePosition, FindsThePlacesOfIndependentFigures) {
    for (const auto& row : testing::ReadReferenceFile("geometry/earth_centred.txt")) {
        EllipsoidAxes ellipsoid{};
        GeodezPayload position{};
        ASSERT_TRUE(LoadEllipsoid(static_cast<std::int32_t>(row.Number(0)), &ellipsoid));
        ASSERT_TRUE(SpacePosition(ellipsoid, {row.Number(4), row.Number(5), row.Number(6)}, &position));
        const double latitude = row.Number(1);
        const double height = row.Number(3);
        EXPECT_NEAR(position.latitude, latitude, 1e-8) << row.place;
        EXPECT_NEAR(position.height, height, HeightLimit(latitude, height, ellipsoid.e2)) << row.place;
        // The figures are rounded to 1e-9 m, which is an angle of 6e-8 / p degrees at p metres from the axis.
        const double p = std::hypot(row.Number(4), row.Number(5));
        const double turn = std::remainder(position.longitude - row.Number(2), 360.0);
        if (p > 0.0) {
            EXPECT_NEAR(turn, 0.0, 6e-8 / p + 1e-13) << row.place;
        }
    }
}

// The accuracy that the interface documents: 1e-8 degrees, and for the height the error of the stopping
// criterion.
TEST(SpacePosition, UndoesSpacePointWithinItsStopCriterion) {
    Random random(621);
    for (const std::int32_t datum : {2, 3, 12, 60, 0}) {
        EllipsoidAxes ellipsoid{};
        ASSERT_TRUE(LoadEllipsoid(datum, &ellipsoid));
        for (int i = 0; i < 20000; ++i) {
            const bool isPolar = i % 4 == 0;
            const double latitude = isPolar ? std::copysign(90.0 - std::pow(10.0, random.Between(-6.0, 1.0)),
                                                            random.Between(-1.0, 1.0))
                                            : random.Between(-90.0, 90.0);
            const GeodezPayload from{latitude, random.Between(-180.0, 180.0), random.Between(-1e4, 1e5)};
            GeodezPayload to{};
            ASSERT_TRUE(SpacePosition(ellipsoid, SpacePoint(ellipsoid, from), &to));
            ASSERT_NEAR(to.latitude, from.latitude, 1e-8);
            ASSERT_NEAR(to.longitude, from.longitude, 1e-12);
            ASSERT_NEAR(to.height, from.height, HeightLimit(latitude, from.height, ellipsoid.e2))
                << "latitude " << latitude << " datum " << datum;
        }
    }
}

TEST(SpacePosition, SurfacePointsHaveNoHeight) {
    Random random(622);
    for (int i = 0; i < 10000; ++i) {
        const double latitude = random.Between(-89.0, 89.0);
        GeodezPayload to{};
        ASSERT_TRUE(
            SpacePosition(WGS84, SpacePoint(WGS84, {latitude, random.Between(-180.0, 180.0), 0.0}), &to));
        // Metres: up to 89 degrees the rounding of 6.4e6 m counts less than a hundredfold.
        ASSERT_NEAR(to.height, 0.0, 1e-6);
    }
}

TEST(SpacePosition, AnswersThePoleOnTheAxis) {
    GeodezPayload position{};
    ASSERT_TRUE(SpacePosition(WGS84, {0.0, 0.0, WGS84_B}, &position));
    EXPECT_EQ(position.latitude, 90.0);
    EXPECT_EQ(position.longitude, 0.0);
    EXPECT_NEAR(position.height, 0.0, 1e-8);
    ASSERT_TRUE(SpacePosition(WGS84, {0.0, 0.0, -WGS84_B - 250.0}, &position));
    EXPECT_EQ(position.latitude, -90.0);
    EXPECT_NEAR(position.height, 250.0, 1e-8);
    ASSERT_TRUE(SpacePosition(WGS84, {0.0, 0.0, 1.0}, &position));
    EXPECT_EQ(position.latitude, 90.0);
    EXPECT_NEAR(position.height, 1.0 - WGS84_B, 1e-8);
    // On the sphere, too.
    ASSERT_TRUE(SpacePosition({6371000.0, 0.0}, {0.0, 0.0, 6371010.0}, &position));
    EXPECT_EQ(position.latitude, 90.0);
    EXPECT_EQ(position.height, 10.0);
}

TEST(SpacePosition, ResolvesTheEquatorAndTheDateLine) {
    GeodezPayload position{};
    ASSERT_TRUE(SpacePosition(WGS84, {-6378147.0, 0.0, 0.0}, &position));
    EXPECT_EQ(position.latitude, 0.0);
    EXPECT_EQ(position.longitude, 180.0);
    // Metres, ten units of the last place of the axis.
    EXPECT_NEAR(position.height, 10.0, 1e-8);
    ASSERT_TRUE(SpacePosition(WGS84, {0.0, -6378137.0, 0.0}, &position));
    EXPECT_EQ(position.longitude, -90.0);
}

TEST(SpacePosition, FailsForTheCentreAndWhatIsNotFinite) {
    GeodezPayload position{1.0, 2.0, 3.0};
    for (const EcefPayload& point :
         {EcefPayload{0.0, 0.0, 0.0}, EcefPayload{-0.0, 0.0, -0.0}, EcefPayload{NOT_A_NUMBER, 0.0, 0.0},
          EcefPayload{6378137.0, NOT_A_NUMBER, 0.0}, EcefPayload{6378137.0, 0.0, NOT_A_NUMBER},
          EcefPayload{INFINITE, 0.0, 0.0}, EcefPayload{0.0, NOT_A_NUMBER, 6356752.0},
          EcefPayload{0.0, INFINITE, 1.0}, EcefPayload{0.0, 0.0, -INFINITE},
          EcefPayload{1e200, 1e200, 0.0}}) {
        EXPECT_FALSE(SpacePosition(WGS84, point, &position));
    }
    EXPECT_EQ(position.latitude, 1.0);
    EXPECT_EQ(position.longitude, 2.0);
    EXPECT_EQ(position.height, 3.0);
}

// Near the centre the two steps chase each other: there the rounds run out.
TEST(SpacePosition, FailsWhereTheIterationDoesNotSettle) {
    EXPECT_FALSE(IsSettled({1.0, 0.0, 0.0}));
    EXPECT_FALSE(IsSettled({1.0, 0.0, 1.0}));
    EXPECT_FALSE(IsSettled({30000.0, 0.0, 1000.0}));
}

// Latitude and height by the interface's words, one loop in the other: on a latitude that stays the height is
// computed until it keeps to 0.01 m, then the latitude moves, until it keeps to 1e-6 degrees. Nothing if that
// takes more than 50 heights.
std::optional<GeodezPayload> SettledPosition(const EllipsoidAxes& ellipsoid, double p, double z) {
    int heights = 0;
    double h = 0.0;
    double phi = std::atan2(z, (1.0 - ellipsoid.e2) * p) * DEGREES_PER_RADIAN;
    double latitudeStep = 0.0;
    do {
        const double sine = std::sin(phi / DEGREES_PER_RADIAN);
        const double N = ellipsoid.a / std::sqrt(1.0 - ellipsoid.e2 * sine * sine);
        double heightStep = 0.0;
        do {
            if (++heights > 50) return std::nullopt;
            const double next = p / std::cos(phi / DEGREES_PER_RADIAN) - N;
            heightStep = std::fabs(next - h);
            h = next;
        } while (heightStep > 0.01);
        const double next = std::atan2(z, (1.0 - N / (N + h) * ellipsoid.e2) * p) * DEGREES_PER_RADIAN;
        latitudeStep = std::fabs(next - phi);
        phi = next;
    } while (latitudeStep > 1e-6);
    return GeodezPayload{phi, 0.0, h};
}

// The interface documents the tolerance of the iteration as well, so neither a finer result nor one after
// fewer steps is correct. Within 300 km of the centre some points take nearly all of the steps, and some
// don't converge in them.
TEST(SpacePosition, SettlesByTheStepsThatAreTold) {
    Random random(624);
    int settled = 0;
    int failed = 0;
    for (int i = 0; i < 20000; ++i) {
        const double distance = i % 2 == 0 ? random.Between(1e4, 3e5) : random.Between(6.3e6, 6.5e6);
        const double angle = random.Between(-85.0, 85.0) / DEGREES_PER_RADIAN;
        const double p = distance * std::cos(angle);
        const double z = distance * std::sin(angle);
        const std::optional<GeodezPayload> told = SettledPosition(WGS84, p, z);
        GeodezPayload position{};
        const bool isSettled = SpacePosition(WGS84, {p, 0.0, z}, &position);
        // A latitude beyond a pole counts as no result.
        ASSERT_EQ(isSettled, told && std::fabs(told->latitude) <= 90.0) << p << ' ' << z;
        ++(isSettled ? settled : failed);
        if (!isSettled) continue;
        // Degrees and metres, some roundings of the latitude, near a pole divided by its cosine. One step
        // more or less is up to 1e-6 degrees, 0.1 m.
        const double nearPole = 1.0 / std::cos(position.latitude / DEGREES_PER_RADIAN);
        ASSERT_NEAR(position.latitude, told->latitude, 1e-12) << p << ' ' << z;
        ASSERT_NEAR(position.height, told->height, 1e-8 * nearPole) << p << ' ' << z;
    }
    EXPECT_GT(settled, 10000);
    EXPECT_GT(failed, 100);
}

TEST(SpacePosition, EndsForEveryPoint) {
    Random random(623);
    int found = 0;
    for (int i = 0; i < 20000; ++i) {
        const double size = std::pow(10.0, random.Between(-320.0, 308.0));
        const EcefPayload point{size * random.Between(-1.0, 1.0), size * random.Between(-1.0, 1.0),
                                random.Between(-1.0, 1.0) * std::pow(10.0, random.Between(-320.0, 308.0))};
        GeodezPayload position{};
        if (!SpacePosition(WGS84, point, &position)) continue;
        ++found;
        ASSERT_TRUE(std::isfinite(position.latitude) && std::isfinite(position.height));
        ASSERT_LE(std::fabs(position.latitude), 90.0);
    }
    EXPECT_GT(found, 0);
}

TEST(IntersectEllipsoid, GivesTheNearerEndFirst) {
    double near = 0.0;
    double far = 0.0;
    // From 100 m above the equator downward: 100 m, and through the earth.
    ASSERT_TRUE(IntersectEllipsoid(WGS84, {6378237.0, 0.0, 0.0}, {-1.0, 0.0, 0.0}, &near, &far));
    EXPECT_NEAR(near, 100.0, 1e-8);
    EXPECT_NEAR(far, 12756374.0, 1e-8);  // 100 + 2 a
    ASSERT_TRUE(IntersectEllipsoid(WGS84, {6378237.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, &near, &far));
    EXPECT_NEAR(near, -100.0, 1e-8);
    EXPECT_NEAR(far, -12756374.0, 1e-8);
}

TEST(IntersectEllipsoid, OfTwoEquallyFarEndsTheOneAheadIsNear) {
    double near = 0.0;
    double far = 0.0;
    ASSERT_TRUE(IntersectEllipsoid(WGS84, {0.0, 0.0, 0.0}, {0.0, 2.0, 0.0}, &near, &far));
    EXPECT_EQ(near, 3189068.5);  // a / 2
    EXPECT_EQ(far, -3189068.5);
    ASSERT_TRUE(IntersectEllipsoid(WGS84, {0.0, 0.0, 0.0}, {0.0, 0.0, -1.0}, &near, &far));
    EXPECT_NEAR(near, WGS84_B, 1e-8);
    EXPECT_EQ(far, -near);
}

TEST(IntersectEllipsoid, ALineThatTouchesMeetsInOnePoint) {
    double near = 7.0;
    double far = 8.0;
    // Along y at x = a, where all the squares are exact: B^2 = 4 * 3000^2 = 4 A C.
    ASSERT_TRUE(IntersectEllipsoid(WGS84, {6378137.0, -3000.0, 0.0}, {0.0, 1.0, 0.0}, &near, &far));
    EXPECT_EQ(near, 3000.0);
    EXPECT_EQ(far, 3000.0);
}

TEST(IntersectEllipsoid, FailsForALineThatMisses) {
    double near = 7.0;
    double far = 8.0;
    EXPECT_FALSE(IntersectEllipsoid(WGS84, {6378138.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, &near, &far));
    EXPECT_FALSE(IntersectEllipsoid(WGS84, {6378138.0, 0.0, 0.0}, {0.0, 0.3, 1.0}, &near, &far));
    EXPECT_EQ(near, 7.0);
    EXPECT_EQ(far, 8.0);
}

TEST(IntersectEllipsoid, FailsWithoutADirectionAndForWhatIsNotFinite) {
    double near = 7.0;
    double far = 8.0;
    const EcefPayload point{6378237.0, 0.0, 0.0};
    for (const EcefPayload& direction :
         {EcefPayload{0.0, 0.0, 0.0}, EcefPayload{1e-200, 0.0, 0.0}, EcefPayload{NOT_A_NUMBER, 0.0, 0.0},
          EcefPayload{0.0, INFINITE, 0.0}, EcefPayload{-1e200, 0.0, 0.0}}) {
        EXPECT_FALSE(IntersectEllipsoid(WGS84, point, direction, &near, &far));
    }
    EXPECT_FALSE(IntersectEllipsoid(WGS84, {NOT_A_NUMBER, 0.0, 0.0}, {1.0, 0.0, 0.0}, &near, &far));
    EXPECT_FALSE(IntersectEllipsoid(WGS84, {0.0, INFINITE, 0.0}, {1.0, 0.0, 0.0}, &near, &far));
    EXPECT_EQ(near, 7.0);
    EXPECT_EQ(far, 8.0);
}

}  // namespace
}  // namespace tessara

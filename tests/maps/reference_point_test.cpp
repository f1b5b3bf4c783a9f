#include "tessara/reference_point.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/objects.h"

namespace tessara::testing {
namespace {

class ReferencePointTest : public BalancedTest {
  protected:
    IRef<IReferencePoint> point{CreateClassReferencePoint()};
    IRef<ICoord> out{CreateClassCoord()};
    double fx = 1.5, fy = 2.5;
    std::int32_t lx = 3, ly = 4;
};

UtmPayload Munich() {
    UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.zone = 32;
    utm.easting = 691000.0;
    utm.northing = 5334000.0;
    return utm;
}

TEST_F(ReferencePointTest, IsEmptyAtFirst) {
    EXPECT_FALSE(point->GetFloat(out.Get(), &fx, &fy));
    EXPECT_FALSE(point->GetLong(out.Get(), &lx, &ly));
    EXPECT_EQ(fx, 1.5);
    EXPECT_EQ(ly, 4);
    EXPECT_FALSE(HoldsPosition(out));
}

TEST_F(ReferencePointTest, KeepsThePositionWithItsReferenceAndHeight) {
    CKoord world(Record(KOORD_UTM, Munich(), 6));
    world.SetHeight(520.0);
    ASSERT_TRUE(point->SetLong(CoordOf(world).Get(), 100, -200));
    ASSERT_TRUE(point->GetLong(out.Get(), &lx, &ly));
    EXPECT_EQ(lx, 100);
    EXPECT_EQ(ly, -200);
    EXPECT_EQ(KoordOf(out).datum, 6u);
    EXPECT_EQ(KoordOf(out).type, static_cast<std::uint32_t>(KOORD_UTM));
    EXPECT_EQ(PayloadOf<UtmPayload>(out).easting, 691000.0);
    EXPECT_EQ(out->GetHeight(), 520.0);
}

TEST_F(ReferencePointTest, GivesWholePixelsAsDoubles) {
    ASSERT_TRUE(point->SetLong(CoordOf(GeodezRecord(48.0, 11.0)).Get(), -7, 8));
    ASSERT_TRUE(point->GetFloat(out.Get(), &fx, &fy));
    EXPECT_EQ(fx, -7.0);
    EXPECT_EQ(fy, 8.0);
}

TEST_F(ReferencePointTest, GivesTheExtremesOfWholePixelsBack) {
    ASSERT_TRUE(point->SetLong(CoordOf(GeodezRecord(48.0, 11.0)).Get(), INT32_MIN, INT32_MAX));
    ASSERT_TRUE(point->GetLong(out.Get(), &lx, &ly));
    EXPECT_EQ(lx, INT32_MIN);
    EXPECT_EQ(ly, INT32_MAX);
}

TEST_F(ReferencePointTest, RoundsFractionalPixelsHalfAwayFromZero) {
    const struct {
        double x;
        std::int32_t whole;
    } rows[] = {{-1.5, -2},
                {2.5, 3},
                {-0.4, 0},
                {-0.5, -1},
                {0.49999999999999994, 1},
                {1e12, INT32_MIN},
                {std::numeric_limits<double>::quiet_NaN(), INT32_MIN}};
    for (const auto& row : rows) {
        ASSERT_TRUE(point->SetFloat(CoordOf(GeodezRecord(48.0, 11.0)).Get(), row.x, -row.x));
        ASSERT_TRUE(point->GetLong(out.Get(), &lx, &ly));
        EXPECT_EQ(lx, row.whole) << row.x;
        ASSERT_TRUE(point->GetFloat(out.Get(), &fx, &fy));
        EXPECT_TRUE(fx == row.x || std::isnan(row.x));
        EXPECT_TRUE(fy == -row.x || std::isnan(row.x));
    }
}

TEST_F(ReferencePointTest, AFailedSetEmptiesThePoint) {
    const IRef<IUnknown> stranger = MakeStranger();
    const IRef<ICoord> hosts(NewObject<HostCoord>());
    for (ICoord* wrong : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), hosts.Get()}) {
        ASSERT_TRUE(point->SetFloat(CoordOf(GeodezRecord(48.0, 11.0)).Get(), 1.0, 2.0));
        EXPECT_FALSE(point->SetFloat(wrong, 3.0, 4.0));
        EXPECT_FALSE(point->GetFloat(out.Get(), &fx, &fy));
        ASSERT_TRUE(point->SetFloat(CoordOf(GeodezRecord(48.0, 11.0)).Get(), 1.0, 2.0));
        EXPECT_FALSE(point->SetLong(wrong, 3, 4));
        EXPECT_FALSE(point->GetLong(out.Get(), &lx, &ly));
    }
    EXPECT_EQ(fx, 1.5);
    EXPECT_EQ(lx, 3);
}

TEST_F(ReferencePointTest, WritesNothingWithoutAPlaceForAll) {
    ASSERT_TRUE(point->SetLong(CoordOf(GeodezRecord(48.0, 11.0)).Get(), 1, 2));
    const IRef<ICoord> hosts(NewObject<HostCoord>());
    EXPECT_FALSE(point->GetFloat(hosts.Get(), &fx, &fy));
    EXPECT_FALSE(point->GetLong(hosts.Get(), &lx, &ly));
    const IRef<IUnknown> stranger = MakeStranger();
    EXPECT_FALSE(point->GetFloat(nullptr, &fx, &fy));
    EXPECT_FALSE(point->GetFloat(Disguised<ICoord>(stranger), &fx, &fy));
    EXPECT_FALSE(point->GetFloat(out.Get(), nullptr, &fy));
    EXPECT_FALSE(point->GetFloat(out.Get(), &fx, nullptr));
    EXPECT_FALSE(point->GetLong(nullptr, &lx, &ly));
    EXPECT_FALSE(point->GetLong(out.Get(), nullptr, &ly));
    EXPECT_FALSE(point->GetLong(out.Get(), &lx, nullptr));
    EXPECT_EQ(fx, 1.5);
    EXPECT_EQ(fy, 2.5);
    EXPECT_EQ(lx, 3);
    EXPECT_EQ(ly, 4);
    EXPECT_FALSE(HoldsPosition(out));
}

TEST_F(ReferencePointTest, DoesNotFollowTheCoordinateItCameFrom) {
    const IRef<ICoord> world = CoordOf(GeodezRecord(48.0, 11.0));
    ASSERT_TRUE(point->SetLong(world.Get(), 1, 2));
    world->SetPixel(5.0, 6.0);
    ASSERT_TRUE(point->GetLong(out.Get(), &lx, &ly));
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 48.0);
}

}  // namespace
}  // namespace tessara::testing

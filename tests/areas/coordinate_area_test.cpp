#include "areas/coordinate_area.h"

#include <gtest/gtest.h>

#include <limits>

#include "records/system_extremes.h"
#include "support/coords.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/records.h"
#include "support/zones.h"

namespace tessara {
namespace {

using testing::Disguised;
using testing::MakeStranger;
using testing::SameRecord;

class CoordinateAreaTest : public testing::BalancedTest {
  protected:
    using Operation = bool (ICoordinateArea::*)(ICoord*);
    // In the order of Compass.
    static constexpr Operation SYSTEM_LIMITS[] = {
        &ICoordinateArea::GetSystemNorth, &ICoordinateArea::GetSystemEast, &ICoordinateArea::GetSystemSouth,
        &ICoordinateArea::GetSystemWest};

    IRef<ICoordinateArea> area{CreateClassCoordinateArea()};
};

TEST_F(CoordinateAreaTest, WritesEachExtremeOfThePointsSystem) {
    for (std::int32_t system = 0; system <= KOORD_LUREF; ++system) {
        SystemExtremes extremes;
        ASSERT_TRUE(FindSystemExtremes(3, system, &extremes));
        for (std::size_t i = 0; i < extremes.size(); ++i) {
            const IRef<ICoord> point = EmptyCoord(3, system);
            const Operation operation = SYSTEM_LIMITS[i];
            ASSERT_TRUE((area.Get()->*operation)(point.Get())) << system;
            EXPECT_TRUE(SameRecord(KoordOf(point), extremes[i])) << system;
        }
    }
}

TEST_F(CoordinateAreaTest, ThePointBecomesValidAndLosesItsHeight) {
    const IRef<ICoord> point = CoordOf(testing::Utm(32, 'N', 5e5, 5e6));
    point->SetHeight(100.0);
    ASSERT_TRUE(area->GetSystemNorth(point.Get()));
    EXPECT_EQ(point->GetHeight(), 0.0);
    const IRef<ICoord> empty = EmptyCoord(2, KOORD_CH);
    ASSERT_TRUE(area->GetSystemEast(empty.Get()));
    EXPECT_TRUE(HoldsPosition(empty));
}

TEST_F(CoordinateAreaTest, WritesAllFourAtOnce) {
    SystemExtremes extremes;
    ASSERT_TRUE(FindSystemExtremes(2, KOORD_UTM, &extremes));
    IRef<ICoord> points[4];
    for (IRef<ICoord>& point : points)
        point = EmptyCoord(2, KOORD_UTM);
    ASSERT_TRUE(area->GetSystemExtremes(points[0].Get(), points[1].Get(), points[2].Get(), points[3].Get()));
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_TRUE(SameRecord(KoordOf(points[i]), extremes[i]));
}

TEST_F(CoordinateAreaTest, FourPointsMustShareTheirReference) {
    for (std::size_t odd = 0; odd < 4; ++odd) {
        for (const IRef<ICoord>& other : {EmptyCoord(3, KOORD_UTM), EmptyCoord(2, KOORD_GK)}) {
            IRef<ICoord> points[4];
            for (IRef<ICoord>& point : points)
                point = EmptyCoord(2, KOORD_UTM);
            points[odd] = other;
            EXPECT_FALSE(
                area->GetSystemExtremes(points[0].Get(), points[1].Get(), points[2].Get(), points[3].Get()));
            for (const IRef<ICoord>& point : points)
                EXPECT_FALSE(HoldsPosition(point));
        }
    }
}

TEST_F(CoordinateAreaTest, SystemsAboveTheTableHaveNoExtremes) {
    const IRef<ICoord> point = CoordOf(MakeKoord(2, KOORD_LAMBERTCC));
    for (const Operation operation : SYSTEM_LIMITS)
        EXPECT_FALSE((area.Get()->*operation)(point.Get()));
    EXPECT_FALSE(area->GetSystemExtremes(point.Get(), point.Get(), point.Get(), point.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(point), MakeKoord(2, KOORD_LAMBERTCC)));
}

TEST_F(CoordinateAreaTest, NullAndForeignObjectsFail) {
    const IRef<ICoord> coord = EmptyCoord(2, KOORD_UTM);
    const IRef<IUnknown> stranger = MakeStranger();
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    for (ICoord* const other : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get()}) {
        for (const Operation operation : SYSTEM_LIMITS)
            EXPECT_FALSE((area.Get()->*operation)(other));
        for (std::size_t odd = 0; odd < 4; ++odd) {
            ICoord* points[] = {coord.Get(), coord.Get(), coord.Get(), coord.Get()};
            points[odd] = other;
            EXPECT_FALSE(area->GetSystemExtremes(points[0], points[1], points[2], points[3]));
        }
    }
    EXPECT_FALSE(HoldsPosition(coord));
    EXPECT_EQ(testing::CountOf(coord), 1u);
}

TEST_F(CoordinateAreaTest, ACoordinateOfCountZeroMayBeAnArgument) {
    EXPECT_TRUE(area->GetSystemNorth(CreateClassCoord()));
    ICoord* const fresh = CreateClassCoord();
    EXPECT_TRUE(area->GetSystemExtremes(fresh, fresh, fresh, fresh));  // and is gone
}

TEST_F(CoordinateAreaTest, KeepsATolerance) {
    EXPECT_EQ(area->GetTolerance(), 2.220446049250313e-11);
    EXPECT_FALSE(area->SetTolerance(-1.0));
    EXPECT_FALSE(area->SetTolerance(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_EQ(area->GetTolerance(), 2.220446049250313e-11);
    EXPECT_TRUE(area->SetTolerance(0.0));
    EXPECT_EQ(area->GetTolerance(), 0.0);
    EXPECT_TRUE(area->SetTolerance(0.5));
    EXPECT_EQ(area->GetTolerance(), 0.5);
}

}  // namespace
}  // namespace tessara

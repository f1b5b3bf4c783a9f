// The border operations of the zone object; zone_borders_test.cpp has the borders themselves.
#include <gtest/gtest.h>

#include "objects/zone_coord_operations.h"
#include "records/axis_values.h"
#include "support/coords.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/records.h"
#include "support/zones.h"

namespace tessara {
namespace {

using testing::Austrian;
using testing::Disguised;
using testing::MakeStranger;
using testing::SameRecord;
using testing::Strip;
using testing::Utm;
using testing::Utmref;

class ZoneCoordBorders : public testing::BalancedTest {
  protected:
    using BorderOperation = bool (IZoneCoordOperations::*)(ICoord*, ICoord*);
    using LimitOperation = std::int32_t (IZoneCoordOperations::*)(ICoord*, ICoord*);

    static constexpr BorderOperation BORDERS[] = {
        &IZoneCoordOperations::GetEastNeighbour, &IZoneCoordOperations::GetWestNeighbour,
        &IZoneCoordOperations::GetEastNeighbourAtEquator, &IZoneCoordOperations::GetWestNeighbourAtEquator};
    static constexpr LimitOperation LIMITS[] = {&IZoneCoordOperations::GetEastBorder,
                                                &IZoneCoordOperations::GetWestBorder};

    bool Call(BorderOperation operation, ICoord* coord, ICoord* out) {
        return (zones.Get()->*operation)(coord, out);
    }
    std::int32_t Call(LimitOperation operation, ICoord* coord, ICoord* out) {
        return (zones.Get()->*operation)(coord, out);
    }

    IRef<IZoneCoordOperations> zones{CreateClassZoneCoordOperations()};
};

// Metres, as in zone_borders_test.cpp.
constexpr double TOLERANCE = 0.01;

TEST_F(ZoneCoordBorders, TheSidesGiveTheBorderPointsOfTheOwnZone) {
    const IRef<ICoord> coord = CoordOf(Utm(32, 'N', 700000.0, 5.5e6));
    coord->SetHeight(500.0);
    const IRef<ICoord> out(CreateClassCoord());
    ASSERT_TRUE(zones->GetEastNeighbour(coord.Get(), out.Get()));
    auto payload = PayloadOf<UtmPayload>(out);
    EXPECT_NEAR(payload.easting, 716703.412, TOLERANCE);
    EXPECT_EQ(payload.northing, 5.5e6);
    EXPECT_EQ(payload.zone, 32);
    EXPECT_EQ(out->GetHeight(), 500.0);
    ASSERT_TRUE(zones->GetWestNeighbour(coord.Get(), out.Get()));
    payload = PayloadOf<UtmPayload>(out);
    EXPECT_NEAR(payload.easting, 283296.588, TOLERANCE);
    EXPECT_EQ(payload.zone, 32);
    EXPECT_TRUE(SameRecord(KoordOf(coord), Utm(32, 'N', 700000.0, 5.5e6)));
}

TEST_F(ZoneCoordBorders, TheOthersGiveTheEndsOfTheWalkNorthAndSouth) {
    const IRef<ICoord> coord = CoordOf(Utm(32, 'N', 700000.0, 5.5e6));
    coord->SetHeight(500.0);
    const IRef<ICoord> out(CreateClassCoord());
    ASSERT_EQ(zones->GetEastBorder(coord.Get(), out.Get()), 1);
    auto payload = PayloadOf<UtmPayload>(out);
    EXPECT_EQ(payload.hemisphere, 'N');
    EXPECT_EQ(payload.easting, 700000.0);
    EXPECT_NEAR(payload.northing, 5907622.240, TOLERANCE);
    EXPECT_EQ(out->GetHeight(), 500.0);
    ASSERT_EQ(zones->GetWestBorder(coord.Get(), out.Get()), 1);
    payload = PayloadOf<UtmPayload>(out);
    EXPECT_EQ(payload.hemisphere, 'S');
    EXPECT_NEAR(payload.northing, 4092377.760, TOLERANCE);
}

TEST_F(ZoneCoordBorders, AWalkThatMeetsNoBorderLeavesTheOutput) {
    const IRef<ICoord> coord = CoordOf(Utm(32, 'N', 500000.0, 5.5e6));
    const IRef<ICoord> out = CoordOf(GeodezRecord(1.0, 2.0));
    for (const LimitOperation operation : LIMITS)
        EXPECT_EQ(Call(operation, coord.Get(), out.Get()), 0);
    EXPECT_TRUE(SameRecord(KoordOf(out), GeodezRecord(1.0, 2.0)));
}

TEST_F(ZoneCoordBorders, AtTheEquatorTheZoneIsWidest) {
    // 333978.557 m in UTM, see data/objects/zone_borders.txt, and the strips' and Austria's likewise.
    const struct {
        tagKOORD record;
        double east;
        double west;
    } cases[] = {
        {Utm(32, 'N', 600000.0, 5.4e6), 833978.557, 166021.443},
        {Strip(KOORD_GK, 3600000.0, 5.4e6), 3666979.071, 3333020.929},
        {Strip(KOORD_GK6, 1600000.0, 5.4e6), 1834073.443, 1165926.557},
        {Austrian(KOORD_BMN, 31, 500000.0, 2e5), 568276.230, 331723.770},
    };
    for (const auto& c : cases) {
        const IRef<ICoord> out(CreateClassCoord());
        const Axis axis = Axis::East;
        ASSERT_TRUE(zones->GetEastNeighbourAtEquator(CoordOf(c.record).Get(), out.Get()));
        EXPECT_NEAR(axes::Value(axis, KoordOf(out)), c.east, TOLERANCE);
        const double foot = c.record.type == KOORD_BMN ? -15560.735 : 0.0;
        EXPECT_NEAR(axes::Value(Axis::North, KoordOf(out)), foot, TOLERANCE);
        ASSERT_TRUE(zones->GetWestNeighbourAtEquator(CoordOf(c.record).Get(), out.Get()));
        EXPECT_NEAR(axes::Value(axis, KoordOf(out)), c.west, TOLERANCE);
    }
}

TEST_F(ZoneCoordBorders, UtmrefHasBordersInEitherLettering) {
    for (const std::int32_t datum : {2, 3}) {
        const IRef<ICoord> coord = CoordOf(Utmref(32, 'N', datum == 2 ? "NF" : "NR", 0, 0, datum));
        const IRef<ICoord> out(CreateClassCoord());
        ASSERT_TRUE(zones->GetEastNeighbourAtEquator(coord.Get(), out.Get()));
        const auto payload = PayloadOf<UtmrefPayload>(out);
        EXPECT_EQ(payload.band, 'N');
        EXPECT_EQ(payload.column, 'R');  // eastings from 800000
        EXPECT_EQ(payload.row, datum == 2 ? 'F' : 'R');
        EXPECT_EQ(payload.northing, 0);
    }
}

TEST_F(ZoneCoordBorders, ACoordinateMayBeItsOwnOutput) {
    const IRef<ICoord> coord = CoordOf(Utm(32, 'N', 700000.0, 5.5e6));
    EXPECT_EQ(zones->GetEastBorder(coord.Get(), coord.Get()), 1);
    EXPECT_NEAR(PayloadOf<UtmPayload>(coord).northing, 5907622.240, TOLERANCE);
    EXPECT_TRUE(zones->GetWestNeighbour(coord.Get(), coord.Get()));
    EXPECT_NEAR(PayloadOf<UtmPayload>(coord).easting, 300000.0, TOLERANCE);
}

TEST_F(ZoneCoordBorders, ACoordinateThatNobodyHoldsLivesUntilTheEndOfTheOperation) {
    for (const BorderOperation operation : BORDERS) {
        ICoord* const fresh = CreateClassCoord();
        EXPECT_FALSE(Call(operation, fresh, fresh));
    }
    for (const LimitOperation operation : LIMITS) {
        ICoord* const fresh = CreateClassCoord();
        EXPECT_EQ(Call(operation, fresh, fresh), -1);
    }
}

TEST_F(ZoneCoordBorders, WithoutZonesThereAreNoBorders) {
    for (std::int32_t system = 0; system <= KOORD_LAMBERTCC; ++system) {
        const IRef<ICoord> coord = CoordOf(MakeKoord(2, system));
        if (zones->HasZones(coord.Get())) continue;
        const IRef<ICoord> out = CoordOf(GeodezRecord(1.0, 2.0));
        for (const BorderOperation operation : BORDERS)
            EXPECT_FALSE(Call(operation, coord.Get(), out.Get())) << system;
        for (const LimitOperation operation : LIMITS)
            EXPECT_EQ(Call(operation, coord.Get(), out.Get()), -1) << system;
        EXPECT_TRUE(SameRecord(KoordOf(out), GeodezRecord(1.0, 2.0)));
    }
}

TEST_F(ZoneCoordBorders, NullAndForeignObjectsFailAndChangeNothing) {
    const IRef<ICoord> coord = CoordOf(Utm(32, 'N', 700000.0, 5.5e6));
    const IRef<IUnknown> stranger = MakeStranger();
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    for (ICoord* const other : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get()}) {
        for (const BorderOperation operation : BORDERS) {
            EXPECT_FALSE(Call(operation, coord.Get(), other));
            EXPECT_FALSE(Call(operation, other, coord.Get()));
        }
        for (const LimitOperation operation : LIMITS) {
            EXPECT_EQ(Call(operation, coord.Get(), other), -1);
            EXPECT_EQ(Call(operation, other, coord.Get()), -1);
        }
    }
    EXPECT_TRUE(SameRecord(KoordOf(coord), Utm(32, 'N', 700000.0, 5.5e6)));
    EXPECT_EQ(testing::CountOf(coord), 1u);
}

TEST_F(ZoneCoordBorders, AZoneThatDoesNotExistHasNoBorders) {
    const IRef<ICoord> coord = CoordOf(Utm(61, 'N', 700000.0, 5.5e6));
    const IRef<ICoord> out = CoordOf(GeodezRecord(1.0, 2.0));
    for (const BorderOperation operation : BORDERS)
        EXPECT_FALSE(Call(operation, coord.Get(), out.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(out), GeodezRecord(1.0, 2.0)));
}

}  // namespace
}  // namespace tessara

#include "objects/zone_coord_operations.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>

#include "objects/coord.h"
#include "support/live_objects.h"
#include "support/zoned_records.h"

namespace tessara {
namespace {

using testing::AustrianRecord;
using testing::CountOf;
using testing::SameRecord;
using testing::StripRecord;
using testing::UtmRecord;

class ZoneCoordOperationsTest : public testing::BalancedTest {
  protected:
    IRef<IZoneCoordOperations> zones{CreateClassZoneCoordOperations()};
    IRef<IUnknown> stranger = testing::MakeStranger();
    IRef<ICoord> hostCoord{NewObject<testing::HostCoord>()};
};

TEST_F(ZoneCoordOperationsTest, HasZonesInSevenSystems) {
    const std::set<std::int32_t> zoned{2, 3, 7, 8, 9, 13, 14};
    for (std::int32_t system = -1; system <= 23; ++system) {
        const bool isZoned = zoned.count(system) == 1;
        EXPECT_EQ(zones->HasZones(EmptyCoord(2, system).Get()), isZoned) << system;
        EXPECT_EQ(zones->HasZones(CoordOf(CKoord(MakeKoord(2, system))).Get()), isZoned) << system;
    }
}

TEST_F(ZoneCoordOperationsTest, HasZonesGoesByTheReferenceOfAnyCoordinate) {
    EXPECT_TRUE(zones->HasZones(hostCoord.Get())) << "a UTM coordinate of the host";
    EXPECT_FALSE(zones->HasZones(CoordOf(CKoord(MakeKoord(500, KOORD_UTM))).Get())) << "no such datum";
    EXPECT_TRUE(zones->HasZones(EmptyCoord(999, KOORD_UTM).Get()));
}

TEST_F(ZoneCoordOperationsTest, NothingHasNoZones) {
    for (ICoord* wrong : {static_cast<ICoord*>(nullptr), testing::Disguised<ICoord>(stranger)}) {
        EXPECT_FALSE(zones->HasZones(wrong));
        EXPECT_EQ(zones->GetZoneNumber(wrong), INT_MIN);
        EXPECT_EQ(zones->GetZoneFactor(wrong), INT_MIN);
        EXPECT_FALSE(zones->MoveToZone(1, wrong));
    }
    EXPECT_EQ(CountOf(stranger), 1u);
}

TEST_F(ZoneCoordOperationsTest, HasNoZonesWithoutMemory) {
    const IRef<ICoord> coord = EmptyCoord(2, KOORD_UTM);
    for (int nth = 1; nth <= 3; ++nth) {
        const testing::FailAllocation failure(nth);
        EXPECT_FALSE(zones->HasZones(coord.Get()));
        EXPECT_TRUE(failure.HasFailed()) << "a reference and its two parts";
    }
}

TEST_F(ZoneCoordOperationsTest, TheRecordOfAHostsOwnCoordinateCantBeRead) {
    EXPECT_EQ(zones->GetZoneNumber(hostCoord.Get()), INT_MIN);
    EXPECT_EQ(zones->GetZoneFactor(hostCoord.Get()), INT_MIN);
    EXPECT_FALSE(zones->MoveToZone(1, hostCoord.Get()));
    EXPECT_FALSE(zones->GetZoneCentre(hostCoord.Get(), EmptyCoord(2, 2).Get()));
    EXPECT_EQ(CountOf(hostCoord), 1u);
}

TEST_F(ZoneCoordOperationsTest, TellsTheZoneNumber) {
    EXPECT_EQ(zones->GetZoneNumber(CoordOf(UtmRecord(2, 'N', 32, 5e5, 0.0)).Get()), 32);
    EXPECT_EQ(zones->GetZoneNumber(CoordOf(StripRecord(3, KOORD_GK, -1600000.0, 0.0)).Get()), -1);
    EXPECT_EQ(zones->GetZoneNumber(CoordOf(CKoord()).Get()), INT_MIN) << "GEODEZ";
    EXPECT_EQ(zones->GetZoneNumber(EmptyCoord(2, KOORD_UTM).Get()), 30) << "an empty coordinate has one too";
}

TEST_F(ZoneCoordOperationsTest, TellsTheZoneFactor) {
    EXPECT_EQ(zones->GetZoneFactor(CoordOf(UtmRecord(2, 'N', 32, 5e5, 0.0)).Get()), 1000000);
    EXPECT_EQ(zones->GetZoneFactor(CoordOf(CKoord()).Get()), INT_MIN);
}

TEST_F(ZoneCoordOperationsTest, TheCentreIsWrittenToTheOtherCoordinate) {
    CKoord record = UtmRecord(3, 'S', 32, 716000.0, 9e6);
    record.SetHeight(12.5);
    const IRef<ICoord> coord = CoordOf(record);
    const IRef<ICoord> centre = EmptyCoord(2, KOORD_GEODEZ);
    EXPECT_TRUE(zones->GetZoneCentre(coord.Get(), centre.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(centre), UtmRecord(3, 'S', 32, 500000.0, 9e6)));
    EXPECT_EQ(centre->GetHeight(), 12.5);
    EXPECT_TRUE(SameRecord(KoordOf(coord), record)) << "an input is never altered";
    EXPECT_EQ(CountOf(coord), 1u);
    EXPECT_EQ(CountOf(centre), 1u);
    EXPECT_TRUE(testing::HeldPosition(centre));
}

TEST_F(ZoneCoordOperationsTest, TheCentreMayReplaceTheCoordinateItself) {
    const IRef<ICoord> coord = CoordOf(StripRecord(3, KOORD_GK, 3600000.0, 5e6));
    EXPECT_TRUE(zones->GetZoneCentre(coord.Get(), coord.Get()));
    EXPECT_EQ(PayloadOf<GkPayload>(coord).easting, 3500000.0);
}

TEST_F(ZoneCoordOperationsTest, WithoutACentreTheOtherCoordinateStays) {
    const CKoord kept = UtmRecord(3, 'S', 32, 716000.0, 9e6);
    const IRef<ICoord> out = CoordOf(kept);
    const IRef<ICoord> zoneless = CoordOf(CKoord());
    const IRef<ICoord> noMeridian = CoordOf(AustrianRecord(6, KOORD_BMN, 29, 1.0, 2.0));
    EXPECT_FALSE(zones->GetZoneCentre(zoneless.Get(), out.Get()));
    EXPECT_FALSE(zones->GetZoneCentre(noMeridian.Get(), out.Get()));
    EXPECT_FALSE(zones->GetZoneCentre(nullptr, out.Get()));
    EXPECT_FALSE(zones->GetZoneCentre(testing::Disguised<ICoord>(stranger), out.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(out), kept));
    EXPECT_FALSE(zones->GetZoneCentre(out.Get(), nullptr));
    EXPECT_FALSE(zones->GetZoneCentre(out.Get(), testing::Disguised<ICoord>(stranger)));
    EXPECT_FALSE(zones->GetZoneCentre(out.Get(), hostCoord.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(out), kept));
}

TEST_F(ZoneCoordOperationsTest, MovesACoordinateIntoAnotherZone) {
    const IRef<ICoord> coord = CoordOf(UtmRecord(2, 'N', 60, 716000.0, 5e6));
    EXPECT_TRUE(zones->MoveToZone(1, coord.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(coord), UtmRecord(2, 'N', 1, 716000.0, 5e6)));
    EXPECT_TRUE(zones->MoveToZone(-1, coord.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(coord), UtmRecord(2, 'N', 60, 716000.0, 5e6)));
    EXPECT_EQ(CountOf(coord), 1u);
}

TEST_F(ZoneCoordOperationsTest, AMoveThatFailsLeavesTheCoordinate) {
    const CKoord last = AustrianRecord(6, KOORD_BMN, 34, 860000.0, 2e5);
    const IRef<ICoord> coord = CoordOf(last);
    EXPECT_FALSE(zones->MoveToZone(1, coord.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(coord), last));
    const IRef<ICoord> zoneless = CoordOf(CKoord());
    EXPECT_FALSE(zones->MoveToZone(1, zoneless.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(zoneless), CKoord()));
}

// Of count 0, as CreateClassCoord gives it.
ICoord* FreshCoord(const CKoord& koord) {
    auto* const coord = NewObject<Coord>();
    coord->SetKoord(&koord);
    return coord;
}

TEST_F(ZoneCoordOperationsTest, ACoordinateThatNobodyHoldsLivesUntilTheEndOfTheOperation) {
    const CKoord utm = UtmRecord(2, 'N', 32, 716000.0, 5e6);
    EXPECT_TRUE(zones->HasZones(FreshCoord(utm)));
    EXPECT_EQ(zones->GetZoneNumber(FreshCoord(utm)), 32);
    EXPECT_EQ(zones->GetZoneFactor(FreshCoord(utm)), 1000000);
    EXPECT_TRUE(zones->MoveToZone(1, FreshCoord(utm)));
    EXPECT_TRUE(zones->GetZoneCentre(FreshCoord(utm), FreshCoord(utm)));
    ICoord* const both = FreshCoord(utm);
    EXPECT_TRUE(zones->GetZoneCentre(both, both));
}

}  // namespace
}  // namespace tessara

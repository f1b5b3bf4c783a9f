// The shifts and differences of the coordinate object; koord_shift_test.cpp has the moves themselves.
#include <gtest/gtest.h>

#include "objects/coord.h"
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
using testing::Utm;

class CoordMoves : public testing::BalancedTest {};

IRef<ICoordInternal> Inner(const IRef<ICoord>& coord) {
    return IRef<ICoordInternal>(coord);
}

TEST_F(CoordMoves, AShiftMovesThePosition) {
    const IRef<ICoord> coord = CoordOf(Utm(32, 'S', 5e5, 9999500.0));
    EXPECT_TRUE(Inner(coord)->ShiftEast(10.5));
    EXPECT_TRUE(Inner(coord)->ShiftNorth(1000.0));
    EXPECT_TRUE(SameRecord(KoordOf(coord), Utm(32, 'N', 500010.5, 500.0)));
}

TEST_F(CoordMoves, AShiftKeepsTheHeight) {
    const tagKOORD records[] = {Utm(32, 'N', 5e5, 5e6), testing::Utmref(32, 'U', "NA", 0, 0),
                                Record(KOORD_GEOREF, GeorefPayload{5, 'N', 'K', 'F', 'B', 0, 0}),
                                GeodezRecord(48.0, 11.0), Record(KOORD_GEODEZMIN, GeodezMinPayload{})};
    for (const tagKOORD& record : records) {
        const IRef<ICoord> coord = CoordOf(record);
        coord->SetHeight(500.0);
        EXPECT_TRUE(Inner(coord)->ShiftEast(0.5)) << record.type;
        EXPECT_TRUE(Inner(coord)->ShiftNorth(-0.5)) << record.type;
        EXPECT_EQ(coord->GetHeight(), 500.0) << record.type;
    }
}

TEST_F(CoordMoves, ARefusedShiftChangesNothing) {
    const IRef<ICoord> coord = CoordOf(Utm(32, 'N', 716000.0, 5.5e6));
    EXPECT_FALSE(Inner(coord)->ShiftEast(704.0));
    EXPECT_TRUE(SameRecord(KoordOf(coord), Utm(32, 'N', 716000.0, 5.5e6)));
    EXPECT_TRUE(HoldsPosition(coord));
}

TEST_F(CoordMoves, WithoutAPositionNotEvenNoWayIsPossible) {
    const IRef<ICoord> empty = EmptyCoord(2, KOORD_UTM);
    for (const double delta : {0.0, 1.0, -1.0}) {
        EXPECT_FALSE(Inner(empty)->ShiftEast(delta));
        EXPECT_FALSE(Inner(empty)->ShiftNorth(delta));
    }
}

TEST_F(CoordMoves, NoWayIsPossibleWithAnyPosition) {
    const IRef<ICoord> ecef = CoordOf(Record(KOORD_ECEF, EcefPayload{1.0, 2.0, 3.0}));
    EXPECT_TRUE(Inner(ecef)->ShiftEast(0.0));
    EXPECT_TRUE(Inner(ecef)->ShiftNorth(0.0));
    EXPECT_FALSE(Inner(ecef)->ShiftEast(1.0));
    EXPECT_FALSE(Inner(ecef)->ShiftNorth(1.0));
}

TEST_F(CoordMoves, ADifferenceIsCountedTowardTheOther) {
    const IRef<ICoord> here = CoordOf(Utm(32, 'N', 5e5, 5e6));
    const IRef<ICoord> there = CoordOf(Utm(32, 'N', 6e5, 4e6));
    EXPECT_EQ(Inner(here)->EastDifference(there.Get()), 1e5);
    EXPECT_EQ(Inner(here)->NorthDifference(there.Get()), -1e6);
    EXPECT_EQ(Inner(here)->EastDifference(here.Get()), 0.0);
    EXPECT_EQ(testing::CountOf(there), 1u);
}

TEST_F(CoordMoves, ADifferenceNeedsAPositionHereButNotThere) {
    const IRef<ICoord> here = CoordOf(Utm(30, 'N', 4e5, 5e6));
    const IRef<ICoord> empty = EmptyCoord(2, KOORD_UTM);  // zone 30, 500000
    EXPECT_EQ(Inner(here)->EastDifference(empty.Get()), 1e5);
    EXPECT_EQ(Inner(empty)->EastDifference(here.Get()), UNKNOWN_DIFFERENCE);
    EXPECT_EQ(Inner(empty)->NorthDifference(here.Get()), UNKNOWN_DIFFERENCE);
}

TEST_F(CoordMoves, ADifferenceToAnotherReferenceIsUnknown) {
    const IRef<ICoord> here = CoordOf(GeodezRecord(48.0, 11.0));
    EXPECT_EQ(Inner(here)->EastDifference(EmptyCoord(3, KOORD_GEODEZ).Get()), UNKNOWN_DIFFERENCE);
    EXPECT_EQ(Inner(here)->NorthDifference(EmptyCoord(2, KOORD_UTM).Get()), UNKNOWN_DIFFERENCE);
    EXPECT_EQ(UNKNOWN_DIFFERENCE, 2.2250738585072014e-308);
}

TEST_F(CoordMoves, ADifferenceToNothingIsUnknown) {
    const IRef<ICoord> here = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<IUnknown> stranger = MakeStranger();
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    for (ICoord* const other : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get()}) {
        EXPECT_EQ(Inner(here)->EastDifference(other), UNKNOWN_DIFFERENCE);
        EXPECT_EQ(Inner(here)->NorthDifference(other), UNKNOWN_DIFFERENCE);
    }
    EXPECT_EQ(Inner(here)->EastDifference(CreateClassCoord()), -11.0);  // of count 0
}

}  // namespace
}  // namespace tessara

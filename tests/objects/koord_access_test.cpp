#include "objects/koord_access.h"

#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/maps.h"
#include "support/zoned_records.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::SameRecord;

class KoordAccess : public testing::BalancedTest {
  protected:
    KoordAccess() { source.SetHeight(12.5); }

    CKoord source = testing::UtmRecord(3, 'S', 33, 400000.0, 9000000.0);
    IRef<IUnknown> stranger = testing::MakeStranger();
    IRef<ICoord> hostCoord{NewObject<testing::HostCoord>()};
};

TEST_F(KoordAccess, FromACoordinateGivesRecordAndHeight) {
    const IRef<ICoord> coord = CoordOf(source);
    CKoord koord;
    EXPECT_TRUE(KoordFromCoord(coord.Get(), &koord));
    EXPECT_TRUE(SameRecord(koord, source));
    EXPECT_EQ(koord.GetHeight(), 12.5);
    EXPECT_EQ(CountOf(coord), 1u);
}

TEST_F(KoordAccess, FromAnEmptyCoordinateGivesItsRecordToo) {
    CKoord koord = source;
    EXPECT_TRUE(KoordFromCoord(EmptyCoord(2, KOORD_GEODEZ).Get(), &koord));
    EXPECT_TRUE(SameRecord(koord, CKoord()));
}

TEST_F(KoordAccess, FromAnythingElseFailsAndWritesNothing) {
    CKoord koord = source;
    EXPECT_FALSE(KoordFromCoord(nullptr, &koord));
    EXPECT_FALSE(KoordFromCoord(testing::Disguised<ICoord>(stranger), &koord));
    EXPECT_FALSE(KoordFromCoord(hostCoord.Get(), &koord));
    EXPECT_FALSE(KoordFromCoord(CoordOf(source).Get(), nullptr));
    EXPECT_TRUE(SameRecord(koord, source));
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_EQ(CountOf(hostCoord), 1u);
}

TEST_F(KoordAccess, ToACoordinateMakesItValid) {
    const IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(KoordToCoord(&source, coord.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(coord), source));
    EXPECT_EQ(coord->GetHeight(), 12.5);
    EXPECT_EQ(CountOf(coord), 1u);
    EXPECT_TRUE(testing::HeldPosition(coord));
}

TEST_F(KoordAccess, ToAnythingElseFails) {
    EXPECT_FALSE(KoordToCoord(&source, nullptr));
    EXPECT_FALSE(KoordToCoord(&source, testing::Disguised<ICoord>(stranger)));
    EXPECT_FALSE(KoordToCoord(&source, hostCoord.Get()));
    const IRef<ICoord> coord(CreateClassCoord());
    EXPECT_FALSE(KoordToCoord(nullptr, coord.Get()));
    EXPECT_FALSE(testing::HeldPosition(coord));
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_EQ(CountOf(hostCoord), 1u);
}

TEST_F(KoordAccess, CopyTakesTheWholeRecordAndTheHeight) {
    const IRef<ICoord> from = CoordOf(source);
    const IRef<ICoord> to(CreateClassCoord());
    EXPECT_TRUE(CopyCoord(from.Get(), to.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(to), source));
    EXPECT_EQ(to->GetHeight(), 12.5);
    EXPECT_TRUE(CopyCoord(to.Get(), to.Get())) << "onto itself";
    EXPECT_TRUE(SameRecord(KoordOf(to), source));
}

TEST_F(KoordAccess, TheCopyOfAnEmptyCoordinateIsValid) {
    const IRef<ICoord> to(CreateClassCoord());
    EXPECT_TRUE(CopyCoord(EmptyCoord(2, KOORD_UTM).Get(), to.Get()));
    EXPECT_TRUE(testing::HeldPosition(to));
}

TEST_F(KoordAccess, CopyFailsForAnythingElse) {
    const IRef<ICoord> coord = CoordOf(source);
    for (ICoord* wrong :
         {static_cast<ICoord*>(nullptr), testing::Disguised<ICoord>(stranger), hostCoord.Get()}) {
        EXPECT_FALSE(CopyCoord(wrong, coord.Get()));
        EXPECT_FALSE(CopyCoord(coord.Get(), wrong));
    }
    EXPECT_TRUE(SameRecord(KoordOf(coord), source));
}

TEST_F(KoordAccess, ACoordinateThatNobodyHoldsLivesUntilTheEndOfTheCopy) {
    ICoord* const fresh = CreateClassCoord();
    EXPECT_TRUE(CopyCoord(fresh, fresh));
}

using ReadMapDatumTest = testing::BalancedTest;

TEST_F(ReadMapDatumTest, TellsTheDatumThatAMapDrawsOn) {
    std::int32_t datum = 0;
    EXPECT_TRUE(ReadMapDatum(
        testing::MapOf(testing::Map(MAP_DD, MapDdParams{10.0, 50.0, 100.0, 100.0}, 3)).Get(), &datum));
    EXPECT_EQ(datum, 3);
}

TEST_F(ReadMapDatumTest, LeavesTheNumberWithoutMemory) {
    const IRef<IMapCoordOperations> map =
        testing::MapOf(testing::Map(MAP_DD, MapDdParams{10.0, 50.0, 100.0, 100.0}));
    std::int32_t datum = 17;
    const testing::FailAllocation failure(1);
    EXPECT_FALSE(ReadMapDatum(map.Get(), &datum));
    EXPECT_EQ(datum, 17);
}

}  // namespace
}  // namespace tessara

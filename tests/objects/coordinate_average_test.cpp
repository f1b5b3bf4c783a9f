#include "objects/coordinate_average.h"

#include <gtest/gtest.h>

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

class CoordinateAverageTest : public testing::BalancedTest {
  protected:
    IRef<ICoordinateAverage> average{CreateClassCoordinateAverage()};
};

TEST_F(CoordinateAverageTest, GivesTheResultReferenceAndPosition) {
    const IRef<ICoord> first = CoordOf(Utm(32, 'N', 4.0e5, 5.0e6));
    const IRef<ICoord> second = CoordOf(Utm(32, 'N', 5.0e5, 5.2e6));
    const IRef<ICoord> result = EmptyCoord(3, KOORD_GK);
    ASSERT_TRUE(average->Average(first.Get(), second.Get(), result.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(result), Utm(32, 'N', 4.5e5, 5.1e6)));
    EXPECT_TRUE(HoldsPosition(result));
    EXPECT_TRUE(SameRecord(KoordOf(first), Utm(32, 'N', 4.0e5, 5.0e6)));
    EXPECT_EQ(testing::CountOf(result), 1u);
}

TEST_F(CoordinateAverageTest, HeightsArentAveraged) {
    const IRef<ICoord> first = CoordOf(Utm(32, 'N', 4.0e5, 5.0e6));
    first->SetHeight(500.0);
    const IRef<ICoord> result = CoordOf(GeodezRecord(1.0, 2.0, 3.0));
    ASSERT_TRUE(average->Average(first.Get(), first.Get(), result.Get()));
    EXPECT_EQ(result->GetHeight(), 0.0);
}

TEST_F(CoordinateAverageTest, AnEcefMeanHasTheHeightOfItsPlace) {
    // The middle of the chord between 0 and 90 degrees of the equator lies a/sqrt(2) from the axis.
    const IRef<ICoord> first = CoordOf(Record(KOORD_ECEF, EcefPayload{6378137.0, 0.0, 0.0}));
    const IRef<ICoord> second = CoordOf(Record(KOORD_ECEF, EcefPayload{0.0, 6378137.0, 0.0}));
    const IRef<ICoord> result(CreateClassCoord());
    ASSERT_TRUE(average->Average(first.Get(), second.Get(), result.Get()));
    EXPECT_EQ(PayloadOf<EcefPayload>(result).x, 3189068.5);
    EXPECT_NEAR(result->GetHeight(), 6378137.0 / std::sqrt(2.0) - 6378137.0, 1e-6);
}

TEST_F(CoordinateAverageTest, TheResultMayBeOneOfThePoints) {
    const IRef<ICoord> first = CoordOf(GeodezRecord(40.0, 10.0));
    const IRef<ICoord> second = CoordOf(GeodezRecord(50.0, 20.0));
    ASSERT_TRUE(average->Average(first.Get(), second.Get(), second.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(second), GeodezRecord(45.0, 15.0)));
    ICoord* const fresh = CreateClassCoord();
    EXPECT_TRUE(average->Average(fresh, fresh, fresh));  // and is gone
}

TEST_F(CoordinateAverageTest, AFailureLeavesTheResult) {
    const IRef<ICoord> result = CoordOf(GeodezRecord(1.0, 2.0, 3.0));
    const IRef<ICoord> tm = EmptyCoord(2, KOORD_TM);
    EXPECT_FALSE(average->Average(tm.Get(), tm.Get(), result.Get()));
    EXPECT_FALSE(average->Average(tm.Get(), EmptyCoord(3, KOORD_TM).Get(), result.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(result), GeodezRecord(1.0, 2.0, 3.0)));
    EXPECT_EQ(result->GetHeight(), 3.0);
}

TEST_F(CoordinateAverageTest, NullAndForeignObjectsFail) {
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<IUnknown> stranger = MakeStranger();
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    for (ICoord* const other : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get()}) {
        EXPECT_FALSE(average->Average(other, coord.Get(), coord.Get()));
        EXPECT_FALSE(average->Average(coord.Get(), other, coord.Get()));
        EXPECT_FALSE(average->Average(coord.Get(), coord.Get(), other));
    }
    EXPECT_TRUE(SameRecord(KoordOf(coord), GeodezRecord(48.0, 11.0)));
}

}  // namespace
}  // namespace tessara

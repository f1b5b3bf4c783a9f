#include "objects/coordinate_compare.h"

#include <gtest/gtest.h>

#include "support/coords.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/records.h"
#include "support/zones.h"

namespace tessara {
namespace {

using testing::Disguised;
using testing::HostCoord;
using testing::MakeStranger;

class CoordinateCompareTest : public testing::BalancedTest {
  protected:
    std::int32_t NorthSouth(const IRef<ICoord>& first, const IRef<ICoord>& second) {
        return compare->CompareNorthSouth(first.Get(), second.Get());
    }
    std::int32_t EastWest(const IRef<ICoord>& first, const IRef<ICoord>& second) {
        return compare->CompareEastWest(first.Get(), second.Get());
    }

    IRef<ICoordinateCompare> compare{CreateClassCoordinateCompare()};
};

TEST_F(CoordinateCompareTest, OrdersAlongTheAxisThatIsAsked) {
    const IRef<ICoord> munich = CoordOf(GeodezRecord(48.14, 11.58));
    const IRef<ICoord> berlin = CoordOf(GeodezRecord(52.52, 13.41));
    EXPECT_EQ(NorthSouth(berlin, munich), 1);
    EXPECT_EQ(NorthSouth(munich, berlin), -1);
    EXPECT_EQ(EastWest(berlin, munich), 1);
    EXPECT_EQ(EastWest(munich, berlin), -1);
    EXPECT_EQ(NorthSouth(munich, munich), 0);
    EXPECT_EQ(EastWest(munich, munich), 0);
}

TEST_F(CoordinateCompareTest, LeavesItsArgumentsAlone) {
    const tagKOORD wanting = testing::Utm(33, 'N', 100000.0, 5.0e6, 33);
    const IRef<ICoord> first = CoordOf(wanting);
    const IRef<ICoord> second = CoordOf(testing::Utm(32, 'N', 500000.0, 5.0e6));
    EXPECT_EQ(EastWest(first, second), 1);
    EXPECT_TRUE(testing::SameRecord(KoordOf(first), wanting));
    EXPECT_EQ(testing::CountOf(first), 1u);
}

TEST_F(CoordinateCompareTest, AnInvalidCoordinateComparesByItsRecord) {
    EXPECT_EQ(NorthSouth(EmptyCoord(2, KOORD_GEODEZ), CoordOf(GeodezRecord(-1.0, 0.0))), 1);
}

TEST_F(CoordinateCompareTest, TwoDatumsOrSystemsArentComparable) {
    const IRef<ICoord> wgs84 = CoordOf(GeodezRecord(48.0, 11.0, 0.0, 2));
    EXPECT_EQ(NorthSouth(wgs84, CoordOf(GeodezRecord(48.0, 11.0, 0.0, 3))), -2);
    EXPECT_EQ(EastWest(wgs84, EmptyCoord(2, KOORD_UTM)), -2);
}

TEST_F(CoordinateCompareTest, NullAndForeignObjectsArentComparable) {
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<IUnknown> stranger = MakeStranger();
    const IRef<ICoord> foreign(NewObject<HostCoord>());
    for (ICoord* const other : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get()}) {
        EXPECT_EQ(compare->CompareNorthSouth(coord.Get(), other), -2);
        EXPECT_EQ(compare->CompareNorthSouth(other, coord.Get()), -2);
        EXPECT_EQ(compare->CompareEastWest(coord.Get(), other), -2);
        EXPECT_EQ(compare->CompareEastWest(other, coord.Get()), -2);
    }
}

TEST_F(CoordinateCompareTest, ACoordinateOfCountZeroMayBeBothArguments) {
    ICoord* const fresh = CreateClassCoord();
    EXPECT_EQ(compare->CompareNorthSouth(fresh, fresh), 0);  // and is gone
}

}  // namespace
}  // namespace tessara

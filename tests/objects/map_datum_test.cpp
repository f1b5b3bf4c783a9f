#include "objects/map_datum.h"

#include <gtest/gtest.h>

#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/maps.h"

namespace tessara::testing {
namespace {

using ReadMapDatumTest = BalancedTest;

TEST_F(ReadMapDatumTest, TellsTheDatumThatAMapDrawsOn) {
    std::int32_t datum = 0;
    EXPECT_TRUE(ReadMapDatum(MapOf(Map(MAP_DD, MapDdParams{10.0, 50.0, 100.0, 100.0}, 3)).Get(), &datum));
    EXPECT_EQ(datum, 3);
}

TEST_F(ReadMapDatumTest, LeavesTheNumberWithoutMemory) {
    const IRef<IMapCoordOperations> map = MapOf(Map(MAP_DD, MapDdParams{10.0, 50.0, 100.0, 100.0}));
    std::int32_t datum = 17;
    const FailAllocation failure(1);
    EXPECT_FALSE(ReadMapDatum(map.Get(), &datum));
    EXPECT_EQ(datum, 17);
}

}  // namespace
}  // namespace tessara::testing

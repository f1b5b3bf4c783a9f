// A map of a host may stop giving places at any call. A grid leaves out what it can't place, or fails without
// lines.
#include <gtest/gtest.h>

#include "support/grids.h"
#include "support/host_map.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/coordinate_grid.h"

namespace tessara::testing {
namespace {

constexpr int ALWAYS = 1000000;

class GridOnAFailingMap : public BalancedTest {
  protected:
    using Lines = bool (ICoordinateGrid::*)(IArray*);

    // Lets the map answer no call, one, two and so on, until that is enough.
    void DrawAfterEachCall(std::int32_t system, double step, Lines get) {
        host->GiveUpAfter(ALWAYS);
        const IRef<ICoordinateGrid> grid = GridOf(system, map, step, step);
        ASSERT_TRUE(SetWindow(grid, 0.0, 0.0, 60.0, 60.0));
        const IRef<IArray> all(CreateClassArray());
        ASSERT_TRUE((grid.Get()->*get)(all.Get()));
        ASSERT_GT(all->GetCount(), 0u);
        for (int calls = 0; calls < ALWAYS; ++calls) {
            host->GiveUpAfter(calls);
            const IRef<IArray> lines(CreateClassArray());
            const bool isDrawn = (grid.Get()->*get)(lines.Get());
            if (!host->HasGivenUp()) {
                EXPECT_TRUE(isDrawn);
                EXPECT_EQ(lines->GetCount(), all->GetCount());
                return;
            }
            EXPECT_LE(lines->GetCount(), all->GetCount()) << calls;
        }
        FAIL() << "the map is asked without end";
    }

    // A kilometre a pixel, at the border of the zones 32 and 33.
    FailingMap* host = NewObject<FailingMap>(
        MapOf(Map(MAP_UTM, MapUtmParams{'N', 32, 695000.0, 5365000.0, 1000.0, 1000.0})), ALWAYS);
    IRef<IMapCoordOperations> map{host};
};

TEST_F(GridOnAFailingMap, LinesOfZonesEndWhereTheMapGivesUp) {
    DrawAfterEachCall(KOORD_UTM, 10000.0, &ICoordinateGrid::GetEastLines);
    DrawAfterEachCall(KOORD_UTM, 10000.0, &ICoordinateGrid::GetNorthLines);
}

TEST_F(GridOnAFailingMap, LinesOfDegreesEndWhereTheMapGivesUp) {
    DrawAfterEachCall(KOORD_GEODEZ, 0.25, &ICoordinateGrid::GetEastLines);
    DrawAfterEachCall(KOORD_GEODEZ, 0.25, &ICoordinateGrid::GetNorthLinePixels);
}

// Pixels that the map refuses in between count as places off the map.
TEST_F(GridOnAFailingMap, AWindowIsSetWithAllAnswersAndNotWithoutAny) {
    const IRef<ICoordinateGrid> grid = GridOf(KOORD_UTM, map, 10000.0, 10000.0);
    bool isSet = true;
    for (int calls = 0; calls < ALWAYS; ++calls) {
        host->GiveUpAfter(calls);
        isSet = SetWindow(grid, 0.0, 0.0, 60.0, 60.0);
        EXPECT_FALSE(isSet && calls == 0);
        if (!host->HasGivenUp()) break;
    }
    EXPECT_FALSE(host->HasGivenUp());
    EXPECT_TRUE(isSet);
}

}  // namespace
}  // namespace tessara::testing

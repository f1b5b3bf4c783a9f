#include "tessara/coordinate_grid_factory.h"

#include <gtest/gtest.h>

#include "numerics/special_values.h"
#include "support/grids.h"
#include "support/live_objects.h"
#include "support/objects.h"

namespace tessara::testing {
namespace {

class CoordinateGridFactoryTest : public BalancedTest {
  protected:
    ICoordinateGrid* Make(const GridSystem& row, IMapCoordOperations* on, std::int32_t datum, double eastStep,
                          double northStep) {
        const GridMaker make = row.make;
        return (factory.Get()->*make)(on, datum, eastStep, northStep);
    }
    ICoordinateGrid* MakeUtm(double eastStep, double northStep, std::int32_t datum = DATUM_WGS84) {
        return Make(GridSystemOf(KOORD_UTM), map.Get(), datum, eastStep, northStep);
    }

    IRef<ICoordinateGridFactory> factory{CreateClassCoordinateGridFactory()};
    IRef<IMapCoordOperations> map = MapOf(MunichSheet());
    IRef<IUnknown> stranger = MakeStranger();
};

TEST_F(CoordinateGridFactoryTest, EachOperationMakesAGridOfItsSystem) {
    ASSERT_EQ(std::size(GRID_SYSTEMS), 21u);
    for (const GridSystem& row : GRID_SYSTEMS) {
        const IRef<ICoordinateGrid> grid(Make(row, map.Get(), 6, 2.0, 3.0));
        ASSERT_TRUE(grid.IsValid()) << row.name;
        const auto reference = ReferenceOf(2, KOORD_GEODEZ);
        ASSERT_TRUE(grid->GetReference(reference.Get())) << row.name;
        EXPECT_EQ(reference->GetSystem(), row.system) << row.name;
        EXPECT_EQ(reference->GetDatum(), 6) << row.name;
        EXPECT_EQ(grid->GetEastStep(), 2.0) << row.name;
        EXPECT_EQ(grid->GetNorthStep(), 3.0) << row.name;
    }
}

TEST_F(CoordinateGridFactoryTest, GridsComeWithCountZeroAndHoldTheMap) {
    for (const GridSystem& row : GRID_SYSTEMS) {
        ICoordinateGrid* const made = Make(row, map.Get(), DATUM_WGS84, 1.0, 1.0);
        ASSERT_NE(made, nullptr) << row.name;
        EXPECT_EQ(made->AddRef(), 1u);
        EXPECT_EQ(CountOf(map), 2u);
        EXPECT_EQ(made->Release(), 0u);
        EXPECT_EQ(CountOf(map), 1u);
    }
}

TEST_F(CoordinateGridFactoryTest, AMapOfCountZeroLivesAsLongAsTheGrid) {
    IMapCoordOperations* const fresh = CreateClassMapCoordOperations();
    const IRef<ICoordinateGrid> grid(factory->CreateUtmGrid(fresh, DATUM_WGS84, 1.0, 1.0));
    ASSERT_TRUE(grid.IsValid());
    EXPECT_EQ(CountOf(static_cast<IUnknown*>(fresh)), 1u);
}

TEST_F(CoordinateGridFactoryTest, NegativeStepsCountAsTheirAbsoluteValues) {
    const IRef<ICoordinateGrid> grid(MakeUtm(-1000.0, -250.5));
    ASSERT_TRUE(grid.IsValid());
    EXPECT_EQ(grid->GetEastStep(), 1000.0);
    EXPECT_EQ(grid->GetNorthStep(), 250.5);
}

TEST_F(CoordinateGridFactoryTest, RefusesStepsThatMoveNothingOrNowhere) {
    for (const double step : {0.0, -0.0, NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_EQ(MakeUtm(step, 1.0), nullptr) << step;
        EXPECT_EQ(MakeUtm(1.0, step), nullptr) << step;
    }
    for (const double step : {5e-324, 1e308}) {
        EXPECT_TRUE(IRef<ICoordinateGrid>(MakeUtm(step, step)).IsValid()) << step;
    }
}

TEST_F(CoordinateGridFactoryTest, RefusesDatumsThatDontExist) {
    for (const std::int32_t datum : {-1, 239, 998, 1000, INT32_MIN, INT32_MAX})
        EXPECT_EQ(MakeUtm(1.0, 1.0, datum), nullptr) << datum;
    for (const std::int32_t datum : {0, 238, 999})
        EXPECT_TRUE(IRef<ICoordinateGrid>(MakeUtm(1.0, 1.0, datum)).IsValid()) << datum;
}

TEST_F(CoordinateGridFactoryTest, NeedsAMap) {
    for (const GridSystem& row : GRID_SYSTEMS) {
        EXPECT_EQ(Make(row, nullptr, DATUM_WGS84, 1.0, 1.0), nullptr) << row.name;
        EXPECT_EQ(Make(row, Disguised<IMapCoordOperations>(stranger), DATUM_WGS84, 1.0, 1.0), nullptr);
    }
}

TEST_F(CoordinateGridFactoryTest, GivesNullWithoutMemory) {
    const FailAllocation failure(1);
    EXPECT_EQ(MakeUtm(1.0, 1.0), nullptr);
}

}  // namespace
}  // namespace tessara::testing

// The operations of the grid interfaces keep their order.
#include <gtest/gtest.h>

#include "areas/coordinate_area.h"
#include "support/operation_order.h"
#include "tessara/tessara.h"

#if defined(__unix__)

namespace tessara {
namespace {

using testing::ExpectInOrder;

TEST(OperationOrder, Grids) {
    using I = ICoordinateGrid;
    ExpectInOrder(3, &I::SetWindowFromPoints, &I::SetWindow, &I::GetEastLines, &I::GetNorthLines,
                  &I::GetEastLinePixels, &I::GetNorthLinePixels, &I::GetEastStep, &I::GetNorthStep,
                  &I::CopyMapTo, &I::GetReference);
}

TEST(OperationOrder, GridFactory) {
    using I = ICoordinateGridFactory;
    ExpectInOrder(3, &I::CreateFloatPixelGrid, &I::CreateUtmGrid, &I::CreateUtmrefGrid, &I::CreateGeodezGrid,
                  &I::CreateGeodezminGrid, &I::CreateGeogradGrid, &I::CreateGeorefGrid, &I::CreateGkGrid,
                  &I::CreateBmnGrid, &I::CreateOemGrid, &I::CreateChGrid, &I::CreateGk6Grid,
                  &I::CreateGkAtGrid, &I::CreateUpsGrid, &I::CreatePoMilitaryGrid, &I::CreateTmGrid,
                  &I::CreateVdgGrid, &I::CreateBngGrid, &I::CreateIngGrid, &I::CreateRdGrid,
                  &I::CreateLurefGrid);
}

// A destructor has two places in the table.
TEST(OperationOrder, TheDestructorOfAnAreaStandsBehindItsInterface) {
    EXPECT_EQ(testing::PlaceOf(&CoordinateArea::SplitPolygon), 34);
    EXPECT_EQ(testing::PlaceOf(&CoordinateArea::GetRectExtremes), 37);
}

}  // namespace
}  // namespace tessara

#endif

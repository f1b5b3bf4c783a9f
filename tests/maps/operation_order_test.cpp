// The operations of the map interfaces keep their order, because hosts call them by index.
#include <gtest/gtest.h>

#include "maps/map_coord_operations.h"
#include "support/operation_order.h"
#include "tessara/tessara.h"

#if defined(__unix__)

namespace tessara {
namespace {

using testing::ExpectInOrder;

TEST(OperationOrder, Projection) {
    using I = IProjection;
    ExpectInOrder(3, &I::GetProjectionType, &I::GetProjectionName, &I::GetWagnerIvParams, &I::GetNoneParams,
                  &I::GetStereographicNlParams, &I::GetVanDerGrintenParams, &I::GetPolynomParams,
                  &I::GetLambertCcParams, &I::GetLambertFrParams, &I::GetTmParams, &I::GetUpsParams,
                  &I::GetDdParams, &I::GetAzylParams, &I::GetChParams, &I::GetBmnParams,
                  &I::GetMercatorParams, &I::GetEqualArcParams, &I::GetLambert2Params,
                  &I::GetGaussKruegerParams, &I::GetUtmParams);
    ExpectInOrder(3, &IMapParamInternal::GetMapParam, &IMapParamInternal::SetMapParam);
}

TEST(OperationOrder, ProjectionFactory) {
    using I = IProjectionFactory;
    ExpectInOrder(3, &I::CreateUtm, &I::CreateGaussKrueger, &I::CreateGaussKrueger6, &I::CreateLambert2,
                  &I::CreateEqualArc, &I::CreatePolynom, &I::CreateMercator, &I::CreateBmn, &I::CreateCh,
                  &I::CreateAzyl, &I::CreateDd, &I::CreateUps, &I::CreateTm, &I::CreatePoMilitary,
                  &I::CreateLuref, &I::CreateLambertFr, &I::CreateLambertCc, &I::CreatePolynomSecond,
                  &I::CreateVanDerGrinten, &I::CreateStereographicNl, &I::CreateNone, &I::CreateWagnerIv);
}

TEST(OperationOrder, Maps) {
    using I = IMapCoordOperations;
    ExpectInOrder(3, &I::GetMapDefinition, &I::GetReferencePoint, &I::GetReferencePoints,
                  &I::GetScaleDenominator, &I::GetScale, &I::GetResolution, &I::GetGeoDate, &I::GetProjection,
                  &I::FloatPixelToCoord, &I::LongPixelToCoord, &I::PixelCoordToCoord, &I::CoordToFloatPixel,
                  &I::CoordToLongPixel, &I::CoordToPixelCoord);
    using F = IMapCoordOperationsFactory;
    ExpectInOrder(3, &F::CreateFromReferencePointsScale, &F::CreateFromReferencePointScale,
                  &F::CreateFromReferencePoints, &F::CreateFromReferencePoint);
}

TEST(OperationOrder, PixelCreators) {
    // A virtual destructor takes two places.
    using I = IMapCoordCreator;
    ExpectInOrder(5, &I::CreateCoords, &I::CreateCoord, &I::CreateCoordsFrom, &I::CreateCoordFrom,
                  &I::ConvertCoords, &I::ConvertCoord);
    ExpectInOrder(5, &IMapCoordCreatorFactory::CreateMapCoordCreator);
}

TEST(OperationOrder, ReferencePointsAndSearches) {
    using I = IReferencePoint;
    ExpectInOrder(3, &I::SetFloat, &I::SetLong, &I::GetFloat, &I::GetLong);
    ExpectInOrder(3, &ITransformableMapPixel::FindValidCoordInRect, &ITransformableMapPixel::ClipLineToValid);
    ExpectInOrder(3, &ITransformableInternal::FindValidCoordInPixelRect);
}

// A destructor has two places in the table.
TEST(OperationOrder, TheDestructorOfAMapStandsBehindItsInterface) {
    EXPECT_EQ(testing::PlaceOf(&MapCoordOperations::CoordToPixelCoord), 16);
    EXPECT_EQ(testing::PlaceOf(&MapCoordOperations::GetMapParam), 19);
}

}  // namespace
}  // namespace tessara

#endif

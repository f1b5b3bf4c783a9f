// The examples in the headers of maps.
#include <gtest/gtest.h>

#include "snippets/header_example.h"
#include "snippets/munich.h"
#include "support/grids.h"
#include "support/lines.h"
#include "support/map_objects.h"
#include "support/space.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::HeaderExample;
using testing::MUNICH_EASTING;
using testing::MUNICH_NORTHING;

// The pixel of Munich on testing::MunichSheet: from the upper left corner at 675000 5345000, in steps of 2.5
// m.
constexpr double MUNICH_COLUMN = (MUNICH_EASTING - 675000.0) / 2.5;
constexpr double MUNICH_ROW = (5345000.0 - MUNICH_NORTHING) / 2.5;

TEST_F(HeaderExample, MapCoordOperations) {
    const IRef<IMapCoordOperations> map = testing::MapOf(testing::MunichSheet());
    const IRef<ICoord> munich = testing::Place(48.1375, 11.5755, 520.0);
    const IRef<ICoord> place = EmptyCoord(DATUM_WGS84, KOORD_GEODEZ);

    double column = 0.0, row = 0.0;
    if (!map->CoordToFloatPixel(munich, &column, &row)) return;  // 6641.06 4083.54
    if (!map->FloatPixelToCoord(column, row, place)) return;     // in the reference that `place` has

    EXPECT_NEAR(column, MUNICH_COLUMN, 0.001);
    EXPECT_NEAR(row, MUNICH_ROW, 0.001);
    const auto degrees = PayloadOf<GeodezPayload>(place);
    EXPECT_NEAR(degrees.latitude, 48.1375, 1e-9);
    EXPECT_NEAR(degrees.longitude, 11.5755, 1e-9);
    IsDone();
}

TEST_F(HeaderExample, MapCoordOperationsFactory) {
    const IRef<IProjection> projection = testing::ProjectionOf(testing::MunichSheet());

    const tessara::IRef datum = tessara::CreateClassGeoDate();
    datum->SetDatum(tessara::DATUM_WGS84);
    const tessara::IRef noPoints = tessara::CreateClassArray();
    const tessara::IRef factory = tessara::CreateClassMapCoordOperationsFactory();
    const tessara::IRef map = factory->CreateFromReferencePoints(noPoints, 50000, 20.0, datum, projection);

    ASSERT_TRUE(map.IsValid());
    EXPECT_EQ(map->GetScaleDenominator(), 50000);
    EXPECT_EQ(map->GetResolution(), 20.0);
    double column = 0.0, row = 0.0;
    ASSERT_TRUE(map->CoordToFloatPixel(testing::Place(48.1375, 11.5755).Get(), &column, &row));
    EXPECT_NEAR(column, MUNICH_COLUMN, 0.001);
    EXPECT_NEAR(row, MUNICH_ROW, 0.001);
    IsDone();
}

TEST_F(HeaderExample, MapCoordCreatorFactory) {
    const IRef<IMapCoordOperations> map = testing::MapOf(testing::MunichSheet());
    const IRef<ICoord> munich = testing::Place(48.1375, 11.5755, 520.0);

    const tessara::IRef factory = tessara::CreateClassMapCoordCreatorFactory();
    const tessara::IRef creator = factory->CreateMapCoordCreator(map);
    const tessara::IRef pixel = creator->CreateCoordFrom(munich);
    double x = 0.0, y = 0.0;
    if (!pixel.IsValid() || !pixel->GetPixel(&x, &y)) return;

    EXPECT_NEAR(x, MUNICH_COLUMN, 0.001);
    EXPECT_NEAR(y, MUNICH_ROW, 0.001);
    IsDone();
}

TEST_F(HeaderExample, Projection) {
    const IRef<IMapCoordOperations> map = testing::MapOf(testing::MunichSheet());

    const tessara::IRef projection = tessara::CreateClassProjection();
    tessara::MapUtmParams params{};
    if (!map->GetProjection(projection) || !projection->GetUtmParams(&params)) return;  // zone 32

    EXPECT_EQ(params.zone, 32);
    IsDone();
}

TEST_F(HeaderExample, ProjectionFactory) {
    const tessara::MapUtmParams params{.hemisphere = 'N',
                                       .zone = 32,
                                       .originEasting = 675000.0,
                                       .originNorthing = 5345000.0,
                                       .metresPerPixelX = 2.5,
                                       .metresPerPixelY = 2.5};
    const tessara::IRef factory = tessara::CreateClassProjectionFactory();
    const tessara::IRef projection = factory->CreateUtm(&params);

    ASSERT_TRUE(projection.IsValid());
    EXPECT_EQ(projection->GetProjectionType(), MAP_UTM);
    MapUtmParams read{};
    ASSERT_TRUE(projection->GetUtmParams(&read));
    EXPECT_EQ(read.originEasting, 675000.0);
    IsDone();
}

TEST_F(HeaderExample, ReferencePoint) {
    const IRef<ICoord> origin = testing::Place(0.0, 0.0);
    const IRef<ICoord> place(CreateClassCoord());

    const tessara::IRef point = tessara::CreateClassReferencePoint();
    point->SetLong(origin, 500, 300);
    double column = 0.0, row = 0.0;
    if (!point->GetFloat(place, &column, &row)) return;  // 500.0, 300.0

    EXPECT_EQ(column, 500.0);
    EXPECT_EQ(row, 300.0);
    IsDone();
}

TEST_F(HeaderExample, TransformableMapPixel) {
    const IRef<IMapCoordOperations> map = testing::DegreeMap(0.0, 0.0, 10.0);
    const IRef<ICoordinateReference> degrees = ReferenceOf(DATUM_WGS84, KOORD_GEODEZ);
    const IRef<IFloatPoint> latitude80 = testing::FloatPointOf(100.0, -800.0);
    const IRef<IFloatPoint> latitude100 = testing::FloatPointOf(100.0, -1000.0);

    const tessara::IRef clipper = tessara::CreateClassTransformableMapPixel();
    const tessara::IRef first = tessara::CreateClassFloatPoint();
    const tessara::IRef second = tessara::CreateClassFloatPoint();
    const std::int32_t result =
        clipper->ClipLineToValid(map, degrees, latitude80, latitude100, first, second);
    // 2: one valid piece, whose end is within half a pixel of latitude 90

    EXPECT_EQ(result, 2);
    EXPECT_EQ(first->GetY(), -800.0);
    EXPECT_NEAR(second->GetY(), -900.0, 0.5);
    IsDone();
}

}  // namespace
}  // namespace tessara

#include "tessara/transformable_map_pixel.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"
#include "support/host_map.h"
#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/objects.h"
#include "support/sheets.h"
#include "tessara/float_point.h"
#include "tessara/host/rect.h"

namespace tessara::testing {
namespace {

IRef<IFloatPoint> PointAt(double x, double y) {
    IRef<IFloatPoint> point(CreateClassFloatPoint());
    point->SetX(x);
    point->SetY(y);
    return point;
}

IRef<IRect> RectOf(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return IRef<IRect>(NewObject<host::Rect>(left, top, right, bottom));
}

// A map of whole degrees: column and row are the longitude and the negative latitude. UTM is valid on the
// rows -84 to 80.
MapParam WholeDegreeMap() {
    return Map(MAP_DD, MapDdParams{0.0, 0.0, 1.0, 1.0});
}

// The arctic, a kilometre a pixel, with the pole at (1000, 1000).
MapParam ArcticMap() {
    return Map(MAP_UPS, MapUpsParams{'N', 1000000.0, 3000000.0, 1000.0, 1000.0});
}

// A metre a pixel, with 44.995 north, 17.733 east at (0, 0), just south of the Austrian grids' 45 degrees:
// echo "17.733333333334 44.995" | cs2cs -f %.6f +proj=longlat +a=6377397.155 +rf=299.1528128 +to +proj=tmerc
// +lon_0=16.333333333334 +x_0=750000 +y_0=-5000000 +a=6377397.155 +rf=299.1528128
// That is north of the least northing of the system, which 45 degrees have on the meridian itself:
// -15560.735.
MapParam SouthOfAustriaMap() {
    return Map(MAP_BMN, MapBmnParams{34, 860381.829302, -15162.737414, 1.0, 1.0}, DATUM_MGI);
}

class FindValidCoordTest : public BalancedTest {
  protected:
    bool Find(const IRef<IRect>& rect) {
        return finder->FindValidCoordInRect(map.Get(), rect.Get(), coord.Get());
    }

    IRef<IUnknown> stranger = MakeStranger();
    IRef<ITransformableMapPixel> finder{CreateClassTransformableMapPixel()};
    IRef<IMapCoordOperations> map = MapOf(WholeDegreeMap());
    IRef<ICoord> coord = EmptyCoord(DATUM_WGS84, KOORD_UTM);
};

void ExpectDegrees(const IRef<ICoord>& coord, double latitude, double longitude) {
    const IRef<ICoordGeographic> geographic(CreateClassCoordGeographic());
    ASSERT_TRUE(coord->GetGeographic(geographic.Get()));
    EXPECT_NEAR(geographic->GetLatitude(), latitude, 1e-9);
    EXPECT_NEAR(geographic->GetLongitude(), longitude, 1e-9);
}

TEST_F(FindValidCoordTest, TakesTheCentreFirst) {
    ASSERT_TRUE(Find(RectOf(0, -60, 10, -40)));
    ExpectDegrees(coord, 50.0, 5.0);
    EXPECT_EQ(KoordOf(coord).type, static_cast<std::uint32_t>(KOORD_UTM));
}

// The centre of the rows -100..-76 is 88 north, and no UTM; that of the lower right quarter is 82.
TEST_F(FindValidCoordTest, ThenTheQuarters) {
    ASSERT_TRUE(Find(RectOf(0, -100, 8, -76)));
    ExpectDegrees(coord, 82.0, 6.0);
}

// The lowest centre of the quarters lies at -168, that of their quarters at -79.
TEST_F(FindValidCoordTest, ThenTheQuartersOfTheQuarters) {
    ASSERT_TRUE(Find(RectOf(0, -702, 8, 10)));
    ExpectDegrees(coord, 79.0, 7.0);
}

TEST_F(FindValidCoordTest, SwappedEdgesMakeNoDifference) {
    ASSERT_TRUE(Find(RectOf(8, -76, 0, -100)));
    ExpectDegrees(coord, 82.0, 6.0);
}

// All 21 centres lie thousands of rows to the north. The default position, at 0 north, 3 west, lies inside.
TEST_F(FindValidCoordTest, ThenTheDefaultPosition) {
    ASSERT_TRUE(Find(RectOf(-10, -100000, 10, 100)));
    ExpectDegrees(coord, 0.0, -3.0);
    EXPECT_EQ(PayloadOf<UtmPayload>(coord).easting, 500000.0);
}

// The lowest of the 21 lies at -150, and there is no fourth level, which would look at -25.
TEST_F(FindValidCoordTest, ThenTheDefaultPositionAndNoSmallerQuarters) {
    ASSERT_TRUE(Find(RectOf(-10, -1900, 10, 100)));
    ExpectDegrees(coord, 0.0, -3.0);
}

// Without that, the strip along the lower edge is searched: an eighth of the height, 12525 rows, whose lowest
// centres in six levels lie 12525 / 64 = 195.7 rows above the edge, at about 4 degrees south.
TEST_F(FindValidCoordTest, ThenTheRim) {
    ASSERT_TRUE(Find(RectOf(100, -100000, 140, 200)));
    const IRef<ICoordGeographic> geographic(CreateClassCoordGeographic());
    ASSERT_TRUE(coord->GetGeographic(geographic.Get()));
    EXPECT_NEAR(geographic->GetLatitude(), -4.3, 1.0);
    EXPECT_GE(geographic->GetLongitude(), 100.0);
    EXPECT_LE(geographic->GetLongitude(), 140.0);
}

TEST_F(FindValidCoordTest, HoldsAPositionToTheAreaOfItsSystemOnly) {
    map = MapOf(SouthOfAustriaMap());
    coord = EmptyCoord(DATUM_MGI, KOORD_BMN);
    EXPECT_TRUE(Find(RectOf(0, 0, 1, 1)));
}

TEST_F(FindValidCoordTest, AndGivesUp) {
    EXPECT_FALSE(Find(RectOf(0, -100, 8, -86)));
    EXPECT_FALSE(Find(RectOf(INT32_MIN, INT32_MIN, INT32_MAX, -1000)));
}

TEST_F(FindValidCoordTest, TakesPlainRectanglesOnItsOtherFace) {
    const IRef<ITransformableInternal> internal(finder);
    ASSERT_TRUE(internal.IsValid());
    const PixelRect rect{8, -76, 0, -100};
    ASSERT_TRUE(internal->FindValidCoordInPixelRect(map.Get(), &rect, coord.Get()));
    ExpectDegrees(coord, 82.0, 6.0);
    EXPECT_FALSE(internal->FindValidCoordInPixelRect(map.Get(), nullptr, coord.Get()));
    EXPECT_FALSE(internal->FindValidCoordInPixelRect(nullptr, &rect, coord.Get()));
    EXPECT_FALSE(internal->FindValidCoordInPixelRect(map.Get(), &rect, nullptr));
}

TEST_F(FindValidCoordTest, NeedsAMapARectangleAndACoordinate) {
    const IRef<IRect> rect = RectOf(0, -60, 10, -40);
    EXPECT_FALSE(finder->FindValidCoordInRect(nullptr, rect.Get(), coord.Get()));
    EXPECT_FALSE(finder->FindValidCoordInRect(map.Get(), nullptr, coord.Get()));
    EXPECT_FALSE(finder->FindValidCoordInRect(map.Get(), rect.Get(), nullptr));
    EXPECT_FALSE(
        finder->FindValidCoordInRect(Disguised<IMapCoordOperations>(stranger), rect.Get(), coord.Get()));
    EXPECT_FALSE(finder->FindValidCoordInRect(map.Get(), Disguised<IRect>(stranger), coord.Get()));
    EXPECT_FALSE(finder->FindValidCoordInRect(map.Get(), rect.Get(), Disguised<ICoord>(stranger)));
    EXPECT_FALSE(HoldsPosition(coord));
}

class ClipLineTest : public BalancedTest {
  protected:
    std::int32_t Clip(const MapParam& record, std::int32_t system, const IRef<IFloatPoint>& a,
                      const IRef<IFloatPoint>& b) {
        return clipper->ClipLineToValid(MapOf(record).Get(), ReferenceOf(DATUM_WGS84, system).Get(), a.Get(),
                                        b.Get(), first.Get(), second.Get());
    }

    void ExpectPoints(double x1, double y1, double x2, double y2, double tolerance = 0.0) {
        EXPECT_NEAR(first->GetX(), x1, tolerance);
        EXPECT_NEAR(first->GetY(), y1, tolerance);
        EXPECT_NEAR(second->GetX(), x2, tolerance);
        EXPECT_NEAR(second->GetY(), y2, tolerance);
    }

    IRef<IUnknown> stranger = MakeStranger();
    IRef<ITransformableMapPixel> clipper{CreateClassTransformableMapPixel()};
    IRef<IFloatPoint> first = PointAt(-1.0, -2.0);
    IRef<IFloatPoint> second = PointAt(-3.0, -4.0);
};

TEST_F(ClipLineTest, AWhollyValidLineStaysAsItIs) {
    EXPECT_EQ(Clip(WholeDegreeMap(), KOORD_UTM, PointAt(1.0, -50.0), PointAt(12.5, -30.25)), 0);
    ExpectPoints(1.0, -50.0, 12.5, -30.25);
}

TEST_F(ClipLineTest, AWhollyInvalidLineWritesNothing) {
    EXPECT_EQ(Clip(WholeDegreeMap(), KOORD_UTM, PointAt(0.0, -100.0), PointAt(50.0, -86.0)), 3);
    ExpectPoints(-1.0, -2.0, -3.0, -4.0);
}

// UTM ends at 84 degrees, northing 9328093.831 on the central meridian (echo "3 84" | cs2cs ... +proj=utm
// +zone=31): row 719.06 of a map of 100 metres from 9400000. Halving 0..1000 ends at 1473/2048 of it.
TEST_F(ClipLineTest, ALineIsCutWhereTheSystemEnds) {
    const MapParam map = Map(MAP_UTM, MapUtmParams{'N', 31, 500000.0, 9400000.0, 100.0, 100.0});
    EXPECT_EQ(Clip(map, KOORD_UTM, PointAt(0.0, 0.0), PointAt(0.0, 1000.0)), 2);
    ExpectPoints(0.0, 719.23828125, 0.0, 1000.0);
    EXPECT_EQ(Clip(map, KOORD_UTM, PointAt(0.0, 1000.0), PointAt(0.0, 0.0)), 2);
    ExpectPoints(0.0, 1000.0, 0.0, 719.23828125);
}

// The circle of 84 degrees is 666.7 km from the pole (echo "0 84" | cs2cs ... +proj=ups: 2000000
// 1333272.296), and UTM is valid outside of it.
constexpr double RADIUS_84 = 666.728;

// On a line through the pole that no axis runs along, three degrees off.
IRef<IFloatPoint> FromPole(double pixels) {
    const double angle = 3.0 / DEGREES_PER_RADIAN;
    return PointAt(1000.0 + pixels * std::sin(angle), 1000.0 + pixels * std::cos(angle));
}

double DistanceFromPole(const IRef<IFloatPoint>& point) {
    return std::hypot(point->GetX() - 1000.0, point->GetY() - 1000.0);
}

TEST_F(ClipLineTest, AGapAroundThePoleIsCutFromBothSides) {
    EXPECT_EQ(Clip(ArcticMap(), KOORD_UTM, FromPole(800.0), FromPole(-800.0)), 1);
    EXPECT_GT(first->GetY(), 1000.0);
    EXPECT_LT(second->GetY(), 1000.0);
    // Half a pixel of the cut, and the limit that the checker holds is a northing, not a latitude.
    EXPECT_NEAR(DistanceFromPole(first), RADIUS_84, 1.0);
    EXPECT_NEAR(DistanceFromPole(second), RADIUS_84, 1.0);
}

TEST_F(ClipLineTest, AGapBesideTheMiddleIsWalkedTo) {
    EXPECT_EQ(Clip(ArcticMap(), KOORD_UTM, FromPole(800.0), FromPole(-3000.0)), 1);
    EXPECT_GT(first->GetY(), 1000.0);
    EXPECT_LT(second->GetY(), 1000.0);
    // Pixels: the walk's step, and the half pixel of the cut.
    EXPECT_NEAR(DistanceFromPole(first), RADIUS_84, 2.0);
    EXPECT_NEAR(DistanceFromPole(second), RADIUS_84, 2.0);
}

// UPS is valid within 80 degrees, 1112.951 km (echo "0 80" | cs2cs ... +proj=ups: 2000000 887048.863).
TEST_F(ClipLineTest, APieceInTheMiddleIsCutFromBothSides) {
    EXPECT_EQ(Clip(ArcticMap(), KOORD_UPS, PointAt(1000.0, -500.0), PointAt(1000.0, 2500.0)), 2);
    ExpectPoints(1000.0, 1000.0 - 1112.951, 1000.0, 1000.0 + 1112.951, 0.5);
    EXPECT_LE(1000.0 - first->GetY(), 1112.951);
    EXPECT_LE(second->GetY() - 1000.0, 1112.951);
}

TEST_F(ClipLineTest, ALineOfOnePointIsValidOrNot) {
    EXPECT_EQ(Clip(WholeDegreeMap(), KOORD_UTM, PointAt(5.0, -50.0), PointAt(5.0, -50.0)), 0);
    ExpectPoints(5.0, -50.0, 5.0, -50.0);
    EXPECT_EQ(Clip(WholeDegreeMap(), KOORD_UTM, PointAt(5.0, -86.0), PointAt(5.0, -86.0)), 3);
}

// The area of the system alone would take it.
TEST_F(ClipLineTest, HoldsAPositionToTheLimitsOfLatitudeToo) {
    const IRef<IFloatPoint> point = PointAt(0.0, 0.0);
    const IRef<ICoordinateReference> bmn = ReferenceOf(DATUM_MGI, KOORD_BMN);
    EXPECT_EQ(clipper->ClipLineToValid(MapOf(SouthOfAustriaMap()).Get(), bmn.Get(), point.Get(), point.Get(),
                                       first.Get(), second.Get()),
              3);
    // Five kilometres to the north it is valid.
    const IRef<IFloatPoint> north = PointAt(0.0, -5000.0);
    EXPECT_EQ(clipper->ClipLineToValid(MapOf(SouthOfAustriaMap()).Get(), bmn.Get(), north.Get(), north.Get(),
                                       first.Get(), second.Get()),
              0);
}

TEST_F(ClipLineTest, ReadsItsEndsBeforeItWrites) {
    const IRef<IFloatPoint> a = PointAt(5.0, -100.0);
    const IRef<IFloatPoint> b = PointAt(5.0, -50.0);
    EXPECT_EQ(
        clipper->ClipLineToValid(MapOf(WholeDegreeMap()).Get(), ReferenceOf(DATUM_WGS84, KOORD_UTM).Get(),
                                 a.Get(), b.Get(), a.Get(), b.Get()),
        2);
    // Pixels: the edge is found to half of one.
    EXPECT_NEAR(a->GetY(), -84.0, 0.5);
    EXPECT_EQ(b->GetY(), -50.0);
}

TEST_F(ClipLineTest, LeavesTheThirdNumberOfAPoint) {
    first->SetZ(7.0);
    EXPECT_EQ(Clip(WholeDegreeMap(), KOORD_UTM, PointAt(1.0, -50.0), PointAt(2.0, -50.0)), 0);
    EXPECT_EQ(first->GetZ(), 7.0);
}

TEST_F(ClipLineTest, AnEndThatIsNowhereFails) {
    EXPECT_EQ(Clip(WholeDegreeMap(), KOORD_UTM, PointAt(NOT_A_NUMBER, 0.0), PointAt(1.0, 1.0)), -1);
    EXPECT_EQ(Clip(WholeDegreeMap(), KOORD_UTM, PointAt(0.0, 0.0), PointAt(1.0, -INFINITY)), -1);
    ExpectPoints(-1.0, -2.0, -3.0, -4.0);
}

TEST_F(ClipLineTest, NeedsAllOfItsArguments) {
    const IRef<IMapCoordOperations> map = MapOf(WholeDegreeMap());
    const IRef<ICoordinateReference> utm = ReferenceOf(DATUM_WGS84, KOORD_UTM);
    const IRef<IFloatPoint> a = PointAt(1.0, -50.0);
    const IRef<IFloatPoint> b = PointAt(2.0, -50.0);
    const auto clip = [&](IMapCoordOperations* m, ICoordinateReference* r, IFloatPoint* p1, IFloatPoint* p2,
                          IFloatPoint* p3,
                          IFloatPoint* p4) { return clipper->ClipLineToValid(m, r, p1, p2, p3, p4); };
    IFloatPoint* const wrong = Disguised<IFloatPoint>(stranger);
    EXPECT_EQ(clip(nullptr, utm.Get(), a.Get(), b.Get(), first.Get(), second.Get()), -1);
    EXPECT_EQ(clip(map.Get(), nullptr, a.Get(), b.Get(), first.Get(), second.Get()), -1);
    EXPECT_EQ(clip(map.Get(), utm.Get(), nullptr, b.Get(), first.Get(), second.Get()), -1);
    EXPECT_EQ(clip(map.Get(), utm.Get(), a.Get(), wrong, first.Get(), second.Get()), -1);
    EXPECT_EQ(clip(map.Get(), utm.Get(), a.Get(), b.Get(), nullptr, second.Get()), -1);
    EXPECT_EQ(clip(map.Get(), utm.Get(), a.Get(), b.Get(), first.Get(), wrong), -1);
    EXPECT_EQ(clip(Disguised<IMapCoordOperations>(stranger), utm.Get(), a.Get(), b.Get(), first.Get(),
                   second.Get()),
              -1);
    EXPECT_EQ(clip(map.Get(), Disguised<ICoordinateReference>(stranger), a.Get(), b.Get(), first.Get(),
                   second.Get()),
              -1);
    ExpectPoints(-1.0, -2.0, -3.0, -4.0);
}

TEST_F(ClipLineTest, FailsWithoutMemoryForItsParts) {
    const IRef<IMapCoordOperations> map = MapOf(WholeDegreeMap());
    const IRef<ICoordinateReference> utm = ReferenceOf(DATUM_WGS84, KOORD_UTM);
    const IRef<IFloatPoint> a = PointAt(1.0, -50.0);
    const IRef<IFloatPoint> b = PointAt(2.0, -50.0);
    const IRef<ICoord> coord = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    const IRef<IRect> rect = RectOf(0, -60, 10, -40);
    for (int nth : {1, 2}) {
        const FailAllocation fail(nth);
        EXPECT_EQ(clipper->ClipLineToValid(map.Get(), utm.Get(), a.Get(), b.Get(), first.Get(), second.Get()),
                  -1)
            << nth;
    }
    const FailAllocation fail(1);
    EXPECT_FALSE(clipper->FindValidCoordInRect(map.Get(), rect.Get(), coord.Get()));
}

// Shows positions and finds the pixel of none.
class OneWayMap : public HostMap {
  public:
    using HostMap::HostMap;

    bool CoordToFloatPixel(ICoord*, double*, double*) override { return false; }

  protected:
    ~OneWayMap() = default;
};

TEST_F(ClipLineTest, ALineOfPositionsWithoutAPixelHasNoValidPart) {
    const IRef<IMapCoordOperations> map(NewObject<OneWayMap>(MapOf(WholeDegreeMap())));
    EXPECT_EQ(clipper->ClipLineToValid(map.Get(), ReferenceOf(DATUM_WGS84, KOORD_UTM).Get(),
                                       PointAt(1.0, -50.0).Get(), PointAt(12.5, -30.25).Get(), first.Get(),
                                       second.Get()),
              3);
    ExpectPoints(-1.0, -2.0, -3.0, -4.0);
}

}  // namespace
}  // namespace tessara::testing

#include "tessara/map_coord_operations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <new>

#include "numerics/special_values.h"
#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/objects.h"
#include "support/zoned_records.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {
namespace {

// One degree a pixel: column and row are the longitude and the negative latitude.
MapParam DegreesOn(std::int32_t datum = DATUM_WGS84) {
    return Map(MAP_DD, MapDdParams{0.0, 0.0, 1.0, 1.0}, datum);
}

class MapTest : public BalancedTest {
  protected:
    IRef<IUnknown> stranger = MakeStranger();
    IRef<IMapCoordOperations> degrees = MapOf(DegreesOn());
    double fx = 1.5, fy = 2.5;
    std::int32_t lx = 3, ly = 4;
};

// A map of three points on a UTM sheet.
IRef<IMapCoordOperations> ThreePointMap() {
    const IRef<IMapCoordOperationsFactory> factory(CreateClassMapCoordOperationsFactory());
    const IRef<IArray> points = ListOf({});
    for (int i = 0; i < 3; ++i)
        points->Add(PointOf(GeodezRecord(48.0 + i, 11.0), 10 * i, -i).Get());
    const IRef<IProjection> projection = ProjectionOf(MunichSheet());
    return IRef<IMapCoordOperations>(factory->CreateFromReferencePoints(
        points.Get(), 50000, 20.0, DateOf(DATUM_WGS84).Get(), projection.Get()));
}

TEST_F(MapTest, ANewOneIsEmpty) {
    const IRef<IMapCoordOperations> map(CreateClassMapCoordOperations());
    EXPECT_EQ(map->GetScaleDenominator(), 0);
    EXPECT_EQ(map->GetScale(), std::numeric_limits<double>::infinity());
    EXPECT_EQ(map->GetResolution(), 0.0);
    const IRef<IGeoDate> date = DateOf(6);
    EXPECT_TRUE(map->GetGeoDate(date.Get()));
    EXPECT_EQ(date->GetDatum(), 999);
    const IRef<IProjection> projection = ProjectionOf(MunichSheet());
    EXPECT_TRUE(map->GetProjection(projection.Get()));
    EXPECT_EQ(projection->GetProjectionType(), 0u);
    EXPECT_FALSE(map->GetReferencePoint(IRef<IReferencePoint>(CreateClassReferencePoint()).Get()));
    const IRef<IArray> points = ListOf({stranger.Get()});
    EXPECT_TRUE(map->GetReferencePoints(points.Get()));
    EXPECT_EQ(points->GetCount(), 0u);
}

TEST_F(MapTest, AnEmptyOneConvertsNothingAndLeavesAllAsItWas) {
    const IRef<IMapCoordOperations> map(CreateClassMapCoordOperations());
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<ICoord> pixel = CoordOf(FloatPixel(5.0, 6.0));
    EXPECT_FALSE(map->FloatPixelToCoord(1.0, 2.0, coord.Get()));
    EXPECT_FALSE(map->LongPixelToCoord(1, 2, coord.Get()));
    EXPECT_FALSE(map->PixelCoordToCoord(pixel.Get(), coord.Get()));
    EXPECT_FALSE(map->CoordToFloatPixel(coord.Get(), &fx, &fy));
    EXPECT_FALSE(map->CoordToLongPixel(coord.Get(), &lx, &ly));
    EXPECT_FALSE(map->CoordToPixelCoord(coord.Get(), pixel.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 48.0);
    EXPECT_EQ(PayloadOf<FloatPixelPayload>(pixel).x, 5.0);
    EXPECT_EQ(fx, 1.5);
    EXPECT_EQ(lx, 3);
}

TEST_F(MapTest, GivesItsScale) {
    MapParam record = MunichSheet();
    record.scaleDenominator = 25000;
    record.resolution = 12.5;
    const IRef<IMapCoordOperations> map = MapOf(record);
    EXPECT_EQ(map->GetScaleDenominator(), 25000);
    EXPECT_EQ(map->GetScale(), 0.00004);
    EXPECT_EQ(map->GetResolution(), 12.5);
}

TEST_F(MapTest, GivesItsDatum) {
    const IRef<IGeoDate> date(CreateClassGeoDate());
    EXPECT_TRUE(MapOf(DegreesOn(6))->GetGeoDate(date.Get()));
    EXPECT_EQ(date->GetDatum(), 6);
    EXPECT_FALSE(MapOf(DegreesOn(500))->GetGeoDate(date.Get()));
    EXPECT_EQ(date->GetDatum(), 6);
    EXPECT_FALSE(degrees->GetGeoDate(nullptr));
    EXPECT_FALSE(degrees->GetGeoDate(Disguised<IGeoDate>(stranger)));
}

TEST_F(MapTest, GivesItsProjection) {
    const IRef<IProjection> projection(CreateClassProjection());
    EXPECT_TRUE(MapOf(MunichSheet())->GetProjection(projection.Get()));
    MapUtmParams params{};
    ASSERT_TRUE(projection->GetUtmParams(&params));
    EXPECT_EQ(params.originEasting, 675000.0);
    EXPECT_FALSE(degrees->GetProjection(nullptr));
    EXPECT_FALSE(degrees->GetProjection(Disguised<IProjection>(stranger)));
}

TEST_F(MapTest, GivesTheReferencePointIfItIsTheOnlyOne) {
    const MapParam record =
        WithReference(MunichSheet(), GeodezRecord(48.0, 11.0, 520.0, 6), 70, -80, 50000, 20.0);
    const IRef<IReferencePoint> point(CreateClassReferencePoint());
    ASSERT_TRUE(MapOf(record)->GetReferencePoint(point.Get()));
    const IRef<ICoord> world(CreateClassCoord());
    ASSERT_TRUE(point->GetLong(world.Get(), &lx, &ly));
    EXPECT_EQ(lx, 70);
    EXPECT_EQ(ly, -80);
    EXPECT_EQ(KoordOf(world).datum, 6u);
    EXPECT_EQ(world->GetHeight(), 520.0);
    EXPECT_FALSE(ThreePointMap()->GetReferencePoint(point.Get()));
    EXPECT_FALSE(degrees->GetReferencePoint(point.Get()));
    EXPECT_FALSE(MapOf(record)->GetReferencePoint(nullptr));
    EXPECT_FALSE(MapOf(record)->GetReferencePoint(Disguised<IReferencePoint>(stranger)));
}

TEST_F(MapTest, GivesAllReferencePointsInTheirOrder) {
    const IRef<IArray> points = ListOf({stranger.Get()});
    ASSERT_TRUE(ThreePointMap()->GetReferencePoints(points.Get()));
    ASSERT_EQ(points->GetCount(), 3u);
    for (std::uint32_t i = 0; i < 3; ++i) {
        const IRef<IReferencePoint> point(points->GetAt(i));
        const IRef<ICoord> world(CreateClassCoord());
        ASSERT_TRUE(point.IsValid() && point->GetLong(world.Get(), &lx, &ly));
        EXPECT_EQ(lx, static_cast<std::int32_t>(10 * i));
        EXPECT_EQ(ly, -static_cast<std::int32_t>(i));
        EXPECT_EQ(PayloadOf<GeodezPayload>(world).latitude, 48.0 + i);
    }
    EXPECT_FALSE(degrees->GetReferencePoints(nullptr));
    EXPECT_FALSE(degrees->GetReferencePoints(Disguised<IArray>(stranger)));
}

TEST_F(MapTest, GivesNoMorePointsThanItsChainHas) {
    MapParam record = WithReference(MunichSheet(), GeodezRecord(48.0, 11.0), 1, 2, 50000, 20.0);
    record.referenceCount = 7;
    const IRef<IArray> points = ListOf({});
    EXPECT_TRUE(MapOf(record)->GetReferencePoints(points.Get()));
    EXPECT_EQ(points->GetCount(), 1u);
}

TEST_F(MapTest, KeepsTheListOnMissingMemory) {
    const IRef<IMapCoordOperations> map = ThreePointMap();
    for (int nth = 1;; ++nth) {
        const IRef<IArray> points = ListOf({});
        bool result = true;
        bool hasFailed = false;
        {
            const FailAllocation fail(nth);
            try {
                result = map->GetReferencePoints(points.Get());
            } catch (const std::bad_alloc&) {
                result = false;  // from the list, which may say so
            }
            hasFailed = fail.HasFailed();
        }
        EXPECT_EQ(result, !hasFailed) << "allocation " << nth;
        if (!hasFailed) break;
        EXPECT_LT(points->GetCount(), 3u);
    }
}

TEST_F(MapTest, DefinesItself) {
    const IRef<IMapCoordOperations> map = ThreePointMap();
    const IRef<IArray> points = ListOf({});
    const IRef<IGeoDate> date(CreateClassGeoDate());
    const IRef<IProjection> projection(CreateClassProjection());
    ASSERT_TRUE(map->GetMapDefinition(points.Get(), &lx, &fx, date.Get(), projection.Get()));
    EXPECT_EQ(points->GetCount(), 3u);
    EXPECT_EQ(lx, 50000);
    EXPECT_EQ(fx, 20.0);
    EXPECT_EQ(date->GetDatum(), 2);
    EXPECT_EQ(projection->GetProjectionType(), 2u);

    const IRef<IMapCoordOperationsFactory> factory(CreateClassMapCoordOperationsFactory());
    const IRef<IMapCoordOperations> twin(
        factory->CreateFromReferencePoints(points.Get(), lx, fx, date.Get(), projection.Get()));
    ASSERT_TRUE(twin.IsValid());
    MapParam a = RecordOf(map);
    MapParam b = RecordOf(twin);
    EXPECT_NE(a.reference.next, b.reference.next);
    a.reference.next = b.reference.next = nullptr;
    EXPECT_EQ(std::memcmp(a.params, b.params, MAP_PARAMS_SIZE), 0);
    EXPECT_EQ(a.referenceCount, b.referenceCount);
}

TEST_F(MapTest, ItsProjectionOutlivesIt) {
    const IRef<IProjection> projection(CreateClassProjection());
    {
        const IRef<IMapCoordOperations> map = ThreePointMap();
        ASSERT_TRUE(map->GetMapDefinition(ListOf({}).Get(), &lx, &fx, DateOf(2).Get(), projection.Get()));
    }
    MapUtmParams params{};
    EXPECT_TRUE(projection->GetUtmParams(&params));
    const IRef<IMapCoordOperationsFactory> factory(CreateClassMapCoordOperationsFactory());
    const IRef<IReferencePoint> point = PointOf(GeodezRecord(48.0, 11.0), 1, 2);
    const IRef<IMapCoordOperations> next(
        factory->CreateFromReferencePoint(point.Get(), 1, 1.0, DateOf(2).Get(), projection.Get()));
    ASSERT_TRUE(next.IsValid());
    EXPECT_EQ(RecordOf(next).reference.next, nullptr);
}

// The points may be missing only if the type of the passed projection object is POLYNOM, whatever the type
// of the map.
TEST_F(MapTest, ADefinitionMayGoWithoutPointsForPolynomialProjectionsOnly) {
    MapParam polynom;
    polynom.type = MAP_POLYNOM;
    const IRef<IProjection> in = ProjectionOf(polynom);
    const IRef<IMapCoordOperations> map = ThreePointMap();
    EXPECT_TRUE(map->GetMapDefinition(nullptr, &lx, &fx, DateOf(2).Get(), in.Get()));
    EXPECT_EQ(in->GetProjectionType(), 2u);
    // It has become a UTM projection.
    lx = 3;
    EXPECT_FALSE(map->GetMapDefinition(nullptr, &lx, &fx, DateOf(2).Get(), in.Get()));
    EXPECT_EQ(lx, 3);
}

TEST_F(MapTest, ADefinitionNeedsAPlaceForEachPart) {
    const IRef<IMapCoordOperations> map = ThreePointMap();
    const IRef<IArray> points = ListOf({stranger.Get()});
    const IRef<IGeoDate> date(CreateClassGeoDate());
    const IRef<IProjection> projection(CreateClassProjection());
    EXPECT_FALSE(map->GetMapDefinition(points.Get(), nullptr, &fx, date.Get(), projection.Get()));
    EXPECT_FALSE(map->GetMapDefinition(points.Get(), &lx, nullptr, date.Get(), projection.Get()));
    EXPECT_FALSE(map->GetMapDefinition(points.Get(), &lx, &fx, nullptr, projection.Get()));
    EXPECT_FALSE(map->GetMapDefinition(points.Get(), &lx, &fx, date.Get(), nullptr));
    EXPECT_FALSE(map->GetMapDefinition(Disguised<IArray>(stranger), &lx, &fx, date.Get(), projection.Get()));
    EXPECT_EQ(points->GetCount(), 1u);
    EXPECT_EQ(lx, 3);
    EXPECT_EQ(fx, 1.5);
}

TEST_F(MapTest, AFailedDefinitionKeepsWhatCameBefore) {
    MapParam record = WithReference(MunichSheet(), GeodezRecord(48.0, 11.0), 1, 2, 50000, 20.0);
    record.datum = 500;  // no datum object takes it
    const IRef<IArray> points = ListOf({});
    const IRef<IGeoDate> date = DateOf(6);
    const IRef<IProjection> projection(CreateClassProjection());
    EXPECT_FALSE(MapOf(record)->GetMapDefinition(points.Get(), &lx, &fx, date.Get(), projection.Get()));
    EXPECT_EQ(points->GetCount(), 1u);
    EXPECT_EQ(lx, 50000);
    EXPECT_EQ(fx, 20.0);
    EXPECT_EQ(date->GetDatum(), 6);
    EXPECT_EQ(projection->GetProjectionType(), 0u);
}

TEST_F(MapTest, MovesItsWholeRecord) {
    const IRef<IMapCoordOperations> map = ThreePointMap();
    const MapParam record = RecordOf(map);
    EXPECT_EQ(record.referenceCount, 3u);
    EXPECT_EQ(record.scaleDenominator, 50000);
    // Its own record, back again.
    EXPECT_TRUE(IRef<IMapParamInternal>(map)->SetMapParam(&record));
    EXPECT_EQ(RecordOf(map).reference.next, record.reference.next);
    EXPECT_FALSE(IRef<IMapParamInternal>(map)->SetMapParam(nullptr));
    EXPECT_FALSE(IRef<IMapParamInternal>(map)->GetMapParam(nullptr));
}

// The old chain belongs to the holder of its record; here another map takes it over.
TEST_F(MapTest, ANewRecordLeavesTheOldChain) {
    const IRef<IMapCoordOperations> map = ThreePointMap();
    const MapParam old = RecordOf(map);
    const MapParam plain = MunichSheet();
    ASSERT_TRUE(IRef<IMapParamInternal>(map)->SetMapParam(&plain));
    EXPECT_EQ(RecordOf(map).referenceCount, 0u);
    const IRef<IMapCoordOperations> heir = MapOf(old);
    const IRef<IArray> points = ListOf({});
    EXPECT_TRUE(heir->GetReferencePoints(points.Get()));
    EXPECT_EQ(points->GetCount(), 3u);
}

// Pixel to coordinate.

TEST_F(MapTest, TheThreeWaysFromAPixelAgree) {
    for (const tagKOORD& pixel : {FloatPixel(11.0, -48.0), LongPixel(11, -48)}) {
        const IRef<ICoord> out(CreateClassCoord());
        ASSERT_TRUE(degrees->PixelCoordToCoord(CoordOf(pixel).Get(), out.Get()));
        EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 48.0);
        EXPECT_EQ(PayloadOf<GeodezPayload>(out).longitude, 11.0);
        EXPECT_TRUE(HoldsPosition(out));
    }
    const IRef<ICoord> out(CreateClassCoord());
    ASSERT_TRUE(degrees->FloatPixelToCoord(11.5, -48.5, out.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 48.5);
    ASSERT_TRUE(degrees->LongPixelToCoord(12, -49, out.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 49.0);
}

TEST_F(MapTest, ConvertsIntoTheReferenceOfTheCoordinate) {
    const IRef<ICoord> out = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    ASSERT_TRUE(MapOf(MunichSheet())->LongPixelToCoord(4000, 2000, out.Get()));
    const auto utm = PayloadOf<UtmPayload>(out);
    EXPECT_EQ(utm.zone, 32);
    // Metres: the position goes through degrees.
    EXPECT_NEAR(utm.easting, 685000.0, 1e-4);
    EXPECT_NEAR(utm.northing, 5340000.0, 1e-4);
}

TEST_F(MapTest, AWantedZoneOfTheCoordinateIsForgotten) {
    UtmPayload old{};
    old.hemisphere = 'N';
    old.zone = 31;
    old.wantedZone = 31;
    const IRef<ICoord> out = CoordOf(Record(KOORD_UTM, old));
    ASSERT_TRUE(MapOf(MunichSheet())->LongPixelToCoord(4000, 2000, out.Get()));
    EXPECT_EQ(PayloadOf<UtmPayload>(out).zone, 32);
    EXPECT_EQ(PayloadOf<UtmPayload>(out).wantedZone, NO_WANTED_ZONE);
}

TEST_F(MapTest, ATmCoordinateGetsDefaultConstants) {
    const MapTmParams params{13.0, 40.0, 1000.0, 2000.0, 0.9, 5000.0, 6000.0, 1.0, 1.0};
    const IRef<ICoord> out = EmptyCoord(DATUM_WGS84, KOORD_TM);
    ASSERT_TRUE(MapOf(Map(MAP_TM, params))->LongPixelToCoord(0, 0, out.Get()));
    EXPECT_EQ(PayloadOf<TmPayload>(out).originLongitude, 0.0);
    EXPECT_EQ(PayloadOf<TmPayload>(out).scale, 1.0);
}

TEST_F(MapTest, KeepsTheHeight) {
    for (std::int32_t system : {KOORD_GEODEZ, KOORD_UTM, KOORD_GEODEZMIN}) {
        const IRef<ICoord> out = EmptyCoord(DATUM_WGS84, system);
        out->SetHeight(123.0);
        ASSERT_TRUE(degrees->FloatPixelToCoord(11.0, -48.0, out.Get()));
        EXPECT_EQ(out->GetHeight(), 123.0) << system;
    }
    // Through x, y and z and back.
    const IRef<ICoord> ecef = EmptyCoord(DATUM_WGS84, KOORD_GEODEZ);
    ASSERT_TRUE(ecef->SetReference(ReferenceOf(DATUM_WGS84, KOORD_ECEF).Get()));
    EcefPayload place{4200000.0, 800000.0, 4700000.0};
    CKoord koord(Record(KOORD_ECEF, place));
    koord.SetHeight(123.0);
    ASSERT_TRUE(IRef<ICoordInternal>(ecef)->SetKoord(&koord));
    ASSERT_TRUE(degrees->FloatPixelToCoord(11.0, -48.0, ecef.Get()));
    EXPECT_NEAR(ecef->GetHeight(), 123.0, 1e-3);
}

// Without a position there is no height to keep. The default of ECEF is the earth's centre, which a pixel
// without a position leaves behind.
TEST_F(MapTest, APixelFillsAFreshEcefCoordinateOnEveryDatum) {
    const IRef<IMapCoordOperations> nowhere =
        MapOf(Map(MAP_GAUKRU, MapGkParams{0, -6, -2500000.0, 5400000.0, 1.0, 1.0}));
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const IRef<IMapCoordOperations> map = MapOf(DegreesOn(datum));
        const IRef<ICoord> ecef = EmptyCoord(datum, KOORD_ECEF);
        for (const bool isReused : {false, true}) {
            if (isReused) {
                EXPECT_FALSE(nowhere->FloatPixelToCoord(0.0, 0.0, ecef.Get()));
            }
            ASSERT_TRUE(map->FloatPixelToCoord(11.0, -48.0, ecef.Get())) << datum;
            const tagKOORD degreesOfPixel = GeodezRecord(48.0, 11.0, 0.0, datum);
            tagKOORD expected = MakeKoord(datum, KOORD_ECEF);
            ASSERT_EQ(KoordConvert(&degreesOfPixel, &expected), KOORD_OK);
            const auto at = PayloadOf<EcefPayload>(ecef);
            // Metres: there and back through degrees.
            EXPECT_NEAR(at.x, Load<EcefPayload>(expected).x, 1e-6) << datum;
            EXPECT_NEAR(at.y, Load<EcefPayload>(expected).y, 1e-6) << datum;
            EXPECT_NEAR(at.z, Load<EcefPayload>(expected).z, 1e-6) << datum;
            EXPECT_NEAR(ecef->GetHeight(), 0.0, 1e-6) << datum;
        }
    }
}

TEST_F(MapTest, AnEcefCoordinateWithoutAPositionKeepsTheHeightThatItWasGiven) {
    const IRef<ICoord> ecef = EmptyCoord(3, KOORD_ECEF);
    ecef->SetHeight(123.0);
    ASSERT_TRUE(MapOf(DegreesOn(3))->FloatPixelToCoord(11.0, -48.0, ecef.Get()));
    EXPECT_NEAR(ecef->GetHeight(), 123.0, 1e-3);
}

TEST_F(MapTest, TakesAPixelOfAnyDatumForItsOwn) {
    const IRef<ICoord> out(CreateClassCoord());
    tagKOORD pixel = FloatPixel(11.0, -48.0);
    pixel.datum = 6;
    ASSERT_TRUE(degrees->PixelCoordToCoord(CoordOf(pixel).Get(), out.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 48.0);
}

TEST_F(MapTest, APixelWithoutAPositionLeavesTheDefaultOne) {
    const IRef<IMapCoordOperations> west =
        MapOf(Map(MAP_GAUKRU, MapGkParams{0, -6, -2500000.0, 5400000.0, 1.0, 1.0}));
    GkPayload old{};
    old.easting = 4456789.0;
    const IRef<ICoord> out = CoordOf(Record(KOORD_GK, old));
    EXPECT_FALSE(west->LongPixelToCoord(0, 0, out.Get()));
    EXPECT_TRUE(HoldsPosition(out));
    EXPECT_EQ(PayloadOf<GkPayload>(out).easting, 3500000.0);
    EXPECT_EQ(PayloadOf<GkPayload>(out).wantedMeridian, NO_WANTED_ZONE);
}

TEST_F(MapTest, ThereIsNoWayFromPixelToPixel) {
    const IRef<ICoord> out = CoordOf(LongPixel(7, 8));
    EXPECT_FALSE(degrees->LongPixelToCoord(1, 2, out.Get()));
    EXPECT_EQ(PayloadOf<LongPixelPayload>(out).x, 0);
    EXPECT_EQ(PayloadOf<LongPixelPayload>(out).y, 0);
    const IRef<ICoord> pixel = CoordOf(FloatPixel(5.0, 6.0));
    EXPECT_FALSE(degrees->CoordToFloatPixel(pixel.Get(), &fx, &fy));
    EXPECT_FALSE(degrees->CoordToLongPixel(pixel.Get(), &lx, &ly));
    EXPECT_FALSE(degrees->CoordToPixelCoord(pixel.Get(), out.Get()));
    EXPECT_EQ(fx, 1.5);
    EXPECT_EQ(ly, 4);
}

// An argument of count 0 lives as long as the operation.
TEST_F(MapTest, APixelMayBeItsOwnTargetAndIsRefused) {
    const IRef<ICoord> held = CoordOf(FloatPixel(1.0, 2.0));
    EXPECT_FALSE(degrees->PixelCoordToCoord(held.Get(), held.Get()));
    EXPECT_EQ(PayloadOf<FloatPixelPayload>(held).x, 0.0);
    ICoord* const loose = CreateClassCoord();
    EXPECT_FALSE(degrees->PixelCoordToCoord(loose, loose));
}

TEST_F(MapTest, ASystemWithoutADefaultPositionIsLeftAlone) {
    const IRef<ICoord> out = EmptyCoord(DATUM_WGS84, KOORD_LAMBERTCC);
    EXPECT_FALSE(degrees->LongPixelToCoord(1, 2, out.Get()));
    EXPECT_FALSE(HoldsPosition(out));
}

TEST_F(MapTest, NoNumberIsNoPosition) {
    const IRef<ICoord> out = EmptyCoord(DATUM_WGS84, KOORD_UTM);
    EXPECT_FALSE(degrees->FloatPixelToCoord(NOT_A_NUMBER, 0.0, out.Get()));
    EXPECT_FALSE(MapOf(Map(MAP_GAUKRU, MapGkParams{0, 9, 3500000.0, 5400000.0, 1.0, 1.0}))
                     ->FloatPixelToCoord(NOT_A_NUMBER, NOT_A_NUMBER, out.Get()));
}

TEST_F(MapTest, NeedsAPixelAndAPlaceForThePosition) {
    const IRef<ICoord> out = CoordOf(GeodezRecord(1.0, 2.0));
    EXPECT_FALSE(degrees->FloatPixelToCoord(1.0, 2.0, nullptr));
    EXPECT_FALSE(degrees->LongPixelToCoord(1, 2, Disguised<ICoord>(stranger)));
    EXPECT_FALSE(degrees->PixelCoordToCoord(nullptr, out.Get()));
    EXPECT_FALSE(degrees->PixelCoordToCoord(Disguised<ICoord>(stranger), out.Get()));
    EXPECT_FALSE(degrees->PixelCoordToCoord(CoordOf(FloatPixel(1.0, 2.0)).Get(), nullptr));
    const IRef<ICoord> hosts(NewObject<HostCoord>());
    EXPECT_FALSE(degrees->FloatPixelToCoord(1.0, 2.0, hosts.Get()));
    EXPECT_FALSE(degrees->PixelCoordToCoord(hosts.Get(), out.Get()));
    // A world position is no pixel.
    EXPECT_FALSE(degrees->PixelCoordToCoord(CoordOf(GeodezRecord(3.0, 4.0)).Get(), out.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 1.0);
}

// Coordinate to pixel.

TEST_F(MapTest, GivesFractionalAndWholePixels) {
    const IRef<ICoord> in = CoordOf(GeodezRecord(48.5, -11.5));
    ASSERT_TRUE(degrees->CoordToFloatPixel(in.Get(), &fx, &fy));
    EXPECT_EQ(fx, -11.5);
    EXPECT_EQ(fy, -48.5);
    ASSERT_TRUE(degrees->CoordToLongPixel(in.Get(), &lx, &ly));
    EXPECT_EQ(lx, -12);
    EXPECT_EQ(ly, -49);
    EXPECT_EQ(PayloadOf<GeodezPayload>(in).latitude, 48.5);
}

TEST_F(MapTest, FillsAPixelCoordinateOfEitherForm) {
    const IRef<IMapCoordOperations> map = MapOf(DegreesOn(6));
    const IRef<ICoord> in = CoordOf(GeodezRecord(48.5, -11.5, 520.0, 6));
    for (std::int32_t system : {KOORD_LONGPIXEL, KOORD_FLOATPIXEL}) {
        const IRef<ICoord> pixel = EmptyCoord(DATUM_WGS84, system);
        ASSERT_TRUE(map->CoordToPixelCoord(in.Get(), pixel.Get()));
        EXPECT_EQ(KoordOf(pixel).datum, 6u);
        EXPECT_EQ(KoordOf(pixel).type, static_cast<std::uint32_t>(system));
        EXPECT_EQ(pixel->GetHeight(), 520.0);
        ASSERT_TRUE(pixel->GetPixel(&fx, &fy));
        EXPECT_EQ(fx, system == KOORD_LONGPIXEL ? -12.0 : -11.5);
        EXPECT_EQ(fy, system == KOORD_LONGPIXEL ? -49.0 : -48.5);
    }
}

TEST_F(MapTest, FillsNothingButPixelCoordinates) {
    const IRef<ICoord> in = CoordOf(GeodezRecord(48.5, -11.5));
    const IRef<ICoord> out = CoordOf(GeodezRecord(1.0, 2.0));
    EXPECT_FALSE(degrees->CoordToPixelCoord(in.Get(), out.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(out).latitude, 1.0);
}

TEST_F(MapTest, APositionWithoutAPixelWritesNothing) {
    const IRef<IMapCoordOperations> map = MapOf(MunichSheet());
    const IRef<ICoord> pole = CoordOf(GeodezRecord(89.0, 11.0));
    const IRef<ICoord> pixel = CoordOf(FloatPixel(5.0, 6.0));
    EXPECT_FALSE(map->CoordToFloatPixel(pole.Get(), &fx, &fy));
    EXPECT_FALSE(map->CoordToLongPixel(pole.Get(), &lx, &ly));
    EXPECT_FALSE(map->CoordToPixelCoord(pole.Get(), pixel.Get()));
    EXPECT_EQ(fx, 1.5);
    EXPECT_EQ(lx, 3);
    EXPECT_EQ(PayloadOf<FloatPixelPayload>(pixel).x, 5.0);
}

// A UTM map follows from its grid; the positions of its reference points, however wrong, don't matter.
TEST_F(MapTest, AUtmMapCalculatesWithoutItsReferencePoints) {
    const IRef<IMapCoordOperations> tied = ThreePointMap();
    const IRef<IMapCoordOperations> plain = MapOf(MunichSheet());
    ASSERT_EQ(RecordOf(tied).referenceCount, 3u);
    for (const auto& [x, y] : {std::pair{0.0, 0.0}, std::pair{1200.5, -30.25}, std::pair{-7.0, 9000.0}}) {
        const IRef<ICoord> fromTied = EmptyCoord(DATUM_WGS84, KOORD_UTM);
        const IRef<ICoord> fromPlain = EmptyCoord(DATUM_WGS84, KOORD_UTM);
        ASSERT_TRUE(tied->FloatPixelToCoord(x, y, fromTied.Get()));
        ASSERT_TRUE(plain->FloatPixelToCoord(x, y, fromPlain.Get()));
        EXPECT_TRUE(SameRecord(KoordOf(fromTied), KoordOf(fromPlain)));
        // Metres and pixels: UTM is good to 2e-6 m there and back.
        EXPECT_NEAR(PayloadOf<UtmPayload>(fromTied).easting, 675000.0 + 2.5 * x, 4e-6);
        EXPECT_NEAR(PayloadOf<UtmPayload>(fromTied).northing, 5345000.0 - 2.5 * y, 4e-6);
        ASSERT_TRUE(tied->CoordToFloatPixel(fromTied.Get(), &fx, &fy));
        EXPECT_NEAR(fx, x, 4e-6);
        EXPECT_NEAR(fy, y, 4e-6);
    }
}

// Eastings: echo "180.001 10" | cs2cs -f %.3f +proj=longlat +ellps=WGS84 +to +proj=tmerc +lon_0=177 +k=0.9996
// +x_0=500000, and likewise with the meridians 9 and -177.
TEST_F(MapTest, APositionBesideTheZoneHasAPixel) {
    const struct {
        std::int16_t zone;
        double longitude, easting;
    } rows[] = {{60, 180.001, 829038.474}, {60, 181.0, 938719.288}, {1, -180.001, 170961.526},
                {32, 12.5, 883810.155},    {32, 4.0, -48636.649},   {32, 181.0, 1379471.015}};
    for (const auto& row : rows) {
        const IRef<IMapCoordOperations> map =
            MapOf(Map(MAP_UTM, MapUtmParams{'N', row.zone, 0.0, 0.0, 1.0, 1.0}));
        ASSERT_TRUE(map->CoordToFloatPixel(CoordOf(GeodezRecord(10.0, row.longitude)).Get(), &fx, &fy));
        EXPECT_NEAR(fx, row.easting, 1e-3) << row.zone << ' ' << row.longitude;
    }
}

// A strip ends at its million: beyond it a pixel has no position, but a position beside it has a pixel.
TEST_F(MapTest, APixelBesideTheStripHasNoPosition) {
    const IRef<IMapCoordOperations> map =
        MapOf(Map(MAP_GAUKRU, MapGkParams{0, 9, 3000000.0, 5400000.0, 1.0, 1.0}, 3));
    const IRef<ICoord> out = EmptyCoord(3, KOORD_GK);
    EXPECT_TRUE(map->FloatPixelToCoord(0.0, 0.0, out.Get()));
    EXPECT_FALSE(map->FloatPixelToCoord(-1.0, 0.0, out.Get()));
    EXPECT_FALSE(map->LongPixelToCoord(1000000, 0, out.Get()));
    GkPayload beside{};
    beside.easting = 2999999.0;
    beside.northing = 5400000.0;
    beside.wantedMeridian = 9;
    EXPECT_TRUE(map->CoordToFloatPixel(CoordOf(Record(KOORD_GK, beside, 3)).Get(), &fx, &fy));
}

TEST_F(MapTest, NeedsAPositionAndAPlaceForThePixel) {
    const IRef<ICoord> in = CoordOf(GeodezRecord(48.5, -11.5));
    const IRef<ICoord> pixel = CoordOf(FloatPixel(5.0, 6.0));
    EXPECT_FALSE(degrees->CoordToFloatPixel(nullptr, &fx, &fy));
    EXPECT_FALSE(degrees->CoordToFloatPixel(Disguised<ICoord>(stranger), &fx, &fy));
    EXPECT_FALSE(degrees->CoordToFloatPixel(in.Get(), nullptr, &fy));
    EXPECT_FALSE(degrees->CoordToFloatPixel(in.Get(), &fx, nullptr));
    EXPECT_FALSE(degrees->CoordToLongPixel(nullptr, &lx, &ly));
    EXPECT_FALSE(degrees->CoordToLongPixel(in.Get(), nullptr, &ly));
    EXPECT_FALSE(degrees->CoordToLongPixel(in.Get(), &lx, nullptr));
    EXPECT_FALSE(degrees->CoordToPixelCoord(nullptr, pixel.Get()));
    EXPECT_FALSE(degrees->CoordToPixelCoord(in.Get(), nullptr));
    EXPECT_FALSE(degrees->CoordToPixelCoord(in.Get(), Disguised<ICoord>(stranger)));
    EXPECT_FALSE(degrees->CoordToPixelCoord(Disguised<ICoord>(stranger), pixel.Get()));
    const IRef<ICoord> hosts(NewObject<HostCoord>());
    EXPECT_FALSE(degrees->CoordToFloatPixel(hosts.Get(), &fx, &fy));
    EXPECT_FALSE(degrees->CoordToPixelCoord(hosts.Get(), pixel.Get()));
    EXPECT_FALSE(degrees->CoordToPixelCoord(in.Get(), hosts.Get()));
    EXPECT_EQ(fx, 1.5);
    EXPECT_EQ(lx, 3);
    EXPECT_EQ(PayloadOf<FloatPixelPayload>(pixel).x, 5.0);
}

TEST_F(MapTest, PixelCoordinatesFailWithoutMemory) {
    const IRef<ICoord> in = CoordOf(GeodezRecord(48.5, -11.5));
    const IRef<ICoord> pixel = CoordOf(FloatPixel(5.0, 6.0));
    for (int nth : {1, 2, 3}) {
        const FailAllocation fail(nth);
        EXPECT_FALSE(degrees->CoordToPixelCoord(in.Get(), pixel.Get())) << nth;
    }
    EXPECT_EQ(PayloadOf<FloatPixelPayload>(pixel).x, 5.0);
}

}  // namespace
}  // namespace tessara::testing

#include "tessara/map_coord_operations_factory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "support/host_projection.h"
#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/objects.h"

namespace tessara::testing {
namespace {

class MapFactoryTest : public BalancedTest {
  protected:
    IRef<IMapCoordOperations> FromPoint(const IRef<IReferencePoint>& one, const IRef<IProjection>& drawn) {
        return IRef<IMapCoordOperations>(
            factory->CreateFromReferencePoint(one.Get(), 50000, 20.0, date.Get(), drawn.Get()));
    }

    IRef<IMapCoordOperations> FromPoints(const IRef<IArray>& all, const IRef<IProjection>& drawn) {
        return IRef<IMapCoordOperations>(
            factory->CreateFromReferencePoints(all.Get(), 50000, 20.0, date.Get(), drawn.Get()));
    }

    IRef<IMapCoordOperationsFactory> factory{CreateClassMapCoordOperationsFactory()};
    IRef<IGeoDate> date = DateOf(DATUM_WGS84);
    IRef<IReferencePoint> point = PointOf(GeodezRecord(48.25, 11.5), 700, 800);
    const MapParam sheet = MunichSheet();
    IRef<IProjection> utm = ProjectionOf(sheet);
    IRef<IUnknown> stranger = MakeStranger();
};

MapParam PolynomRecord() {
    MapPolynomParams params{};
    params.order = 3;
    params.lonFromPixel[1] = params.pixelXFromWorld[1] = 1.0;
    params.latFromPixel[2] = params.pixelYFromWorld[2] = -1.0;
    return Map(MAP_POLYNOM, params);
}

TEST_F(MapFactoryTest, PutsTheWholeMapIntoTheRecord) {
    const IRef<IMapCoordOperations> map = FromPoint(point, utm);
    ASSERT_TRUE(map.IsValid());
    const MapParam record = RecordOf(map);
    EXPECT_EQ(record.referenceCount, 1u);
    EXPECT_EQ(Load<GeodezPayload>(record.reference.world).latitude, 48.25);
    EXPECT_EQ(record.reference.world.type, static_cast<std::uint32_t>(KOORD_GEODEZ));
    EXPECT_EQ(record.reference.pixelX, 700);
    EXPECT_EQ(record.reference.pixelY, 800);
    EXPECT_EQ(record.reference.next, nullptr);
    EXPECT_EQ(record.scaleDenominator, 50000);
    EXPECT_EQ(record.resolution, 20.0);
    EXPECT_EQ(record.datum, 2u);
    EXPECT_EQ(record.worldType, -1);
    EXPECT_EQ(record.type, 2u);
    EXPECT_EQ(std::memcmp(record.params, sheet.params, MAP_PARAMS_SIZE), 0);
}

TEST_F(MapFactoryTest, GivesMapsWithCountZero) {
    IMapCoordOperations* const map =
        factory->CreateFromReferencePoint(point.Get(), 50000, 20.0, date.Get(), utm.Get());
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(map->AddRef(), 1u);
    EXPECT_EQ(map->Release(), 0u);
}

TEST_F(MapFactoryTest, ChangesNothingThatGoesIn) {
    (void)FromPoint(point, utm);
    EXPECT_EQ(CountOf(point), 1u);
    EXPECT_EQ(CountOf(utm), 1u);
    EXPECT_EQ(CountOf(date), 1u);
}

TEST_F(MapFactoryTest, RoundsAScaleToTheNearestDenominator) {
    const IRef<IArray> points = ListOf({point.Get()});
    const struct {
        double scale;
        std::int32_t denominator;
    } rows[] = {{0.00002, 50000},              // 50000
                {0.000033, 30303},             // 30303.03
                {0.00011, 9091},               // 9090.91
                {1.0, 1},           {2.0, 1},  // 0.5 and a half
                {-0.5, -1},                    // -2 and a half, cut
                {0.0, INT32_MIN},   {std::numeric_limits<double>::quiet_NaN(), INT32_MIN},
                {1e-300, INT32_MIN}};
    for (const auto& row : rows) {
        const IRef<IMapCoordOperations> one(
            factory->CreateFromReferencePointScale(point.Get(), row.scale, 20.0, date.Get(), utm.Get()));
        const IRef<IMapCoordOperations> list(
            factory->CreateFromReferencePointsScale(points.Get(), row.scale, 20.0, date.Get(), utm.Get()));
        ASSERT_TRUE(one.IsValid() && list.IsValid()) << row.scale;
        EXPECT_EQ(one->GetScaleDenominator(), row.denominator) << row.scale;
        EXPECT_EQ(list->GetScaleDenominator(), row.denominator) << row.scale;
    }
}

TEST_F(MapFactoryTest, NeedsAllOfItsParts) {
    const IRef<IArray> points = ListOf({point.Get()});
    const auto one = [this](IReferencePoint* p, IGeoDate* d, IProjection* pr) {
        return factory->CreateFromReferencePoint(p, 1, 1.0, d, pr);
    };
    const auto list = [this](IArray* p, IGeoDate* d, IProjection* pr) {
        return factory->CreateFromReferencePoints(p, 1, 1.0, d, pr);
    };
    EXPECT_EQ(one(nullptr, date.Get(), utm.Get()), nullptr);
    EXPECT_EQ(one(point.Get(), nullptr, utm.Get()), nullptr);
    EXPECT_EQ(one(point.Get(), date.Get(), nullptr), nullptr);
    EXPECT_EQ(one(Disguised<IReferencePoint>(stranger), date.Get(), utm.Get()), nullptr);
    EXPECT_EQ(one(point.Get(), Disguised<IGeoDate>(stranger), utm.Get()), nullptr);
    EXPECT_EQ(one(point.Get(), date.Get(), Disguised<IProjection>(stranger)), nullptr);
    EXPECT_EQ(list(nullptr, date.Get(), utm.Get()), nullptr);
    EXPECT_EQ(list(points.Get(), nullptr, utm.Get()), nullptr);
    EXPECT_EQ(list(points.Get(), date.Get(), nullptr), nullptr);
    EXPECT_EQ(list(Disguised<IArray>(stranger), date.Get(), utm.Get()), nullptr);
    EXPECT_EQ(factory->CreateFromReferencePointScale(nullptr, 1.0, 1.0, date.Get(), utm.Get()), nullptr);
    EXPECT_EQ(factory->CreateFromReferencePointsScale(nullptr, 1.0, 1.0, date.Get(), utm.Get()), nullptr);
}

TEST_F(MapFactoryTest, AMapWithoutADatumHas999) {
    const IRef<IGeoDate> none(CreateClassGeoDate());
    const IRef<IMapCoordOperations> map(
        factory->CreateFromReferencePoint(point.Get(), 1, 1.0, none.Get(), utm.Get()));
    ASSERT_TRUE(map.IsValid());
    EXPECT_EQ(RecordOf(map).datum, 999u);
}

TEST_F(MapFactoryTest, APolynomialMapGoesWithoutPointsAndLeavesThemAside) {
    const IRef<IProjection> polynom = ProjectionOf(PolynomRecord());
    const IRef<IArray> points = ListOf({point.Get(), stranger.Get()});
    for (const IRef<IMapCoordOperations>& map :
         {FromPoint(IRef<IReferencePoint>(), polynom), FromPoint(point, polynom),
          FromPoints(IRef<IArray>(), polynom), FromPoints(points, polynom)}) {
        ASSERT_TRUE(map.IsValid());
        EXPECT_EQ(RecordOf(map).referenceCount, 0u);
        const IRef<IArray> out = ListOf({stranger.Get()});
        EXPECT_TRUE(map->GetReferencePoints(out.Get()));
        EXPECT_EQ(out->GetCount(), 0u);
    }
}

TEST_F(MapFactoryTest, StoresAllPointsInTheirOrder) {
    const IRef<IReferencePoint> second = PointOf(GeodezRecord(48.5, 11.75), 1, 2);
    const IRef<IReferencePoint> third = PointOf(GeodezRecord(48.0, 11.0), 3, 4);
    const IRef<IMapCoordOperations> map = FromPoints(ListOf({point.Get(), second.Get(), third.Get()}), utm);
    ASSERT_TRUE(map.IsValid());
    const MapParam record = RecordOf(map);
    EXPECT_EQ(record.referenceCount, 3u);
    EXPECT_EQ(record.reference.pixelX, 700);
    EXPECT_EQ(record.reference.next->pixelX, 1);
    EXPECT_EQ(record.reference.next->next->pixelX, 3);
    EXPECT_EQ(record.reference.next->next->next, nullptr);
    EXPECT_EQ(Load<GeodezPayload>(record.reference.next->world).latitude, 48.5);
}

TEST_F(MapFactoryTest, RoundsThePixelsOfItsPoints) {
    ASSERT_TRUE(point->SetFloat(CoordOf(GeodezRecord(48.0, 11.0)).Get(), -1.5, 2.5));
    const MapParam record = RecordOf(FromPoint(point, utm));
    EXPECT_EQ(record.reference.pixelX, -2);
    EXPECT_EQ(record.reference.pixelY, 3);
}

TEST_F(MapFactoryTest, AnEmptyListMakesAMapWithoutPoints) {
    const IRef<IMapCoordOperations> map = FromPoints(ListOf({}), utm);
    ASSERT_TRUE(map.IsValid());
    EXPECT_EQ(RecordOf(map).referenceCount, 0u);
    EXPECT_EQ(RecordOf(map).reference.world.type, 0u);
}

TEST_F(MapFactoryTest, APointThatIsNoneMakesNoMap) {
    const IRef<IReferencePoint> empty(CreateClassReferencePoint());
    EXPECT_FALSE(FromPoint(empty, utm).IsValid());
    EXPECT_FALSE(FromPoints(ListOf({empty.Get()}), utm).IsValid());
    EXPECT_FALSE(FromPoints(ListOf({point.Get(), point.Get(), empty.Get(), point.Get()}), utm).IsValid());
    EXPECT_FALSE(FromPoints(ListOf({point.Get(), stranger.Get()}), utm).IsValid());
    EXPECT_FALSE(FromPoints(ListOf({point.Get(), nullptr, point.Get()}), utm).IsValid());
    EXPECT_FALSE(FromPoints(ListOf({stranger.Get()}), utm).IsValid());
}

TEST_F(MapFactoryTest, LeaksNothingWithoutMemory) {
    const IRef<IArray> points = ListOf({point.Get(), point.Get(), point.Get()});
    int failures = 0;
    for (int nth = 1;; ++nth) {
        bool hasFailed = false;
        IMapCoordOperations* map = nullptr;
        {
            const FailAllocation fail(nth);
            map = factory->CreateFromReferencePoints(points.Get(), 1, 1.0, date.Get(), utm.Get());
            hasFailed = fail.HasFailed();
        }
        if (!hasFailed) {
            EXPECT_TRUE(IRef<IMapCoordOperations>(map).IsValid());
            break;
        }
        ++failures;
        EXPECT_EQ(map, nullptr) << "allocation " << nth;
    }
    // Three coordinates, two nodes, the map.
    EXPECT_EQ(failures, 6);
}

TEST_F(MapFactoryTest, OneFailedAllocationOfAMapWithOnePointMakesNone) {
    for (int nth : {1, 2}) {
        const FailAllocation fail(nth);
        EXPECT_EQ(factory->CreateFromReferencePoint(point.Get(), 1, 1.0, date.Get(), utm.Get()), nullptr);
    }
}

TEST_F(MapFactoryTest, TakesTenThousandPoints) {
    const IRef<IArray> points(CreateClassArray());
    for (int i = 0; i < 10000; ++i)
        points->Add(point.Get());
    const IRef<IMapCoordOperations> map = FromPoints(points, utm);
    ASSERT_TRUE(map.IsValid());
    EXPECT_EQ(RecordOf(map).referenceCount, 10000u);
}

TEST_F(MapFactoryTest, TakesProjectionsOfOtherMakers) {
    for (MapType type : {MAP_POLYNOM, MAP_GAUKRU6, MAP_LUREF}) {
        MapParam record = PolynomRecord();
        record.type = type;
        const IRef<IProjection> projection(NewObject<HostProjection>(record));
        const IRef<IMapCoordOperations> map = FromPoint(point, projection);
        ASSERT_TRUE(map.IsValid()) << type;
        EXPECT_EQ(RecordOf(map).type, static_cast<std::uint32_t>(type));
        EXPECT_EQ(RecordOf(map).referenceCount, type == MAP_POLYNOM ? 0u : 1u);
    }
    for (MapType type : {MAP_UNKNOWN, MAP_NONE}) {
        MapParam record;
        record.type = type;
        EXPECT_FALSE(FromPoint(point, IRef<IProjection>(NewObject<HostProjection>(record))).IsValid())
            << type;
    }
}

// A projection without a type makes an object, and its conversions fail.
TEST_F(MapFactoryTest, AProjectionThatIsNoMapMakesAMapThatDoesNothing) {
    for (std::uint32_t type : {0u, 1u, 22u}) {
        MapParam record;
        record.type = type;
        const IRef<IMapCoordOperations> map = FromPoint(point, ProjectionOf(record));
        ASSERT_TRUE(map.IsValid());
        double x = 1.5, y = 2.5;
        const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.0));
        EXPECT_FALSE(map->FloatPixelToCoord(1.0, 2.0, coord.Get())) << type;
        EXPECT_FALSE(map->CoordToFloatPixel(coord.Get(), &x, &y)) << type;
        EXPECT_EQ(x, 1.5);
    }
}

}  // namespace
}  // namespace tessara::testing

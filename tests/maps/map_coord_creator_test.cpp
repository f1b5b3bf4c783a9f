#include "tessara/map_coord_creator.h"

#include <gtest/gtest.h>

#include <bit>
#include <new>

#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/objects.h"
#include "support/records.h"
#include "tessara/map_coord_creator_factory.h"

namespace tessara::testing {
namespace {

// One degree a pixel on MGI.
MapParam DegreeMap() {
    return Map(MAP_DD, MapDdParams{0.0, 0.0, 1.0, 1.0}, 6);
}

IRef<IMapCoordCreator> CreatorOf(const MapParam& map) {
    const IRef<IMapCoordCreatorFactory> factory(CreateClassMapCoordCreatorFactory());
    return IRef<IMapCoordCreator>(factory->CreateMapCoordCreator(MapOf(map).Get()));
}

class MapCoordCreatorTest : public BalancedTest {
  protected:
    IRef<IUnknown> stranger = MakeStranger();
    IRef<IMapCoordCreator> creator = CreatorOf(DegreeMap());
    IRef<IMapCoordCreator> munich = CreatorOf(MunichSheet());
};

void ExpectPixel(const IRef<ICoord>& coord, double x, double y, std::uint32_t datum = 6) {
    ASSERT_TRUE(coord.IsValid());
    EXPECT_EQ(KoordOf(coord).type, static_cast<std::uint32_t>(KOORD_FLOATPIXEL));
    EXPECT_EQ(KoordOf(coord).datum, datum);
    double px = 0.0, py = 0.0;
    EXPECT_TRUE(coord->GetPixel(&px, &py));
    EXPECT_EQ(px, x);
    EXPECT_EQ(py, y);
}

bool IsEmptyPixel(const IRef<ICoord>& coord) {
    double x, y;
    return KoordOf(coord).type == KOORD_FLOATPIXEL && KoordOf(coord).datum == 6 && !coord->GetPixel(&x, &y);
}

TEST_F(MapCoordCreatorTest, ComesWithCountZeroAndHoldsTheMap) {
    const IRef<IMapCoordCreatorFactory> factory(CreateClassMapCoordCreatorFactory());
    const IRef<IMapCoordOperations> map = MapOf(DegreeMap());
    IMapCoordCreator* const made = factory->CreateMapCoordCreator(map.Get());
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->AddRef(), 1u);
    EXPECT_EQ(CountOf(map), 2u);
    EXPECT_EQ(made->Release(), 0u);
    EXPECT_EQ(CountOf(map), 1u);
}

TEST_F(MapCoordCreatorTest, NeedsAMap) {
    const IRef<IMapCoordCreatorFactory> factory(CreateClassMapCoordCreatorFactory());
    EXPECT_EQ(factory->CreateMapCoordCreator(nullptr), nullptr);
    EXPECT_EQ(factory->CreateMapCoordCreator(Disguised<IMapCoordOperations>(stranger)), nullptr);
    const IRef<IMapCoordOperations> map = MapOf(DegreeMap());
    const FailAllocation fail(1);
    EXPECT_EQ(factory->CreateMapCoordCreator(map.Get()), nullptr);
}

TEST_F(MapCoordCreatorTest, MakesEmptyPixelCoordinates) {
    ICoord* const made = creator->CreateCoord();
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->AddRef(), 1u);
    {
        const IRef<ICoord> coord(made);
        EXPECT_TRUE(IsEmptyPixel(coord));
    }
    EXPECT_EQ(made->Release(), 0u);
}

TEST_F(MapCoordCreatorTest, MakesListsOfThem) {
    const IRef<IArray> coords(creator->CreateCoords(3));
    ASSERT_TRUE(coords.IsValid());
    ASSERT_EQ(coords->GetCount(), 3u);
    for (std::uint32_t i = 0; i < 3; ++i)
        EXPECT_TRUE(IsEmptyPixel(IRef<ICoord>(coords->GetAt(i))));
    EXPECT_NE(coords->GetAt(0), coords->GetAt(1));
    EXPECT_EQ(creator->CreateCoords(0), nullptr);
}

TEST_F(MapCoordCreatorTest, MakesThePixelOfAPosition) {
    UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.zone = 32;
    utm.easting = 685000.0;
    utm.northing = 5340000.0;
    CKoord koord(Record(KOORD_UTM, utm));
    koord.SetHeight(520.0);
    const IRef<ICoord> source = CoordOf(koord);
    const IRef<ICoord> coord(munich->CreateCoordFrom(source.Get()));
    ASSERT_TRUE(coord.IsValid());
    EXPECT_EQ(KoordOf(coord).type, static_cast<std::uint32_t>(KOORD_FLOATPIXEL));
    EXPECT_EQ(KoordOf(coord).datum, 2u);
    // Pixels: the position goes through degrees.
    EXPECT_NEAR(PayloadOf<FloatPixelPayload>(coord).x, 4000.0, 1e-4);
    EXPECT_NEAR(PayloadOf<FloatPixelPayload>(coord).y, 2000.0, 1e-4);
    EXPECT_EQ(coord->GetHeight(), 520.0);
    EXPECT_EQ(PayloadOf<UtmPayload>(source).easting, 685000.0);
    EXPECT_EQ(source->GetHeight(), 520.0);
}

TEST_F(MapCoordCreatorTest, TakesPixelsByTheirValue) {
    ExpectPixel(IRef<ICoord>(creator->CreateCoordFrom(CoordOf(FloatPixel(1.5, 2.5)).Get())), 1.5, 2.5);
    ExpectPixel(IRef<ICoord>(creator->CreateCoordFrom(CoordOf(LongPixel(-3, 4)).Get())), -3.0, 4.0);
}

TEST_F(MapCoordCreatorTest, MakesNothingOfWhatHasNoPixel) {
    EXPECT_EQ(munich->CreateCoordFrom(CoordOf(GeodezRecord(89.0, 11.0)).Get()), nullptr);
    EXPECT_EQ(creator->CreateCoordFrom(EmptyCoord(6, KOORD_FLOATPIXEL).Get()), nullptr);
    EXPECT_EQ(creator->CreateCoordFrom(nullptr), nullptr);
    EXPECT_EQ(creator->CreateCoordFrom(Disguised<ICoord>(stranger)), nullptr);
    const IRef<ICoord> hosts(NewObject<HostCoord>());  // says that it is UTM, and has no record
    EXPECT_EQ(creator->CreateCoordFrom(hosts.Get()), nullptr);
}

TEST_F(MapCoordCreatorTest, MakesTheListOfAList) {
    const IRef<ICoord> world = CoordOf(GeodezRecord(48.0, 11.0, 0.0, 6));
    const IRef<ICoord> pixel = CoordOf(LongPixel(5, 6));
    const IRef<IArray> coords(creator->CreateCoordsFrom(ListOf({world.Get(), pixel.Get()}).Get()));
    ASSERT_TRUE(coords.IsValid());
    ASSERT_EQ(coords->GetCount(), 2u);
    ExpectPixel(IRef<ICoord>(coords->GetAt(0)), 11.0, -48.0);
    ExpectPixel(IRef<ICoord>(coords->GetAt(1)), 5.0, 6.0);
}

TEST_F(MapCoordCreatorTest, MakesNoListWithAGap) {
    const IRef<ICoord> good = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<ICoord> pole = CoordOf(GeodezRecord(89.0, 11.0));
    EXPECT_EQ(munich->CreateCoordsFrom(ListOf({good.Get(), pole.Get(), good.Get()}).Get()), nullptr);
    EXPECT_EQ(munich->CreateCoordsFrom(ListOf({good.Get(), stranger.Get()}).Get()), nullptr);
    EXPECT_EQ(munich->CreateCoordsFrom(ListOf({nullptr}).Get()), nullptr);
    EXPECT_EQ(munich->CreateCoordsFrom(ListOf({}).Get()), nullptr);
    EXPECT_EQ(munich->CreateCoordsFrom(nullptr), nullptr);
    EXPECT_EQ(munich->CreateCoordsFrom(Disguised<IArray>(stranger)), nullptr);
}

TEST_F(MapCoordCreatorTest, ConvertsInPlace) {
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.0, 520.0, 6));
    ASSERT_TRUE(creator->ConvertCoord(coord.Get()));
    ExpectPixel(coord, 11.0, -48.0);
    EXPECT_EQ(coord->GetHeight(), 520.0);
}

TEST_F(MapCoordCreatorTest, LeavesFloatPixelsAsTheyAre) {
    tagKOORD record = FloatPixel(1.5, 2.5);
    record.datum = 3;
    const IRef<ICoord> coord = CoordOf(record);
    coord->SetHeight(7.0);
    ASSERT_TRUE(creator->ConvertCoord(coord.Get()));
    ExpectPixel(coord, 1.5, 2.5, 3);
    EXPECT_EQ(coord->GetHeight(), 7.0);
}

// The bytes of the column 3.0 take the place of both whole numbers.
TEST_F(MapCoordCreatorTest, WritesDoublesIntoAWholePixel) {
    const IRef<ICoord> coord = CoordOf(LongPixel(3, 4));
    ASSERT_TRUE(creator->ConvertCoord(coord.Get()));
    EXPECT_EQ(KoordOf(coord).type, static_cast<std::uint32_t>(KOORD_LONGPIXEL));
    const auto halves = std::bit_cast<LongPixelPayload>(3.0);
    EXPECT_EQ(PayloadOf<LongPixelPayload>(coord).x, halves.x);
    EXPECT_EQ(PayloadOf<LongPixelPayload>(coord).y, halves.y);
    EXPECT_EQ(BytesAs<FloatPixelPayload>(KoordOf(coord)).x, 3.0);
    EXPECT_EQ(BytesAs<FloatPixelPayload>(KoordOf(coord)).y, 4.0);
}

TEST_F(MapCoordCreatorTest, LeavesWhatHasNoPixel) {
    const IRef<ICoord> pole = CoordOf(GeodezRecord(89.0, 11.0));
    EXPECT_FALSE(munich->ConvertCoord(pole.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(pole).latitude, 89.0);
    EXPECT_TRUE(HoldsPosition(pole));
    EXPECT_FALSE(creator->ConvertCoord(EmptyCoord(6, KOORD_FLOATPIXEL).Get()));
    EXPECT_FALSE(munich->ConvertCoord(nullptr));
    EXPECT_FALSE(munich->ConvertCoord(Disguised<ICoord>(stranger)));
    EXPECT_FALSE(munich->ConvertCoord(IRef<ICoord>(NewObject<HostCoord>()).Get()));
}

// Has two numbers to give, and takes no record.
class HostPixel : public HostCoord {
  public:
    bool GetPixel(double* x, double* y) override {
        *x = *y = 1.0;
        return true;
    }
    bool GetReference(ICoordinateReference* target) override {
        const IRef<ICoordinateReference> reference(target);
        return reference.IsValid() && reference->SetDatum(2) && reference->SetSystem(KOORD_FLOATPIXEL);
    }

  protected:
    ~HostPixel() = default;
};

TEST_F(MapCoordCreatorTest, APixelOfTheHostCantBeWritten) {
    EXPECT_FALSE(munich->ConvertCoord(IRef<ICoord>(NewObject<HostPixel>()).Get()));
}

TEST_F(MapCoordCreatorTest, ConvertsAListUpToTheFirstFailure) {
    const IRef<ICoord> first = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<ICoord> pole = CoordOf(GeodezRecord(89.0, 11.0));
    const IRef<ICoord> last = CoordOf(GeodezRecord(48.0, 12.0));
    EXPECT_FALSE(munich->ConvertCoords(ListOf({first.Get(), pole.Get(), last.Get()}).Get()));
    EXPECT_EQ(KoordOf(first).type, static_cast<std::uint32_t>(KOORD_FLOATPIXEL));
    EXPECT_EQ(KoordOf(last).type, static_cast<std::uint32_t>(KOORD_GEODEZ));
    EXPECT_TRUE(munich->ConvertCoords(ListOf({last.Get()}).Get()));
    EXPECT_EQ(KoordOf(last).type, static_cast<std::uint32_t>(KOORD_FLOATPIXEL));
    EXPECT_FALSE(munich->ConvertCoords(ListOf({stranger.Get()}).Get()));
    EXPECT_FALSE(munich->ConvertCoords(ListOf({}).Get()));
    EXPECT_FALSE(munich->ConvertCoords(nullptr));
    EXPECT_FALSE(munich->ConvertCoords(Disguised<IArray>(stranger)));
}

TEST_F(MapCoordCreatorTest, OnAnEmptyMapItMakesPixelsWithoutADatumAndConvertsNothing) {
    const IRef<IMapCoordCreator> empty = CreatorOf(MapParam{});
    const IRef<ICoord> coord(empty->CreateCoord());
    ASSERT_TRUE(coord.IsValid());
    EXPECT_EQ(KoordOf(coord).datum, 999u);
    EXPECT_EQ(empty->CreateCoordFrom(CoordOf(GeodezRecord(48.0, 11.0)).Get()), nullptr);
}

// A map of a datum that no reference takes leaves the creator without one.
TEST_F(MapCoordCreatorTest, WithoutAReferenceItIsInert) {
    MapParam record = DegreeMap();
    record.datum = 500;
    const IRef<IMapCoordCreator> inert = CreatorOf(record);
    ASSERT_TRUE(inert.IsValid());
    EXPECT_EQ(inert->CreateCoord(), nullptr);
    EXPECT_EQ(inert->CreateCoords(2), nullptr);
    EXPECT_EQ(inert->CreateCoordFrom(CoordOf(FloatPixel(1.0, 2.0)).Get()), nullptr);
    const IRef<ICoord> pixel = CoordOf(FloatPixel(1.0, 2.0));
    EXPECT_TRUE(inert->ConvertCoord(pixel.Get()));
}

// The creator itself is the first allocation; the others are the parts of its reference.
TEST_F(MapCoordCreatorTest, WithoutMemoryForItsReferenceItIsInert) {
    const IRef<IMapCoordCreatorFactory> factory(CreateClassMapCoordCreatorFactory());
    const IRef<IMapCoordOperations> map = MapOf(DegreeMap());
    int inert = 0;
    for (int nth = 2;; ++nth) {
        bool hasFailed = false;
        IMapCoordCreator* made = nullptr;
        {
            const FailAllocation fail(nth);
            made = factory->CreateMapCoordCreator(map.Get());
            hasFailed = fail.HasFailed();
        }
        const IRef<IMapCoordCreator> held(made);
        ASSERT_TRUE(held.IsValid()) << "allocation " << nth;
        EXPECT_EQ(IRef<ICoord>(held->CreateCoord()).IsValid(), !hasFailed) << "allocation " << nth;
        if (!hasFailed) break;
        ++inert;
        const IRef<ICoord> world = CoordOf(GeodezRecord(48.0, 11.0, 0.0, 6));
        EXPECT_FALSE(held->ConvertCoord(world.Get()));
        EXPECT_EQ(PayloadOf<GeodezPayload>(world).latitude, 48.0);
        EXPECT_EQ(held->CreateCoordFrom(world.Get()), nullptr);
    }
    EXPECT_GE(inert, 2);
}

TEST_F(MapCoordCreatorTest, LeaksNothingWithoutMemory) {
    const IRef<ICoord> world = CoordOf(GeodezRecord(48.0, 11.0, 0.0, 6));
    const IRef<IArray> source = ListOf({world.Get(), world.Get(), world.Get()});
    for (int nth = 1;; ++nth) {
        IArray* coords = nullptr;
        IArray* converted = nullptr;
        ICoord* coord = nullptr;
        bool hasFailed = false;
        {
            const FailAllocation fail(nth);
            try {
                coord = creator->CreateCoord();
                coords = creator->CreateCoords(3);
                converted = creator->CreateCoordsFrom(source.Get());
            } catch (const std::bad_alloc&) {
                // from a list, which may say so
            }
            hasFailed = fail.HasFailed();
        }
        EXPECT_EQ(hasFailed, coord == nullptr || coords == nullptr || converted == nullptr) << nth;
        const IRef<IArray> a(coords);
        const IRef<IArray> b(converted);
        const IRef<ICoord> c(coord);
        if (!hasFailed) break;
    }
}

}  // namespace
}  // namespace tessara::testing

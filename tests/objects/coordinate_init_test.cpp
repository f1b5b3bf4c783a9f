#include "objects/coordinate_init.h"

#include <gtest/gtest.h>

#include "records/default_koord.h"
#include "support/live_objects.h"
#include "support/zoned_records.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::SameRecord;

class CoordinateInitTest : public testing::BalancedTest {
  protected:
    IRef<ICoordinateInit> init{CreateClassCoordinateInit()};
};

TEST_F(CoordinateInitTest, MakesACoordinateTheDefaultOfItsReference) {
    for (std::int32_t system = 0; system <= 22; ++system) {
        for (std::int32_t datum : {2, 3, 999}) {
            tagKOORD rubbish = MakeKoord(datum, system);
            std::memset(rubbish.payload, 0x55, sizeof rubbish.payload);
            const IRef<ICoord> coord = CoordOf(CKoord(rubbish));
            coord->SetHeight(77.0);
            CKoord expected;
            ASSERT_TRUE(DefaultKoord(datum, system, &expected));
            EXPECT_TRUE(init->InitCoord(coord.Get())) << system;
            EXPECT_TRUE(SameRecord(KoordOf(coord), expected)) << system;
            EXPECT_EQ(CountOf(coord), 1u);
        }
    }
}

TEST_F(CoordinateInitTest, MakesAnEmptyCoordinateValid) {
    for (std::int32_t system = 0; system <= 22; ++system) {
        const IRef<ICoord> coord = EmptyCoord(2, system);
        EXPECT_TRUE(init->InitCoord(coord.Get())) << system;
        EXPECT_TRUE(testing::HeldPosition(coord)) << system;
    }
}

TEST_F(CoordinateInitTest, AUtmCoordinateStandsOnTheFootOfZone30) {
    const IRef<ICoord> coord = EmptyCoord(2, KOORD_UTM);
    EXPECT_TRUE(init->InitCoord(coord.Get()));
    EXPECT_EQ(PayloadOf<UtmPayload>(coord).zone, 30);
    EXPECT_EQ(PayloadOf<UtmPayload>(coord).easting, 500000.0);
    EXPECT_EQ(PayloadOf<UtmPayload>(coord).wantedZone, -1000);
}

TEST_F(CoordinateInitTest, ClearsTheWantedMeridianZeroWhichIsALegalOne) {
    const IRef<ICoord> coord = CoordOf(CKoord(MakeKoord(2, KOORD_GK)));
    EXPECT_TRUE(init->InitCoord(coord.Get()));
    EXPECT_EQ(PayloadOf<GkPayload>(coord).wantedMeridian, -1000);
}

TEST_F(CoordinateInitTest, GivesGeorefThePrecisionEightWhateverItHad) {
    for (const std::int16_t precision : std::initializer_list<std::int16_t>{3, 4, 5, 6, 8}) {
        GeorefPayload payload{};
        payload.precision = precision;
        const IRef<ICoord> coord = CoordOf(Record(KOORD_GEOREF, payload, 2));
        EXPECT_TRUE(init->InitCoord(coord.Get()));
        EXPECT_EQ(PayloadOf<GeorefPayload>(coord).precision, 8);
    }
}

TEST_F(CoordinateInitTest, ClearsTheHeight) {
    const IRef<ICoord> coord = CoordOf(testing::UtmRecord(3, 'S', 5, 1.0, 2.0));
    coord->SetHeight(55.0);
    EXPECT_TRUE(init->InitCoord(coord.Get()));
    EXPECT_EQ(coord->GetHeight(), 0.0);
}

TEST_F(CoordinateInitTest, LeavesACoordinateOfASystemWithoutADefault) {
    for (std::int32_t system : {-1, 23}) {
        const IRef<ICoord> valid = CoordOf(Record(system, FloatPixelPayload{1.0, 2.0}, 2));
        const CKoord before = KoordOf(valid);
        EXPECT_FALSE(init->InitCoord(valid.Get())) << system;
        EXPECT_TRUE(SameRecord(KoordOf(valid), before)) << system;

        const IRef<ICoord> empty = EmptyCoord(2, system);
        EXPECT_FALSE(init->InitCoord(empty.Get())) << system;
        EXPECT_FALSE(testing::HeldPosition(empty)) << system;
    }
}

TEST_F(CoordinateInitTest, LeavesACoordinateOfADatumThatNoReferenceTakes) {
    const IRef<ICoord> coord = CoordOf(testing::UtmRecord(500, 'N', 5, 1.0, 2.0));
    const CKoord before = KoordOf(coord);
    EXPECT_FALSE(init->InitCoord(coord.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(coord), before));
}

TEST_F(CoordinateInitTest, RefusesWhatIsNoCoordinateOfTheLibrary) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> hostCoord(NewObject<testing::HostCoord>());
    EXPECT_FALSE(init->InitCoord(nullptr));
    EXPECT_FALSE(init->InitCoord(testing::Disguised<ICoord>(stranger)));
    EXPECT_FALSE(init->InitCoord(hostCoord.Get()));
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_EQ(CountOf(hostCoord), 1u);
}

TEST_F(CoordinateInitTest, ACoordinateThatNobodyHoldsLivesUntilTheEndOfTheOperation) {
    EXPECT_TRUE(init->InitCoord(CreateClassCoord()));
}

}  // namespace
}  // namespace tessara

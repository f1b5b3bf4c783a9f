#include "objects/coordinate_neighbor.h"

#include <gtest/gtest.h>

#include "records/koord_shift.h"
#include "support/coords.h"
#include "support/legal_positions.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/records.h"
#include "support/zones.h"

namespace tessara {
namespace {

using testing::Disguised;
using testing::MakeStranger;
using testing::SameRecord;
using testing::Strip;
using testing::Utm;
using testing::Utmref;

// Of metres, pixels, or whole degrees; the others step by a ten thousandth of a degree.
bool StepsByOne(std::int32_t system) {
    return system != KOORD_GEODEZ && system != KOORD_GEOGRAD && system != KOORD_GEODEZMIN;
}

class CoordinateNeighborTest : public testing::BalancedTest {
  protected:
    using Operation = bool (ICoordinateNeighbor::*)(ICoord*, ICoord*);
    static constexpr Operation OPERATIONS[] = {
        &ICoordinateNeighbor::GetNorthNeighbor, &ICoordinateNeighbor::GetEastNeighbor,
        &ICoordinateNeighbor::GetSouthNeighbor, &ICoordinateNeighbor::GetWestNeighbor};

    // The neighbour as a record.
    tagKOORD NeighborOf(const tagKOORD& record, Operation operation) {
        const IRef<ICoord> source = CoordOf(record);
        const IRef<ICoord> target(CreateClassCoord());
        EXPECT_TRUE((neighbor.Get()->*operation)(source.Get(), target.Get())) << record.type;
        EXPECT_TRUE(SameRecord(KoordOf(source), record));
        return KoordOf(target);
    }

    IRef<ICoordinateNeighbor> neighbor{CreateClassCoordinateNeighbor()};
};

TEST_F(CoordinateNeighborTest, DegreesStepByATenThousandth) {
    const tagKOORD here = GeodezRecord(48.0, 11.0, 520.0);
    EXPECT_TRUE(SameRecord(NeighborOf(here, &ICoordinateNeighbor::GetNorthNeighbor),
                           GeodezRecord(48.0 + 0.0001, 11.0, 520.0)));
    EXPECT_TRUE(SameRecord(NeighborOf(here, &ICoordinateNeighbor::GetEastNeighbor),
                           GeodezRecord(48.0, 11.0 + 0.0001, 520.0)));
    EXPECT_TRUE(SameRecord(NeighborOf(here, &ICoordinateNeighbor::GetSouthNeighbor),
                           GeodezRecord(48.0 - 0.0001, 11.0, 520.0)));
    EXPECT_TRUE(SameRecord(NeighborOf(here, &ICoordinateNeighbor::GetWestNeighbor),
                           GeodezRecord(48.0, 11.0 - 0.0001, 520.0)));
}

TEST_F(CoordinateNeighborTest, MinutesAndSecondsStepByDegreesToo) {
    GeodezMinPayload payload{};
    payload.latDegrees = 48;
    payload.latHemisphere = 'N';
    payload.lonDegrees = 11;
    payload.lonHemisphere = 'E';
    const auto north = Load<GeodezMinPayload>(
        NeighborOf(Record(KOORD_GEODEZMIN, payload), &ICoordinateNeighbor::GetNorthNeighbor));
    EXPECT_NEAR(north.latMinutes, 0.006, 1e-9);  // 0.0001 degrees in minutes
    GeogradPayload seconds{};
    seconds.latDegrees = 48;
    seconds.latHemisphere = 'N';
    seconds.lonDegrees = 11;
    seconds.lonHemisphere = 'E';
    const auto east = Load<GeogradPayload>(
        NeighborOf(Record(KOORD_GEOGRAD, seconds), &ICoordinateNeighbor::GetEastNeighbor));
    EXPECT_NEAR(east.lonSeconds, 0.36, 1e-7);  // 0.0001 degrees in seconds
}

TEST_F(CoordinateNeighborTest, GridsStepByAMetre) {
    EXPECT_TRUE(SameRecord(NeighborOf(Utm(32, 'N', 5.0e5, 5.0e5), &ICoordinateNeighbor::GetSouthNeighbor),
                           Utm(32, 'N', 5.0e5, 499999.0)));
    EXPECT_TRUE(
        SameRecord(NeighborOf(Strip(KOORD_GK, -1600000.0, 5.0e6), &ICoordinateNeighbor::GetEastNeighbor),
                   Strip(KOORD_GK, -1600001.0, 5.0e6)));
    const auto square =
        Load<UtmrefPayload>(NeighborOf(Utmref(32, 'U', "QA", 0, 0), &ICoordinateNeighbor::GetWestNeighbor));
    EXPECT_EQ(square.column, 'P');
    EXPECT_EQ(square.easting, 99999);
}

// cs2cs +proj=utm +zone=32 to +proj=longlat of 832168.0006 662248 gives the longitude 11.999999999791: the
// border is 1.0006 metres east of the easting 832167.
TEST_F(CoordinateNeighborTest, TheLastWholeMetreOfAZoneIsANeighbour) {
    const tagKOORD beforeLast = Utmref(32, 'N', "RM", 32167, 62248);
    const tagKOORD last = NeighborOf(beforeLast, &ICoordinateNeighbor::GetEastNeighbor);
    EXPECT_EQ(Load<UtmrefPayload>(last).easting, 32168);
    EXPECT_EQ(Load<UtmrefPayload>(last).zone, 32);
    const IRef<ICoord> none(CreateClassCoord());
    EXPECT_FALSE(neighbor->GetEastNeighbor(CoordOf(last).Get(), none.Get()));
}

TEST_F(CoordinateNeighborTest, StepsAreMetresDegreesAndPixelsInEverySystem) {
    testing::Random random(35);
    for (const testing::LegalArea& area : testing::LEGAL_AREAS) {
        if (area.system == KOORD_ING) continue;  // its shifts lose fractions of a metre
        const tagKOORD here = testing::RandomLegal(area, &random);
        const double step = StepsByOne(area.system) ? 1.0 : 0.0001;
        const tagKOORD east = NeighborOf(here, &ICoordinateNeighbor::GetEastNeighbor);
        EXPECT_NEAR(koord::Difference(Axis::East, here, east), step, 1e-4 * step) << area.system;
    }
}

TEST_F(CoordinateNeighborTest, TheNorthernPixelIsInTheRowBelow) {
    EXPECT_TRUE(SameRecord(
        NeighborOf(Record(KOORD_LONGPIXEL, LongPixelPayload{5, 5}), &ICoordinateNeighbor::GetNorthNeighbor),
        Record(KOORD_LONGPIXEL, LongPixelPayload{5, 6})));
    EXPECT_TRUE(SameRecord(NeighborOf(Record(KOORD_FLOATPIXEL, FloatPixelPayload{5.5, 5.5}),
                                      &ICoordinateNeighbor::GetWestNeighbor),
                           Record(KOORD_FLOATPIXEL, FloatPixelPayload{4.5, 5.5})));
}

TEST_F(CoordinateNeighborTest, GeorefStepsByAWholeDegree) {
    const tagKOORD here = Record(KOORD_GEOREF, GeorefPayload{5, 'N', 'K', 'F', 'B', 1234, 4321});
    const auto north = Load<GeorefPayload>(NeighborOf(here, &ICoordinateNeighbor::GetNorthNeighbor));
    EXPECT_EQ(north.latDegree, 'C');
    EXPECT_EQ(north.latMinutes, 4321);
    EXPECT_EQ(north.lonDegree, 'F');
    EXPECT_EQ(north.lonMinutes, 1234);
}

TEST_F(CoordinateNeighborTest, AtABorderTheTargetHoldsTheCopy) {
    // The border lies at 716703.412.
    const tagKOORD here = Utm(32, 'N', 716703.0, 5.5e6);
    const IRef<ICoord> target(CreateClassCoord());
    EXPECT_FALSE(neighbor->GetEastNeighbor(CoordOf(here).Get(), target.Get()));
    EXPECT_TRUE(SameRecord(KoordOf(target), here));
    EXPECT_TRUE(HoldsPosition(target));
    EXPECT_TRUE(neighbor->GetWestNeighbor(CoordOf(here).Get(), target.Get()));
}

TEST_F(CoordinateNeighborTest, EcefAndSystemsAboveTheTableHaveNoNeighbours) {
    for (const std::int32_t type : {KOORD_ECEF + 0, KOORD_LAMBERTCC + 0, 24}) {
        const tagKOORD here = MakeKoord(2, type);
        for (const Operation operation : OPERATIONS) {
            const IRef<ICoord> target(CreateClassCoord());
            EXPECT_FALSE((neighbor.Get()->*operation)(CoordOf(here).Get(), target.Get()));
            EXPECT_TRUE(SameRecord(KoordOf(target), here));
        }
    }
}

TEST_F(CoordinateNeighborTest, ACoordinateMayBeItsOwnTarget) {
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.0));
    EXPECT_TRUE(neighbor->GetNorthNeighbor(coord.Get(), coord.Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 48.0 + 0.0001);
    EXPECT_TRUE(neighbor->GetEastNeighbor(CreateClassCoord(), coord.Get()));  // of count 0
    ICoord* const fresh = CreateClassCoord();
    EXPECT_TRUE(neighbor->GetEastNeighbor(fresh, fresh));  // and is gone
}

TEST_F(CoordinateNeighborTest, ANeighbourIsValidWhateverItsSourceWas) {
    const IRef<ICoord> target(CreateClassCoord());
    EXPECT_TRUE(neighbor->GetSouthNeighbor(EmptyCoord(2, KOORD_CH).Get(), target.Get()));
    EXPECT_EQ(PayloadOf<GridPayload>(target).northing, 199999.0);
    EXPECT_TRUE(HoldsPosition(target));
}

TEST_F(CoordinateNeighborTest, NullAndForeignObjectsFailAndChangeNothing) {
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.0));
    const IRef<IUnknown> stranger = MakeStranger();
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    for (ICoord* const other : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get()}) {
        for (const Operation operation : OPERATIONS) {
            EXPECT_FALSE((neighbor.Get()->*operation)(other, coord.Get()));
            EXPECT_FALSE((neighbor.Get()->*operation)(coord.Get(), other));
        }
    }
    EXPECT_TRUE(SameRecord(KoordOf(coord), GeodezRecord(48.0, 11.0)));
}

}  // namespace
}  // namespace tessara

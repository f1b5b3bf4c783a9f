#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>

#include "support/garbage_records.h"
#include "support/legal_positions.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/zones.h"
#include "tessara/coordinate_checker.h"

namespace tessara {
namespace {

using testing::Austrian;
using testing::Strip;
using testing::Utm;
using testing::Utmref;

class CoordinateCheckerTest : public testing::BalancedTest {
  protected:
    IRef<ICoordinateChecker> checker{CreateClassCoordinateChecker()};

    bool Check(const tagKOORD& record) { return checker->CheckCoord(CoordOf(record).Get()); }
    bool InArea(const tagKOORD& record) { return checker->CheckInSystemArea(CoordOf(record).Get()); }
    bool Convertible(const tagKOORD& record, std::int32_t datum, std::int32_t system) {
        return checker->CheckConvertible(CoordOf(record).Get(),
                                         testing::MakeHostReference(datum, system).Get());
    }
};

tagKOORD Converted(double latitude, double longitude, tagKOORD target) {
    const tagKOORD degrees = GeodezRecord(latitude, longitude);
    EXPECT_EQ(KoordConvert(&degrees, &target), KOORD_OK);
    return target;
}

TEST_F(CoordinateCheckerTest, DoesntLookAtWhetherACoordinateIsValid) {
    const IRef<ICoord> fresh(CreateClassCoord());
    EXPECT_FALSE(HoldsPosition(fresh));
    EXPECT_TRUE(checker->CheckCoord(fresh.Get()));
    EXPECT_FALSE(HoldsPosition(fresh));
}

TEST_F(CoordinateCheckerTest, DegreesReachToTheirLimits) {
    EXPECT_TRUE(Check(GeodezRecord(90.0, 360.0)));
    EXPECT_TRUE(Check(GeodezRecord(-90.0, -360.0)));
    EXPECT_FALSE(Check(GeodezRecord(91.0, 0.0)));
    EXPECT_FALSE(Check(GeodezRecord(0.0, 360.0000001)));
    EXPECT_FALSE(Check(GeodezRecord(NAN, 0.0)));
    EXPECT_FALSE(Check(GeodezRecord(0.0, NAN)));
    EXPECT_FALSE(Check(GeodezRecord(HUGE_VAL, 0.0)));
}

TEST_F(CoordinateCheckerTest, PixelsNeedToBeNumbersOfTheirSystem) {
    EXPECT_TRUE(Check(Record(KOORD_LONGPIXEL, LongPixelPayload{INT32_MIN, INT32_MAX})));
    EXPECT_TRUE(Check(Record(KOORD_FLOATPIXEL, FloatPixelPayload{DBL_MAX, -DBL_MAX})));
    EXPECT_FALSE(Check(Record(KOORD_FLOATPIXEL, FloatPixelPayload{HUGE_VAL, 0.0})));
    EXPECT_FALSE(Check(Record(KOORD_FLOATPIXEL, FloatPixelPayload{0.0, NAN})));
    EXPECT_TRUE(Check(Record(KOORD_FLOATPIXEL, FloatPixelPayload{1.0, 2.0}, NO_DATUM)));
    EXPECT_FALSE(Check(Record(KOORD_FLOATPIXEL, FloatPixelPayload{1.0, 2.0}, 500)));
}

// `echo 716703.5 5500000 | cs2cs -f %.8f EPSG:32632 EPSG:4326` gives the longitude 12.00000122, and a metre
// is 0.000014 degrees there. The western border is the mirror image.
TEST_F(CoordinateCheckerTest, AUtmPositionLiesWithinItsZone) {
    EXPECT_TRUE(Check(Utm(32, 'N', 716703.0, 5500000.0)));
    EXPECT_FALSE(Check(Utm(32, 'N', 716704.0, 5500000.0)));
    EXPECT_TRUE(Check(Utm(32, 'N', 283297.0, 5500000.0)));
    EXPECT_FALSE(Check(Utm(32, 'N', 283296.0, 5500000.0)));
    EXPECT_TRUE(InArea(Utm(32, 'N', 716703.0, 5500000.0)));
    EXPECT_FALSE(InArea(Utm(32, 'N', 716704.0, 5500000.0)));
}

TEST_F(CoordinateCheckerTest, ABorderBelongsToBothZones) {
    const tagKOORD natural = MakeKoord(DATUM_WGS84, KOORD_UTM);
    for (const double longitude : {12.0, -180.0, 180.0, 0.0, 6.0})
        EXPECT_TRUE(Check(Converted(50.0, longitude, natural))) << longitude;
    for (const auto& [longitude, zone] : {std::pair{180.0, 60}, std::pair{0.0, 30}, std::pair{12.0, 32}}) {
        UtmPayload wanted{};
        wanted.wantedZone = static_cast<std::int16_t>(zone);
        EXPECT_TRUE(Check(Converted(0.0, longitude, Record(KOORD_UTM, wanted)))) << longitude;
        EXPECT_TRUE(Check(Converted(10.0, longitude, Record(KOORD_UTM, wanted)))) << longitude;
    }
}

// Far and near, a position counts as inside its zone exactly when its longitude is at most 3 degrees from the
// central meridian, but for the last 1e-9 degrees.
TEST_F(CoordinateCheckerTest, TheBorderOfAZoneRunsAlongItsMeridian) {
    for (const double latitude : {-79.0, -48.0, 0.1, 33.0, 83.0}) {
        for (const double inside : {2.0, 1e-2, 1.1e-4, 0.9e-4, 1e-6, 1e-8}) {
            for (const double side : {-1.0, 1.0}) {
                UtmPayload wanted{};
                wanted.wantedZone = 32;
                for (const double beyond : {-inside, inside}) {
                    tagKOORD record =
                        Converted(latitude, 9.0 + side * (3.0 + beyond), Record(KOORD_UTM, wanted));
                    auto payload = Load<UtmPayload>(record);
                    payload.wantedZone = NO_WANTED_ZONE;
                    Store(record, payload);
                    EXPECT_EQ(InArea(record), beyond < 0.0) << latitude << ' ' << side * (3.0 + beyond);
                }
            }
        }
    }
}

// Northings of latitude 84 from cs2cs: 9328093.8 on the central meridian, 9329005.2 three degrees off.
TEST_F(CoordinateCheckerTest, UtmEndsAtANorthing) {
    EXPECT_TRUE(Check(Utm(32, 'N', 500000.0, 9328093.0)));
    EXPECT_FALSE(Check(Utm(32, 'N', 500000.0, 9328095.0)));
    EXPECT_FALSE(Check(Converted(84.0, 11.9999, MakeKoord(DATUM_WGS84, KOORD_UTM))));
}

TEST_F(CoordinateCheckerTest, AZoneThatIsWantedFarAwayIsRefused) {
    UtmPayload wanted = Load<UtmPayload>(Utm(32, 'N', 500000.0, 5500000.0));
    wanted.wantedZone = 50;
    EXPECT_FALSE(Check(Record(KOORD_UTM, wanted)));
    EXPECT_FALSE(Check(Utm(0, 'N', 500000.0, 5500000.0)));
    EXPECT_FALSE(Check(Utm(61, 'N', 500000.0, 5500000.0)));
}

TEST_F(CoordinateCheckerTest, TheCentralLineLiesInItsZoneAlsoIfTheZoneIsWanted) {
    EXPECT_TRUE(Check(Utm(32, 'N', 500000.0, 5500000.0, 32)));
    EXPECT_TRUE(Check(Strip(KOORD_GK, 3500000.0, 5500000.0, 9)));
    EXPECT_TRUE(Check(Strip(KOORD_GK6, 2500000.0, 5500000.0, 9)));
    EXPECT_TRUE(Check(Austrian(KOORD_BMN, 31, 450000.0, 200000.0, 31)));
    EXPECT_TRUE(Check(Austrian(KOORD_GKAT, 31, 0.0, 5200000.0, 31)));
}

TEST_F(CoordinateCheckerTest, AUtmrefHasTheLettersOfAnExistingSquare) {
    EXPECT_TRUE(Check(Utmref(32, 'U', "QA", 7819, 42661)));
    EXPECT_FALSE(Check(Utmref(32, 'U', "RA", 0, 0))) << "a column beyond the zone";
    EXPECT_FALSE(Check(Utmref(32, 'U', "QP", 0, 0))) << "a row beyond the band";
    EXPECT_FALSE(Check(Utmref(32, 'u', "QA", 7819, 42661))) << "a small letter";
    // The south-western corner of a square that reaches into band U from below 48 degrees.
    EXPECT_TRUE(Check(Utmref(32, 'U', "MU", 0, 0)));
}

// The whole metres around a border, zone by zone: a reference whose position lies within its zone, and one
// that a position within the zone is rounded to, is a position of that zone.
TEST_F(CoordinateCheckerTest, NoReferenceWithinItsZoneIsRefusedAtTheBorder) {
    testing::Random random(2704);
    for (int i = 0; i < 6000; ++i) {
        const double side = i % 2 == 0 ? 1.0 : -1.0;
        const double central = 6.0 * (1 + i / 2 % 60) - 183.0;
        const double latitude = random.Between(-79.9, 83.9);
        const double longitude = central + side * (3.0 - random.Between(0.0, 3e-5));
        UtmrefPayload wanted{};
        wanted.wantedZone = static_cast<std::int16_t>(1 + i / 2 % 60);
        for (const std::int32_t datum : {DATUM_WGS84, 3}) {
            const tagKOORD degrees = GeodezRecord(latitude, longitude, 0.0, datum);
            tagKOORD reference = Record(KOORD_UTMREF, wanted, datum);
            ASSERT_EQ(KoordConvert(&degrees, &reference), KOORD_OK);
            auto payload = Load<UtmrefPayload>(reference);
            payload.wantedZone = NO_WANTED_ZONE;
            Store(reference, payload);
            EXPECT_TRUE(Check(reference)) << latitude << ' ' << longitude << " datum " << datum;
        }
    }
}

// Longitudes from cs2cs with +proj=tmerc +ellps=bessel: on the meridian 9, northing 5500000, the offsets
// 108355 and 108356 lie at 10.49998949 and 10.50000333 degrees; on 31 east of Ferro, 13.3333333, northing
// 5200000, the offsets 114218 and 114219 at 14.83332373 and 14.83333686.
TEST_F(CoordinateCheckerTest, StripsEndAtTheirBorders) {
    EXPECT_TRUE(Check(Strip(KOORD_GK, 3608355.0, 5500000.0)));
    EXPECT_FALSE(Check(Strip(KOORD_GK, 3608356.0, 5500000.0)));
    EXPECT_TRUE(Check(Austrian(KOORD_BMN, 31, 564218.0, 200000.0)));
    EXPECT_FALSE(Check(Austrian(KOORD_BMN, 31, 564219.0, 200000.0)));
    EXPECT_FALSE(Check(Austrian(KOORD_BMN, 0, 450000.0, 200000.0))) << "no meridian";
}

TEST_F(CoordinateCheckerTest, EverySystemWithTextsHasLegalPositions) {
    testing::Random random(43);
    for (const testing::LegalArea& area : testing::LEGAL_AREAS) {
        for (int i = 0; i < 200; ++i)
            EXPECT_TRUE(Check(testing::RandomLegal(area, &random))) << "system " << area.system;
    }
}

TEST_F(CoordinateCheckerTest, SomeSystemsHaveNoLegalPositions) {
    UpsPayload ups{'N', {}, 2000000.0, 2000000.0};
    EXPECT_TRUE(Check(Record(KOORD_UPS, ups)));
    ups.hemisphere = 'S';
    EXPECT_FALSE(Check(Record(KOORD_UPS, ups)));
    EXPECT_TRUE(Check(Record(KOORD_VDG, VdgPayload{0.0, 0.0, 1000.0, 1000.0})));
    EXPECT_FALSE(Check(Record(KOORD_VDG, VdgPayload{10.0, 0.0, 1000.0, 1000.0})));
    TmPayload tm{};
    tm.scale = 1.0;
    EXPECT_FALSE(Check(Record(KOORD_TM, tm)));
    EXPECT_FALSE(Check(Record(KOORD_ECEF, EcefPayload{4000000.0, 900000.0, 4800000.0})));
    EXPECT_FALSE(Check(MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC)));
    EXPECT_FALSE(Check(MakeKoord(DATUM_WGS84, KOORD_TYPE_COUNT)));
    EXPECT_FALSE(Check(MakeKoord(DATUM_WGS84, -1)));
}

TEST_F(CoordinateCheckerTest, TheFirstDatumIsOneAsWell) {
    const tagKOORD position = GeodezRecord(48.0, 9.0, 0.0, 0);
    EXPECT_TRUE(Check(position));
    EXPECT_TRUE(Convertible(position, 0, KOORD_UTM));
    EXPECT_TRUE(Convertible(GeodezRecord(48.0, 9.0), 0, KOORD_GEODEZ));
}

TEST_F(CoordinateCheckerTest, APositionNeedsADatum) {
    for (const std::int32_t datum : {-1, DATUM_COUNT, NO_DATUM, INT32_MAX}) {
        EXPECT_FALSE(Check(GeodezRecord(48.0, 11.0, 0.0, datum))) << datum;
        EXPECT_FALSE(Check(MakeKoord(datum, KOORD_UTM))) << datum;
    }
}

// Near 84 degrees a position beside the central meridian converts, but lies north of the last northing.
TEST_F(CoordinateCheckerTest, ConvertibleIsWhatEndsUpInTheAreaOfTheTarget) {
    EXPECT_TRUE(Convertible(GeodezRecord(83.995, 15.0), DATUM_WGS84, KOORD_UTM));
    EXPECT_FALSE(Convertible(GeodezRecord(83.995, 12.0), DATUM_WGS84, KOORD_UTM));
    EXPECT_TRUE(Convertible(GeodezRecord(84.0, 15.0), DATUM_WGS84, KOORD_UTM));
    EXPECT_FALSE(Convertible(GeodezRecord(84.1, 15.0), DATUM_WGS84, KOORD_UTM));
    EXPECT_FALSE(Convertible(GeodezRecord(89.9, 15.0), DATUM_WGS84, KOORD_UTM));
    EXPECT_TRUE(Convertible(GeodezRecord(89.9, 15.0), DATUM_WGS84, KOORD_UPS));
    EXPECT_TRUE(Convertible(GeodezRecord(47.0, 8.0), DATUM_WGS84, KOORD_CH));
    EXPECT_FALSE(Convertible(GeodezRecord(91.0, 15.0), 3, KOORD_GEODEZ)) << "no legal position itself";
}

TEST_F(CoordinateCheckerTest, ConvertibleNeedsALegalReference) {
    const tagKOORD position = GeodezRecord(48.0, 11.0);
    for (const std::int32_t datum : {-1, DATUM_COUNT, NO_DATUM})
        EXPECT_FALSE(Convertible(position, datum, KOORD_UTM)) << datum;
    for (const std::int32_t system :
         {NO_SYSTEM, +KOORD_TYPE_COUNT, +KOORD_LAMBERTCC, +KOORD_FLOATPIXEL, +KOORD_LONGPIXEL, +KOORD_ECEF}) {
        EXPECT_FALSE(Convertible(position, DATUM_WGS84, system)) << system;
    }
    EXPECT_TRUE(Convertible(position, DATUM_WGS84, KOORD_GEODEZ)) << "its own";
    EXPECT_TRUE(
        Convertible(Record(KOORD_FLOATPIXEL, FloatPixelPayload{1.0, 2.0}), DATUM_WGS84, KOORD_FLOATPIXEL));
    EXPECT_FALSE(Convertible(Record(KOORD_FLOATPIXEL, FloatPixelPayload{1.0, 2.0}, NO_DATUM), NO_DATUM,
                             KOORD_FLOATPIXEL));
    EXPECT_FALSE(
        Convertible(Record(KOORD_FLOATPIXEL, FloatPixelPayload{1.0, 2.0}), DATUM_WGS84, KOORD_GEODEZ));
}

TEST_F(CoordinateCheckerTest, NothingChangesByAsking) {
    testing::Random random(430);
    for (const testing::LegalArea& area : testing::LEGAL_AREAS) {
        tagKOORD record = testing::RandomLegal(area, &random);
        const IRef<ICoord> coord = CoordOf(record);
        const CKoord before = KoordOf(coord);
        checker->CheckCoord(coord.Get());
        checker->CheckInSystemArea(coord.Get());
        checker->CheckConvertible(coord.Get(), ReferenceOf(3, KOORD_UTM).Get());
        const CKoord after = KoordOf(coord);
        EXPECT_EQ(std::memcmp(&before, &after, sizeof(tagKOORD)), 0) << area.system;
    }
}

TEST_F(CoordinateCheckerTest, NullAndForeignObjectsAreFailures) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> hosts(NewObject<testing::HostCoord>());
    const IRef<ICoordinateReference> reference = ReferenceOf(DATUM_WGS84, KOORD_UTM);
    for (ICoord* wrong : {static_cast<ICoord*>(nullptr), hosts.Get(), testing::Disguised<ICoord>(stranger)}) {
        EXPECT_FALSE(checker->CheckCoord(wrong));
        EXPECT_FALSE(checker->CheckInSystemArea(wrong));
        EXPECT_FALSE(checker->CheckConvertible(wrong, reference.Get()));
    }
    const IRef<ICoord> coord = CoordOf(GeodezRecord(48.0, 11.0));
    EXPECT_FALSE(checker->CheckConvertible(coord.Get(), nullptr));
    EXPECT_FALSE(checker->CheckConvertible(coord.Get(), testing::Disguised<ICoordinateReference>(stranger)));
}

// Whatever the bytes of a record are, the answer comes.
TEST_F(CoordinateCheckerTest, GarbageIsAnswered) {
    testing::Random random(4300);
    int legal = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        tagKOORD record = testing::ArbitraryPayload(random, datum, random.Below(KOORD_TYPE_COUNT));
        const bool answer = Check(record);
        if (!answer || record.type <= KOORD_FLOATPIXEL) continue;
        ++legal;
        tagKOORD position = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_GEODEZ);
        EXPECT_EQ(KoordConvert(&record, &position), KOORD_OK) << "legal, but not convertible";
    }
    EXPECT_GT(legal, 0);
}

}  // namespace
}  // namespace tessara

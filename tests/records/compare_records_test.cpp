#include "records/compare_records.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>

#include "numerics/special_values.h"
#include "records/default_koord.h"
#include "records/system_extremes.h"
#include "support/garbage_records.h"
#include "support/plain_records.h"
#include "support/positions.h"
#include "support/random.h"
#include "support/records.h"
#include "support/sanitized.h"
#include "support/zones.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using testing::Austrian;
using testing::FloatPixel;
using testing::LetterGrid;
using testing::LongPixel;
using testing::Random;
using testing::RandomIn;
using testing::RecordIn;
using testing::Region;
using testing::REGIONS;
using testing::Strip;
using testing::Ups;
using testing::Utm;
using testing::Utmref;

std::int32_t NorthSouth(const tagKOORD& first, const tagKOORD& second) {
    return CompareRecords(Axis::North, first, second);
}

std::int32_t EastWest(const tagKOORD& first, const tagKOORD& second) {
    return CompareRecords(Axis::East, first, second);
}

// A position in degrees in the zone that a record wants, whatever the limits of its system.
tagKOORD Placed(tagKOORD record, double latitude, double longitude) {
    const tagKOORD geodez = GeodezRecord(latitude, longitude, 0.0, static_cast<std::int32_t>(record.datum));
    EXPECT_EQ(KoordConvertEx(&geodez, &record, 0), KOORD_OK);
    return record;
}

tagKOORD UtmAt(double latitude, double longitude, std::int16_t wantedZone = NO_WANTED_ZONE) {
    return Placed(Utm(0, 'N', 0.0, 0.0, wantedZone), latitude, longitude);
}

tagKOORD StripAt(std::int32_t type, double latitude, double longitude,
                 std::int16_t wantedMeridian = NO_WANTED_ZONE) {
    return Placed(Strip(type, 0.0, 0.0, wantedMeridian), latitude, longitude);
}

tagKOORD BmnAt(double latitude, double longitude, std::int16_t wantedMeridian = NO_WANTED_ZONE) {
    return Placed(Austrian(KOORD_BMN, 0, 0.0, 0.0, wantedMeridian), latitude, longitude);
}

TEST(CompareRecords, EverySystemKnowsNorthAndEast) {
    for (const Region& region : REGIONS) {
        const double latitude = (region.south + region.north) / 2.0;
        const double longitude = (region.west + region.east) / 2.0;
        const double step = (region.north - region.south) / 4.0;
        const tagKOORD middle = RecordIn(region, latitude, longitude);
        const tagKOORD north = RecordIn(region, latitude + step, longitude);
        const tagKOORD east = RecordIn(region, latitude, longitude + step);
        EXPECT_EQ(NorthSouth(north, middle), 1) << region.type;
        EXPECT_EQ(NorthSouth(middle, north), -1) << region.type;
        EXPECT_EQ(EastWest(east, middle), 1) << region.type;
        EXPECT_EQ(EastWest(middle, east), -1) << region.type;
    }
}

TEST(CompareRecords, APositionEqualsItself) {
    Random random(1);
    for (const Region& region : REGIONS) {
        const tagKOORD record = RandomIn(region, random);
        EXPECT_EQ(NorthSouth(record, record), 0) << region.type;
        EXPECT_EQ(EastWest(record, record), 0) << region.type;
    }
    for (const tagKOORD& pixel : {LongPixel(-3, 7), FloatPixel(2.5, -1e300)}) {
        EXPECT_EQ(NorthSouth(pixel, pixel), 0);
        EXPECT_EQ(EastWest(pixel, pixel), 0);
    }
}

// Antisymmetric and transitive, and always an answer.
void ExpectTotalOrder(Axis axis, const tagKOORD& a, const tagKOORD& b, const tagKOORD& c) {
    const std::int32_t ab = CompareRecords(axis, a, b);
    const std::int32_t bc = CompareRecords(axis, b, c);
    const std::int32_t ac = CompareRecords(axis, a, c);
    EXPECT_TRUE(ab == 1 || ab == 0 || ab == -1) << a.type;
    EXPECT_EQ(CompareRecords(axis, b, a), -ab) << a.type;
    if (ab >= 0 && bc >= 0) {
        EXPECT_EQ(ac, std::max(ab, bc)) << a.type;
    } else if (ab <= 0 && bc <= 0) {
        EXPECT_EQ(ac, std::min(ab, bc)) << a.type;
    }
}

TEST(CompareRecords, TheOrderIsTotalInEverySystem) {
    for (const Region& region : REGIONS) {
        Random random(static_cast<std::uint64_t>(region.type));
        std::vector<tagKOORD> records;
        for (int i = 0; i < 1000; ++i)
            records.push_back(RandomIn(region, random));
        const auto any = [&]() -> const tagKOORD& {
            return records[static_cast<std::size_t>(random.Below(1000))];
        };
        for (int i = 0; i < testing::Samples(10000); ++i)
            ExpectTotalOrder(i % 2 == 0 ? Axis::North : Axis::East, any(), any(), any());
    }
}

TEST(CompareRecords, TheOrderOfPixelsIsTotal) {
    Random random(7);
    const auto whole = [&random] { return LongPixel(random.Below(100) - 50, random.Below(INT32_MAX)); };
    const auto fraction = [&random] { return FloatPixel(random.Between(-1e9, 1e9), random.Below(100)); };
    for (int i = 0; i < 10000; ++i) {
        const Axis axis = i % 2 == 0 ? Axis::North : Axis::East;
        ExpectTotalOrder(axis, whole(), whole(), whole());
        ExpectTotalOrder(axis, fraction(), fraction(), fraction());
    }
}

TEST(CompareRecords, OnlyEqualValuesAreEqual) {
    const double next = std::nextafter(48.0, 49.0);
    EXPECT_EQ(NorthSouth(GeodezRecord(next, 11.0), GeodezRecord(48.0, 11.0)), 1);
    EXPECT_EQ(EastWest(GeodezRecord(48.0, next), GeodezRecord(48.0, 48.0)), 1);
    const double nextNorthing = std::nextafter(5.0e6, 6.0e6);
    EXPECT_EQ(NorthSouth(Utm(32, 'N', 5e5, nextNorthing), Utm(32, 'N', 5e5, 5.0e6)), 1);
    EXPECT_EQ(NorthSouth(Strip(KOORD_GK, 3.5e6, 5.0e6), Strip(KOORD_GK, 3.5e6, nextNorthing)), -1);
}

TEST(CompareRecords, AxesAreIndependent) {
    EXPECT_EQ(EastWest(GeodezRecord(48.0, 11.0), GeodezRecord(-48.0, 11.0)), 0);
    EXPECT_EQ(NorthSouth(GeodezRecord(48.0, 11.0), GeodezRecord(48.0, -11.0)), 0);
}

TEST(CompareRecords, ASmallerRowLiesFurtherNorth) {
    EXPECT_EQ(NorthSouth(LongPixel(10, 20), LongPixel(10, 30)), 1);
    EXPECT_EQ(NorthSouth(LongPixel(10, 30), LongPixel(10, 20)), -1);
    EXPECT_EQ(NorthSouth(LongPixel(0, INT32_MIN), LongPixel(0, INT32_MAX)), 1);
    EXPECT_EQ(EastWest(LongPixel(INT32_MAX, 0), LongPixel(INT32_MIN, 0)), 1);
    EXPECT_EQ(NorthSouth(FloatPixel(0.0, -DBL_MAX), FloatPixel(0.0, 0.5)), 1);
    EXPECT_EQ(EastWest(FloatPixel(0.25, 0.0), FloatPixel(0.5, 0.0)), -1);
}

TEST(CompareRecords, OtherDatumsAndSystemsArentComparable) {
    EXPECT_EQ(NorthSouth(GeodezRecord(48.0, 11.0, 0.0, 2), GeodezRecord(48.0, 11.0, 0.0, 3)), NOT_COMPARABLE);
    EXPECT_EQ(EastWest(GeodezRecord(48.0, 11.0, 0.0, 2), GeodezRecord(48.0, 11.0, 0.0, 3)), NOT_COMPARABLE);
    EXPECT_EQ(NorthSouth(LongPixel(1, 1), FloatPixel(1.0, 1.0)), NOT_COMPARABLE);
    EXPECT_EQ(EastWest(LongPixel(1, 1), FloatPixel(1.0, 1.0)), NOT_COMPARABLE);
}

TEST(CompareRecords, SystemsAboveTheTableArentComparable) {
    for (const std::int32_t type : {KOORD_LAMBERTCC + 0, 24, -1}) {
        const tagKOORD record = MakeKoord(2, type);
        EXPECT_EQ(NorthSouth(record, record), NOT_COMPARABLE);
        EXPECT_EQ(EastWest(record, record), NOT_COMPARABLE);
    }
}

TEST(CompareRecords, ANaNIsNeverNorthOrEast) {
    const tagKOORD nan = GeodezRecord(NOT_A_NUMBER, NOT_A_NUMBER);
    const tagKOORD here = GeodezRecord(48.0, 11.0);
    EXPECT_EQ(NorthSouth(nan, here), -1);
    EXPECT_EQ(NorthSouth(here, nan), -1);
    EXPECT_EQ(EastWest(nan, here), -1);
    EXPECT_EQ(EastWest(here, nan), -1);
    EXPECT_EQ(NorthSouth(FloatPixel(0.0, NOT_A_NUMBER), FloatPixel(0.0, 1.0)), -1);
    EXPECT_EQ(NorthSouth(FloatPixel(0.0, 1.0), FloatPixel(0.0, NOT_A_NUMBER)), -1);
}

TEST(CompareRecords, DefaultPositionsEqualThemselves) {
    for (std::int32_t type = 0; type <= KOORD_LUREF; ++type) {
        CKoord koord;
        ASSERT_TRUE(DefaultKoord(2, type, &koord));
        EXPECT_EQ(NorthSouth(koord, koord), 0) << type;
        EXPECT_EQ(EastWest(koord, koord), 0) << type;
    }
}

TEST(CompareRecords, ThePolarAxisEqualsOnlyItselfInTheEast) {
    // On the axis there is no longitude: no other point of it lies east, but each is where it is.
    const tagKOORD centre = Record(KOORD_ECEF, EcefPayload{0.0, 0.0, 0.0});
    const tagKOORD pole = Record(KOORD_ECEF, EcefPayload{0.0, 0.0, 6356752.0});
    for (const tagKOORD& point : {centre, pole}) {
        EXPECT_EQ(EastWest(point, point), 0);
        EXPECT_EQ(NorthSouth(point, point), 0);
    }
    EXPECT_EQ(EastWest(centre, pole), -1);
    EXPECT_EQ(EastWest(pole, centre), -1);
}

TEST(CompareRecords, ARecordOfTheSameBytesIsEqualWhateverItHolds) {
    const tagKOORD nan = GeodezRecord(NOT_A_NUMBER, NOT_A_NUMBER);
    EXPECT_EQ(NorthSouth(nan, nan), 0);
    EXPECT_EQ(EastWest(nan, nan), 0);
    TmPayload tm{};
    tm.easting = NOT_A_NUMBER;
    tm.scale = NOT_A_NUMBER;
    EXPECT_EQ(EastWest(Record(KOORD_TM, tm), Record(KOORD_TM, tm)), 0);
    EXPECT_EQ(NorthSouth(Record(KOORD_TM, tm), Record(KOORD_TM, tm)), 0);
}

TEST(CompareRecords, TheDefaultUtmrefDoesntExistInTheOtherLettering) {
    CKoord koord;
    ASSERT_TRUE(DefaultKoord(3, KOORD_UTMREF, &koord));
    EXPECT_EQ(NorthSouth(koord, koord), NOT_COMPARABLE);
    EXPECT_EQ(EastWest(koord, koord), NOT_COMPARABLE);
}

TEST(CompareRecords, TheNorthernHemisphereLiesNorthOfTheSouthern) {
    EXPECT_EQ(NorthSouth(Utm(32, 'N', 5e5, 0.0), Utm(32, 'S', 5e5, 9999999.0)), 1);
    EXPECT_EQ(NorthSouth(Utm(32, 's', 5e5, 9999999.0), Utm(32, 'n', 5e5, 0.0)), -1);
    EXPECT_EQ(NorthSouth(Utm(32, 'N', 5e5, 0.0), Utm(32, 'S', 5e5, 1.0e7)), 0);
    EXPECT_EQ(NorthSouth(Utm(32, 'S', 5e5, 2.0e6), Utm(32, 'S', 5e5, 3.0e6)), -1);
}

TEST(CompareRecords, UpsOrdersTheHemispheresFirst) {
    EXPECT_EQ(NorthSouth(Ups('N', 2e6, 1e6), Ups('S', 2e6, 3e6)), 1);
    EXPECT_EQ(NorthSouth(Ups('n', 2e6, 1e6), Ups('S', 2e6, 3e6)), 1);
    EXPECT_EQ(NorthSouth(Ups('s', 2e6, 3e6), Ups('N', 2e6, 1e6)), -1);
    EXPECT_EQ(NorthSouth(Ups('S', 2e6, 3e6), Ups('S', 2e6, 1e6)), 1);
    EXPECT_EQ(NorthSouth(Ups('x', 2e6, 1e6), Ups('S', 2e6, 3e6)), -1);  // by northing
    EXPECT_EQ(EastWest(Ups('N', 2.5e6, 1e6), Ups('S', 2e6, 3e6)), 1);
}

TEST(CompareRecords, TheZoneCountsBeforeTheEasting) {
    EXPECT_EQ(EastWest(Utm(33, 'N', 2e5, 5e6), Utm(32, 'N', 7e5, 5e6)), 1);
    EXPECT_EQ(EastWest(Utm(32, 'N', 6e5, 5e6), Utm(32, 'N', 7e5, 5e6)), -1);
    EXPECT_EQ(EastWest(Strip(KOORD_GK, 4.4e6, 5e6), Strip(KOORD_GK, 3.6e6, 5e6)), 1);
    EXPECT_EQ(EastWest(Austrian(KOORD_GKAT, 31, -1e5, 5.2e6), Austrian(KOORD_GKAT, 28, 1e5, 5.2e6)), 1);
    EXPECT_EQ(EastWest(Austrian(KOORD_OEM, 31, 7e5, 5.2e6), Austrian(KOORD_OEM, 31, 8e5, 5.2e6)), -1);
}

TEST(CompareRecords, WesternStripsCountEastwardToo) {
    EXPECT_EQ(EastWest(Strip(KOORD_GK, -1400000.0, 5e6), Strip(KOORD_GK, -1600000.0, 5e6)), -1);
    EXPECT_EQ(EastWest(Strip(KOORD_GK, -1600000.0, 5e6), Strip(KOORD_GK, 400000.0, 5e6)), -1);
    EXPECT_EQ(EastWest(Strip(KOORD_GK6, -2600000.0, 5e6), Strip(KOORD_GK6, -1400000.0, 5e6)), -1);
}

TEST(CompareRecords, AWantedZoneIsBroughtHomeFirst) {
    // In zone 33 the position at 9.2 degrees has the larger zone; at home in 32 it lies west of 9.5.
    EXPECT_EQ(EastWest(UtmAt(48.0, 9.2, 33), UtmAt(48.0, 9.5)), -1);
    EXPECT_EQ(EastWest(UtmAt(48.0, 9.5), UtmAt(48.0, 9.2, 33)), 1);
    EXPECT_EQ(EastWest(UtmAt(48.0, 9.7, 31), UtmAt(48.0, 9.5)), 1);
    EXPECT_EQ(EastWest(StripAt(KOORD_GK, 48.0, 9.2, 12), StripAt(KOORD_GK, 48.0, 9.5)), -1);
    EXPECT_EQ(EastWest(StripAt(KOORD_GK6, 48.0, 5.0, 9), StripAt(KOORD_GK6, 48.0, 5.5)), -1);
    EXPECT_EQ(EastWest(BmnAt(47.0, 13.0, 34), BmnAt(47.0, 13.2)), -1);
}

TEST(CompareRecords, AZoneThatIsWantedAndNaturalAddsNoNoise) {
    const tagKOORD plain = UtmAt(48.0, 9.2);
    const tagKOORD wanted = UtmAt(48.0, 9.2, 32);
    EXPECT_EQ(EastWest(wanted, plain), 0);
    EXPECT_EQ(NorthSouth(wanted, plain), 0);
}

TEST(CompareRecords, AWantedZoneThatTheRecordIsntInBringsItHomeToo) {
    tagKOORD record = UtmAt(48.0, 9.2, 33);
    auto payload = Load<UtmPayload>(record);
    payload.wantedZone = 40;
    Store(record, payload);
    EXPECT_EQ(EastWest(record, UtmAt(48.0, 9.5)), -1);
}

TEST(CompareRecords, MeridianZeroIsAWantedMeridian) {
    tagKOORD wanting = StripAt(KOORD_GK, 48.0, 12.4);
    auto payload = Load<GkPayload>(wanting);
    payload.wantedMeridian = 0;
    Store(wanting, payload);
    EXPECT_EQ(EastWest(wanting, StripAt(KOORD_GK, 48.0, 12.3)), 1);
    EXPECT_EQ(EastWest(wanting, StripAt(KOORD_GK, 48.0, 12.5)), -1);
}

TEST(CompareRecords, MeridiansThatTheSystemHasntGotAreNotWanted) {
    // 10 is no multiple of 3, and 0 is no GK6 meridian: the records compare as they stand.
    EXPECT_EQ(EastWest(Strip(KOORD_GK, 9.9e6, 5e6, 10), Strip(KOORD_GK, 3.5e6, 5e6)), 1);
    EXPECT_EQ(EastWest(Strip(KOORD_GK6, 9.9e6, 5e6, 0), Strip(KOORD_GK6, 3.5e6, 5e6)), 1);
    EXPECT_EQ(EastWest(Utm(33, 'N', 9e5, 5e6, 61), Utm(32, 'N', 1e5, 5e6, 0)), 1);
    EXPECT_EQ(EastWest(Austrian(KOORD_BMN, 31, 9e5, 2e5, 27), Austrian(KOORD_BMN, 31, 5e5, 2e5, 35)), 1);
}

TEST(CompareRecords, BeyondTheOutermostCentralLineAWantedZoneStays) {
    // The order isn't cyclic: 180 degrees in zone 60 is the east end, in zone 1 the west end.
    const tagKOORD eastEnd = UtmAt(0.0, 180.0, 60);
    const tagKOORD westEnd = UtmAt(0.0, -180.0, 1);
    EXPECT_EQ(EastWest(eastEnd, UtmAt(0.0, -179.0)), 1);
    EXPECT_EQ(EastWest(eastEnd, UtmAt(0.0, 179.9)), 1);
    EXPECT_EQ(EastWest(westEnd, UtmAt(0.0, -173.0)), -1);
    EXPECT_EQ(EastWest(westEnd, UtmAt(0.0, -179.9)), -1);
    EXPECT_EQ(EastWest(UtmAt(0.0, 181.0, 60), UtmAt(0.0, -179.0)), 1);
    // West of the central line of zone 60 the wanted zone is brought home.
    EXPECT_EQ(EastWest(UtmAt(0.0, 173.0, 60), UtmAt(0.0, 173.5)), -1);
    // East of that of zone 1 likewise.
    EXPECT_EQ(EastWest(UtmAt(0.0, -173.0, 1), UtmAt(0.0, -173.5)), 1);

    EXPECT_EQ(EastWest(StripAt(KOORD_GK, 0.0, 181.0, 180), StripAt(KOORD_GK, 0.0, 180.5)), 1);
    EXPECT_EQ(EastWest(StripAt(KOORD_GK, 0.0, -181.0, -180), StripAt(KOORD_GK, 0.0, -180.5)), -1);
    EXPECT_EQ(EastWest(StripAt(KOORD_GK, 0.0, 179.0, 180), StripAt(KOORD_GK, 0.0, 179.5)), -1);
    // The system ends at 181.5 degrees: a position beyond has no zone other than the one it wants.
    EXPECT_EQ(EastWest(StripAt(KOORD_GK, 0.0, 181.7, 180), StripAt(KOORD_GK, 0.0, 181.0)), 1);
    EXPECT_EQ(EastWest(StripAt(KOORD_GK, 0.0, -181.7, -180), StripAt(KOORD_GK, 0.0, 179.0)), -1);
}

TEST(CompareRecords, TheOutermostMeridiansOfGk6AreBroughtHomeToo) {
    EXPECT_EQ(EastWest(StripAt(KOORD_GK6, 48.0, -173.0, -177), StripAt(KOORD_GK6, 48.0, -173.5)), 1);
    EXPECT_EQ(EastWest(StripAt(KOORD_GK6, 48.0, 173.0, 177), StripAt(KOORD_GK6, 48.0, 173.5)), -1);
}

TEST(CompareRecords, TheAustrianSystemsStayBeyondTheirEasternMeridianOnly) {
    // East of 17.83 and west of 8.83 degrees the systems end.
    EXPECT_EQ(EastWest(BmnAt(47.0, 18.2, 34), BmnAt(47.0, 17.5)), 1);
    EXPECT_EQ(EastWest(BmnAt(47.0, 8.5, 28), BmnAt(47.0, 9.0)), NOT_COMPARABLE);
    // The other wanted meridians are brought home, and so is a number that is no meridian.
    EXPECT_EQ(EastWest(BmnAt(47.0, 9.5, 28), BmnAt(47.0, 9.4)), 1);
    EXPECT_EQ(EastWest(Austrian(KOORD_BMN, 28, 1.5e5, 2e5, 30), Austrian(KOORD_BMN, 28, 1.6e5, 2e5)), -1);
    for (std::int16_t wanted = 27; wanted <= 35; ++wanted) {
        // At 13 degrees, but written on the meridian 34.
        tagKOORD record = BmnAt(47.0, 13.0, 34);
        auto payload = Load<BmnPayload>(record);
        payload.wantedMeridian = wanted;
        Store(record, payload);
        const bool isBroughtHome = wanted > 27 && wanted < 35;
        EXPECT_EQ(EastWest(record, BmnAt(47.0, 13.2)), isBroughtHome ? -1 : 1) << wanted;
    }
}

TEST(CompareRecords, AWantedZoneThatDoesntConvertIsntComparable) {
    EXPECT_EQ(EastWest(Utm(0, 'N', 5e5, 5e6, 5), Utm(32, 'N', 5e5, 5e6)), NOT_COMPARABLE);
    EXPECT_EQ(EastWest(Utm(32, 'N', 5e5, 5e6), Utm(0, 'N', 5e5, 5e6, 5)), NOT_COMPARABLE);
    EXPECT_EQ(EastWest(Austrian(KOORD_BMN, 29, 5e5, 2e5, 31), Austrian(KOORD_BMN, 31, 5e5, 2e5)),
              NOT_COMPARABLE);
    EXPECT_EQ(EastWest(Austrian(KOORD_BMN, 29, 5e5, 2e5, 34), Austrian(KOORD_BMN, 31, 5e5, 2e5)),
              NOT_COMPARABLE);
    // The northing needs no zone.
    EXPECT_EQ(NorthSouth(Utm(0, 'N', 5e5, 6e6, 5), Utm(32, 'N', 5e5, 5e6)), 1);
}

TEST(CompareRecords, AnEastingWithoutAStripIsntComparable) {
    EXPECT_EQ(EastWest(Strip(KOORD_GK, NOT_A_NUMBER, 5e6), Strip(KOORD_GK, 3.5e6, 5e6)), NOT_COMPARABLE);
    EXPECT_EQ(EastWest(Strip(KOORD_GK, 3.5e6, 5e6), Strip(KOORD_GK, 1e300, 5e6)), NOT_COMPARABLE);
}

TEST(CompareRecords, UtmrefComparesItsSquares) {
    EXPECT_EQ(EastWest(Utmref(32, 'U', "QA", 0, 0), Utmref(32, 'U', "PA", 99999, 0)), 1);
    EXPECT_EQ(NorthSouth(Utmref(32, 'U', "QA", 0, 1), Utmref(32, 'U', "QA", 0, 0)), 1);
    // The rows close in a ring: N 7000000 (R) lies north of N 5400000 (A).
    EXPECT_EQ(NorthSouth(Utmref(32, 'W', "NR", 0, 0), Utmref(32, 'U', "NA", 0, 0)), 1);
    EXPECT_EQ(NorthSouth(Utmref(32, 'N', "NF", 0, 0), Utmref(32, 'M', "NE", 0, 99999)), 1);
}

// The conversion through degrees moves an easting toward the central meridian, by up to 5e-8 m that depend on
// the northing. Whole metres are what codes with equal digits have in common.
TEST(CompareRecords, UtmrefsWithEqualEastDigitsAreEqualInTheEast) {
    Random random(733);
    for (const char* square : {"KU", "LU", "MU", "PU", "QU"}) {
        for (int i = 0; i < 200; ++i) {
            const std::int32_t easting = random.Below(100000);
            const tagKOORD a = Utmref(32, 'U', square, easting, random.Below(100000));
            const tagKOORD b = Utmref(32, 'U', square, easting, random.Below(100000));
            ASSERT_EQ(EastWest(a, b), 0) << square << " " << easting;
        }
    }
}

TEST(CompareRecords, UtmrefsBeyondTheLimitsOfUtmAreComparable) {
    // Northings 9329000 and 9328500 at 3 degrees east, where UTM ends at 9328094.
    tagKOORD codes[2];
    for (int i = 0; i < 2; ++i) {
        codes[i] = Utmref(31, 'X', "EP", 0, 0);
        const tagKOORD utm = Utm(31, 'N', 5e5 + 100.0 * i, 9329000.0 - 500.0 * i);
        ASSERT_EQ(KoordConvertEx(&utm, &codes[i], 0), KOORD_OK);
    }
    EXPECT_EQ(EastWest(codes[0], codes[1]), -1);
    EXPECT_EQ(NorthSouth(codes[0], codes[1]), 1);
}

TEST(CompareRecords, UtmrefsWithoutAPlaceArentComparable) {
    for (const tagKOORD& nowhere : {Utmref(32, 'I', "QA", 0, 0), Utmref(32, 'U', "IA", 0, 0),
                                    Utmref(0, 'U', "QA", 0, 0), Utmref(32, 'U', "QR", 0, 0)}) {
        EXPECT_EQ(NorthSouth(nowhere, nowhere), NOT_COMPARABLE);
        EXPECT_EQ(EastWest(Utmref(32, 'U', "QA", 0, 0), nowhere), NOT_COMPARABLE);
    }
}

TEST(CompareRecords, GeorefComparesWholeDegrees) {
    const auto georef = [](const char* letters, std::int16_t lonMinutes, std::int16_t latMinutes) {
        return Record(KOORD_GEOREF, GeorefPayload{5, letters[0], letters[1], letters[2], letters[3],
                                                  lonMinutes, latMinutes});
    };
    EXPECT_EQ(NorthSouth(georef("NKFB", 0, 5999), georef("NKFB", 0, 0)), 0);
    EXPECT_EQ(EastWest(georef("NKFB", 5999, 0), georef("NKFB", 0, 0)), 0);
    EXPECT_EQ(NorthSouth(georef("NKFC", 0, 0), georef("NKFB", 0, 5999)), 1);
    EXPECT_EQ(EastWest(georef("NKFB", 0, 0), georef("NKGB", 0, 0)), -1);
    // Only the letters of the axis are looked at.
    EXPECT_EQ(NorthSouth(georef("I?IB", 0, 0), georef("NKFB", 0, 0)), NOT_COMPARABLE);
    EXPECT_EQ(NorthSouth(georef("IKIC", 0, 0), georef("?K?B", 0, 0)), 1);
}

TEST(CompareRecords, DegreesMinutesAndSecondsCompareAsDegrees) {
    const auto geograd = [](std::int16_t degrees, std::int16_t minutes, double seconds, char letter) {
        GeogradPayload payload{};
        payload.latDegrees = degrees;
        payload.latMinutes = minutes;
        payload.latSeconds = seconds;
        payload.latHemisphere = letter;
        return Record(KOORD_GEOGRAD, payload, NO_DATUM);  // the datum isn't used
    };
    EXPECT_EQ(NorthSouth(geograd(48, 30, 0.0, 'N'), geograd(48, 29, 59.0, 'N')), 1);
    EXPECT_EQ(NorthSouth(geograd(48, 30, 0.0, 'S'), geograd(48, 29, 59.0, 'S')), -1);
    EXPECT_EQ(NorthSouth(geograd(0, 0, 0.0, 'S'), geograd(0, 0, 0.0, 'N')), 0);
}

TEST(CompareRecords, NothingSpecialHappensAtTheDateLine) {
    EXPECT_EQ(EastWest(GeodezRecord(0.0, 179.0), GeodezRecord(0.0, -179.0)), 1);
    EXPECT_EQ(EastWest(GeodezRecord(0.0, 350.0), GeodezRecord(0.0, 10.0)), 1);
}

TEST(CompareRecords, ProjectionsWithTheirOwnParametersMustAgreeInThem) {
    const TmPayload tm{9.0, 48.0, 5e5, 1e5, 0.9996, 1000.0, 2000.0};
    TmPayload further = tm;
    further.easting = 3000.0;
    further.northing = 4000.0;
    EXPECT_EQ(EastWest(Record(KOORD_TM, further), Record(KOORD_TM, tm)), 1);
    EXPECT_EQ(NorthSouth(Record(KOORD_TM, tm), Record(KOORD_TM, further)), -1);
    for (double TmPayload::*parameter :
         {&TmPayload::originLongitude, &TmPayload::originLatitude, &TmPayload::falseEasting,
          &TmPayload::falseNorthing, &TmPayload::scale}) {
        TmPayload other = tm;
        other.*parameter = std::nextafter(other.*parameter, 1e9);
        EXPECT_EQ(EastWest(Record(KOORD_TM, other), Record(KOORD_TM, tm)), NOT_COMPARABLE);
        EXPECT_EQ(NorthSouth(Record(KOORD_TM, tm), Record(KOORD_TM, other)), NOT_COMPARABLE);
    }
    const VdgPayload vdg{0.0, 0.0, 1000.0, 2000.0};
    EXPECT_EQ(EastWest(Record(KOORD_VDG, VdgPayload{0.0, 0.0, 1001.0, 0.0}), Record(KOORD_VDG, vdg)), 1);
    EXPECT_EQ(NorthSouth(Record(KOORD_VDG, VdgPayload{0.0, 0.0, 0.0, 1999.0}), Record(KOORD_VDG, vdg)), -1);
    EXPECT_EQ(EastWest(Record(KOORD_VDG, VdgPayload{1.0, 0.0, 1.0, 2.0}), Record(KOORD_VDG, vdg)),
              NOT_COMPARABLE);
    EXPECT_EQ(NorthSouth(Record(KOORD_VDG, VdgPayload{0.0, 1.0, 1.0, 2.0}), Record(KOORD_VDG, vdg)),
              NOT_COMPARABLE);
}

TEST(CompareRecords, LetteredGridsCompareTheWholeGrid) {
    const char none[2] = {0, 0};
    // TQ begins at 500000, 100000; SU at 400000, 100000.
    EXPECT_EQ(EastWest(LetterGrid(KOORD_BNG, "TQ", 10.0, 20.0, 0.0, 0.0),
                       LetterGrid(KOORD_BNG, "SU", 99000.0, 20.0, 0.0, 0.0)),
              1);
    EXPECT_EQ(EastWest(LetterGrid(KOORD_BNG, "TQ", 10.0, 20.0, 0.0, 0.0),
                       LetterGrid(KOORD_BNG, none, 0.0, 0.0, 499000.0, 100020.0)),
              1);
    EXPECT_EQ(NorthSouth(LetterGrid(KOORD_ING, "IO", 10.0, 20.0, 0.0, 0.0),
                         LetterGrid(KOORD_ING, none, 0.0, 0.0, 300000.0, 200100.0)),
              -1);
    EXPECT_EQ(EastWest(LetterGrid(KOORD_BNG, "IQ", 10.0, 20.0, 0.0, 0.0),
                       LetterGrid(KOORD_BNG, "TQ", 10.0, 20.0, 0.0, 0.0)),
              NOT_COMPARABLE);
}

TEST(CompareRecords, AnEcefIsComparedOnItsOwnDatum) {
    EXPECT_EQ(EastWest(Record(KOORD_ECEF, EcefPayload{0.0, 6378137.0, 0.0}),
                       Record(KOORD_ECEF, EcefPayload{6378137.0, 0.0, 0.0})),
              1);
    EXPECT_EQ(NorthSouth(Record(KOORD_ECEF, EcefPayload{4e6, 0.0, 4e6}),
                         Record(KOORD_ECEF, EcefPayload{4e6, 0.0, -4e6})),
              1);
    EXPECT_EQ(EastWest(Record(KOORD_ECEF, EcefPayload{1.0, 1.0, 1.0}, NO_DATUM),
                       Record(KOORD_ECEF, EcefPayload{1.0, 1.0, 1.0}, NO_DATUM)),
              NOT_COMPARABLE);
}

TEST(CompareRecords, EverySystemLiesWithinItsExtremes) {
    for (const Region& region : REGIONS) {
        // The free projections have other parameters in their extremes, or none.
        if (region.type == KOORD_TM || region.type == KOORD_ECEF) continue;
        SystemExtremes extremes;
        ASSERT_TRUE(FindSystemExtremes(region.datum, region.type, &extremes));
        Random random(5);
        for (int i = 0; i < 100; ++i) {
            const tagKOORD record = RandomIn(region, random);
            EXPECT_EQ(NorthSouth(extremes[0], record), 1) << region.type;
            EXPECT_EQ(EastWest(extremes[1], record), 1) << region.type;
            EXPECT_EQ(NorthSouth(record, extremes[2]), 1) << region.type;
            EXPECT_EQ(EastWest(record, extremes[3]), 1) << region.type;
        }
    }
}

TEST(CompareRecords, GarbageEnds) {
    Random random(11);
    for (int i = 0; i < 5000; ++i) {
        tagKOORD records[2];
        const std::int32_t type = random.Below(KOORD_TYPE_COUNT);
        for (tagKOORD& record : records) {
            record = testing::ArbitraryPayload(random, 2, type);
        }
        for (const Axis axis : {Axis::North, Axis::East}) {
            const std::int32_t order = CompareRecords(axis, records[0], records[1]);
            EXPECT_TRUE(order >= -2 && order <= 1);
        }
    }
}

}  // namespace
}  // namespace tessara

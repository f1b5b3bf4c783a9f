#include "records/zones.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <set>
#include <string>

#include "numerics/special_values.h"
#include "support/zoned_records.h"

namespace tessara {
namespace {

using testing::AustrianRecord;
using testing::SameRecord;
using testing::StripRecord;
using testing::UtmRecord;
using testing::UtmrefRecord;

const std::set<std::int32_t> ZONED{2, 3, 7, 8, 9, 13, 14};

double EastingOf(const tagKOORD& record) {
    return BytesAs<GkPayload>(record).easting;  // UTM and the Austrian systems have theirs in the same place
}

// Every operation leaves the other fields unchanged.
void ExpectNorthingHeightAndReferenceOf(const CKoord& moved, const CKoord& original) {
    EXPECT_EQ(moved.datum, original.datum);
    EXPECT_EQ(moved.type, original.type);
    EXPECT_EQ(BytesAs<GkPayload>(moved).northing, BytesAs<GkPayload>(original).northing);
    EXPECT_EQ(moved.GetHeight(), original.GetHeight());
}

TEST(ZonesExist, InSevenSystems) {
    for (std::int32_t system = -2; system <= 30; ++system)
        EXPECT_EQ(zones::Exist(system), ZONED.count(system) == 1) << system;
    EXPECT_FALSE(zones::Exist(INT_MIN));
    EXPECT_FALSE(zones::Exist(INT_MAX));
}

TEST(ZonesNumber, IsTheZoneField) {
    EXPECT_EQ(zones::Number(UtmRecord(2, 'N', 32, 500000.0, 0.0)), 32);
    EXPECT_EQ(zones::Number(UtmRecord(2, 'N', -5, 500000.0, 0.0)), -5) << "as it stands there";
    EXPECT_EQ(zones::Number(UtmrefRecord(2, 17, "TPJ", 0, 0)), 17);
    EXPECT_EQ(zones::Number(AustrianRecord(6, KOORD_BMN, 28, 0.0, 0.0)), 28);
    EXPECT_EQ(zones::Number(AustrianRecord(6, KOORD_OEM, 31, 0.0, 0.0)), 31);
    EXPECT_EQ(zones::Number(AustrianRecord(6, KOORD_GKAT, 34, 0.0, 0.0)), 34);
}

TEST(ZonesNumber, IsTheMillionsOfAStripEasting) {
    for (const std::int32_t system : {KOORD_GK, KOORD_GK6}) {
        EXPECT_EQ(zones::Number(StripRecord(3, system, 3600000.0, 0.0)), 3);
        EXPECT_EQ(zones::Number(StripRecord(3, system, 3999999.999, 0.0)), 3);
        EXPECT_EQ(zones::Number(StripRecord(3, system, 600000.0, 0.0)), 0);
        EXPECT_EQ(zones::Number(StripRecord(3, system, -600000.0, 0.0)), 0);
        EXPECT_EQ(zones::Number(StripRecord(3, system, -1600000.0, 0.0)), -1);
        EXPECT_EQ(zones::Number(StripRecord(3, system, NOT_A_NUMBER, 0.0)), INT_MIN);
        EXPECT_EQ(zones::Number(StripRecord(3, system, INFINITE, 0.0)), INT_MIN);
        EXPECT_EQ(zones::Number(StripRecord(3, system, -1e300, 0.0)), INT_MIN);
    }
}

TEST(ZonesNumberAndFactor, AreUnknownWithoutZones) {
    for (std::int32_t system = -1; system <= 25; ++system) {
        const bool isZoned = ZONED.count(system) == 1;
        const CKoord record(MakeKoord(2, system));
        EXPECT_EQ(zones::Number(record) == INT_MIN, !isZoned) << system;
        EXPECT_EQ(zones::Factor(record), isZoned ? 1000000 : INT_MIN) << system;
    }
}

struct StripRow {
    double easting;
    std::int32_t strip;
    double offset;
};

TEST(ZonesStrip, ComesApartAndTogether) {
    const StripRow rows[] = {
        {3600000.0, 3, 600000.0}, {3000000.0, 3, 0.0}, {-1600000.0, -1, 600000.0}, {-1400000.0, -1, 400000.0},
        {600000.0, 0, 600000.0},  {0.0, 0, 0.0},       {60499999.5, 60, 499999.5},
    };
    for (const StripRow& row : rows) {
        for (const std::int32_t system : {KOORD_GK, KOORD_GK6}) {
            StripEasting parts{};
            ASSERT_TRUE(zones::SplitStrip(StripRecord(3, system, row.easting, 0.0), &parts));
            EXPECT_EQ(parts.strip, row.strip) << row.easting;
            EXPECT_EQ(parts.offset, row.offset) << row.easting;
            EXPECT_EQ(zones::JoinStrip(parts), row.easting);
        }
    }
}

TEST(ZonesStrip, AnEastingWestOfStripZeroLosesItsSign) {
    StripEasting parts{};
    ASSERT_TRUE(zones::SplitStrip(StripRecord(3, KOORD_GK, -600000.0, 0.0), &parts));
    EXPECT_EQ(parts.strip, 0);
    EXPECT_EQ(parts.offset, 600000.0);
    EXPECT_EQ(zones::JoinStrip(parts), 600000.0);
}

TEST(ZonesStrip, IsOnlyInGkAndGk6AndOnlyInNumbers) {
    StripEasting parts{7, 8.0};
    for (std::int32_t system = -1; system <= 25; ++system) {
        if (system == KOORD_GK || system == KOORD_GK6) continue;
        EXPECT_FALSE(zones::SplitStrip(StripRecord(3, system, 3600000.0, 0.0), &parts)) << system;
    }
    EXPECT_FALSE(zones::SplitStrip(StripRecord(3, KOORD_GK, NOT_A_NUMBER, 0.0), &parts));
    EXPECT_FALSE(zones::SplitStrip(StripRecord(3, KOORD_GK6, INFINITE, 0.0), &parts));
    EXPECT_EQ(parts.strip, 7);
    EXPECT_EQ(parts.offset, 8.0);
}

// The central line.

void ExpectCentre(CKoord record, double easting) {
    record.SetHeight(12.5);
    CKoord centre = record;
    EXPECT_TRUE(zones::MoveToCentre(&centre));
    EXPECT_EQ(EastingOf(centre), easting) << record.type;
    ExpectNorthingHeightAndReferenceOf(centre, record);
    EXPECT_EQ(zones::Number(centre), zones::Number(record));
}

TEST(ZonesCentre, OfUtmIs500000) {
    ExpectCentre(UtmRecord(2, 'S', 32, 716000.0, 9e6), 500000.0);
    ExpectCentre(UtmRecord(2, 'N', 1, -7.0, 5e6), 500000.0);
}

TEST(ZonesCentre, OfAStripIsItsMiddle) {
    for (const std::int32_t system : {KOORD_GK, KOORD_GK6}) {
        ExpectCentre(StripRecord(3, system, 3600000.0, 5e6), 3500000.0);
        ExpectCentre(StripRecord(3, system, 3400000.0, 5e6), 3500000.0);
        ExpectCentre(StripRecord(3, system, 600000.0, 5e6), 500000.0);
        ExpectCentre(StripRecord(3, system, -1600000.0, 5e6), -1500000.0);
        ExpectCentre(StripRecord(3, system, -1400000.0, 5e6), -1500000.0);
    }
}

TEST(ZonesCentre, WestOfStripZeroIsThatOfStripZero) {
    ExpectCentre(StripRecord(3, KOORD_GK, -600000.0, 5e6), 500000.0);
}

TEST(ZonesCentre, OfTheAustrianSystemsGoesByTheMeridian) {
    const struct {
        std::int16_t meridian;
        double bmn, oem;
    } rows[] = {{28, 150000.0, 450000.0}, {31, 450000.0, 750000.0}, {34, 750000.0, 1050000.0}};
    for (const auto& row : rows) {
        ExpectCentre(AustrianRecord(6, KOORD_BMN, row.meridian, 1.0, 2e5), row.bmn);
        ExpectCentre(AustrianRecord(6, KOORD_OEM, row.meridian, 1.0, 5.2e6), row.oem);
        ExpectCentre(AustrianRecord(6, KOORD_GKAT, row.meridian, 1.0, 5.2e6), 0.0);
    }
}

TEST(ZonesCentre, OfUtmrefIsTheLeftEdgeOfAColumn) {
    const char columns[] = {'E', 'N', 'W'};  // zones 1, 2, 3, and so on around the earth
    for (std::int16_t zone = 1; zone <= 60; ++zone) {
        CKoord record = UtmrefRecord(2, zone, "UQA", 12345, 67890);
        ASSERT_TRUE(zones::MoveToCentre(&record)) << zone;
        const auto payload = Load<UtmrefPayload>(record);
        EXPECT_EQ(payload.column, columns[(zone - 1) % 3]) << zone;
        EXPECT_EQ(payload.easting, 0);
        EXPECT_EQ(payload.band, 'U');
        EXPECT_EQ(payload.row, 'A');
        EXPECT_EQ(payload.northing, 67890);
        EXPECT_EQ(payload.zone, zone);
    }
}

TEST(ZonesCentre, DoesntExistWithoutAZone) {
    const CKoord records[] = {
        UtmrefRecord(2, 0, "UQA", 12345, 0),        UtmrefRecord(2, 61, "UQA", 12345, 0),
        UtmrefRecord(2, -1, "UQA", 12345, 0),       AustrianRecord(6, KOORD_BMN, 29, 1.0, 2.0),
        AustrianRecord(6, KOORD_BMN, 0, 1.0, 2.0),  AustrianRecord(6, KOORD_OEM, 37, 1.0, 2.0),
        AustrianRecord(6, KOORD_OEM, 25, 1.0, 2.0),
    };
    for (const CKoord& record : records) {
        CKoord centre = record;
        EXPECT_FALSE(zones::MoveToCentre(&centre));
        EXPECT_TRUE(SameRecord(centre, record));
    }
    for (std::int32_t system = -1; system <= 25; ++system) {
        if (ZONED.count(system) == 1) continue;
        CKoord centre = StripRecord(2, system, 1.0, 2.0);
        EXPECT_FALSE(zones::MoveToCentre(&centre)) << system;
        EXPECT_TRUE(SameRecord(centre, StripRecord(2, system, 1.0, 2.0))) << system;
    }
}

TEST(ZonesCentre, OfAStripThatIsNoNumberIsNone) {
    CKoord record = StripRecord(3, KOORD_GK, NOT_A_NUMBER, 5e6);
    EXPECT_TRUE(zones::MoveToCentre(&record));
    EXPECT_TRUE(std::isnan(EastingOf(record)));
}

// Into another zone.

// What is wanted before, and is to be cleared.
CKoord Wanting(CKoord record) {
    if (record.type == KOORD_UTM || record.type == KOORD_GK || record.type == KOORD_GK6) {
        auto payload = BytesAs<UtmPayload>(record);
        payload.wantedZone = 33;
        Store(record, payload);
    } else {
        auto payload = BytesAs<BmnPayload>(record);
        payload.wantedMeridian = 34;
        Store(record, payload);
    }
    return record;
}

std::int16_t WantedOf(const tagKOORD& record) {
    const bool afterALetter = record.type == KOORD_UTM || record.type == KOORD_GK || record.type == KOORD_GK6;
    return afterALetter ? BytesAs<UtmPayload>(record).wantedZone : BytesAs<BmnPayload>(record).wantedMeridian;
}

// Moves `record` and expects `moved`.
void ExpectMove(const CKoord& record, std::int32_t delta, const CKoord& moved) {
    CKoord result = Wanting(record);
    result.SetHeight(12.5);
    EXPECT_TRUE(zones::Move(delta, &result)) << record.type << " by " << delta;
    EXPECT_TRUE(SameRecord(result, moved))
        << record.type << " by " << delta << ": zone " << zones::Number(result);
    EXPECT_EQ(WantedOf(result), -1000);
    EXPECT_EQ(result.GetHeight(), 12.5);
}

struct MoveRow {
    std::int32_t from, delta, to;
};

TEST(ZonesMove, UtmClosesAroundTheEarth) {
    const MoveRow rows[] = {
        {32, 1, 33},
        {32, -1, 31},
        {32, 0, 32},
        {60, 1, 1},
        {1, -1, 60},
        {1, -2, 59},
        {60, 60, 60},
        {1, -60, 1},
        {31, 600, 31},
        {31, -601, 30},
        {59, 1, 60},
        {2, -1, 1},
        // 60 goes 35791394 times into 2^31 and leaves 8, and 7 into 2^31 - 1.
        {1, INT_MAX, 8},
        {60, INT_MIN, 52},
    };
    for (const MoveRow& row : rows) {
        ExpectMove(UtmRecord(2, 'S', static_cast<std::int16_t>(row.from), 716000.0, 9e6), row.delta,
                   UtmRecord(2, 'S', static_cast<std::int16_t>(row.to), 716000.0, 9e6));
    }
}

TEST(ZonesMove, AZoneThatIsNoneIsBroughtBackByItsRemainder) {
    ExpectMove(UtmRecord(2, 'N', 0, 1.0, 2.0), 0, UtmRecord(2, 'N', 60, 1.0, 2.0));
    ExpectMove(UtmRecord(2, 'N', -7, 1.0, 2.0), 0, UtmRecord(2, 'N', 53, 1.0, 2.0));
    ExpectMove(UtmRecord(2, 'N', 100, 1.0, 2.0), 1, UtmRecord(2, 'N', 41, 1.0, 2.0));
}

double StripEastingOf(std::int32_t strip, double offset) {
    return strip < 0 ? strip * 1e6 - offset : strip * 1e6 + offset;
}

TEST(ZonesMove, GkStripsCloseAtSixty) {
    const MoveRow rows[] = {
        {3, 1, 4},
        {3, -1, 2},
        {3, 0, 3},
        {1, -1, 0},
        {0, -1, -1},
        {-1, 1, 0},
        {60, 1, -59},
        {-60, -1, 59},
        {60, 0, 60},
        {-60, 0, -60},
        {60, 120, 60},
        {60, 121, -59},
        {0, 61, -59},
        {0, -61, 59},
        {0, 180, 60},
        {0, -180, -60},
        {59, 1, 60},
        // 120 goes 17895697 times into 2^31 and leaves 8, and 7 into 2^31 - 1.
        {0, INT_MAX, 7},
        {0, INT_MIN, -8},
    };
    for (const MoveRow& row : rows) {
        ExpectMove(StripRecord(3, KOORD_GK, StripEastingOf(row.from, 600000.0), 5e6), row.delta,
                   StripRecord(3, KOORD_GK, StripEastingOf(row.to, 600000.0), 5e6));
    }
}

TEST(ZonesMove, Gk6StripsCloseAtThirtyAndHaveNoZero) {
    const MoveRow rows[] = {
        {2, 1, 3},    {2, -1, 1},    {1, -1, -1},  {-1, 1, 1},     {-2, 2, 1},   {2, -2, -1}, {0, 0, 0},
        {30, 1, -29}, {-30, -1, 29}, {30, 60, 30}, {30, -60, -30}, {1, -61, -1}, {-1, 61, 1}, {1, 90, -29},
    };
    for (const MoveRow& row : rows) {
        ExpectMove(StripRecord(3, KOORD_GK6, StripEastingOf(row.from, 400000.0), 5e6), row.delta,
                   StripRecord(3, KOORD_GK6, StripEastingOf(row.to, 400000.0), 5e6));
    }
}

TEST(ZonesMove, AStripThatIsNoNumberStays) {
    for (const double easting : {NOT_A_NUMBER, INFINITE, -1e300}) {
        const CKoord record = StripRecord(3, KOORD_GK, easting, 5e6);
        CKoord moved = record;
        EXPECT_FALSE(zones::Move(1, &moved));
        EXPECT_TRUE(SameRecord(moved, record));
    }
}

TEST(ZonesMove, AustrianMeridiansAreThreeApart) {
    const MoveRow rows[] = {{28, 1, 31},  {28, 2, 34},  {31, 0, 31}, {31, 1, 34},
                            {31, -1, 28}, {34, -2, 28}, {29, 1, 32}};
    for (const MoveRow& row : rows) {
        const auto from = static_cast<std::int16_t>(row.from);
        const auto to = static_cast<std::int16_t>(row.to);
        const double step = row.delta * 300000.0;
        ExpectMove(AustrianRecord(6, KOORD_BMN, from, 564000.0, 2e5), row.delta,
                   AustrianRecord(6, KOORD_BMN, to, 564000.0 + step, 2e5));
        ExpectMove(AustrianRecord(6, KOORD_OEM, from, 864000.0, 5.2e6), row.delta,
                   AustrianRecord(6, KOORD_OEM, to, 864000.0 + step, 5.2e6));
        ExpectMove(AustrianRecord(6, KOORD_GKAT, from, 114000.0, 5.2e6), row.delta,
                   AustrianRecord(6, KOORD_GKAT, to, 114000.0, 5.2e6));
    }
}

TEST(ZonesMove, AustriaEndsAtItsMeridians) {
    const MoveRow rows[] = {{34, 1, 0},       {28, -1, 0},      {31, 2, 0},
                            {31, INT_MAX, 0}, {31, INT_MIN, 0}, {0, 0, 0}};
    for (const std::int32_t system : {KOORD_BMN, KOORD_OEM, KOORD_GKAT}) {
        for (const MoveRow& row : rows) {
            const CKoord record =
                Wanting(AustrianRecord(6, system, static_cast<std::int16_t>(row.from), 1.0, 2.0));
            CKoord moved = record;
            EXPECT_FALSE(zones::Move(row.delta, &moved)) << system << ": " << row.from << " by " << row.delta;
            EXPECT_TRUE(SameRecord(moved, record)) << "the wanted meridian stays, too";
        }
    }
}

TEST(ZonesMove, UtmrefStepsItsLetters) {
    const struct {
        std::int16_t zone;
        const char* letters;
        std::int32_t delta;
        std::int16_t newZone;
        const char* newLetters;
    } rows[] = {
        // Eight columns on per zone, back sixteen after the third; rows five on from odd to even, then back.
        {31, "UFB", 1, 32, "UPG"},  {32, "UPG", -1, 31, "UFB"},
        {32, "UQA", 1, 33, "UYR"},  // Q R S T U V W X Y; A V U T S R around the ring
        {33, "UYR", -1, 32, "UQA"}, {33, "UWA", 1, 34, "UEF"},
        {60, "UWA", 1, 1, "UER"},                               // from an even to an odd zone
        {1, "UER", -1, 60, "UWA"},  {31, "UAV", 1, 32, "UJE"},  // V A B C D E
        {31, "UHD", 1, 32, "URJ"},                              // D E F G H J: no I
        {31, "UHK", 1, 32, "URQ"},                              // K L M N P Q: no O
        {31, "UFB", 2, 33, "UXB"},                              // the same parity: the row stays
        {31, "UFB", 3, 34, "UFG"},                              // the same third: the column stays
        {31, "UFB", 6, 37, "UFB"},  {31, "UFB", 60, 31, "UFB"},
        {31, "UFB", 0, 31, "UFB"},  {31, "ufb", 1, 32, "uPG"},  // a letter that moves becomes a capital
    };
    for (const auto& row : rows) {
        ExpectMove(UtmrefRecord(2, row.zone, row.letters, 123, 456), row.delta,
                   UtmrefRecord(2, row.newZone, row.newLetters, 123, 456));
    }
}

TEST(ZonesMove, UtmrefAroundTheEarthComesBackToItsLetters) {
    CKoord record = UtmrefRecord(2, 17, "TPJ", 123, 456);
    for (int i = 0; i < 60; ++i)
        ASSERT_TRUE(zones::Move(1, &record));
    EXPECT_TRUE(SameRecord(record, UtmrefRecord(2, 17, "TPJ", 123, 456)));
    for (int i = 0; i < 60; ++i)
        ASSERT_TRUE(zones::Move(-1, &record));
    EXPECT_TRUE(SameRecord(record, UtmrefRecord(2, 17, "TPJ", 123, 456)));
}

TEST(ZonesMove, ALetterThatStaysIsntLookedAt) {
    ExpectMove(UtmrefRecord(2, 31, "U?!", 1, 2), 6, UtmrefRecord(2, 37, "U?!", 1, 2));
    ExpectMove(UtmrefRecord(2, 31, "UF!", 1, 2), 2, UtmrefRecord(2, 33, "UX!", 1, 2));
    ExpectMove(UtmrefRecord(2, 31, "U?B", 1, 2), 3, UtmrefRecord(2, 34, "U?G", 1, 2));
}

TEST(ZonesMove, UtmrefFailsOnZonesAndLettersThatDontExist) {
    const struct {
        std::int16_t zone;
        const char* letters;
    } rows[] = {
        {0, "UFB"},
        {61, "UFB"},
        {-1, "UFB"},
        {INT16_MIN, "UFB"},
        {31, "UIB"},
        {31, "UOB"},
        {31, "U1B"},
        {31,
         "U\xC4"
         "B"},
        {31, "UFI"},
        {31, "UFO"},
        {31, "UFW"},
        {31, "UF\xFF"},
        {31, "UZB"},  // eight columns past Z
        {33, "UAB"},  // eight columns before A, on the way to the third zone back
    };
    for (const auto& row : rows) {
        const CKoord record = Wanting(UtmrefRecord(2, row.zone, row.letters, 123, 456));
        CKoord moved = record;
        EXPECT_FALSE(zones::Move(1, &moved)) << row.zone << row.letters;
        EXPECT_TRUE(SameRecord(moved, record)) << row.zone << row.letters;
    }
}

TEST(ZonesMove, FailsWithoutZones) {
    for (std::int32_t system = -1; system <= 25; ++system) {
        if (ZONED.count(system) == 1) continue;
        const CKoord record = StripRecord(2, system, 3.5e6, 2.0);
        CKoord moved = record;
        EXPECT_FALSE(zones::Move(1, &moved)) << system;
        EXPECT_TRUE(SameRecord(moved, record)) << system;
    }
}

TEST(ZonesEast, IsTheEastingOrTheOffsetOfAStrip) {
    EXPECT_EQ(zones::East(UtmRecord(2, 'N', 32, 600000.5, 1.0)), 600000.5);
    EXPECT_EQ(zones::East(AustrianRecord(6, KOORD_GKAT, 31, -1000.5, 1.0)), -1000.5);
    EXPECT_EQ(zones::East(StripRecord(3, KOORD_GK, 3600000.5, 1.0)), 600000.5);
    EXPECT_EQ(zones::East(StripRecord(3, KOORD_GK6, -1400000.5, 1.0)), 400000.5);
}

TEST(ZonesEast, IsNoNumberWhereThereIsNone) {
    EXPECT_TRUE(std::isnan(zones::East(CKoord())));
    EXPECT_TRUE(std::isnan(zones::East(UtmrefRecord(2, 32, "UNA", 1, 2))));
    EXPECT_TRUE(std::isnan(zones::East(StripRecord(3, KOORD_GK, 1e300, 1.0))));
}

TEST(ZonesEast, IsWrittenWithinTheZone) {
    for (const CKoord& record :
         {UtmRecord(2, 'N', 32, 600000.0, 1.0), AustrianRecord(6, KOORD_BMN, 31, 600000.0, 1.0),
          StripRecord(3, KOORD_GK, 3600000.0, 1.0), StripRecord(3, KOORD_GK6, -1600000.0, 1.0)}) {
        CKoord moved = record;
        zones::SetEast(412345.0, &moved);
        EXPECT_EQ(zones::East(moved), 412345.0);
        EXPECT_EQ(zones::Number(moved), zones::Number(record));
        zones::SetEast(600000.0, &moved);
        EXPECT_TRUE(SameRecord(moved, record));
    }
    CKoord utmref = UtmrefRecord(2, 32, "UNA", 1, 2);
    zones::SetEast(5.0, &utmref);
    EXPECT_TRUE(SameRecord(utmref, UtmrefRecord(2, 32, "UNA", 1, 2)));
}

TEST(ZonesHalfWidth, IsThreeDegreesOrHalfOfThem) {
    for (std::int32_t system = -1; system <= 25; ++system) {
        const bool isWide = system == KOORD_UTM || system == KOORD_UTMREF || system == KOORD_GK6;
        const double expected = ZONED.count(system) == 0 ? 0.0 : isWide ? 3.0 : 1.5;
        EXPECT_EQ(zones::HalfWidth(system), expected) << system;
    }
}

TEST(ZonesWant, SetsTheWishOfZonedSystemsOnly) {
    for (std::int32_t system = 0; system <= KOORD_LAMBERTCC; ++system) {
        CKoord record(MakeKoord(2, system));
        zones::Want(31, &record);
        EXPECT_EQ(zones::Wanted(record), ZONED.count(system) == 1 ? 31 : NO_WANTED_ZONE) << system;
        EXPECT_TRUE(ZONED.count(system) == 1 || SameRecord(record, MakeKoord(2, system))) << system;
    }
    // The kernel reads it there.
    CKoord utm = UtmRecord(2, 'N', 32, 600000.0, 1.0);
    zones::Want(33, &utm);
    EXPECT_EQ(Load<UtmPayload>(utm).wantedZone, 33);
    CKoord gk = StripRecord(3, KOORD_GK, 3600000.0, 1.0);
    zones::Want(12, &gk);
    EXPECT_EQ(Load<GkPayload>(gk).wantedMeridian, 12);
    CKoord bmn = AustrianRecord(6, KOORD_BMN, 31, 600000.0, 1.0);
    zones::Want(34, &bmn);
    EXPECT_EQ(Load<BmnPayload>(bmn).wantedMeridian, 34);
}

}  // namespace
}  // namespace tessara

#include "records/zone_borders.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/special_values.h"
#include "records/axis_values.h"
#include "records/zones.h"
#include "support/garbage_records.h"
#include "support/random.h"
#include "support/records.h"
#include "support/reference_file.h"
#include "support/sanitized.h"
#include "support/zones.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using testing::Austrian;
using testing::LongitudesApart;
using testing::Random;
using testing::RandomZoned;
using testing::SameRecord;
using testing::Strip;
using testing::Utm;
using testing::Utmref;
using testing::ZONED_TYPES;

// Metres. The figures are rounded to half a millimetre on both axes and the border is drawn a tenth of a
// millimetre outside.
constexpr double FIGURE_TOLERANCE = 0.002;

// A row of the reference file as a record: the position of the border itself.
struct BorderRow {
    explicit BorderRow(const testing::ReferenceRow& row)
        : place(row.place),
          side(row.Text(3) == "E" ? Compass::East : Compass::West),
          meridian(row.Number(4)),
          falseEasting(row.Number(6)),
          falseNorthing(row.Number(7)),
          longitude(row.Number(11)),
          latitude(row.Number(12)) {
        const auto type = static_cast<std::int32_t>(row.Number(0));
        const auto datum = static_cast<std::int32_t>(row.Number(1));
        const auto zone = static_cast<std::int16_t>(row.Number(2));
        const double east = row.Number(9);
        const double north = row.Number(10);
        if (type == KOORD_UTM) {
            border = Utm(zone, north < 0.0 ? 'S' : 'N', east, north < 0.0 ? north + 1.0e7 : north);
        } else if (type == KOORD_GK || type == KOORD_GK6) {
            border = Strip(type, zone * 1.0e6 + (zone < 0 ? -east : east), north, NO_WANTED_ZONE, datum);
        } else {
            border = Austrian(type, zone, east, north);
        }
    }

    std::string place;
    Compass side;
    double meridian;
    double falseEasting;
    double falseNorthing;
    double longitude;
    double latitude;
    tagKOORD border;
};

std::vector<BorderRow> BorderRows() {
    std::vector<BorderRow> rows;
    for (const auto& row : testing::ReadReferenceFile("objects/zone_borders.txt"))
        rows.emplace_back(row);
    return rows;
}

double DegreesOfHalfZone(const tagKOORD& record) {
    return record.type == KOORD_UTM || record.type == KOORD_GK6 ? 3.0 : 1.5;
}

GeodezPayload DegreesOf(const tagKOORD& record) {
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_GEODEZ);
    EXPECT_EQ(KoordConvert(&record, &geodez), KOORD_OK);
    return Load<GeodezPayload>(geodez);
}

TEST(ZoneBorders, TheFiguresLieOnTheirMeridians) {
    for (const BorderRow& row : BorderRows()) {
        const double sign = row.side == Compass::East ? 1.0 : -1.0;
        // Degrees. Half a millimetre of easting at latitude 84.
        EXPECT_LT(LongitudesApart(row.longitude, row.meridian + sign * DegreesOfHalfZone(row.border)), 5e-8)
            << row.place;
    }
}

TEST(ZoneBorders, TheBorderLiesWhereItsMeridianHasTheNorthing) {
    for (const BorderRow& row : BorderRows()) {
        for (const double offset : {0.0, 30000.0, -30000.0}) {
            tagKOORD record = row.border;
            zones::SetEast(row.falseEasting + offset, &record);
            const tagKOORD before = record;
            ASSERT_TRUE(zones::MoveToBorder(row.side, &record)) << row.place;
            EXPECT_NEAR(zones::East(record), zones::East(row.border), FIGURE_TOLERANCE) << row.place;
            // Nothing else changes.
            zones::SetEast(zones::East(before), &record);
            EXPECT_TRUE(SameRecord(record, before)) << row.place;
        }
    }
}

TEST(ZoneBorders, ABorderIsDrawnAHairOutsideTheZone) {
    // Degrees: the outset is 1e-9, the noise of two conversions a hundredth of that.
    tagKOORD east = Utm(32, 'N', 500000.0, 5500000.0);
    tagKOORD west = east;
    ASSERT_TRUE(zones::MoveToBorder(Compass::East, &east));
    ASSERT_TRUE(zones::MoveToBorder(Compass::West, &west));
    EXPECT_NEAR(DegreesOf(east).longitude, 12.0 + 1e-9, 1e-11);
    EXPECT_NEAR(DegreesOf(west).longitude, 6.0 - 1e-9, 1e-11);
}

TEST(ZoneBorders, ABorderIsItsOwnBorder) {
    for (const BorderRow& row : BorderRows()) {
        tagKOORD once = row.border;
        ASSERT_TRUE(zones::MoveToBorder(row.side, &once)) << row.place;
        tagKOORD twice = once;
        ASSERT_TRUE(zones::MoveToBorder(row.side, &twice)) << row.place;
        EXPECT_TRUE(SameRecord(once, twice)) << row.place;
    }
}

TEST(ZoneBorders, RandomBordersLieOnTheirMeridianAndKeepTheNorthing) {
    for (const std::int32_t type : ZONED_TYPES) {
        Random random(static_cast<std::uint64_t>(type));
        for (int i = 0; i < testing::Samples(10000); ++i) {
            const tagKOORD record = RandomZoned(type, random);
            const Compass side = i % 2 == 0 ? Compass::East : Compass::West;
            tagKOORD border = record;
            tagKOORD centre = record;
            ASSERT_TRUE(zones::MoveToBorder(side, &border)) << type;
            ASSERT_TRUE(zones::MoveToCentre(&centre));
            const double longitude = DegreesOf(centre).longitude + SignOf(side) * DegreesOfHalfZone(record);
            // Degrees; the kernel's snapping onto a limit of the system reaches as far.
            ASSERT_LT(LongitudesApart(DegreesOf(border).longitude, longitude), 1e-7) << type;
            ASSERT_EQ(axes::SignedNorthing(border), axes::SignedNorthing(record));
            ASSERT_EQ(zones::Number(border), zones::Number(record));
        }
    }
}

TEST(ZoneBorders, NeighbouringZonesShareABorder) {
    const struct {
        tagKOORD west, east;
    } pairs[] = {
        {Utm(32, 'N', 500000.0, 5500000.0), Utm(33, 'N', 500000.0, 5500000.0)},
        {Utm(60, 'S', 500000.0, 5500000.0), Utm(1, 'S', 500000.0, 5500000.0)},
        {Strip(KOORD_GK, 3500000.0, 5500000.0), Strip(KOORD_GK, 4500000.0, 5500000.0)},
        {Strip(KOORD_GK, -1500000.0, 5500000.0), Strip(KOORD_GK, 500000.0, 5500000.0)},
        {Strip(KOORD_GK6, -1500000.0, 5500000.0), Strip(KOORD_GK6, 1500000.0, 5500000.0)},
        {Austrian(KOORD_BMN, 31, 450000.0, 200000.0), Austrian(KOORD_BMN, 34, 750000.0, 200000.0)},
    };
    for (const auto& pair : pairs) {
        tagKOORD west = pair.west;
        tagKOORD east = pair.east;
        ASSERT_TRUE(zones::MoveToBorder(Compass::East, &west));
        ASSERT_TRUE(zones::MoveToBorder(Compass::West, &east));
        // Degrees: twice the outset, and a millimetre of latitude.
        EXPECT_LT(LongitudesApart(DegreesOf(west).longitude, DegreesOf(east).longitude), 3e-9);
        EXPECT_NEAR(DegreesOf(west).latitude, DegreesOf(east).latitude, 9e-9);
    }
}

TEST(ZoneBorders, AWantedZoneIsForgotten) {
    tagKOORD utm = Utm(32, 'N', 500000.0, 5500000.0, 32);
    ASSERT_TRUE(zones::MoveToBorder(Compass::East, &utm));
    EXPECT_EQ(Load<UtmPayload>(utm).wantedZone, NO_WANTED_ZONE);
    tagKOORD strip = Strip(KOORD_GK, 3500000.0, 5500000.0, 9);
    ASSERT_TRUE(zones::MoveToBorder(Compass::West, &strip));
    EXPECT_EQ(Load<GkPayload>(strip).wantedMeridian, NO_WANTED_ZONE);
    tagKOORD limit = Utm(32, 'N', 700000.0, 5500000.0, 32);
    ASSERT_EQ(zones::MoveToLimit(Compass::North, &limit), ZoneLimit::Border);
    EXPECT_EQ(Load<UtmPayload>(limit).wantedZone, NO_WANTED_ZONE);
}

TEST(ZoneBorders, AGk6EastingBelowAMillionReadsAsTheStripWestOfGreenwich) {
    tagKOORD record = Strip(KOORD_GK6, 600000.0, 5500000.0);
    ASSERT_TRUE(zones::MoveToBorder(Compass::East, &record));
    EXPECT_NEAR(Load<GkPayload>(record).easting, 716829.087, FIGURE_TOLERANCE);
}

TEST(ZoneBorders, UtmrefBordersAreWholeMetres) {
    // The squares of zone 32 between 5400000 and 5500000 metres north have the row Q at eastings 700000 and
    // K at 200000 the column letters; the border's eastings are 716703.412 and 283296.588.
    tagKOORD east = Utmref(32, 'U', "QA", 0, 0);
    ASSERT_TRUE(zones::MoveToBorder(Compass::East, &east));
    EXPECT_TRUE(SameRecord(east, Utmref(32, 'U', "QA", 16703, 0)));
    tagKOORD west = Utmref(32, 'U', "QA", 0, 0);
    ASSERT_TRUE(zones::MoveToBorder(Compass::West, &west));
    EXPECT_TRUE(SameRecord(west, Utmref(32, 'U', "KA", 83297, 0)));
}

// The record in another system, in the zone that it is in.
tagKOORD InOwnZone(const tagKOORD& record, std::int32_t type) {
    tagKOORD target = MakeKoord(DATUM_WGS84, type);
    zones::Want(static_cast<std::int16_t>(zones::Number(record)), &target);
    EXPECT_EQ(KoordConvertEx(&record, &target, 0), KOORD_OK);
    zones::Want(NO_WANTED_ZONE, &target);
    return target;
}

TEST(ZoneBorders, RandomUtmrefBordersAreTheRoundedOnesOfUtm) {
    Random random(KOORD_UTMREF);
    for (int i = 0; i < testing::Samples(10000); ++i) {
        tagKOORD utmref = InOwnZone(RandomZoned(KOORD_UTM, random), KOORD_UTMREF);
        tagKOORD utm = InOwnZone(utmref, KOORD_UTM);
        const Compass side = i % 2 == 0 ? Compass::East : Compass::West;
        ASSERT_TRUE(zones::MoveToBorder(side, &utmref));
        ASSERT_TRUE(zones::MoveToBorder(side, &utm));
        ASSERT_EQ(zones::Wanted(utmref), NO_WANTED_ZONE);
        const tagKOORD rounded = InOwnZone(utmref, KOORD_UTM);
        ASSERT_EQ(zones::Number(rounded), zones::Number(utm));
        // A square that reaches over the date line is read no further than to the line.
        if (zones::Number(utm) == (side == Compass::East ? 60 : 1)) continue;
        // Metres: half of one, and the noise of projecting there and back.
        ASSERT_NEAR(zones::East(rounded), zones::East(utm), 0.5 + 2e-6);
        ASSERT_NEAR(axes::SignedNorthing(rounded), axes::SignedNorthing(utm), 2e-6);
    }
}

// On their central lines, from cs2cs at latitude 90: UTM 9997964.943 on WGS84, GK 10000855.764 on Bessel's
// ellipsoid. All meridians of a zone meet there, and beyond there is none.
TEST(ZoneBorders, NoBorderRunsBeyondThePoles) {
    const auto atNorthing = [](std::int32_t type, double northing) {
        if (type != KOORD_UTM) return Strip(type, type == KOORD_GK ? 3500000.0 : 2500000.0, northing);
        return Utm(32, northing < 0.0 ? 'S' : 'N', 500000.0, northing < 0.0 ? northing + 1.0e7 : northing);
    };
    for (const std::int32_t type : {KOORD_UTM, KOORD_GK, KOORD_GK6}) {
        const double pole = type == KOORD_UTM ? 9997964.943 : 10000855.764;
        for (const Compass side : {Compass::East, Compass::West}) {
            for (const double sign : {1.0, -1.0}) {
                for (const double before : {2.0e6, 1.0e5, 1000.0}) {
                    tagKOORD record = atNorthing(type, sign * (pole - before));
                    EXPECT_TRUE(zones::MoveToBorder(side, &record)) << type << ' ' << sign * before;
                }
                for (const double beyond : {1.0, 1000.0, 1.0e5, 1.0e6, 4.0e6, 1.2e7, 2.5e7, 4.1e7, 1e300}) {
                    const tagKOORD none = atNorthing(type, sign * (pole + beyond));
                    tagKOORD record = none;
                    EXPECT_FALSE(zones::MoveToBorder(side, &record)) << type << ' ' << sign * beyond;
                    EXPECT_TRUE(SameRecord(record, none));
                }
            }
        }
    }
}

TEST(ZoneBorders, OnlyTheSidesHaveBorderPoints) {
    tagKOORD record = Utm(32, 'N', 500000.0, 5500000.0);
    EXPECT_FALSE(zones::MoveToBorder(Compass::North, &record));
    EXPECT_FALSE(zones::MoveToBorder(Compass::South, &record));
    EXPECT_EQ(zones::MoveToLimit(Compass::East, &record), ZoneLimit::Failure);
    EXPECT_EQ(zones::MoveToLimit(Compass::West, &record), ZoneLimit::Failure);
}

TEST(ZoneLimits, AWalkAtConstantEastingEndsWhereTheBorderHasTheEasting) {
    for (const BorderRow& row : BorderRows()) {
        const double north = axes::SignedNorthing(row.border);
        const bool isAustrian =
            row.border.type != KOORD_UTM && row.border.type != KOORD_GK && row.border.type != KOORD_GK6;
        // Near the widest place the width hardly changes with the northing, and the search aims at the width.
        if (std::fabs(north) < 1.0e6 && !isAustrian) continue;
        if (isAustrian && north - row.falseNorthing < 5.0e6) continue;
        tagKOORD start = row.border;
        axes::SetSignedNorthing(isAustrian ? north - 1000.0 : north / 2.0, &start);
        const Compass direction = north >= 0.0 || isAustrian ? Compass::North : Compass::South;
        const ZoneLimit found = zones::MoveToLimit(direction, &start);
        ASSERT_EQ(found, ZoneLimit::Border) << row.place;
        // The zone narrows by this much a metre of northing, which turns the figure's half millimetre and the
        // outset of easting into metres of northing.
        const double slope = std::sin(std::fabs(row.latitude) * RADIANS_PER_DEGREE) *
                             DegreesOfHalfZone(row.border) * RADIANS_PER_DEGREE;
        EXPECT_NEAR(axes::SignedNorthing(start), north, 0.0007 / slope) << row.place;
        axes::SetSignedNorthing(north, &start);
        EXPECT_TRUE(SameRecord(start, row.border)) << row.place;
    }
}

// Metres of northing, for eastings that are exact. The width is found to 1e-5 m and the border is drawn up to
// 1e-4 m outside; the northing shows both 25 to 50 times as large, as slowly do zones narrow there.
constexpr double LIMIT_TOLERANCE = 0.01;

TEST(ZoneLimits, TheNorthernAndTheSouthernLimitMirrorEachOther) {
    const struct {
        tagKOORD record;
        Compass direction;
        double northing;
    } cases[] = {
        {Utm(32, 'N', 700000.0, 5500000.0), Compass::North, 5907622.240},
        {Utm(32, 'N', 700000.0, 5500000.0), Compass::South, -5907622.240},
        {Utm(32, 'S', 700000.0, 4100000.0), Compass::North, 5907622.240},
        {Utm(32, 'S', 700000.0, 4100000.0), Compass::South, -5907622.240},
        {Utm(32, 'N', 600000.0, 5400000.0), Compass::North, 8060267.242},
        {Utm(32, 'N', 600000.0, 5400000.0), Compass::South, -8060267.242},
        {Utm(32, 'N', 535100.0, 9000000.0), Compass::North, 9326983.975},
        {Utm(33, 'N', 283296.588, 5500000.0), Compass::North, 5500000.0},
        {Strip(KOORD_GK, 3600000.0, 5500000.0), Compass::North, 5908014.052},
        {Strip(KOORD_GK, 3600000.0, 5500000.0), Compass::South, -5908014.052},
        {Strip(KOORD_GK, -1600000.0, 5500000.0), Compass::North, 5908014.052},
        {Austrian(KOORD_BMN, 31, 560000.0, 200000.0), Compass::North, 417120.936},
    };
    for (const auto& c : cases) {
        tagKOORD record = c.record;
        ASSERT_EQ(zones::MoveToLimit(c.direction, &record), ZoneLimit::Border) << c.northing;
        EXPECT_NEAR(axes::SignedNorthing(record), c.northing, LIMIT_TOLERANCE);
        EXPECT_EQ(zones::East(record), zones::East(c.record));
        EXPECT_EQ(zones::Number(record), zones::Number(c.record));
    }
}

TEST(ZoneLimits, TheHemisphereFollowsTheNorthing) {
    tagKOORD south = Utm(32, 'N', 700000.0, 5500000.0);
    ASSERT_EQ(zones::MoveToLimit(Compass::South, &south), ZoneLimit::Border);
    EXPECT_EQ(Load<UtmPayload>(south).hemisphere, 'S');
    EXPECT_NEAR(Load<UtmPayload>(south).northing, 4092377.760, LIMIT_TOLERANCE);
    ASSERT_EQ(zones::MoveToLimit(Compass::North, &south), ZoneLimit::Border);
    EXPECT_EQ(Load<UtmPayload>(south).hemisphere, 'N');
    EXPECT_NEAR(Load<UtmPayload>(south).northing, 5907622.240, LIMIT_TOLERANCE);
}

TEST(ZoneLimits, TheCentralMeridianNeverLeavesTheZone) {
    const tagKOORD centres[] = {
        Utm(32, 'N', 500000.0, 5500000.0),           Utmref(32, 'U', "NA", 0, 0),
        Strip(KOORD_GK, 3500000.0, 5500000.0),       Strip(KOORD_GK6, -1500000.0, 5500000.0),
        Austrian(KOORD_BMN, 31, 450000.0, 200000.0), Austrian(KOORD_GKAT, 34, 0.0, 5200000.0),
    };
    for (const tagKOORD& centre : centres) {
        for (const Compass direction : {Compass::North, Compass::South}) {
            tagKOORD record = centre;
            EXPECT_EQ(zones::MoveToLimit(direction, &record), ZoneLimit::SystemFirst) << centre.type;
            EXPECT_TRUE(SameRecord(record, centre));
        }
    }
}

TEST(ZoneLimits, AZoneStillWideEnoughAtTheLimitOfTheSystemHasNoBorderInTheWay) {
    // At the northing of the limit the border lies 35041 m from the central meridian in UTM in the north and
    // 58207 m in the south, 29093 m in GK, 105303 m in the Austrian systems, by PROJ 9.1.1:
    // echo 3 83.992 | cs2cs -f %.3f +proj=longlat +ellps=WGS84 +to +proj=tmerc +k=0.9996 +ellps=WGS84
    // and likewise for 3 -79.987, and on the Bessel ellipsoid with +k=1 for 1.5 79.9966 and 1.5 50.9904.
    const struct {
        tagKOORD record;
        Compass direction;
        ZoneLimit found;
    } cases[] = {
        {Utm(32, 'N', 534000.0, 9000000.0), Compass::North, ZoneLimit::SystemFirst},
        {Utm(32, 'N', 535100.0, 9000000.0), Compass::North, ZoneLimit::Border},
        {Utm(32, 'N', 557000.0, 9000000.0), Compass::South, ZoneLimit::SystemFirst},
        {Utm(32, 'N', 559000.0, 5000000.0), Compass::South, ZoneLimit::Border},
        {Strip(KOORD_GK, 3528000.0, 0.0), Compass::North, ZoneLimit::SystemFirst},
        {Strip(KOORD_GK, 3530000.0, 0.0), Compass::South, ZoneLimit::Border},
        {Austrian(KOORD_BMN, 31, 555000.0, 200000.0), Compass::North, ZoneLimit::SystemFirst},
        {Austrian(KOORD_BMN, 31, 556000.0, 200000.0), Compass::North, ZoneLimit::Border},
    };
    for (const auto& c : cases) {
        tagKOORD record = c.record;
        EXPECT_EQ(zones::MoveToLimit(c.direction, &record), c.found) << zones::East(c.record);
    }
}

TEST(ZoneLimits, AustrianZonesAreWidestAtTheirSouthernLimit) {
    tagKOORD record = Austrian(KOORD_OEM, 31, 860000.0, 5200000.0);
    EXPECT_EQ(zones::MoveToLimit(Compass::South, &record), ZoneLimit::SystemFirst);
}

TEST(ZoneLimits, AnEastingWiderThanTheZoneIsAnywhereHasNoLimit) {
    for (const tagKOORD& wide : {Utm(32, 'N', 833979.0, 5000000.0), Strip(KOORD_GK, 3667000.0, 0.0),
                                 Austrian(KOORD_BMN, 31, 568277.0, 100000.0)}) {
        for (const Compass direction : {Compass::North, Compass::South}) {
            tagKOORD record = wide;
            EXPECT_EQ(zones::MoveToLimit(direction, &record), ZoneLimit::Failure) << wide.type;
            EXPECT_TRUE(SameRecord(record, wide));
        }
    }
}

TEST(ZoneLimits, APositionOutsideItsZoneFindsTheBorderBehindItself) {
    tagKOORD record = Utm(32, 'N', 720000.0, 5500000.0);
    ASSERT_EQ(zones::MoveToLimit(Compass::North, &record), ZoneLimit::Border);
    EXPECT_LT(Load<UtmPayload>(record).northing, 5500000.0);
}

TEST(ZoneLimits, RandomLimitsAreFoundWhereverThereIsOne) {
    for (const std::int32_t type : {KOORD_UTM, KOORD_GK, KOORD_GK6}) {
        Random random(100u + static_cast<std::uint64_t>(type));
        const double widest = type == KOORD_GK ? 166979.0 : 333978.0;
        for (int i = 0; i < 300; ++i) {
            tagKOORD record = RandomZoned(type, random);
            tagKOORD centre = record;
            ASSERT_TRUE(zones::MoveToCentre(&centre));
            const double offset = random.Between(60000.0, widest) * (i % 2 == 0 ? 1.0 : -1.0);
            zones::SetEast(zones::East(centre) + offset, &record);
            const Compass direction = i % 4 < 2 ? Compass::North : Compass::South;
            tagKOORD limit = record;
            ASSERT_EQ(zones::MoveToLimit(direction, &limit), ZoneLimit::Border) << offset;
            tagKOORD border = limit;
            ASSERT_TRUE(zones::MoveToBorder(DirectionOf(Axis::East, offset), &border));
            // Metres: the tolerance of the search, or the error it accepts when its trials are used up.
            EXPECT_NEAR(zones::East(border), zones::East(limit), 1e-3) << offset;
        }
    }
}

// Next to the equator the first step of the search is lengthened. From this easting it leads to the limit, to
// the last digit.
TEST(ZoneLimits, ALimitIsFoundWhereALengthenedStepMeetsIt) {
    double easting = 829882.05245776137;
    for (int i = 0; i < 10; ++i, easting = std::nextafter(easting, HUGE_VAL)) {
        tagKOORD limit = Utm(32, 'N', easting, 500000.0);
        ASSERT_EQ(zones::MoveToLimit(Compass::North, &limit), ZoneLimit::Border);
        tagKOORD border = limit;
        ASSERT_TRUE(zones::MoveToBorder(Compass::East, &border));
        EXPECT_NEAR(zones::East(border), easting, 1e-5) << "metres, the accuracy of the search";
    }
}

TEST(ZoneBorders, WellInsideIsWithinTheBorderOnly) {
    for (const std::int32_t type : ZONED_TYPES) {
        Random random(200u + static_cast<std::uint64_t>(type));
        for (int i = 0; i < 100; ++i) {
            const tagKOORD record = RandomZoned(type, random);
            for (const Compass side : {Compass::East, Compass::West}) {
                tagKOORD border = record;
                ASSERT_TRUE(zones::MoveToBorder(side, &border));
                EXPECT_FALSE(zones::IsWellInside(border));
                // A ten-thousandth of a degree is at most 11.2 m.
                zones::SetEast(zones::East(border) - 12.0 * SignOf(side), &border);
                EXPECT_TRUE(zones::IsWellInside(border)) << type;
                zones::SetEast(zones::East(border) + 24.0 * SignOf(side), &border);
                EXPECT_FALSE(zones::IsWellInside(border)) << type;
            }
        }
    }
    EXPECT_TRUE(zones::IsWellInside(Utmref(32, 'U', "QA", 0, 0)));
    EXPECT_FALSE(zones::IsWellInside(Utmref(32, 'U', "QA", 17000, 0)));
}

TEST(ZoneBorders, NothingIsWellInsideWhatIsNoZone) {
    for (const tagKOORD& record :
         {Utm(0, 'N', 5e5, 5e6), Utm(32, 'N', NOT_A_NUMBER, 5e6), Utm(32, 'N', 5e5, NOT_A_NUMBER),
          Utm(32, 'N', 4.0e7, 5e6), Utm(32, 'N', -1e300, 5e6), Utmref(32, 'U', "IA", 0, 0),
          GeodezRecord(48.0, 11.0)}) {
        EXPECT_FALSE(zones::IsWellInside(record)) << record.type;
    }
}

TEST(ZoneLimits, UtmrefLimitsAreWholeMetres) {
    // The limits of UTM 32 at 700000 are the northings 5907622.240 and, south of the equator, 4092377.760, at
    // latitude -53.28 in the band F.
    tagKOORD north = Utmref(32, 'U', "QA", 0, 0);
    ASSERT_EQ(zones::MoveToLimit(Compass::North, &north), ZoneLimit::Border);
    const auto payload = Load<UtmrefPayload>(north);
    EXPECT_EQ(payload.zone, 32);
    EXPECT_EQ(payload.column, 'Q');
    EXPECT_EQ(payload.easting, 0);
    EXPECT_EQ(payload.northing, 7622);
    EXPECT_EQ(payload.wantedZone, NO_WANTED_ZONE);
    tagKOORD south = Utmref(32, 'U', "QA", 0, 0);
    ASSERT_EQ(zones::MoveToLimit(Compass::South, &south), ZoneLimit::Border);
    EXPECT_EQ(Load<UtmrefPayload>(south).northing, 92378);
    EXPECT_EQ(Load<UtmrefPayload>(south).band, 'F');
}

TEST(ZoneEquator, TheFootOfAZoneIsOnTheEquator) {
    tagKOORD north = Utm(32, 'N', 600000.0, 5400000.0);
    ASSERT_TRUE(zones::MoveToEquator(&north));
    EXPECT_TRUE(SameRecord(north, Utm(32, 'N', 600000.0, 0.0)));
    tagKOORD south = Utm(32, 'S', 600000.0, 5400000.0);
    ASSERT_TRUE(zones::MoveToEquator(&south));
    EXPECT_TRUE(SameRecord(south, Utm(32, 'S', 600000.0, 1.0e7)));
    tagKOORD strip = Strip(KOORD_GK, -1600000.0, 5500000.0);
    ASSERT_TRUE(zones::MoveToEquator(&strip));
    EXPECT_TRUE(SameRecord(strip, Strip(KOORD_GK, -1600000.0, 0.0)));
    strip = Strip(KOORD_GK6, 1600000.0, 5500000.0);
    ASSERT_TRUE(zones::MoveToEquator(&strip));
    EXPECT_TRUE(SameRecord(strip, Strip(KOORD_GK6, 1600000.0, 0.0)));
}

TEST(ZoneEquator, TheFootDoesntDependOnTheNorthing) {
    for (const double northing : {0.1, 9999999.9, 1e300, -HUGE_VAL, std::nan("")}) {
        tagKOORD south = Utm(32, 'S', 600000.0, northing);
        ASSERT_TRUE(zones::MoveToEquator(&south));
        EXPECT_TRUE(SameRecord(south, Utm(32, 'S', 600000.0, 1.0e7))) << northing;
        tagKOORD austrian = Austrian(KOORD_BMN, 31, 500000.0, northing);
        tagKOORD foot = Austrian(KOORD_BMN, 31, 500000.0, 2e5);
        ASSERT_TRUE(zones::MoveToEquator(&austrian) && zones::MoveToEquator(&foot));
        EXPECT_TRUE(SameRecord(austrian, foot)) << northing;
    }
}

TEST(ZoneEquator, TheFootOfAnAustrianZoneIsTheSouthernLimit) {
    // The meridian arc of 45 degrees on the Bessel ellipsoid is 4984439.265 m, by PROJ 9.1.1:
    // echo 0 45 | cs2cs -f %.3f +proj=longlat +ellps=bessel +to +proj=tmerc +ellps=bessel
    tagKOORD bmn = Austrian(KOORD_BMN, 31, 500000.0, 200000.0);
    ASSERT_TRUE(zones::MoveToEquator(&bmn));
    EXPECT_NEAR(Load<BmnPayload>(bmn).northing, -15560.735, 0.001);
    EXPECT_EQ(Load<BmnPayload>(bmn).easting, 500000.0);
    for (const std::int32_t type : {KOORD_OEM, KOORD_GKAT}) {
        tagKOORD record = Austrian(type, 28, 0.0, 5200000.0);
        ASSERT_TRUE(zones::MoveToEquator(&record));
        EXPECT_NEAR(Load<BmnPayload>(record).northing, 4984439.265, 0.001);
    }
}

TEST(ZoneEquator, TheRowOfAUtmrefFollowsTheLetteringOfItsDatum) {
    const struct {
        std::int32_t datum;
        std::int16_t zone;
        char row;
    } cases[] = {{2, 31, 'A'}, {2, 32, 'F'}, {3, 31, 'L'}, {3, 32, 'R'}};
    for (const auto& c : cases) {
        tagKOORD record = Utmref(c.zone, 'U', "EA", 12345, 54321, c.datum);
        ASSERT_TRUE(zones::MoveToEquator(&record));
        const char square[] = {'E', c.row};
        EXPECT_TRUE(SameRecord(record, Utmref(c.zone, 'N', square, 12345, 0, c.datum)));
        // And it is a place on the equator.
        if (c.zone != 31) continue;
        EXPECT_NEAR(DegreesOf(record).latitude, 0.0, 1e-9);
    }
}

TEST(ZoneEquator, WithoutADatumThereIsNoFoot) {
    for (const std::int32_t type : {KOORD_UTMREF, KOORD_BMN}) {
        tagKOORD record = MakeKoord(NO_DATUM, type);
        const tagKOORD before = record;
        EXPECT_FALSE(zones::MoveToEquator(&record)) << type;
        EXPECT_TRUE(testing::SameRecord(record, before)) << type;
    }
}

TEST(ZoneEquator, WithoutZonesThereIsNoFoot) {
    tagKOORD record = GeodezRecord(10.0, 20.0);
    EXPECT_FALSE(zones::MoveToEquator(&record));
}

// Records that have no border: systems without zones, zones that don't exist, places that don't convert.
std::vector<tagKOORD> Hopeless() {
    std::vector<tagKOORD> records = {
        GeodezRecord(10.0, 20.0),
        MakeKoord(2, KOORD_LAMBERTCC),
        MakeKoord(2, 24),
        Utm(0, 'N', 600000.0, 5000000.0),
        Utm(61, 'N', 600000.0, 5000000.0),
        Utm(-1, 'N', 600000.0, 5000000.0),
        Utm(32, 'N', 600000.0, NOT_A_NUMBER),
        Utmref(0, 'U', "QA", 0, 0),
        Utmref(32, 'U', "IA", 0, 0),
        Utmref(32, 'I', "QA", 0, 0),
        Strip(KOORD_GK, NOT_A_NUMBER, 5000000.0),
        Strip(KOORD_GK, 1e300, 5000000.0),
        Strip(KOORD_GK, 61600000.0, 5000000.0),
        Strip(KOORD_GK6, 31600000.0, 5000000.0),
        Strip(KOORD_GK, 3600000.0, NOT_A_NUMBER),
        Strip(KOORD_GK, 3600000.0, 5000000.0, NO_WANTED_ZONE, NO_DATUM),
        Austrian(KOORD_BMN, 29, 460000.0, 200000.0),
        Austrian(KOORD_GKAT, 0, 10000.0, 5200000.0),
        Austrian(KOORD_OEM, 31, 760000.0, NOT_A_NUMBER),
    };
    return records;
}

TEST(ZoneBorders, AFailureChangesNothing) {
    for (const tagKOORD& hopeless : Hopeless()) {
        for (const Compass direction : {Compass::North, Compass::East, Compass::South, Compass::West}) {
            tagKOORD record = hopeless;
            EXPECT_FALSE(zones::MoveToBorder(direction, &record)) << hopeless.type;
            EXPECT_EQ(zones::MoveToLimit(direction, &record), ZoneLimit::Failure) << hopeless.type;
            EXPECT_TRUE(SameRecord(record, hopeless));
        }
    }
}

TEST(ZoneLimits, AnEastingThatIsNoNumberHasNoLimit) {
    tagKOORD record = Utm(32, 'N', NOT_A_NUMBER, 5000000.0);
    EXPECT_EQ(zones::MoveToLimit(Compass::North, &record), ZoneLimit::Failure);
    // Its border needs no easting.
    EXPECT_TRUE(zones::MoveToBorder(Compass::East, &record));
}

TEST(ZoneBorders, GarbageEnds) {
    Random random(7);
    for (int i = 0; i < 3000; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        tagKOORD record = testing::ArbitraryPayload(random, datum, random.Below(KOORD_TYPE_COUNT));
        const auto direction = static_cast<Compass>(random.Below(COMPASS_COUNT));
        tagKOORD border = record;
        EXPECT_TRUE(zones::MoveToBorder(direction, &border) || SameRecord(border, record));
        tagKOORD limit = record;
        EXPECT_TRUE(zones::MoveToLimit(direction, &limit) == ZoneLimit::Border || SameRecord(limit, record));
        tagKOORD foot = record;
        EXPECT_TRUE(zones::MoveToEquator(&foot) || SameRecord(foot, record));
    }
}

}  // namespace
}  // namespace tessara

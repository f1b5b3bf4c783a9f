#include "records/koord_shift.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "numerics/special_values.h"
#include "records/axis_values.h"
#include "records/default_koord.h"
#include "records/system_extremes.h"
#include "records/zone_borders.h"
#include "records/zones.h"
#include "support/garbage_records.h"
#include "support/plain_records.h"
#include "support/positions.h"
#include "support/random.h"
#include "support/records.h"
#include "support/zones.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

using testing::Austrian;
using testing::FloatPixel;
using testing::Grid;
using testing::LetterGrid;
using testing::LongPixel;
using testing::Random;
using testing::RandomIn;
using testing::Region;
using testing::REGIONS;
using testing::SameRecord;
using testing::Strip;
using testing::Utm;
using testing::Utmref;

constexpr double INF = std::numeric_limits<double>::infinity();

// The shifted record, which must be there.
tagKOORD Shifted(Axis axis, double delta, tagKOORD record) {
    EXPECT_TRUE(koord::Shift(axis, delta, &record)) << record.type << " by " << delta;
    return record;
}

tagKOORD East(double delta, const tagKOORD& record) {
    return Shifted(Axis::East, delta, record);
}

tagKOORD North(double delta, const tagKOORD& record) {
    return Shifted(Axis::North, delta, record);
}

// Whether the shift is refused, and the record left as it was.
bool Refuses(Axis axis, double delta, const tagKOORD& record) {
    tagKOORD moved = record;
    if (koord::Shift(axis, delta, &moved)) return false;
    EXPECT_TRUE(SameRecord(moved, record)) << record.type << " by " << delta;
    return true;
}

TEST(KoordShift, NoWayIsAlwaysPossible) {
    for (const std::int32_t type : {KOORD_UTM + 0, KOORD_ECEF + 0, KOORD_LAMBERTCC + 0, 24}) {
        const tagKOORD record = MakeKoord(NO_DATUM, type);
        for (const double zero : {0.0, -0.0}) {
            EXPECT_TRUE(SameRecord(East(zero, record), record));
            EXPECT_TRUE(SameRecord(North(zero, record), record));
        }
    }
}

TEST(KoordShift, AWayThatIsNoNumberIsRefused) {
    for (std::int32_t type = 0; type <= KOORD_LUREF; ++type) {
        CKoord record;
        ASSERT_TRUE(DefaultKoord(2, type, &record));
        for (const double delta : {NOT_A_NUMBER, INF, -INF}) {
            EXPECT_TRUE(Refuses(Axis::East, delta, record)) << type;
            EXPECT_TRUE(Refuses(Axis::North, delta, record)) << type;
        }
    }
}

TEST(KoordShift, EcefAndSystemsAboveTheTableDontShift) {
    for (const std::int32_t type : {KOORD_ECEF + 0, KOORD_LAMBERTCC + 0, 24, -1}) {
        EXPECT_TRUE(Refuses(Axis::East, 1.0, MakeKoord(2, type)));
        EXPECT_TRUE(Refuses(Axis::North, -1.0, MakeKoord(2, type)));
    }
}

TEST(KoordShift, AShiftMovesOneAxisOnly) {
    EXPECT_TRUE(SameRecord(East(2.5, Utm(32, 'N', 5e5, 5e6)), Utm(32, 'N', 500002.5, 5e6)));
    EXPECT_TRUE(SameRecord(North(-2.5, Utm(32, 'N', 5e5, 5e6)), Utm(32, 'N', 5e5, 4999997.5)));
    EXPECT_TRUE(SameRecord(East(-2.5, Grid(KOORD_CH, 6e5, 2e5)), Grid(KOORD_CH, 599997.5, 2e5)));
    EXPECT_TRUE(SameRecord(North(2.5, Grid(KOORD_RD, 2e5, 4e5)), Grid(KOORD_RD, 2e5, 400002.5)));
    EXPECT_TRUE(SameRecord(East(0.5, GeodezRecord(48.0, 11.0, 500.0)), GeodezRecord(48.0, 11.5, 500.0)));
}

TEST(KoordShift, EastwardUtmEndsAtTheBorderOfTheZone) {
    // At the northing 5500000 the borders lie at 283296.588 and 716703.412, see
    // data/objects/zone_borders.txt.
    const tagKOORD east = Utm(32, 'N', 716000.0, 5.5e6);
    EXPECT_TRUE(SameRecord(East(703.0, east), Utm(32, 'N', 716703.0, 5.5e6)));
    EXPECT_TRUE(Refuses(Axis::East, 704.0, east));
    const tagKOORD west = Utm(32, 'N', 284000.0, 5.5e6);
    EXPECT_TRUE(SameRecord(East(-703.0, west), Utm(32, 'N', 283297.0, 5.5e6)));
    EXPECT_TRUE(Refuses(Axis::East, -704.0, west));
}

TEST(KoordShift, NorthwardUtmEndsWhereTheBorderMeetsTheEasting) {
    // At the easting 700000 that is the northing 5907622.240.
    const tagKOORD record = Utm(32, 'N', 700000.0, 5.9e6);
    EXPECT_TRUE(SameRecord(North(7622.0, record), Utm(32, 'N', 700000.0, 5907622.0)));
    EXPECT_TRUE(Refuses(Axis::North, 7623.0, record));
    // And 4092377.760 in the south, from either hemisphere.
    EXPECT_TRUE(SameRecord(North(-11807622.0, record), Utm(32, 'S', 700000.0, 4092378.0)));
    EXPECT_TRUE(Refuses(Axis::North, -11807623.0, record));
    EXPECT_TRUE(Refuses(Axis::North, -1.0, Utm(32, 'S', 700000.0, 4092378.0)));
}

TEST(KoordShift, OnTheCentralMeridianUtmEndsWithTheSystem) {
    // The meridian arcs to 84 and -80 degrees, times 0.9996, are 9328093.831 and 8881585.816 m, by
    // PROJ 9.1.1: echo 0 84 | cs2cs -f %.3f +proj=longlat +ellps=WGS84 +to +proj=tmerc +k=0.9996 +ellps=WGS84
    const tagKOORD north = Utm(32, 'N', 5e5, 9328000.0);
    EXPECT_TRUE(SameRecord(North(93.0, north), Utm(32, 'N', 5e5, 9328093.0)));
    EXPECT_TRUE(Refuses(Axis::North, 94.0, north));
    const tagKOORD south = Utm(32, 'S', 5e5, 1118500.0);
    EXPECT_TRUE(SameRecord(North(-85.0, south), Utm(32, 'S', 5e5, 1118415.0)));
    EXPECT_TRUE(Refuses(Axis::North, -86.0, south));
}

// The end of the move is compared: the limit minus the distance is rounded and may lie just before the
// start.
TEST(KoordShift, AUtmNorthingMayEndExactlyOnItsLimit) {
    SystemExtremes extremes;
    ASSERT_TRUE(FindSystemExtremes(2, KOORD_UTM, &extremes));
    const double north = Load<UtmPayload>(extremes[static_cast<std::size_t>(Compass::North)]).northing;
    const double south = Load<UtmPayload>(extremes[static_cast<std::size_t>(Compass::South)]).northing;
    Random random(84);
    for (int i = 0; i < 1000; ++i) {
        const double start = random.Between(0.0, 1000.0);
        tagKOORD record = Utm(32, 'N', 5e5, start);
        EXPECT_EQ(koord::Shift(Axis::North, north - start, &record), start + (north - start) <= north)
            << start;
        const double way = south - (start + 1.0e7);
        record = Utm(32, 'N', 5e5, start);
        EXPECT_EQ(koord::Shift(Axis::North, way, &record), start + 1.0e7 + way >= south) << start;
        EXPECT_TRUE(Refuses(Axis::North, north - start + 1e-6, Utm(32, 'N', 5e5, start))) << start;
        EXPECT_TRUE(Refuses(Axis::North, way - 1e-6, Utm(32, 'N', 5e5, start))) << start;
    }
}

TEST(KoordShift, CrossesTheEquatorNorthward) {
    EXPECT_TRUE(SameRecord(North(1000.0, Utm(32, 'S', 5e5, 9999500.0)), Utm(32, 'N', 5e5, 500.0)));
    EXPECT_TRUE(SameRecord(North(1000.0, Utm(32, 's', 5e5, 9999500.0)), Utm(32, 'N', 5e5, 500.0)));
    // The equator belongs to both hemispheres.
    EXPECT_TRUE(SameRecord(North(500.0, Utm(32, 'S', 5e5, 9999500.0)), Utm(32, 'S', 5e5, 1.0e7)));
    EXPECT_TRUE(SameRecord(North(999000.0, Utm(32, 'S', 5e5, 9.0e6)), Utm(32, 'S', 5e5, 9999000.0)));
}

TEST(KoordShift, CrossesTheEquatorSouthward) {
    EXPECT_TRUE(SameRecord(North(-0.5, Utm(32, 'N', 5e5, 0.0)), Utm(32, 'S', 5e5, 9999999.5)));
    EXPECT_TRUE(SameRecord(North(-500.0, Utm(32, 'N', 5e5, 500.0)), Utm(32, 'N', 5e5, 0.0)));
    // Nothing happens to a shift that stays north.
    EXPECT_TRUE(SameRecord(North(-1.0, Utm(32, 'N', 5e5, 5e5)), Utm(32, 'N', 5e5, 499999.0)));
}

// 10000500 south is 500 m north of the equator.
TEST(KoordShift, APositionInTheWrongHemisphereKeepsItOnTheWayBackToTheEquator) {
    EXPECT_TRUE(SameRecord(North(-100.0, Utm(32, 'S', 5e5, 10000500.0)), Utm(32, 'S', 5e5, 10000400.0)));
    EXPECT_TRUE(SameRecord(North(100.0, Utm(32, 'S', 5e5, 10000500.0)), Utm(32, 'N', 5e5, 600.0)));
    EXPECT_TRUE(SameRecord(North(100.0, Utm(32, 'N', 5e5, -500.0)), Utm(32, 'N', 5e5, -400.0)));
    EXPECT_TRUE(SameRecord(North(-100.0, Utm(32, 'N', 5e5, -500.0)), Utm(32, 'S', 5e5, 9999400.0)));
}

TEST(KoordShift, GaussKruegerEndsAtTheBorderOfTheStrip) {
    // At the northing 5500000 the borders lie at the offsets 391644.241 and 608355.759.
    const tagKOORD east = Strip(KOORD_GK, 3600000.0, 5.5e6);
    EXPECT_TRUE(SameRecord(East(8355.0, east), Strip(KOORD_GK, 3608355.0, 5.5e6)));
    EXPECT_TRUE(Refuses(Axis::East, 8356.0, east));
    EXPECT_TRUE(SameRecord(East(-208355.0, east), Strip(KOORD_GK, 3391645.0, 5.5e6)));
    EXPECT_TRUE(Refuses(Axis::East, -208356.0, east));
    const tagKOORD record = Strip(KOORD_GK6, 1700000.0, 5.5e6);
    EXPECT_TRUE(SameRecord(East(16829.0, record), Strip(KOORD_GK6, 1716829.0, 5.5e6)));
    EXPECT_TRUE(Refuses(Axis::East, 16830.0, record));
    // At the offset 600000 the strip narrows to the northing 5908014.052.
    EXPECT_TRUE(SameRecord(North(408014.0, east), Strip(KOORD_GK, 3600000.0, 5908014.0)));
    EXPECT_TRUE(Refuses(Axis::North, 408015.0, east));
    EXPECT_TRUE(Refuses(Axis::North, -11408015.0, east));
}

TEST(KoordShift, WesternStripsShiftEastwardToo) {
    const tagKOORD record = Strip(KOORD_GK, -1600000.0, 5.5e6);
    EXPECT_TRUE(SameRecord(East(8355.0, record), Strip(KOORD_GK, -1608355.0, 5.5e6)));
    EXPECT_TRUE(Refuses(Axis::East, 8356.0, record));
    EXPECT_TRUE(SameRecord(East(-208355.0, record), Strip(KOORD_GK, -1391645.0, 5.5e6)));
    EXPECT_TRUE(Refuses(Axis::East, -208356.0, record));
}

TEST(KoordShift, AWayAroundTheEarthIsRefused) {
    for (const double way : {1e6, -1e6, 4.0075e7, -4.0075e7, 1e300}) {
        EXPECT_TRUE(Refuses(Axis::East, way, Utm(32, 'N', 5e5, 5e6)));
        EXPECT_TRUE(Refuses(Axis::East, way, Strip(KOORD_GK, 3500000.0, 5e6)));
        EXPECT_TRUE(Refuses(Axis::East, way, Strip(KOORD_GK, 500000.0, 5e6)));
        EXPECT_TRUE(Refuses(Axis::East, way, Strip(KOORD_GK6, -1500000.0, 5e6)));
        EXPECT_TRUE(Refuses(Axis::East, way, Austrian(KOORD_BMN, 31, 450000.0, 2e5)));
        EXPECT_TRUE(Refuses(Axis::North, 20.0 * way, Utm(32, 'N', 5e5, 5e6)));
        EXPECT_TRUE(Refuses(Axis::North, 20.0 * way, Strip(KOORD_GK, 3500000.0, 5e6)));
    }
}

TEST(KoordShift, AustrianGridsEndAtTheBorderOfTheMeridian) {
    // At the northing 200000 the borders of meridian 31 lie at 335781.269 and 564218.731.
    const tagKOORD bmn = Austrian(KOORD_BMN, 31, 564000.0, 2e5);
    EXPECT_TRUE(SameRecord(East(218.0, bmn), Austrian(KOORD_BMN, 31, 564218.0, 2e5)));
    EXPECT_TRUE(Refuses(Axis::East, 219.0, bmn));
    EXPECT_TRUE(Refuses(Axis::East, -228219.0, bmn));
    EXPECT_TRUE(Refuses(Axis::East, 219.0, Austrian(KOORD_OEM, 31, 864000.0, 5.2e6)));
    EXPECT_TRUE(Refuses(Axis::East, 219.0, Austrian(KOORD_GKAT, 31, 114000.0, 5.2e6)));
    // The systems begin at 45 degrees, the northing -15560.735.
    EXPECT_TRUE(SameRecord(North(-215560.0, bmn), Austrian(KOORD_BMN, 31, 564000.0, -15560.0)));
    EXPECT_TRUE(Refuses(Axis::North, -215561.0, bmn));
    // At 560000 the zone narrows to 417120.936.
    const tagKOORD wide = Austrian(KOORD_BMN, 31, 560000.0, 2e5);
    EXPECT_TRUE(SameRecord(North(217120.0, wide), Austrian(KOORD_BMN, 31, 560000.0, 417120.0)));
    EXPECT_TRUE(Refuses(Axis::North, 217121.0, wide));
}

TEST(KoordShift, AShiftExactlyOntoTheBorderIsAllowed) {
    for (const std::int32_t type : testing::ZONED_TYPES) {
        Random random(static_cast<std::uint64_t>(type));
        const tagKOORD record = testing::RandomZoned(type, random);
        for (const Compass side : {Compass::East, Compass::West}) {
            tagKOORD border = record;
            ASSERT_TRUE(zones::MoveToBorder(side, &border));
            // Half of the way is exact in binary, and so is the other half.
            const double way = SignOf(side) * 1024.0;
            tagKOORD before = border;
            zones::SetEast(zones::East(border) - way, &before);
            const double rest = zones::East(border) - zones::East(before);
            tagKOORD moved = before;
            EXPECT_TRUE(koord::Shift(Axis::East, rest, &moved)) << type;
            EXPECT_NEAR(zones::East(moved), zones::East(border), 1e-9) << type;
            EXPECT_TRUE(Refuses(Axis::East, rest + SignOf(side) * 1e-6, before)) << type;
        }
    }
}

TEST(KoordShift, AWantedZoneStaysWanted) {
    EXPECT_TRUE(SameRecord(East(1.0, Utm(32, 'N', 5e5, 5e6, 32)), Utm(32, 'N', 500001.0, 5e6, 32)));
    EXPECT_TRUE(SameRecord(North(1.0, Strip(KOORD_GK, 3.5e6, 5e6, 9)), Strip(KOORD_GK, 3.5e6, 5000001.0, 9)));
}

TEST(KoordShift, OutsideItsZoneAPositionMayOnlyComeBack) {
    const tagKOORD record = Utm(32, 'N', 720000.0, 5.5e6);
    EXPECT_TRUE(Refuses(Axis::East, 1.0, record));
    EXPECT_TRUE(SameRecord(East(-1.0, record), Utm(32, 'N', 719999.0, 5.5e6)));
    EXPECT_TRUE(Refuses(Axis::North, 1.0, record));
    EXPECT_TRUE(SameRecord(North(-1.0, record), Utm(32, 'N', 720000.0, 5499999.0)));
}

// Beyond the poles zones have no borders. What is left is the limit of the system on the equator, 333978.556
// metres from the central meridian of zone 60: cs2cs +proj=longlat to +proj=utm of longitude 3 east of one.
TEST(KoordShift, BeyondThePoleTheLimitOfTheSystemEndsTheOutermostZones) {
    const tagKOORD east = Utm(60, 'N', 700000.0, 1.2e7);
    EXPECT_TRUE(SameRecord(East(133978.0, east), Utm(60, 'N', 833978.0, 1.2e7)));
    EXPECT_TRUE(Refuses(Axis::East, 133979.0, east));
    EXPECT_TRUE(Refuses(Axis::East, -1.0, east)) << "zone 60 isn't the westernmost";
    const tagKOORD west = Utm(1, 'N', 300000.0, 1.2e7);
    EXPECT_TRUE(SameRecord(East(-133978.0, west), Utm(1, 'N', 166022.0, 1.2e7)));
    EXPECT_TRUE(Refuses(Axis::East, -133979.0, west));
    EXPECT_TRUE(Refuses(Axis::East, 1.0, west));
}

TEST(KoordShift, AnUnknownZoneIsRefused) {
    EXPECT_TRUE(Refuses(Axis::East, 1.0, Utm(0, 'N', 5e5, 5e6)));
    EXPECT_TRUE(Refuses(Axis::North, 1.0, Utm(61, 'N', 5e5, 5e6)));
    EXPECT_TRUE(Refuses(Axis::East, 1.0, Austrian(KOORD_BMN, 29, 5e5, 2e5)));
    EXPECT_TRUE(Refuses(Axis::North, 1.0, Austrian(KOORD_BMN, 29, 5e5, 2e5)));
    EXPECT_TRUE(Refuses(Axis::East, 1.0, Strip(KOORD_GK, 61.5e6, 5e6)));
    EXPECT_TRUE(Refuses(Axis::East, 1.0, Strip(KOORD_GK, NOT_A_NUMBER, 5e6)));
}

TEST(KoordShift, DegreesEndOnTheirLimitsAndSnapOntoThem) {
    EXPECT_TRUE(SameRecord(East(0.5, GeodezRecord(0.0, 359.5)), GeodezRecord(0.0, 360.0)));
    EXPECT_TRUE(Refuses(Axis::East, 0.6, GeodezRecord(0.0, 359.5)));
    EXPECT_TRUE(Refuses(Axis::East, -0.6, GeodezRecord(0.0, -359.5)));
    // Within 1e-7 degrees beyond the limit the limit itself.
    EXPECT_TRUE(SameRecord(North(1e-7, GeodezRecord(89.99999996, 0.0)), GeodezRecord(90.0, 0.0)));
    EXPECT_TRUE(SameRecord(North(-1e-7, GeodezRecord(-89.99999996, 0.0)), GeodezRecord(-90.0, 0.0)));
    EXPECT_TRUE(Refuses(Axis::North, 5e-7, GeodezRecord(89.9999998, 0.0)));
    EXPECT_TRUE(Refuses(Axis::North, 1.0, GeodezRecord(NOT_A_NUMBER, 0.0)));
}

TEST(KoordShift, GridsEndOnTheirLimitsAndSnapOntoThem) {
    const struct {
        std::int32_t type;
        double west, east, south, north;
    } grids[] = {{KOORD_CH, -200000, 1500000, -300000, 600000},
                 {KOORD_PO_MILITARY, -800000, 1200000, -700000, 1300000},
                 {KOORD_RD, -100000, 400000, 200000, 700000},
                 {KOORD_LUREF, 0, 200000, 0, 200000}};
    for (const auto& g : grids) {
        const tagKOORD middle = Grid(g.type, 150000.0, 200000.0 - (g.type == KOORD_LUREF ? 1e5 : 0.0));
        const double n = Load<GridPayload>(middle).northing;
        EXPECT_TRUE(SameRecord(East(g.east - 150000.0, middle), Grid(g.type, g.east, n)));
        EXPECT_TRUE(SameRecord(East(g.west - 150000.0, middle), Grid(g.type, g.west, n)));
        EXPECT_TRUE(SameRecord(North(g.north - n, middle), Grid(g.type, 150000.0, g.north)));
        // 0.1 mm further is still the limit, 0.2 mm isn't.
        EXPECT_TRUE(SameRecord(East(g.east - 150000.0 + 0.00009, middle), Grid(g.type, g.east, n)));
        EXPECT_TRUE(SameRecord(North(g.south - n - 0.00009, middle), Grid(g.type, 150000.0, g.south)));
        EXPECT_TRUE(Refuses(Axis::East, g.east - 150000.0 + 0.0002, middle));
        EXPECT_TRUE(Refuses(Axis::East, g.west - 150000.0 - 0.0002, middle));
        EXPECT_TRUE(Refuses(Axis::North, g.north - n + 0.0002, middle));
        EXPECT_TRUE(Refuses(Axis::North, g.south - n - 0.0002, middle));
    }
}

TEST(KoordShift, AToleranceBeyondALimitIsStillOnIt) {
    // From the limit 0 the numbers are exact.
    const tagKOORD corner = Grid(KOORD_LUREF, 0.0, 1e5);
    EXPECT_TRUE(SameRecord(East(-1e-4, corner), corner));
    EXPECT_TRUE(Refuses(Axis::East, std::nextafter(-1e-4, -1.0), corner));
    const tagKOORD squares = LetterGrid(KOORD_BNG, "SV", 0.0, 1e5, 0.0, 1e5);
    EXPECT_TRUE(SameRecord(East(-1e-4, squares), squares));
    EXPECT_TRUE(Refuses(Axis::East, std::nextafter(-1e-4, -1.0), squares));
}

TEST(KoordShift, ProjectedWorldsShiftBetweenTheirExtremes) {
    for (const std::int32_t type : {KOORD_UPS, KOORD_VDG, KOORD_TM}) {
        CKoord start;
        ASSERT_TRUE(DefaultKoord(2, type, &start));
        SystemExtremes extremes;
        ASSERT_TRUE(FindSystemExtremes(2, type, &extremes));
        for (std::size_t i = 0; i < 4; ++i) {
            const auto direction = static_cast<Compass>(i);
            // The south extreme of TM keeps the northing of the north.
            if (type == KOORD_TM && direction == Compass::South) continue;
            const Axis axis = AxisOf(direction);
            const double way = axes::Value(axis, extremes[i]) - axes::Value(axis, start);
            const tagKOORD end = Shifted(axis, way, start);
            EXPECT_EQ(axes::Value(axis, end), axes::Value(axis, extremes[i])) << type;
            EXPECT_TRUE(Refuses(axis, way + SignOf(direction) * 0.001, start)) << type;
            // Its parameters and hemisphere stay.
            tagKOORD back = end;
            axes::SetValue(axis, axes::Value(axis, start), &back);
            EXPECT_TRUE(SameRecord(back, start)) << type;
        }
    }
}

// The south extreme of TM carries a northing of a quarter meridian, as the north does; only its parameters
// differ. So the whole grid lies south of it.
TEST(KoordShift, TmDoesntShiftSouthward) {
    const tagKOORD record = Record(KOORD_TM, TmPayload{9.0, 0.0, 5e5, 0.0, 1.0, 5e5, 5e6});
    EXPECT_TRUE(Refuses(Axis::North, -1.0, record));
    EXPECT_EQ(Load<TmPayload>(North(1.0, record)).northing, 5000001.0);
}

TEST(KoordShift, PixelRowsGrowWithTheShift) {
    EXPECT_TRUE(SameRecord(North(1.0, LongPixel(5, 10)), LongPixel(5, 11)));
    EXPECT_TRUE(SameRecord(North(-1.0, FloatPixel(5.5, 10.5)), FloatPixel(5.5, 9.5)));
    EXPECT_TRUE(SameRecord(East(1.5, FloatPixel(5.5, 10.5)), FloatPixel(7.0, 10.5)));
}

TEST(KoordShift, WholePixelsShiftByTheWholePart) {
    EXPECT_TRUE(SameRecord(East(2.9, LongPixel(5, 10)), LongPixel(7, 10)));
    EXPECT_TRUE(SameRecord(East(-2.9, LongPixel(5, 10)), LongPixel(3, 10)));
    EXPECT_TRUE(SameRecord(North(0.9, LongPixel(5, 10)), LongPixel(5, 10)));
}

TEST(KoordShift, WholePixelsDontOverflow) {
    EXPECT_TRUE(SameRecord(East(4294967295.0, LongPixel(INT32_MIN, 0)), LongPixel(INT32_MAX, 0)));
    EXPECT_TRUE(Refuses(Axis::East, 1.0, LongPixel(INT32_MAX, 0)));
    EXPECT_TRUE(Refuses(Axis::East, -1.0, LongPixel(INT32_MIN, 0)));
    EXPECT_TRUE(Refuses(Axis::North, 1.0, LongPixel(0, INT32_MAX)));
    EXPECT_TRUE(Refuses(Axis::North, -1.0, LongPixel(0, INT32_MIN)));
    EXPECT_TRUE(Refuses(Axis::East, 1e300, LongPixel(0, 0)));
}

TEST(KoordShift, FractionalPixelsStayFinite) {
    EXPECT_TRUE(SameRecord(East(DBL_MAX, FloatPixel(0.0, 0.0)), FloatPixel(DBL_MAX, 0.0)));
    EXPECT_TRUE(Refuses(Axis::East, 1e300, FloatPixel(DBL_MAX, 0.0)));
    EXPECT_TRUE(Refuses(Axis::East, DBL_MAX, FloatPixel(1.0, 0.0)));  // the sum rounds to the limit
    EXPECT_TRUE(Refuses(Axis::North, DBL_MAX, FloatPixel(0.0, DBL_MAX)));
    EXPECT_TRUE(Refuses(Axis::North, -DBL_MAX, FloatPixel(0.0, -DBL_MAX)));
}

TEST(KoordShift, UtmrefShiftsByWholeMetresInItsZone) {
    const tagKOORD record = Utmref(32, 'U', "QA", 0, 0);
    auto shifted = Load<UtmrefPayload>(East(16703.0, record));
    EXPECT_EQ(shifted.column, 'Q');
    EXPECT_EQ(shifted.easting, 16703);
    EXPECT_TRUE(Refuses(Axis::East, 16705.0, record));
    shifted = Load<UtmrefPayload>(East(-1.0, record));
    EXPECT_EQ(shifted.column, 'P');
    EXPECT_EQ(shifted.row, 'A');
    EXPECT_EQ(shifted.easting, 99999);
    shifted = Load<UtmrefPayload>(North(-1.0, record));
    EXPECT_EQ(shifted.row, 'V');
    EXPECT_EQ(shifted.northing, 99999);
    // Less than half a metre changes nothing but the zone that is wanted.
    shifted = Load<UtmrefPayload>(East(0.4, record));
    EXPECT_EQ(shifted.easting, 0);
    EXPECT_EQ(shifted.wantedZone, 32);
    EXPECT_TRUE(Refuses(Axis::East, 1.0, Utmref(32, 'U', "IA", 0, 0)));
}

// Two and a half degrees beside the central meridian, where parallels run 43 metres toward the pole on a way
// of a kilometre. A ten-thousandth of a degree is 11 metres.
TEST(KoordShift, AUtmrefMayNotLeaveTheSystemOnItsWayToTheCentralMeridian) {
    for (const double latitude : {83.9999, -79.9999}) {
        const tagKOORD degrees = GeodezRecord(latitude, 6.5);
        tagKOORD utmref = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
        ASSERT_EQ(KoordConvert(&degrees, &utmref), KOORD_OK);
        EXPECT_TRUE(Refuses(Axis::East, 1000.0, utmref)) << latitude;
        EXPECT_EQ(Load<UtmrefPayload>(East(-1000.0, utmref)).northing, Load<UtmrefPayload>(utmref).northing);
    }
}

TEST(KoordShift, CodesOfDegreesShiftThroughDegrees) {
    GeogradPayload seconds{};
    seconds.latDegrees = 47;
    seconds.latMinutes = 59;
    seconds.latSeconds = 30.0;
    seconds.latHemisphere = 'N';
    seconds.lonHemisphere = 'W';
    auto north = Load<GeogradPayload>(North(1.0 / 60.0, Record(KOORD_GEOGRAD, seconds)));
    EXPECT_EQ(north.latDegrees, 48);
    EXPECT_EQ(north.latMinutes, 0);
    EXPECT_NEAR(north.latSeconds, 30.0, 1e-9);
    const auto east = Load<GeogradPayload>(East(0.5, Record(KOORD_GEOGRAD, seconds)));
    EXPECT_EQ(east.lonMinutes, 30);
    EXPECT_EQ(east.lonHemisphere, 'E');
    EXPECT_TRUE(Refuses(Axis::North, 43.0, Record(KOORD_GEOGRAD, seconds)));

    GeodezMinPayload minutes{};
    minutes.latDegrees = 47;
    minutes.latMinutes = 30.0;
    minutes.latHemisphere = 'S';
    minutes.lonHemisphere = 'E';
    minutes.height = 500.0;
    const auto south = Load<GeodezMinPayload>(North(-1.0, Record(KOORD_GEODEZMIN, minutes)));
    EXPECT_EQ(south.latDegrees, 48);
    EXPECT_EQ(south.height, 500.0);

    const tagKOORD georef = Record(KOORD_GEOREF, GeorefPayload{4, 'N', 'K', 'F', 'B', 123, 321});
    const auto half = Load<GeorefPayload>(East(0.5, georef));
    EXPECT_EQ(half.precision, 4);
    EXPECT_EQ(half.lonDegree, 'F');
    EXPECT_EQ(half.lonMinutes, 423);
    EXPECT_TRUE(Refuses(Axis::East, 180.0, georef));  // no letters at 180 degrees and beyond
    EXPECT_TRUE(Refuses(Axis::East, 1.0, Record(KOORD_GEOREF, GeorefPayload{4, 'I', 'K', 'F', 'B', 0, 0})));
}

TEST(KoordShift, LetteredGridsRenewTheirLetters) {
    const tagKOORD record = LetterGrid(KOORD_BNG, "TQ", 0.0, 50000.0, 500000.0, 150000.0);
    const auto west = Load<LetterGridPayload>(East(-1000.0, record));
    EXPECT_EQ(west.square, 'S');
    EXPECT_EQ(west.subSquare, 'U');
    EXPECT_NEAR(west.fullEasting, 499000.0, 1e-3);
    // The part within the square is cut to the metre.
    EXPECT_NEAR(west.easting, 99000.0, 1.0);
    const auto north = Load<LetterGridPayload>(North(100000.0, record));
    EXPECT_EQ(north.square, 'T');
    EXPECT_EQ(north.subSquare, 'L');
    EXPECT_NEAR(north.fullNorthing, 250000.0, 1e-3);
}

TEST(KoordShift, IrishGridShiftsLoseFractions) {
    const char none[2] = {0, 0};
    const tagKOORD record = LetterGrid(KOORD_ING, none, 0.0, 0.0, 200000.3, 300000.4);
    const auto east = Load<LetterGridPayload>(East(10.0, record));
    EXPECT_EQ(east.square, 'I');
    // Metres, a projection there and back.
    EXPECT_NEAR(east.fullEasting, 200010.0, 1e-3);
    EXPECT_NEAR(east.fullNorthing, 300000.0, 1e-3);
}

TEST(KoordShift, OnTheLimitALetteredGridKeepsItsOldLetters) {
    const tagKOORD record = LetterGrid(KOORD_BNG, "TQ", 0.0, 50000.0, 500000.0, 150000.0);
    EXPECT_TRUE(SameRecord(East(200000.00005, record),
                           LetterGrid(KOORD_BNG, "TQ", 0.0, 50000.0, 700000.0, 150000.0)));
    EXPECT_TRUE(Refuses(Axis::East, 200000.001, record));
    EXPECT_TRUE(Refuses(Axis::North, -150000.001, record));
}

TEST(KoordShift, OutAndBackRestoresThePosition) {
    for (const Region& region : REGIONS) {
        if (region.type == KOORD_ECEF) continue;
        Random random(static_cast<std::uint64_t>(region.type));
        const bool isDegrees = region.type == KOORD_GEODEZ || region.type == KOORD_GEOGRAD ||
                               region.type == KOORD_GEOREF || region.type == KOORD_GEODEZMIN;
        int shifts = 0;
        for (int i = 0; i < 200; ++i) {
            const tagKOORD record = RandomIn(region, random);
            // TM doesn't shift southward.
            const Axis axis = i % 2 == 0 || region.type == KOORD_TM ? Axis::East : Axis::North;
            const double way = isDegrees ? random.Between(-0.5, 0.5) : std::round(random.Between(-1e4, 1e4));
            tagKOORD moved = record;
            if (!koord::Shift(axis, way, &moved)) {
                EXPECT_TRUE(SameRecord(moved, record));
                continue;
            }
            ++shifts;
            tagKOORD before = MakeKoord(region.datum, KOORD_GEODEZ);
            tagKOORD after = before;
            EXPECT_TRUE(koord::Shift(axis, -way, &moved)) << region.type;
            ASSERT_EQ(KoordConvert(&record, &before), KOORD_OK);
            ASSERT_EQ(KoordConvert(&moved, &after), KOORD_OK);
            // Degrees: 1e-11 is a micrometre. BNG is projected there and back twice, to a few of them each;
            // UTMREF and ING come back in whole metres, GEOREF in hundredths of a minute; GEOGRAD carries
            // seconds above 59.999 into the minute.
            double tolerance = 1e-11;
            if (region.type == KOORD_BNG) tolerance = 5e-11;
            if (region.type == KOORD_UTMREF || region.type == KOORD_ING) tolerance = 1e-4;
            if (region.type == KOORD_GEOREF) tolerance = 4e-4;
            if (region.type == KOORD_GEOGRAD) tolerance = 3e-7;
            const auto a = Load<GeodezPayload>(before);
            const auto b = Load<GeodezPayload>(after);
            EXPECT_NEAR(a.latitude, b.latitude, tolerance) << region.type;
            EXPECT_NEAR((a.longitude - b.longitude) * std::cos(a.latitude * RADIANS_PER_DEGREE), 0.0,
                        tolerance)
                << region.type;
        }
        EXPECT_GT(shifts, 100) << region.type;
    }
}

TEST(KoordShift, OutAndBackRestoresAPixel) {
    Random random(8);
    for (int i = 0; i < 1000; ++i) {
        const tagKOORD whole = LongPixel(random.Below(INT32_MAX) / 2, -random.Below(INT32_MAX) / 2);
        const double way = random.Below(2000000) - 1000000.0;
        EXPECT_TRUE(SameRecord(East(-way, East(way, whole)), whole)) << way;
        EXPECT_TRUE(SameRecord(North(-way, North(way, whole)), whole)) << way;
        // Quarters are exact in binary.
        const tagKOORD fraction = FloatPixel(random.Below(1000000) / 4.0, random.Below(1000000) / 4.0);
        EXPECT_TRUE(SameRecord(East(-way / 4.0, East(way / 4.0, fraction)), fraction)) << way;
        EXPECT_TRUE(SameRecord(North(-way / 4.0, North(way / 4.0, fraction)), fraction)) << way;
    }
}

TEST(KoordShift, NoShiftLeavesTheZone) {
    for (const std::int32_t type : testing::ZONED_TYPES) {
        Random random(60u + static_cast<std::uint64_t>(type));
        int shifts = 0;
        for (int i = 0; i < 500; ++i) {
            const tagKOORD record = testing::RandomZoned(type, random);
            tagKOORD moved = record;
            const double way = random.Between(-4e5, 4e5);
            if (!koord::Shift(Axis::East, way, &moved)) continue;
            ++shifts;
            EXPECT_EQ(zones::Number(moved), zones::Number(record));
            tagKOORD border = moved;
            ASSERT_TRUE(zones::MoveToBorder(DirectionOf(Axis::East, way), &border));
            const double room = zones::East(border) - zones::East(moved);
            EXPECT_GE(way >= 0.0 ? room : -room, -1e-6) << type;  // metres
        }
        EXPECT_GT(shifts, 100) << type;
    }
}

TEST(KoordShift, EverySystemShiftsFromItsDefaultPosition) {
    for (std::int32_t type = 0; type <= KOORD_LUREF; ++type) {
        // LUREF starts in its south-western corner.
        CKoord record;
        ASSERT_TRUE(DefaultKoord(2, type, &record));
        for (const Axis axis : {Axis::East, Axis::North}) {
            tagKOORD moved = record;
            EXPECT_EQ(koord::Shift(axis, 1.0, &moved), type != KOORD_ECEF) << type;
        }
    }
}

TEST(KoordShift, GarbageEnds) {
    Random random(17);
    for (int i = 0; i < 4000; ++i) {
        const std::int32_t datum = random.Below(DATUM_COUNT);
        tagKOORD record = testing::ArbitraryPayload(random, datum, random.Below(KOORD_TYPE_COUNT));
        tagKOORD moved = record;
        const Axis axis = i % 2 == 0 ? Axis::East : Axis::North;
        EXPECT_TRUE(koord::Shift(axis, random.Between(-10.0, 10.0), &moved) || SameRecord(moved, record));
        static_cast<void>(koord::Difference(axis, record, moved));
    }
}

TEST(KoordDifference, IsHowFarTheOtherLiesToTheEastOrNorth) {
    const tagKOORD here = Utm(32, 'N', 5e5, 5e6);
    const tagKOORD there = Utm(32, 'N', 600001.5, 4999999.0);
    EXPECT_EQ(koord::Difference(Axis::East, here, there), 100001.5);
    EXPECT_EQ(koord::Difference(Axis::North, here, there), -1.0);
    EXPECT_EQ(koord::Difference(Axis::East, there, here), -100001.5);
    EXPECT_EQ(koord::Difference(Axis::East, GeodezRecord(0, 179.0), GeodezRecord(0, -179.0)), -358.0);
    EXPECT_EQ(koord::Difference(Axis::North, GeodezRecord(1.5, 0), GeodezRecord(3.0, 0)), 1.5);
    EXPECT_EQ(koord::Difference(Axis::East, Grid(KOORD_CH, 1.0, 2.0), Grid(KOORD_CH, 5.0, 5.0)), 4.0);
    EXPECT_EQ(koord::Difference(Axis::North, Grid(KOORD_RD, 1.0, 2.0), Grid(KOORD_RD, 5.0, 5.0)), 3.0);
    EXPECT_EQ(koord::Difference(Axis::East, Record(KOORD_TM, TmPayload{}),
                                Record(KOORD_TM, TmPayload{0, 0, 0, 0, 0, 7.0, 0})),
              7.0);
    EXPECT_EQ(koord::Difference(Axis::North, Record(KOORD_VDG, VdgPayload{0, 0, 1, 2}),
                                Record(KOORD_VDG, VdgPayload{9, 9, 3, 5})),
              3.0);
    EXPECT_EQ(koord::Difference(Axis::East, LetterGrid(KOORD_BNG, "TQ", 0, 0, 5e5, 1e5),
                                LetterGrid(KOORD_BNG, "SU", 0, 0, 4e5, 2e5)),
              -1e5);
}

TEST(KoordDifference, RowsCountSouthward) {
    EXPECT_EQ(koord::Difference(Axis::North, LongPixel(1, 10), LongPixel(4, 30)), -20.0);
    EXPECT_EQ(koord::Difference(Axis::East, LongPixel(1, 10), LongPixel(4, 30)), 3.0);
    EXPECT_EQ(koord::Difference(Axis::North, FloatPixel(1, 2.5), FloatPixel(1, 1.0)), 1.5);
    EXPECT_EQ(koord::Difference(Axis::East, LongPixel(INT32_MIN, 0), LongPixel(INT32_MAX, 0)), 4294967295.0);
}

TEST(KoordDifference, AcrossTheEquatorBothCountFromIt) {
    EXPECT_EQ(koord::Difference(Axis::North, Utm(32, 'S', 5e5, 9999000.0), Utm(32, 'N', 5e5, 1000.0)),
              2000.0);
    EXPECT_EQ(koord::Difference(Axis::North, Utm(32, 'N', 5e5, 1000.0), Utm(32, 'S', 5e5, 9999000.0)),
              -2000.0);
    EXPECT_EQ(koord::Difference(Axis::North, Utm(32, 'S', 5e5, 1.5e6), Utm(32, 'S', 5e5, 1.25e6)), -250000.0);
}

TEST(KoordDifference, WesternStripsCountEastwardToo) {
    EXPECT_EQ(
        koord::Difference(Axis::East, Strip(KOORD_GK, -1500000.0, 5e6), Strip(KOORD_GK, -1600000.0, 6e6)),
        100000.0);
    EXPECT_EQ(
        koord::Difference(Axis::North, Strip(KOORD_GK, -1500000.0, 5e6), Strip(KOORD_GK, -1600000.0, 6e6)),
        1.0e6);
    EXPECT_EQ(
        koord::Difference(Axis::East, Strip(KOORD_GK6, 1600000.0, 5e6), Strip(KOORD_GK6, 1500000.0, 5e6)),
        -100000.0);
}

TEST(KoordDifference, UtmrefCountsSquaresByTheirLetters) {
    const tagKOORD here = Utmref(32, 'U', "NA", 100, 200);
    EXPECT_EQ(koord::Difference(Axis::East, here, Utmref(32, 'U', "PA", 150, 200)), 100050.0);
    EXPECT_EQ(koord::Difference(Axis::East, Utmref(31, 'U', "HA", 0, 0), Utmref(31, 'U', "JA", 0, 0)),
              100000.0);
    EXPECT_EQ(koord::Difference(Axis::East, here, Utmref(32, 'U', "ka", 100, 200)), -300000.0);
    EXPECT_EQ(koord::Difference(Axis::North, here, Utmref(32, 'U', "NC", 100, 100)), 199900.0);
    // The rows' ring isn't closed: V lies 19 letters after A, not one before.
    EXPECT_EQ(koord::Difference(Axis::North, Utmref(32, 'U', "NV", 0, 0), Utmref(32, 'U', "NA", 0, 0)),
              -1.9e6);
}

TEST(KoordDifference, DegreesOfCodesAreDegrees) {
    GeogradPayload seconds{};
    seconds.latDegrees = 48;
    seconds.latMinutes = 30;
    seconds.latHemisphere = 'N';
    seconds.lonHemisphere = 'E';
    GeogradPayload other = seconds;
    other.latMinutes = 45;
    other.lonDegrees = 1;
    other.lonHemisphere = 'W';
    EXPECT_EQ(koord::Difference(Axis::North, Record(KOORD_GEOGRAD, seconds), Record(KOORD_GEOGRAD, other)),
              0.25);
    EXPECT_EQ(koord::Difference(Axis::East, Record(KOORD_GEOGRAD, seconds), Record(KOORD_GEOGRAD, other)),
              -1.0);
    // Degrees, some units of the last place.
    EXPECT_NEAR(
        koord::Difference(Axis::East, Record(KOORD_GEOREF, GeorefPayload{4, 'N', 'K', 'F', 'B', 123, 0}),
                          Record(KOORD_GEOREF, GeorefPayload{3, 'N', 'K', 'G', 'B', 15, 0})),
        1.0 + 2.7 / 60.0, 1e-12);
}

TEST(KoordDifference, IsUnknownBetweenReferencesAndZones) {
    const tagKOORD here = Utm(32, 'N', 5e5, 5e6);
    const tagKOORD gk = Strip(KOORD_GK, 3.5e6, 5e6);
    tagKOORD otherDatum = here;
    otherDatum.datum = 3;
    const struct {
        tagKOORD first, second;
    } pairs[] = {
        {here, otherDatum},
        {here, GeodezRecord(48.0, 9.0)},
        {here, Utm(33, 'N', 5e5, 5e6)},
        {gk, Strip(KOORD_GK, 4.5e6, 5e6)},
        {Strip(KOORD_GK, NOT_A_NUMBER, 5e6), Strip(KOORD_GK, NOT_A_NUMBER, 5e6)},
        {Austrian(KOORD_BMN, 28, 1e5, 2e5), Austrian(KOORD_BMN, 31, 1e5, 2e5)},
        {Utmref(32, 'U', "NA", 0, 0), Utmref(33, 'U', "NA", 0, 0)},
        {MakeKoord(2, KOORD_ECEF), MakeKoord(2, KOORD_ECEF)},
        {MakeKoord(2, KOORD_LAMBERTCC), MakeKoord(2, KOORD_LAMBERTCC)},
        {MakeKoord(2, 24), MakeKoord(2, 24)},
        {MakeKoord(NO_DATUM, KOORD_GEOGRAD), MakeKoord(NO_DATUM, KOORD_GEOGRAD)},
    };
    for (const auto& pair : pairs) {
        for (const Axis axis : {Axis::East, Axis::North}) {
            EXPECT_EQ(koord::Difference(axis, pair.first, pair.second), UNKNOWN_DIFFERENCE)
                << pair.first.type;
            EXPECT_EQ(koord::Difference(axis, pair.second, pair.first), UNKNOWN_DIFFERENCE)
                << pair.first.type;
        }
    }
}

TEST(KoordDifference, LettersThatNoSquareHasAreUnknown) {
    for (const char* const squares : {"IA", "OA", "?A", "1A"}) {
        EXPECT_EQ(koord::Difference(Axis::East, Utmref(32, 'U', "NA", 0, 0), Utmref(32, 'U', squares, 0, 0)),
                  UNKNOWN_DIFFERENCE);
        EXPECT_EQ(koord::Difference(Axis::East, Utmref(32, 'U', squares, 0, 0), Utmref(32, 'U', "NA", 0, 0)),
                  UNKNOWN_DIFFERENCE);
        EXPECT_EQ(koord::Difference(Axis::North, Utmref(32, 'U', squares, 0, 0), Utmref(32, 'U', "NA", 0, 5)),
                  5.0);
    }
}

// Without a datum there are no limits, and no border of a zone.
TEST(KoordShift, OnADatumThatDoesntExistNothingMoves) {
    for (const Region& region : REGIONS) {
        if (region.type == KOORD_GEOREF) continue;
        Random random(90u + static_cast<std::uint64_t>(region.type));
        tagKOORD record = RandomIn(region, random);
        record.datum = DATUM_COUNT;
        const tagKOORD before = record;
        // A zone is left by 10 000 km; degrees have no place for so many.
        EXPECT_FALSE(koord::Shift(Axis::East, 1e7, &record)) << region.type;
        EXPECT_FALSE(koord::Shift(Axis::North, 1e7, &record)) << region.type;
        EXPECT_TRUE(testing::SameRecord(record, before)) << region.type;
    }
    for (tagKOORD pixel : {FloatPixel(5.0, 6.0), LongPixel(5, 6)}) {
        pixel.datum = DATUM_COUNT;
        const tagKOORD before = pixel;
        EXPECT_FALSE(koord::Shift(Axis::East, 1.0, &pixel));
        EXPECT_FALSE(koord::Shift(Axis::North, 1.0, &pixel));
        EXPECT_TRUE(testing::SameRecord(pixel, before));
    }
}

TEST(KoordDifference, IsUnknownIfEitherCodeHasNoLetters) {
    const tagKOORD degrees = GeodezRecord(48.1, 9.1);
    tagKOORD code = MakeKoord(DATUM_WGS84, KOORD_GEOREF);
    ASSERT_EQ(KoordConvert(&degrees, &code), KOORD_OK);
    const tagKOORD zeros = MakeKoord(DATUM_WGS84, KOORD_GEOREF);
    EXPECT_EQ(koord::Difference(Axis::East, code, code), 0.0);
    EXPECT_EQ(koord::Difference(Axis::East, code, zeros), UNKNOWN_DIFFERENCE);
    EXPECT_EQ(koord::Difference(Axis::East, zeros, code), UNKNOWN_DIFFERENCE);
}

TEST(KoordDifference, AShiftIsTheDifferenceItMakes) {
    for (const Region& region : REGIONS) {
        if (region.type == KOORD_ECEF || region.type == KOORD_UTMREF || region.type == KOORD_GEOREF) continue;
        Random random(80u + static_cast<std::uint64_t>(region.type));
        int shifts = 0;
        for (int i = 0; i < 100; ++i) {
            const tagKOORD record = RandomIn(region, random);
            const Axis axis = i % 2 == 0 ? Axis::East : Axis::North;
            const double way = random.Between(-0.5, 0.5);
            tagKOORD moved = record;
            if (!koord::Shift(axis, way, &moved)) continue;
            ++shifts;
            // Metres or degrees. In ING the shift ends on whole metres; BNG is projected there and back.
            double tolerance = 1e-6;
            if (region.type == KOORD_BNG) tolerance = 5e-6;
            if (region.type == KOORD_ING) tolerance = 0.51;
            EXPECT_NEAR(koord::Difference(axis, record, moved), way, tolerance) << region.type;
        }
        EXPECT_GT(shifts, 50) << region.type;
    }
}

}  // namespace
}  // namespace tessara

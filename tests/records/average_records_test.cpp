#include "records/average_records.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cstring>

#include "numerics/special_values.h"
#include "records/axis_values.h"
#include "records/compare_records.h"
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
using testing::LetterGrid;
using testing::LongPixel;
using testing::Random;
using testing::RandomIn;
using testing::Region;
using testing::REGIONS;
using testing::SameRecord;
using testing::Strip;
using testing::Ups;
using testing::Utm;
using testing::Utmref;

// Metres. A border is found to 1e-8 degrees and drawn as far inside the zone, which is up to 1.1 mm each.
constexpr double BORDER_TOLERANCE = 0.0025;

tagKOORD MeanOf(const tagKOORD& first, const tagKOORD& second) {
    tagKOORD mean{};
    EXPECT_TRUE(AverageRecords(first, second, &mean)) << first.type;
    EXPECT_EQ(mean.type, first.type);
    EXPECT_EQ(mean.datum, first.datum);
    return mean;
}

bool HasMean(const tagKOORD& first, const tagKOORD& second) {
    tagKOORD mean = GeodezRecord(1.0, 2.0, 3.0);
    const tagKOORD before = mean;
    if (AverageRecords(first, second, &mean)) return true;
    EXPECT_TRUE(SameRecord(mean, before)) << "written on failure";
    return false;
}

TEST(AverageRecords, WholePixelsAreCutTowardZero) {
    EXPECT_TRUE(SameRecord(MeanOf(LongPixel(3, 4), LongPixel(4, 5)), LongPixel(3, 4)));
    EXPECT_TRUE(SameRecord(MeanOf(LongPixel(-3, -4), LongPixel(-4, -5)), LongPixel(-3, -4)));
    EXPECT_TRUE(SameRecord(MeanOf(LongPixel(-1, 1), LongPixel(0, 0)), LongPixel(0, 0)));
}

TEST(AverageRecords, TheLargestPixelsDontOverflow) {
    const tagKOORD most = LongPixel(INT32_MAX, INT32_MIN);
    EXPECT_TRUE(SameRecord(MeanOf(most, most), most));
    EXPECT_TRUE(
        SameRecord(MeanOf(LongPixel(INT32_MAX, 0), LongPixel(INT32_MIN, 0)), LongPixel(0, 0)));  // -0.5
}

TEST(AverageRecords, PlainValuesHaveTheArithmeticMean) {
    EXPECT_TRUE(SameRecord(MeanOf(FloatPixel(1.0, -2.0), FloatPixel(2.5, 4.0)), FloatPixel(1.75, 1.0)));
    for (const std::int32_t type : {KOORD_CH, KOORD_RD, KOORD_LUREF, KOORD_PO_MILITARY}) {
        const tagKOORD a = Record(type, GridPayload{100.0, 7000.0});
        const tagKOORD b = Record(type, GridPayload{201.0, 6000.5});
        EXPECT_TRUE(SameRecord(MeanOf(a, b), Record(type, GridPayload{150.5, 6500.25})));
    }
    EXPECT_TRUE(SameRecord(MeanOf(Record(KOORD_ECEF, EcefPayload{1.0, 2.0, -3.0}),
                                  Record(KOORD_ECEF, EcefPayload{3.0, 3.0, -4.0})),
                           Record(KOORD_ECEF, EcefPayload{2.0, 2.5, -3.5})));
}

TEST(AverageRecords, DegreesDontWrapAndLeaveTheHeight) {
    EXPECT_TRUE(SameRecord(MeanOf(GeodezRecord(40.0, 179.0, 500.0), GeodezRecord(50.0, -179.0, 700.0)),
                           GeodezRecord(45.0, 0.0)));
}

TEST(AverageRecords, DegreesMinutesAndSecondsAverageAsDegrees) {
    GeogradPayload south{};
    south.latDegrees = 1;
    south.latMinutes = 30;
    south.latHemisphere = 'S';
    south.lonDegrees = 10;
    south.lonHemisphere = 'W';
    GeogradPayload north = south;
    north.latHemisphere = 'N';
    north.latMinutes = 31;
    north.lonDegrees = 11;
    // Latitudes -1 30' and 1 31': 30". Longitudes -10 and -11: -10 30'. Any datum number will do.
    const auto mean = Load<GeogradPayload>(
        MeanOf(Record(KOORD_GEOGRAD, south, NO_DATUM), Record(KOORD_GEOGRAD, north, NO_DATUM)));
    EXPECT_EQ(mean.latDegrees, 0);
    EXPECT_EQ(mean.latMinutes, 0);
    EXPECT_NEAR(mean.latSeconds, 30.0, 1e-9);
    EXPECT_EQ(mean.latHemisphere, 'N');
    EXPECT_EQ(mean.lonDegrees, 10);
    EXPECT_EQ(mean.lonMinutes, 30);
    EXPECT_NEAR(mean.lonSeconds, 0.0, 1e-9);
    EXPECT_EQ(mean.lonHemisphere, 'W');
}

TEST(AverageRecords, SecondsNeverReachSixty) {
    GeogradPayload below{};
    below.latDegrees = 47;
    below.latMinutes = 59;
    below.latSeconds = 59.9995;
    below.latHemisphere = 'N';
    below.lonHemisphere = 'E';
    GeogradPayload above = below;
    above.latDegrees = 48;
    above.latMinutes = 0;
    above.latSeconds = 0.0;
    const auto mean =
        Load<GeogradPayload>(MeanOf(Record(KOORD_GEOGRAD, below), Record(KOORD_GEOGRAD, above)));
    EXPECT_EQ(mean.latDegrees, 48);
    EXPECT_EQ(mean.latMinutes, 0);
    EXPECT_EQ(mean.latSeconds, 0.0);
}

TEST(AverageRecords, DecimalMinutesLoseTheHeight) {
    GeodezMinPayload payload{};
    payload.latDegrees = 48;
    payload.latMinutes = 7.5;
    payload.latHemisphere = 'N';
    payload.lonDegrees = 11;
    payload.lonHemisphere = 'E';
    payload.height = 500.0;
    const auto mean =
        Load<GeodezMinPayload>(MeanOf(Record(KOORD_GEODEZMIN, payload), Record(KOORD_GEODEZMIN, payload)));
    EXPECT_EQ(mean.latDegrees, 48);
    // Minutes: 48 degrees are 2880 of them, rounded to 5e-13.
    EXPECT_NEAR(mean.latMinutes, 7.5, 1e-11);
    EXPECT_EQ(mean.height, 0.0);
}

TEST(AverageRecords, GeorefAveragesToTheFinestPrecision) {
    // 12.00 and 13.01 minutes: the mean of longitudes is 12.505, cut and rounded to 12.50 or 12.51.
    const tagKOORD a = Record(KOORD_GEOREF, GeorefPayload{3, 'N', 'K', 'F', 'B', 12, 12});
    const tagKOORD b = Record(KOORD_GEOREF, GeorefPayload{4, 'N', 'K', 'F', 'B', 130, 140});
    const auto mean = Load<GeorefPayload>(MeanOf(a, b));
    EXPECT_EQ(mean.precision, 5);
    EXPECT_EQ(mean.lonDegree, 'F');
    EXPECT_EQ(mean.lonMinutes, 1250);
    EXPECT_EQ(mean.latMinutes, 1300);
}

TEST(AverageRecords, ACodeOutsideItsAlphabetHasNoMean) {
    const tagKOORD place = Record(KOORD_GEOREF, GeorefPayload{4, 'N', 'K', 'F', 'B', 130, 140});
    const tagKOORD none = Record(KOORD_GEOREF, GeorefPayload{4, 'I', 'K', 'F', 'B', 130, 140});
    EXPECT_FALSE(HasMean(place, none));
    EXPECT_FALSE(HasMean(none, place));
}

TEST(AverageRecords, UpsNeedsOneHemisphere) {
    EXPECT_TRUE(SameRecord(MeanOf(Ups('S', 2.0e6, 2.0e6), Ups('S', 2.5e6, 1.0e6)), Ups('S', 2.25e6, 1.5e6)));
    EXPECT_FALSE(HasMean(Ups('N', 2.0e6, 2.0e6), Ups('S', 2.0e6, 2.0e6)));
    EXPECT_FALSE(HasMean(Ups('N', 2.0e6, 2.0e6), Ups('n', 2.0e6, 2.0e6)));
}

TEST(AverageRecords, VdgNeedsOneOriginAndDoesntCarryIt) {
    EXPECT_TRUE(SameRecord(MeanOf(Record(KOORD_VDG, VdgPayload{10.0, 20.0, 100.0, 200.0}),
                                  Record(KOORD_VDG, VdgPayload{10.0, 20.0, 300.0, 500.0})),
                           Record(KOORD_VDG, VdgPayload{0.0, 0.0, 200.0, 350.0})));
    const tagKOORD here = Record(KOORD_VDG, VdgPayload{10.0, 20.0, 100.0, 200.0});
    EXPECT_FALSE(HasMean(here, Record(KOORD_VDG, VdgPayload{11.0, 20.0, 100.0, 200.0})));
    EXPECT_FALSE(HasMean(here, Record(KOORD_VDG, VdgPayload{10.0, 21.0, 100.0, 200.0})));
}

TEST(AverageRecords, TmAndSystemsAboveTheTableHaveNoMean) {
    for (const std::int32_t type : {KOORD_TM + 0, KOORD_LAMBERTCC + 0, 24, -1})
        EXPECT_FALSE(HasMean(MakeKoord(2, type), MakeKoord(2, type))) << type;
}

TEST(AverageRecords, OtherDatumsAndSystemsHaveNoMean) {
    EXPECT_FALSE(HasMean(GeodezRecord(1.0, 2.0, 0.0, 2), GeodezRecord(1.0, 2.0, 0.0, 3)));
    EXPECT_FALSE(HasMean(LongPixel(1, 2), FloatPixel(1.0, 2.0)));
}

TEST(AverageRecords, AMeanMayBeOneOfItsPoints) {
    tagKOORD first = FloatPixel(1.0, 2.0);
    ASSERT_TRUE(AverageRecords(first, FloatPixel(3.0, 4.0), &first));
    EXPECT_TRUE(SameRecord(first, FloatPixel(2.0, 3.0)));
}

TEST(AverageRecords, LetteredGridsGetTheLettersOfTheMean) {
    // SU begins at 400000, 100000 and TQ at 500000, 100000: 450000 and 570000 have the mean 510000 in TQ.
    auto mean = Load<LetterGridPayload>(
        MeanOf(LetterGrid(KOORD_BNG, "SU", 50000.0, 20000.0), LetterGrid(KOORD_BNG, "TQ", 70000.0, 40000.0)));
    EXPECT_EQ(mean.square, 'T');
    EXPECT_EQ(mean.subSquare, 'Q');
    // Metres; the error of a projection and back, and there it may be cut to the metre below.
    EXPECT_NEAR(mean.fullEasting, 510000.0, 1e-3);
    EXPECT_NEAR(mean.fullNorthing, 130000.0, 1e-3);
    EXPECT_NEAR(mean.easting, 10000.0, 1.0);
    EXPECT_NEAR(mean.northing, 30000.0, 1.0);
    // In Ireland N begins at 200000, 200000 and O at 300000, 200000.
    mean = Load<LetterGridPayload>(
        MeanOf(LetterGrid(KOORD_ING, "IN", 90000.0, 20000.0), LetterGrid(KOORD_ING, "IO", 30000.0, 40000.0)));
    EXPECT_EQ(mean.square, 'I');
    EXPECT_EQ(mean.subSquare, 'O');
    EXPECT_NEAR(mean.fullEasting, 310000.0, 1e-3);
    EXPECT_NEAR(mean.fullNorthing, 230000.0, 1e-3);
    EXPECT_FALSE(HasMean(LetterGrid(KOORD_BNG, "IQ", 0.0, 0.0), LetterGrid(KOORD_BNG, "TQ", 0.0, 0.0)));
    EXPECT_FALSE(HasMean(LetterGrid(KOORD_BNG, "TQ", 0.0, 0.0), LetterGrid(KOORD_BNG, "TI", 0.0, 0.0)));
}

TEST(AverageUtm, InOneZoneItIsThePlainMean) {
    EXPECT_TRUE(SameRecord(MeanOf(Utm(32, 'N', 4.0e5, 5.0e6, 32), Utm(32, 'N', 5.0e5, 5.1e6, 32)),
                           Utm(32, 'N', 4.5e5, 5.05e6)));
    EXPECT_TRUE(SameRecord(MeanOf(Utm(32, 'S', 4.0e5, 5.0e6), Utm(32, 'S', 5.0e5, 5.1e6)),
                           Utm(32, 'S', 4.5e5, 5.05e6)));
}

TEST(AverageUtm, ZonesTwoApartHaveThePlainMeanBetweenThem) {
    EXPECT_TRUE(SameRecord(MeanOf(Utm(32, 'N', 4.0e5, 5.0e6), Utm(34, 'N', 5.0e5, 5.0e6)),
                           Utm(33, 'N', 4.5e5, 5.0e6)));
}

TEST(AverageUtm, AcrossTheEquatorTheSignDecidesTheHemisphere) {
    EXPECT_TRUE(
        SameRecord(MeanOf(Utm(32, 'N', 5e5, 1.0e6), Utm(32, 'S', 5e5, 8.0e6)), Utm(32, 'S', 5e5, 9.5e6)));
    EXPECT_TRUE(
        SameRecord(MeanOf(Utm(32, 'S', 5e5, 9.0e6), Utm(32, 'N', 5e5, 2.0e6)), Utm(32, 'N', 5e5, 5.0e5)));
    EXPECT_TRUE(
        SameRecord(MeanOf(Utm(32, 'S', 5e5, 9.0e6), Utm(32, 'N', 5e5, 1.0e6)), Utm(32, 'N', 5e5, 0.0)));
}

TEST(AverageUtm, OnlyTheExactLettersCount) {
    EXPECT_FALSE(HasMean(Utm(32, 'n', 5e5, 1e6), Utm(32, 'N', 5e5, 1e6)));
    EXPECT_FALSE(HasMean(Utm(32, 'n', 5e5, 1e6), Utm(32, 'n', 5e5, 1e6)));
    EXPECT_FALSE(HasMean(Utm(32, 'S', 5e5, 1e6), Utm(32, 's', 5e5, 1e6)));
    EXPECT_FALSE(HasMean(Utm(32, '\0', 5e5, 1e6), Utm(32, '\0', 5e5, 1e6)));
}

void ExpectUtm(const tagKOORD& mean, std::int16_t zone, char hemisphere, double easting, double northing) {
    const auto payload = Load<UtmPayload>(mean);
    EXPECT_EQ(payload.zone, zone);
    EXPECT_EQ(payload.hemisphere, hemisphere);
    EXPECT_EQ(payload.wantedZone, NO_WANTED_ZONE);
    EXPECT_NEAR(payload.easting, easting, BORDER_TOLERANCE);
    EXPECT_EQ(payload.northing, northing);
}

TEST(AverageUtm, BesideABorderTheMeanOffsetIsLaidOutFromTheBorder) {
    // At the northing 5500000 the borders lie at 283296.588 and 716703.412, see
    // data/objects/zone_borders.txt.
    const double n = 5.5e6;
    // (700000 + 300000) / 2 - 500000 = 0: the border itself, in the eastern zone.
    ExpectUtm(MeanOf(Utm(32, 'N', 7.0e5, n), Utm(33, 'N', 3.0e5, n)), 33, 'N', 283296.588, n);
    // (600000 + 350000) / 2 - 500000 = -25000.
    ExpectUtm(MeanOf(Utm(32, 'N', 6.0e5, n), Utm(33, 'N', 3.5e5, n)), 32, 'N', 716703.412 - 25000.0, n);
    // (700000 + 340000) / 2 - 500000 = 20000.
    ExpectUtm(MeanOf(Utm(32, 'N', 7.0e5, n), Utm(33, 'N', 3.4e5, n)), 33, 'N', 283296.588 + 20000.0, n);
}

TEST(AverageUtm, BesideABorderOnTheEquator) {
    // The border of the equator lies 333978.557 from the central meridian.
    ExpectUtm(MeanOf(Utm(32, 'N', 5e5, 0.0), Utm(33, 'N', 5e5, 0.0)), 33, 'N', 5e5 - 333978.557, 0.0);
}

TEST(AverageUtm, TheBorderIsTakenAHairInsideTheZone) {
    // cs2cs +proj=longlat to +proj=utm +zone=33 of 12.00000001 0, 1e-8 degrees from the border:
    // 166021.444195, against 166021.443081 of the border itself. On the equator the first point tried is
    // exact: 1e-5 m, the projections' rounding.
    const double inside = 166021.444195;
    const tagKOORD east = MeanOf(Utm(32, 'N', 5e5, 0.0), Utm(33, 'N', 5e5, 0.0));
    EXPECT_NEAR(Load<UtmPayload>(east).easting, inside, 1e-5);
    // (400000 + 500000) / 2 - 500000 = -50000 from the mirror image, in zone 32.
    const tagKOORD west = MeanOf(Utm(32, 'N', 4e5, 0.0), Utm(33, 'N', 5e5, 0.0));
    EXPECT_NEAR(Load<UtmPayload>(west).easting, 1e6 - inside - 50000.0, 1e-5);
}

TEST(AverageUtm, BesideABorderAcrossTheEquator) {
    const auto payload = Load<UtmPayload>(MeanOf(Utm(32, 'N', 6.0e5, 4.0e5), Utm(33, 'S', 3.5e5, 9.8e6)));
    EXPECT_EQ(payload.zone, 32);
    EXPECT_EQ(payload.hemisphere, 'N');
    EXPECT_EQ(payload.northing, 1.0e5);
}

TEST(AverageUtm, ZonesThreeApartMeetAtTheBorderInTheMiddle) {
    // 33 is the western of the two middle zones.
    ExpectUtm(MeanOf(Utm(32, 'N', 5e5, 5.5e6), Utm(35, 'N', 5e5, 5.5e6)), 34, 'N', 283296.588, 5.5e6);
    ExpectUtm(MeanOf(Utm(32, 'N', 4e5, 5.5e6), Utm(35, 'N', 5e5, 5.5e6)), 33, 'N', 716703.412 - 5e4, 5.5e6);
}

TEST(AverageUtm, TheNumberingDoesntCloseAtTheDateLine) {
    EXPECT_EQ(Load<UtmPayload>(MeanOf(Utm(60, 'N', 5e5, 5.5e6), Utm(1, 'N', 5e5, 5.5e6))).zone, 31);
    EXPECT_EQ(Load<UtmPayload>(MeanOf(Utm(60, 'N', 4e5, 5.5e6), Utm(1, 'N', 5e5, 5.5e6))).zone, 30);
}

TEST(AverageUtm, WhatDoesntConvertHasNoMeanBesideABorder) {
    EXPECT_FALSE(HasMean(Utm(0, 'N', 5e5, 5e6), Utm(-1, 'N', 4e5, 5e6)));
    EXPECT_FALSE(HasMean(Utm(32, 'N', NOT_A_NUMBER, 5e6), Utm(33, 'N', 4e5, 5e6)));
    EXPECT_FALSE(HasMean(Utm(32, 'N', 6e5, NOT_A_NUMBER), Utm(33, 'N', 4e5, 5e6)));
    EXPECT_FALSE(HasMean(Utm(32, 'N', 6e5, 1e300), Utm(33, 'N', 4e5, 5e6)));
    EXPECT_FALSE(HasMean(Utm(32, 'N', 6e5, 9.5e6), Utm(33, 'N', 4e5, 9.5e6)));  // north of 84 degrees
}

TEST(AverageUtm, ThePointsOfABorderAverageToThatBorder) {
    Random random(3);
    for (int i = 0; i < 200; ++i) {
        const auto zone = static_cast<std::int16_t>(random.Below(59) + 1);
        const double northing = random.Between(0.0, 9.2e6);
        const double offset = random.Between(10000.0, 30000.0);
        // One as far inside the western zone as the other is inside the eastern.
        const tagKOORD mean = MeanOf(Utm(zone, 'N', 5e5 + offset, northing),
                                     Utm(static_cast<std::int16_t>(zone + 1), 'N', 5e5 - offset, northing));
        tagKOORD geodez = MakeKoord(2, KOORD_GEODEZ);
        ASSERT_EQ(KoordConvert(&mean, &geodez), KOORD_OK);
        // Degrees: the inset and what the search leaves.
        EXPECT_NEAR(Load<GeodezPayload>(geodez).longitude, 6.0 * zone - 180.0, 2.1e-8);
    }
}

TEST(AverageUtmref, AveragesInUtm) {
    EXPECT_TRUE(SameRecord(MeanOf(Utmref(32, 'U', "NA", 0, 0), Utmref(32, 'U', "NA", 10, 20)),
                           Utmref(32, 'U', "NA", 5, 10)));
    // UTM 700000 and 340000 lay out 20000 m from the border of zone 33 at the northing 5500000, which is
    // 283296.588 + 20000 = 303296.588: the column U, the row R of an odd zone.
    const auto mean =
        Load<UtmrefPayload>(MeanOf(Utmref(32, 'U', "QA", 0, 0), Utmref(33, 'U', "UR", 40000, 0)));
    EXPECT_EQ(mean.zone, 33);
    EXPECT_EQ(mean.column, 'U');
    EXPECT_EQ(mean.row, 'R');
    EXPECT_NEAR(mean.easting, 3297, 1);
    EXPECT_EQ(mean.northing, 0);
    EXPECT_EQ(mean.wantedZone, NO_WANTED_ZONE);
    EXPECT_FALSE(HasMean(Utmref(32, 'U', "IA", 0, 0), Utmref(32, 'U', "NA", 0, 0)));
}

// The reference at 83.999 degrees.
tagKOORD BelowTheLimit(double longitude) {
    const tagKOORD degrees = GeodezRecord(83.999, longitude);
    tagKOORD utmref = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
    EXPECT_EQ(KoordConvert(&degrees, &utmref), KOORD_OK);
    return utmref;
}

// At 83.999 degrees on either side of the meridian 6, a border at which the northing is 0.5 * 0.0524^2 * sin
// * cos = 1.4e-4 radians larger than on the central meridian of either zone: there the mean northing is that
// of 84.007 degrees.
TEST(AverageUtmref, HasNoMeanWhereUtmHasNone) {
    EXPECT_FALSE(HasMean(BelowTheLimit(5.99), BelowTheLimit(6.01)));
}

// The same northing on the central meridian between the borders of one zone.
TEST(AverageUtmref, HasNoMeanWhereUtmGoesOnBeyondTheLimit) {
    EXPECT_FALSE(HasMean(BelowTheLimit(6.01), BelowTheLimit(11.99)));
    EXPECT_TRUE(HasMean(BelowTheLimit(8.99), BelowTheLimit(9.01)));
}

void ExpectStrip(const tagKOORD& mean, double easting, double northing) {
    const auto payload = Load<GkPayload>(mean);
    EXPECT_NEAR(payload.easting, easting, BORDER_TOLERANCE);
    EXPECT_EQ(payload.northing, northing);
    EXPECT_EQ(payload.letter, northing >= 0.0 ? 'N' : 'S');
    EXPECT_EQ(payload.wantedMeridian, NO_WANTED_ZONE);
}

TEST(AverageGk, InTheSameOrTheOverNextStripItIsThePlainMean) {
    const auto gk = [](double easting, double northing) { return Strip(KOORD_GK, easting, northing, 9); };
    ExpectStrip(MeanOf(gk(3.4e6, 5.0e6), gk(3.6e6, 5.1e6)), 3.5e6, 5.05e6);
    ExpectStrip(MeanOf(gk(2.4e6, 5.0e6), gk(4.7e6, 5.0e6)), 3.55e6, 5.0e6);
    ExpectStrip(MeanOf(gk(-2.4e6, -5.0e6), gk(-4.7e6, -5.0e6)), -3.55e6, -5.0e6);
    ExpectStrip(MeanOf(gk(4.0e5, 5.0e6), gk(2.6e6, -5.0e6)), 1.5e6, 0.0);
}

TEST(AverageGk, AcrossZeroTheOffsetsAreAveraged) {
    // Strips -1 and 1 meet in 0, 0 and -2 in -1.
    ExpectStrip(MeanOf(Strip(KOORD_GK, -1600000.0, 5e6), Strip(KOORD_GK, 1400000.0, 5e6)), 500000.0, 5e6);
    ExpectStrip(MeanOf(Strip(KOORD_GK, 600000.0, 5e6), Strip(KOORD_GK, -2600000.0, 5e6)), -1600000.0, 5e6);
}

TEST(AverageGk, BesideABorderTheMeanOffsetIsLaidOutFromTheBorder) {
    // At the northing 5500000 the borders lie at the offsets 391644.241 and 608355.759, see
    // data/objects/zone_borders.txt.
    const auto mean = [](double first, double second) {
        return MeanOf(Strip(KOORD_GK, first, 5.5e6), Strip(KOORD_GK, second, 5.5e6));
    };
    ExpectStrip(mean(3600000.0, 4400000.0), 4391644.241, 5.5e6);
    ExpectStrip(mean(3600000.0, 4350000.0), 3608355.759 - 25000.0, 5.5e6);
    ExpectStrip(mean(3600000.0, 4450000.0), 4391644.241 + 25000.0, 5.5e6);
    // Strips -3 and -2, -1 and 0: offsets grow eastward there, too.
    ExpectStrip(mean(-3600000.0, -2400000.0), -2391644.241, 5.5e6);
    ExpectStrip(mean(-3600000.0, -2350000.0), -(3608355.759 - 25000.0), 5.5e6);
    ExpectStrip(mean(-1600000.0, 400000.0), 391644.241, 5.5e6);
    ExpectStrip(mean(-1600000.0, 350000.0), -(1608355.759 - 25000.0), 5.5e6);
    ExpectStrip(mean(600000.0, 1400000.0), 1391644.241, 5.5e6);
}

TEST(AverageGk, StripsOfKkjCountFromTheirOwnOrigin) {
    // At the northing 6878004.663 the western border lies at 421403.686, see data/objects/zone_borders.txt.
    const double n = 6878004.663;
    const tagKOORD mean = MeanOf(Strip(KOORD_GK, 1570000.0, n, NO_WANTED_ZONE, DATUM_KKJ),
                                 Strip(KOORD_GK, 2430000.0, n, NO_WANTED_ZONE, DATUM_KKJ));
    ExpectStrip(mean, 2421403.686, n);
}

TEST(AverageGk6, StripsFollowEachOtherWithoutZero) {
    const auto mean = [](double first, double second) {
        return MeanOf(Strip(KOORD_GK6, first, 5.5e6), Strip(KOORD_GK6, second, 5.5e6));
    };
    // Both on one side and an even sum, or an odd sum across: the strip in the middle.
    ExpectStrip(mean(1400000.0, 1600000.0), 1500000.0, 5.5e6);
    ExpectStrip(mean(1400000.0, 3700000.0), 2550000.0, 5.5e6);
    ExpectStrip(mean(-1600000.0, -3600000.0), -2600000.0, 5.5e6);
    ExpectStrip(mean(-1600000.0, 2500000.0), 1550000.0, 5.5e6);
    ExpectStrip(mean(-2600000.0, 1500000.0), -1550000.0, 5.5e6);
    // Otherwise beside the border; those of the northing 5500000 lie at 283170.913 and 716829.087, see
    // data/objects/zone_borders.txt.
    ExpectStrip(mean(-1600000.0, 1400000.0), 1283170.913, 5.5e6);
    ExpectStrip(mean(-1550000.0, 1400000.0), -(1716829.087 - 25000.0), 5.5e6);
    ExpectStrip(mean(1600000.0, 2400000.0), 2283170.913, 5.5e6);
    ExpectStrip(mean(-2600000.0, -1350000.0), -(2716829.087 - 25000.0), 5.5e6);
    ExpectStrip(mean(-1600000.0, 3400000.0), 2283170.913, 5.5e6);
    ExpectStrip(mean(-3600000.0, 1400000.0), -1283170.913, 5.5e6);
}

TEST(AverageGk, WhatHasNoStripHasNoMean) {
    EXPECT_FALSE(HasMean(Strip(KOORD_GK, NOT_A_NUMBER, 5e6), Strip(KOORD_GK, 3.5e6, 5e6)));
    EXPECT_FALSE(HasMean(Strip(KOORD_GK, 3.5e6, 5e6), Strip(KOORD_GK, 1e300, 5e6)));
    EXPECT_FALSE(HasMean(Strip(KOORD_GK, 3.6e6, NOT_A_NUMBER), Strip(KOORD_GK, 4.4e6, 5e6)));
    EXPECT_FALSE(HasMean(Strip(KOORD_GK, 70.6e6, 5e6), Strip(KOORD_GK, 71.3e6, 5e6)));
    EXPECT_FALSE(HasMean(Strip(KOORD_GK, 3.6e6, 9.0e6), Strip(KOORD_GK, 4.4e6, 9.0e6)));  // north of 80
}

void ExpectAustrian(const tagKOORD& mean, std::int16_t meridian, double easting, double northing) {
    const auto payload = Load<BmnPayload>(mean);
    EXPECT_EQ(payload.meridian, meridian);
    EXPECT_EQ(payload.wantedMeridian, NO_WANTED_ZONE);
    EXPECT_NEAR(payload.easting, easting, BORDER_TOLERANCE);
    EXPECT_EQ(payload.northing, northing);
}

TEST(AverageAustrian, EqualAndOutermostMeridiansHaveThePlainMean) {
    ExpectAustrian(MeanOf(Austrian(KOORD_BMN, 31, 4e5, 1e5, 31), Austrian(KOORD_BMN, 31, 5e5, 3e5)), 31,
                   450000.0, 200000.0);
    ExpectAustrian(MeanOf(Austrian(KOORD_BMN, 28, 2e5, 2e5), Austrian(KOORD_BMN, 34, 8e5, 2e5)), 31, 500000.0,
                   200000.0);
}

TEST(AverageAustrian, BesideABorderTheMeanOffsetIsLaidOutFromTheBorder) {
    // At the northing 200000 the borders lie 114218.731 from the central meridians, which are at 150000,
    // 450000 and 750000; see data/objects/zone_borders.txt.
    const struct {
        std::int16_t firstMeridian;
        double first;
        std::int16_t secondMeridian;
        double second;
        std::int16_t meridian;
        double easting;
    } cases[] = {
        {28, 250000.0, 31, 350000.0, 31, 335781.269},
        {28, 250000.0, 31, 400000.0, 31, 360781.269},
        {28, 200000.0, 31, 350000.0, 28, 239218.731},
        {31, 550000.0, 34, 650000.0, 34, 635781.269},
    };
    for (const auto& c : cases) {
        const auto mean = [&c](std::int32_t type, double shift1, double shift2, double northing) {
            return MeanOf(Austrian(type, c.firstMeridian, c.first - shift1, northing),
                          Austrian(type, c.secondMeridian, c.second - shift2, northing));
        };
        ExpectAustrian(mean(KOORD_BMN, 0.0, 0.0, 2e5), c.meridian, c.easting, 2e5);
        ExpectAustrian(mean(KOORD_OEM, -3e5, -3e5, 5.2e6), c.meridian, c.easting + 3e5, 5.2e6);
        const auto centre = [](std::int16_t meridian) { return 150000.0 + (meridian - 28) * 100000.0; };
        ExpectAustrian(mean(KOORD_GKAT, centre(c.firstMeridian), centre(c.secondMeridian), 5.2e6), c.meridian,
                       c.easting - centre(c.meridian), 5.2e6);
    }
}

TEST(AverageAustrian, WhatDoesntConvertHasNoMeanBesideABorder) {
    for (const std::int32_t type : {KOORD_BMN, KOORD_OEM, KOORD_GKAT}) {
        EXPECT_FALSE(HasMean(Austrian(type, 28, 1e5, 5e5), Austrian(type, 29, 4e5, 5e5)));
        EXPECT_FALSE(HasMean(Austrian(type, 25, 1e5, 5e5), Austrian(type, 28, 1e5, 5e5)));
        EXPECT_FALSE(HasMean(Austrian(type, 28, NOT_A_NUMBER, 5e5), Austrian(type, 31, 4e5, 5e5)));
        EXPECT_FALSE(HasMean(Austrian(type, 28, 1e5, 9e6), Austrian(type, 31, 4e5, 9e6)));  // north of 51
    }
}

// The eastings of GK-AT are the same in all zones, those that don't exist among them.
TEST(AverageAustrian, EastOfTheLastMeridianThereIsNoMean) {
    EXPECT_FALSE(HasMean(Austrian(KOORD_GKAT, 34, 10000.0, 5.3e6), Austrian(KOORD_GKAT, 37, 10000.0, 5.3e6)));
}

// How far two means lie apart on an axis, in the unit of the system.
double Apart(Axis axis, const tagKOORD& first, const tagKOORD& second) {
    if (axis == Axis::East && zones::Exist(static_cast<std::int32_t>(first.type))) {
        return zones::Number(first) == zones::Number(second) ? zones::East(first) - zones::East(second)
                                                             : DBL_MAX;
    }
    return axes::Value(axis, first) - axes::Value(axis, second);
}

TEST(AverageRecords, TheOrderOfThePointsDoesntMatter) {
    for (const Region& region : REGIONS) {
        if (region.type == KOORD_TM) continue;
        Random random(static_cast<std::uint64_t>(region.type));
        int means = 0;
        for (int i = 0; i < 500; ++i) {
            const tagKOORD first = RandomIn(region, random);
            const tagKOORD second = RandomIn(region, random);
            tagKOORD mean{};
            tagKOORD back{};
            const bool isThere = AverageRecords(first, second, &mean);
            means += isThere ? 1 : 0;
            ASSERT_EQ(AverageRecords(second, first, &back), isThere) << region.type;
            if (!isThere || !axes::IsNumber(region.type)) {
                ASSERT_TRUE(SameRecord(mean, back)) << region.type;
                continue;
            }
            // Beside a border of zones the search for it starts from the one side or the other; metres.
            const double tolerance = zones::Exist(region.type) ? 1e-6 : 0.0;
            ASSERT_NEAR(Apart(Axis::East, mean, back), 0.0, tolerance) << region.type;
            ASSERT_EQ(Apart(Axis::North, mean, back), 0.0) << region.type;
        }
        EXPECT_GT(means, 0) << region.type;
    }
}

TEST(AverageRecords, TheMeanLiesBetweenItsPoints) {
    for (const Region& region : REGIONS) {
        if (region.type == KOORD_TM || region.type == KOORD_ECEF) continue;
        Random random(50u + static_cast<std::uint64_t>(region.type));
        for (int i = 0; i < 500; ++i) {
            // Near each other, so that both lie in one zone or in neighbouring ones.
            const double latitude = random.Between(region.south, region.north - 0.2);
            const double longitude = random.Between(region.west, region.east - 0.2);
            const tagKOORD first = testing::RecordIn(region, latitude, longitude);
            const tagKOORD second = testing::RecordIn(region, latitude + random.Between(0.0, 0.2),
                                                      longitude + random.Between(0.0, 0.2));
            tagKOORD mean;
            if (!AverageRecords(first, second, &mean)) {
                ADD_FAILURE() << region.type;
                continue;
            }
            for (const Axis axis : {Axis::North, Axis::East}) {
                const std::int32_t order = CompareRecords(axis, first, second);
                const std::int32_t before = CompareRecords(axis, first, mean);
                const std::int32_t after = CompareRecords(axis, mean, second);
                EXPECT_TRUE(before == order || before == 0) << region.type;
                EXPECT_TRUE(after == order || after == 0) << region.type;
            }
        }
    }
}

// A record of zeros has no letters.
TEST(AverageRecords, EitherPositionMayHaveNoLetters) {
    for (const std::int32_t type : {KOORD_GEOREF, KOORD_UTMREF}) {
        const tagKOORD degrees = GeodezRecord(48.1, 9.1);
        tagKOORD code = MakeKoord(DATUM_WGS84, type);
        ASSERT_EQ(KoordConvert(&degrees, &code), KOORD_OK);
        const tagKOORD zeros = MakeKoord(DATUM_WGS84, type);
        tagKOORD mean = degrees;
        EXPECT_TRUE(AverageRecords(code, code, &mean)) << type;
        mean = degrees;
        EXPECT_FALSE(AverageRecords(code, zeros, &mean)) << type;
        EXPECT_FALSE(AverageRecords(zeros, code, &mean)) << type;
        EXPECT_TRUE(testing::SameRecord(mean, degrees)) << type;
    }
}

TEST(AverageRecords, GarbageEnds) {
    Random random(13);
    for (int i = 0; i < 5000; ++i) {
        tagKOORD records[2];
        const std::int32_t type = random.Below(KOORD_TYPE_COUNT);
        for (tagKOORD& record : records) {
            record = testing::ArbitraryPayload(random, random.Below(2) == 0 ? 2 : 8, type);
        }
        HasMean(records[0], records[1]);
    }
}

}  // namespace
}  // namespace tessara

#include "text/write_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/records.h"
#include "support/zones.h"
#include "tessara/ckoord.h"

namespace tessara {
namespace {

using testing::Utm;
using testing::Utmref;

struct Written {
    std::string north;
    std::string east;

    bool operator==(const Written&) const = default;
};

std::ostream& operator<<(std::ostream& stream, const Written& texts) {
    return stream << '\'' << texts.north << "' '" << texts.east << '\'';
}

Written Write(const tagKOORD& record, int decimals) {
    Written texts;
    if (!text::Write(Axis::North, record, decimals, &texts.north)) texts.north = "(false)";
    if (!text::Write(Axis::East, record, decimals, &texts.east)) texts.east = "(false)";
    return texts;
}

struct Sexagesimal {
    char letter;
    std::int16_t degrees;
    std::int16_t minutes;
    double rest;
};

tagKOORD Geograd(const Sexagesimal& lat, const Sexagesimal& lon) {
    GeogradPayload p{};
    p.latHemisphere = lat.letter;
    p.latDegrees = lat.degrees;
    p.latMinutes = lat.minutes;
    p.latSeconds = lat.rest;
    p.lonHemisphere = lon.letter;
    p.lonDegrees = lon.degrees;
    p.lonMinutes = lon.minutes;
    p.lonSeconds = lon.rest;
    return Record(KOORD_GEOGRAD, p);
}

tagKOORD GeodezMin(char latLetter, std::int16_t latDegrees, double latMinutes, char lonLetter = 'E',
                   std::int16_t lonDegrees = 0, double lonMinutes = 0.0) {
    GeodezMinPayload p{};
    p.latHemisphere = latLetter;
    p.latDegrees = latDegrees;
    p.latMinutes = latMinutes;
    p.lonHemisphere = lonLetter;
    p.lonDegrees = lonDegrees;
    p.lonMinutes = lonMinutes;
    return Record(KOORD_GEODEZMIN, p);
}

tagKOORD LetterGrid(std::int32_t system, char square, char subSquare) {
    LetterGridPayload p{};
    p.square = square;
    p.subSquare = subSquare;
    p.easting = 30000.5;
    p.northing = 80000.25;
    p.fullEasting = 530000.5;
    p.fullNorthing = 180000.25;
    return Record(system, p);
}

tagKOORD Georef(std::int16_t precision) {
    GeorefPayload p{};
    p.precision = precision;
    p.latZone = 'G';
    p.latDegree = 'A';
    p.latMinutes = 7;
    p.lonZone = 'N';
    p.lonDegree = 'B';
    p.lonMinutes = 59;
    return Record(KOORD_GEOREF, p);
}

TEST(TextWrite, EverySystemHasItsWords) {
    TmPayload tm{};
    tm.easting = 1.0;
    tm.northing = 2.0;
    UpsPayload ups{};
    ups.hemisphere = 'S';
    ups.easting = 2000000.0;
    ups.northing = 2100000.0;
    GkPayload gk{};
    gk.easting = 3500000.0;
    gk.northing = 5400000.0;
    BmnPayload bmn{};
    bmn.easting = 450000.0;
    bmn.northing = 200000.0;
    const GridPayload grid{600000.0, 200000.0};
    const struct {
        tagKOORD record;
        Written texts;
    } cases[] = {
        {Record(KOORD_LONGPIXEL, LongPixelPayload{12, -7}), {"-7", "12"}},
        {Record(KOORD_FLOATPIXEL, FloatPixelPayload{1.5, -2.25}), {"-2.250", "1.500"}},
        {Utm(32, 'N', 500000.0, 5400000.0), {"N 5400000.000", "32 500000.000"}},
        {Utmref(32, 'U', "QA", 7819, 42661), {"U A 42661.000", "32 Q 7819.000"}},
        {GeodezRecord(48.5, -11.25), {"48.500", "-11.250"}},
        {Geograd({'N', 48, 5, 3.25}, {'W', 11, 0, 59.5}), {"N 48 5 3.250", "W 11 0 59.500"}},
        {Georef(4), {"G A 0007", "N B 0059"}},
        {Record(KOORD_GK, gk), {"5400000.000", "3500000.000"}},
        {Record(KOORD_GK6, gk), {"5400000.000", "3500000.000"}},
        {Record(KOORD_BMN, bmn), {"200000.000", "450000.000"}},
        {Record(KOORD_OEM, bmn), {"200000.000", "450000.000"}},
        {Record(KOORD_GKAT, bmn), {"200000.000", "450000.000"}},
        {Record(KOORD_CH, grid), {"200000.000", "600000.000"}},
        {Record(KOORD_PO_MILITARY, grid), {"200000.000", "600000.000"}},
        {Record(KOORD_RD, grid), {"200000.000", "600000.000"}},
        {Record(KOORD_LUREF, grid), {"200000.000", "600000.000"}},
        {Record(KOORD_ECEF, EcefPayload{1.0, 2.0, 3.0}), {"3.000", "2.000"}},
        {GeodezMin('N', 48, 5.5, 'W', 11, 30.0), {"N 48 5.500", "W 11 30.000"}},
        {Record(KOORD_UPS, ups), {"S 2100000.000", "2000000.000"}},
        {Record(KOORD_TM, tm), {"2.000", "1.000"}},
        {Record(KOORD_VDG, VdgPayload{10.0, 20.0, 1.0, 2.0}), {"20.000 2.000", "10.000 1.000"}},
        {LetterGrid(KOORD_BNG, 'T', 'Q'), {"180000.250 TQ 80000.250", "530000.500 TQ 30000.500"}},
        {LetterGrid(KOORD_ING, '\0', 'O'), {"180000.250 O 80000.250", "530000.500 O 30000.500"}},
        {MakeKoord(DATUM_WGS84, KOORD_LAMBERTCC), {"(false)", "(false)"}},
        {MakeKoord(DATUM_WGS84, KOORD_TYPE_COUNT), {"(false)", "(false)"}},
        {MakeKoord(DATUM_WGS84, -1), {"(false)", "(false)"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Write(c.record, 3), c.texts) << "system " << c.record.type;
}

TEST(TextWrite, GeorefMinutesHaveAsManyDigitsAsThePrecisionSays) {
    EXPECT_EQ(Write(Georef(3), 0), (Written{"G A 007", "N B 059"}));
    EXPECT_EQ(Write(Georef(4), 0), (Written{"G A 0007", "N B 0059"}));
    EXPECT_EQ(Write(Georef(5), 0), (Written{"G A 00007", "N B 00059"}));
    for (const int precision : {0, 1, 2, 6, 8, -1, INT16_MIN, INT16_MAX})
        EXPECT_EQ(Write(Georef(static_cast<std::int16_t>(precision)), 0), (Written{"", ""})) << precision;
}

TEST(TextWrite, PixelsOfEverySizeAreWritten) {
    EXPECT_EQ(Write(Record(KOORD_LONGPIXEL, LongPixelPayload{INT32_MIN, INT32_MAX}), 0),
              (Written{"2147483647", "-2147483648"}));
    const double most = std::numeric_limits<double>::max();
    EXPECT_EQ(Write(Record(KOORD_FLOATPIXEL, FloatPixelPayload{most, -most}), 3).east.size(), 309u + 4u);
}

// Zones and hemispheres are written as they are, however senseless.
TEST(TextWrite, RecordsArentJudged) {
    EXPECT_EQ(Write(Utm(-7, 'q', 1.0, 2.0), 0), (Written{"q 2", "-7 1"}));
    EXPECT_EQ(Write(Utm(1, 'N', HUGE_VAL, NAN), 0).east, "1 inf");
}

TEST(TextWrite, ALetterThatIsZeroEndsTheText) {
    EXPECT_EQ(Write(Utm(32, '\0', 500000.0, 5400000.0), 3), (Written{"", "32 500000.000"}));
    EXPECT_EQ(Write(LetterGrid(KOORD_ING, '\0', '\0'), 3), (Written{"180000.250 ", "530000.500 "}));
    UtmrefPayload empty{};
    EXPECT_EQ(Write(Record(KOORD_UTMREF, empty), 0), (Written{"", "0 "}));
}

TEST(TextWrite, TheLettersOfASquareTakeTwoPlaces) {
    EXPECT_EQ(Write(LetterGrid(KOORD_BNG, '\0', '\0'), 0).north, "180000    80000");
    EXPECT_EQ(Write(LetterGrid(KOORD_BNG, 'T', '\0'), 0).north, "180000  T 80000");
    EXPECT_EQ(Write(LetterGrid(KOORD_BNG, '\0', 'Q'), 0).north, "180000    80000");
}

// Rounding half up to a full minute goes half a unit north: 48 59 59.9996 + 0.0005 seconds is 49 degrees.
TEST(TextWrite, SecondsThatWouldRoundTo60Carry) {
    const Sexagesimal zero{'E', 0, 0, 0.0};
    EXPECT_EQ(Write(Geograd({'N', 48, 59, 59.9996}, zero), 3).north, "N 49 0 0.000");
    EXPECT_EQ(Write(Geograd({'N', 48, 58, 59.9996}, zero), 3).north, "N 48 59 0.000");
    EXPECT_EQ(Write(Geograd({'N', 48, 58, 59.6}, zero), 0).north, "N 48 59 0");
    EXPECT_EQ(Write(Geograd({'N', 48, 59, 59.4}, zero), 0).north, "N 48 59 59");
    EXPECT_EQ(Write(Geograd({'N', 48, 59, 59.9994}, zero), 3).north, "N 48 59 59.999");
    EXPECT_EQ(Write(Geograd({'N', 0, 0, 0.0}, {'E', 10, 59, 59.9996}), 3).east, "E 11 0 0.000");
    EXPECT_EQ(Write(Geograd({'N', 89, 59, 59.5}, {'E', 10, 59, 59.9}), 0).east, "E 11 0 0");
}

// Half a unit north of S 48 59 59.996 is S 48 59 59.991, of W 10 0 59.6 it is W 10 0 59.1.
TEST(TextWrite, InTheSouthAndWestTheDigitsBelowTheCarryStand) {
    const Sexagesimal zero{'N', 0, 0, 0.0};
    EXPECT_EQ(Write(Geograd({'S', 48, 59, 59.996}, zero), 2).north, "S 48 59 59.99");
    EXPECT_EQ(Write(Geograd(zero, {'W', 10, 0, 59.6}), 0).east, "W 10 0 59");
    EXPECT_EQ(Write(GeodezMin('S', 2, 59.9996), 3).north, "S 2 59.999");
}

// Half a thousandth north of S 48 59 59.9996 is 59.9991 seconds, and a position is never written in degrees,
// minutes and seconds with more than 59.999: it is 49 degrees.
TEST(TextWrite, AThousandthBelowTheMinuteIsTheMinuteInTheSouthToo) {
    EXPECT_EQ(Write(Geograd({'S', 48, 59, 59.9996}, {'E', 0, 0, 0.0}), 3).north, "S 49 0 0.000");
}

TEST(TextWrite, MinutesThatWouldRoundTo60Carry) {
    EXPECT_EQ(Write(GeodezMin('N', 2, 59.9996), 3).north, "N 3 0.000");
    EXPECT_EQ(Write(GeodezMin('N', 48, 59.6), 0).north, "N 49 0");
    EXPECT_EQ(Write(GeodezMin('N', 0, 0.0, 'E', 179, 59.99999), 4).east, "E 180 0.0000");
}

// 59.9995 + 0.0005 is 60 in doubles, but in degrees 2.999992 + 0.0000083 is slightly below 3.
TEST(TextWrite, ACarryThatEndsAHairEarlyIsStillOne) {
    EXPECT_EQ(Write(GeodezMin('N', 2, 59.9995), 3).north, "N 3 0.000");
    EXPECT_EQ(Write(GeodezMin('N', 3, 59.9995), 3).north, "N 4 0.000");
    EXPECT_EQ(Write(GeodezMin('N', 1, 59.99995), 4).north, "N 2 0.0000");
    for (std::int16_t degrees = 0; degrees < 89; ++degrees) {
        EXPECT_EQ(Write(GeodezMin('N', degrees, 59.9995), 3).north,
                  "N " + std::to_string(degrees + 1) + " 0.000");
        EXPECT_EQ(Write(GeodezMin('N', degrees, 59.5), 0).north, "N " + std::to_string(degrees + 1) + " 0");
    }
}

TEST(TextWrite, AtTheEndOfTheSystemTheEndIsShown) {
    EXPECT_EQ(Write(Geograd({'N', 89, 59, 59.9997}, {'E', 359, 59, 59.9999}), 3),
              (Written{"N 90 0 0.000", "E 360 0 0.000"}));
    EXPECT_EQ(Write(GeodezMin('N', 89, 59.9996, 'E', 359, 59.9996), 3),
              (Written{"N 90 0.000", "E 360 0.000"}));
}

// 99999 m and a half are still within the square: only a hand-made record has more.
TEST(TextWrite, MetresOfASquareCarryIntoTheNextOne) {
    EXPECT_EQ(Write(Utmref(32, 'U', "QA", 99999, 99999), 0), (Written{"U A 99999", "32 Q 99999"}));
    // Half a metre east of the edge, which is as near to one metre as to the other.
    EXPECT_THAT(Write(Utmref(32, 'U', "PA", 100000, 42661), 0).east, ::testing::MatchesRegex("32 Q [01]"));
}

TEST(TextWrite, WhatIsntANumberDoesntCarry) {
    EXPECT_EQ(Write(Geograd({'N', 48, 0, NAN}, {'E', 0, 0, 0.0}), 1).north.substr(0, 7), "N 48 0 ");
    EXPECT_EQ(Write(GeodezMin('N', 48, NAN), 1).north.substr(0, 5), "N 48 ");
}

}  // namespace
}  // namespace tessara

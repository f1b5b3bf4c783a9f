// What people type, right, wrong and ambiguous, and what each gives.
#include "typed/typed_reader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/names.h"
#include "support/random.h"
#include "tessara/kernel/convert.h"

namespace tessara::toolkit {
namespace {

using testing::Random;

// A position that is read: its system, and latitude and longitude on its own datum.
struct Expected {
    const char* system;
    double latitude;
    double longitude;
};

struct Typed {
    const char* wanted;  // a reference, or "" for any system
    std::vector<std::string> texts;
};

TypedReader ReaderOf(const std::string& wanted, Order order = Order::Unknown) {
    if (wanted.empty()) return TypedReader({{.datum = DATUM_WGS84, .system = NO_SYSTEM}, order});
    return TypedReader({*ReferenceByName(wanted, DATUM_WGS84), order});
}

TypedResult Read(const Typed& typed) {
    const TypedReader reader = ReaderOf(typed.wanted);
    return typed.texts.size() == 2 ? reader.Read(typed.texts[0], typed.texts[1])
                                   : reader.Read(typed.texts[0]);
}

std::string Words(const Typed& typed) {
    std::string words = std::string("'") + typed.wanted + "'";
    for (const std::string& text : typed.texts)
        words += " [" + text + "]";
    return words;
}

// A unit of the seventh decimal: the figures of other programs have as many.
constexpr double TOLERANCE = 1.01e-7;

// Marienplatz: 48 degrees 8 minutes 15 seconds are 48.1375; 11 degrees 34 minutes 32 seconds are 11.5755556.
constexpr Expected MUNICH_SECONDS{"GEOGRAD", 48.1375, 11.5755556};
constexpr Expected MUNICH_DEGREES{"GEODEZ", 48.1375, 11.5755};
constexpr Expected MUNICH_MINUTES{"GEODEZMIN", 48.1375, 11.5755};
// By PROJ's cs2cs from EPSG:32632 to EPSG:4326, of 691602 5334791, 691600 5334800 and 690000 5330000. The
// digits of a reference are those of the grid: 691602 is 91602 in the sixth column, 5334791 is 34791 in the
// 53rd row.
constexpr Expected MUNICH_UTM{"UTM", 48.1374989, 11.5754911};
constexpr Expected MUNICH_METRE{"UTMREF", 48.1374989, 11.5754911};
constexpr Expected MUNICH_HUNDRED{"UTMREF", 48.1375804, 11.5754683};
constexpr Expected MUNICH_TEN_KM{"UTMREF", 48.0949174, 11.5518448};
// The same from EPSG:32732.
constexpr Expected SOUTH_UTM{"UTM", -42.1155829, 11.3176758};

struct ReadRow {
    Typed typed;
    Expected expected;
};

const std::vector<ReadRow> READ{
    // Degrees in all spellings.
    {{"", {"48.1375 11.5755"}}, MUNICH_DEGREES},
    {{"", {"48.1375, 11.5755"}}, MUNICH_DEGREES},
    {{"", {"48.1375,11.5755"}}, MUNICH_DEGREES},
    {{"", {"48.1375,", "11.5755"}}, MUNICH_DEGREES},
    {{"", {"48.1375;11.5755"}}, MUNICH_DEGREES},
    {{"", {"48,1375 11,5755"}}, MUNICH_DEGREES},
    {{"", {"48,1375;11,5755"}}, MUNICH_DEGREES},
    {{"", {"48,1375, 11,5755"}}, MUNICH_DEGREES},
    {{"", {"N48.1375 E11.5755"}}, MUNICH_DEGREES},
    {{"", {"48.1375N 11.5755E"}}, MUNICH_DEGREES},
    {{"", {"48.1375n,11.5755e"}}, MUNICH_DEGREES},
    {{"", {"E11.5755 N48.1375"}}, MUNICH_DEGREES},
    {{"", {"48.1375\u00b0 11.5755\u00b0"}}, MUNICH_DEGREES},
    {{"", {"48.1375\xb0\t11.5755\xb0"}}, MUNICH_DEGREES},
    {{"", {"+48.1375 -11.5755"}}, {"GEODEZ", 48.1375, -11.5755}},
    {{"", {"\u221248.1375 \u221211.5755"}}, {"GEODEZ", -48.1375, -11.5755}},
    {{"", {"4.81375e+1 1.15755e+01"}}, MUNICH_DEGREES},
    {{"", {"48 8 15 N, 11 34 32 E"}}, MUNICH_SECONDS},
    {{"", {"48 8 15.0 N;11 34 32.0 E"}}, MUNICH_SECONDS},
    {{"", {"48 08 15 11 34 32"}}, MUNICH_SECONDS},
    {{"", {"N 48 8 15.000\tE 11 34 32.000"}}, MUNICH_SECONDS},
    {{"", {"48\u00b008'15\"N 11\u00b034'32\"E"}}, MUNICH_SECONDS},
    {{"", {"48\u00b008'15''N", "11\u00b034'32''E"}}, MUNICH_SECONDS},
    {{"", {"48\u00b008\u203215\u2033N 11\u00b034\u203232\u2033E"}}, MUNICH_SECONDS},
    {{"", {"48\u00b0 08\u2019 15\u201d N 11\u00b0 34\u2019 32\u201d E"}}, MUNICH_SECONDS},
    {{"", {"48d8'15\"N 11d34'32\"E"}}, MUNICH_SECONDS},
    {{"", {"48 deg 8 min 15 sec N 11 deg 34 min 32 sec E"}}, MUNICH_SECONDS},
    {{"", {"48\u00a0\u00b08\u202f'15\" 11\u00b034'32\""}}, MUNICH_SECONDS},
    {{"", {"48 8.25 11 34.53"}}, MUNICH_MINUTES},
    {{"", {"N48\u00b008.25' E11\u00b034.53'"}}, MUNICH_MINUTES},
    {{"", {"48\u00b008,25'N, 11\u00b034,53'E"}}, MUNICH_MINUTES},
    {{"", {"48\u00b0N 11\u00b030'E"}}, {"GEODEZMIN", 48.0, 11.5}},
    {{"", {"0 30 S 0 15 W"}}, {"GEODEZMIN", -0.5, -0.25}},
    {{"", {"-0 30 -0 15"}}, {"GEODEZMIN", -0.5, -0.25}},
    {{"GEODEZ", {"48,11"}}, {"GEODEZ", 48.0, 11.0}},
    {{"", {"48,5 11,25"}}, {"GEODEZ", 48.5, 11.25}},
    {{"", {"48 5,11 25"}}, {"GEODEZMIN", 48.0 + 5.0 / 60.0, 11.0 + 25.0 / 60.0}},
    {{"GEOGRAD", {"48.1375", "11.5755"}}, MUNICH_DEGREES},
    // UTM.
    {{"", {"32N 691602 5334791"}}, MUNICH_UTM},
    {{"", {"32U 691602 5334791"}}, MUNICH_UTM},
    {{"", {"32u 691602, 5334791"}}, MUNICH_UTM},
    {{"", {"32U", "691602 5334791"}}, MUNICH_UTM},
    {{"UTM", {"N 5334791", "32 691602"}}, MUNICH_UTM},
    {{"UTM", {"N5334791.000;32 691602.000"}}, MUNICH_UTM},
    {{"UTM", {"N5334791.000", "32691602.000"}}, MUNICH_UTM},
    {{"UTM", {"n 5334791,0", "32 691602,0"}}, MUNICH_UTM},
    // Band S ends at 40 degrees, and northing 5334791 lies at 48: that leaves the south.
    {{"", {"32S 691602 5334791"}}, SOUTH_UTM},
    // A letter by itself is the hemisphere, as the program writes it; cs2cs from EPSG:32732.
    {{"UTM", {"32 S 691602 4034791"}}, {"UTM", -53.8001074, 11.9094692}},
    // Military references, whose digits count from the left.
    {{"", {"32UPU9160234791"}}, MUNICH_METRE},
    {{"", {"32upu9160234791"}}, MUNICH_METRE},
    {{"", {"32U PU 91602 34791"}}, MUNICH_METRE},
    {{"", {"32UPU", "9160234791"}}, MUNICH_METRE},
    {{"", {"32UPU9160234791", "32UPU9160234791"}}, MUNICH_METRE},
    {{"UTMREF", {"U U 34791.000", "32 P 91602.000"}}, MUNICH_METRE},
    {{"", {"32U PU 916 348"}}, MUNICH_HUNDRED},
    {{"MGRS", {"U U 348;32 P 916"}}, MUNICH_HUNDRED},
    {{"", {"032UPU93"}}, MUNICH_TEN_KM},
    // With a point they are metres: the northing is 5300347.
    {{"UTMREF", {"U U 347.000", "32 P 91602.000"}}, {"UTMREF", 47.8279104, 11.5601270}},
    // GEOREF: column 12 of 15 degrees is N and row 9 is K; 11 degrees on is M and 3 is D. 34.53 minutes.
    {{"", {"NKMD34530825"}}, {"GEOREF", 48.1375, 11.5755}},
    {{"", {"NKMD 3453 0825"}}, {"GEOREF", 48.1375, 11.5755}},
    {{"", {"nkmd3408"}}, {"GEOREF", 48.0 + 8.0 / 60.0, 11.0 + 34.0 / 60.0}},
    {{"GEOREF", {"K D 00825", "N M 03453"}}, {"GEOREF", 48.1375, 11.5755}},
    {{"GEOREF", {"KD00825", "NM03453"}}, {"GEOREF", 48.1375, 11.5755}},
    // Grids, by cs2cs with their projections on the ellipsoid of WGS84 or, for GER and MGI, of Bessel.
    {{"GK@GER", {"5333259.5", "4468409.7"}}, {"GK", 48.1374998, 11.5755003}},
    {{"GK@GER", {"4468409.7 5333259.5"}}, {"GK", 48.1374998, 11.5755003}},
    {{"RD", {"463000", "155000"}}, {"RD", 52.1561606, 5.3876389}},
    {{"RD", {"155000 463000"}}, {"RD", 52.1561606, 5.3876389}},
    {{"RD", {"463000 155000"}}, {"RD", 52.1561606, 5.3876389}},
    {{"TM:lon0=9,k=0.9996,fe=500000", {"5334791", "691602"}}, {"TM", 48.1374989, 11.5754911}},
    {{"BNG", {"TQ 30000 80000"}}, {"BNG", 51.5032635, -0.1269388}},
    {{"", {"TQ3000080000"}}, {"BNG", 51.5032635, -0.1269388}},
    {{"BNG", {"180000", "530000"}}, {"BNG", 51.5032635, -0.1269388}},
    {{"BNG", {"180000.000 TQ 80000.000", "530000.000 TQ 30000.000"}}, {"BNG", 51.5032635, -0.1269388}},
    {{"ING", {"O 159 346"}}, {"ING", 53.3489425, -6.2596053}},
    {{"", {"IO159346"}}, {"ING", 53.3489425, -6.2596053}},
    {{"UPS", {"S 1500000", "2000000"}}, {"UPS", -85.4986848, 180.0}},
    {{"UPS", {"Z 2100000 1500000"}}, {"UPS", 85.4096318, 11.3099325}},
    {{"ECEF", {"4177000 855000 4727000"}}, {"ECEF", 48.1418696, 11.5682098}},
    {{"GK-AT@MGI", {"34 -5000 5300000"}}, {"GK-AT", 47.8391078, 16.2665313}},
    {{"GK-AT:meridian=34@MGI", {"5300000", "-5000"}}, {"GK-AT", 47.8391078, 16.2665313}},
};

TEST(TypedReader, ReadsPositionsAsPeopleTypeThem) {
    for (const auto& [typed, expected] : READ) {
        SCOPED_TRACE(Words(typed));
        const TypedResult result = Read(typed);
        ASSERT_TRUE(result.IsRead()) << result.fault.code << ": " << result.fault.reason;
        const Reading& reading = result.readings.front();
        EXPECT_EQ(SystemName(reading.reference.system), expected.system);
        EXPECT_EQ(static_cast<std::int32_t>(reading.record.type), reading.reference.system);
        EXPECT_EQ(static_cast<std::int32_t>(reading.record.datum), reading.reference.datum);
        GeodezPayload degrees{};
        ASSERT_TRUE(DegreesOf(reading.record, &degrees));
        EXPECT_NEAR(degrees.latitude, expected.latitude, TOLERANCE);
        EXPECT_NEAR(std::remainder(degrees.longitude - expected.longitude, 360.0), 0.0, TOLERANCE);
    }
}

// What is refused, with the code of the reason and the piece that is meant.
struct RefusedRow {
    Typed typed;
    const char* code;
    const char* piece;
};

const std::vector<RefusedRow> REFUSED{
    {{"", {""}}, "empty", ""},
    {{"", {" \t"}}, "empty", ""},
    {{"", {"", ""}}, "empty", ""},
    {{"", {"48.1375"}}, "missing", ""},
    {{"", {"48.1375 11.5755 520"}}, "count", "48.1375 11.5755 520"},
    {{"", {"48 8 15 11 34"}}, "count", "48 8 15 11 34"},
    {{"", {"91 11"}}, "system", "91 11"},
    {{"GEODEZ", {"91", "11"}}, "latitude", "91"},
    {{"GEODEZ", {"48", "361"}}, "longitude", "361"},
    {{"", {"48 61 15 N, 11 34 32 E"}}, "minutes", "61"},
    {{"", {"48 8 60 N, 11 34 32 E"}}, "seconds", "60"},
    {{"", {"48.5 8 N, 11 34 E"}}, "unexpected", ","},
    {{"", {"48\u00b0 8.5' 15\" N, 11 34 32 E"}}, "sign", "\""},
    {{"", {"-48 N 11 E"}}, "sign", "-48"},
    {{"", {"48 N 11 N"}}, "letter", "N"},
    {{"", {"48 N 11 O"}}, "letter", "O"},
    {{"", {"48\u00b015\"N 11\u00b0E"}}, "sign", "\""},
    {{"", {"48.1.2 11"}}, "number", "48.1.2"},
    {{"", {"48-11"}}, "character", "-"},
    {{"", {"48.1375 11.5755 \u00e9"}}, "character", "\u00e9"},
    {{"", {"48.1375 11.5755 #"}}, "character", "#"},
    {{"", {"48,1,11,5"}}, "comma", ","},
    {{"CH", {"600,000 200,000"}}, "comma", "600,000"},
    {{"", {std::string(10000, '1') + " 1"}}, "number", nullptr},
    {{"", {"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 29 30 31 32 33"}},
     "long",
     "33"},
    {{"", {"691602 5334791"}}, "system", "691602 5334791"},
    {{"UTM", {"N 53347x91", "32 691602"}}, "unexpected", "x"},
    {{"UTM", {"N 5334791 32 691602 5"}}, "unexpected", "32"},
    {{"UTM", {"N 5334791", "32"}}, "missing", ""},
    {{"UTM", {"N 5334791", "61 691602"}}, "zone", "61"},
    {{"UTM", {"N 5334791", "32 900000"}}, "outside-zone", "32"},
    {{"UTM", {"N 5334791", "32 691602 Marienplatz"}}, "leftover", "Marienplatz"},
    {{"", {"32T 691602 5334791"}}, "band", "T"},
    {{"", {"61UPU9160234791"}}, "zone", "61"},
    {{"", {"32IPU9160234791"}}, "unexpected", "I"},
    {{"", {"32UAU9160234791"}}, "square", "A"},
    {{"", {"32UPU916023479"}}, "digits", "916023479"},
    {{"", {"32UPU916023479112"}}, "digits", "916023479112"},
    {{"", {"32UPU 916 3479"}}, "digits", "3479"},
    {{"UTMREF", {"PU 916 348"}}, "unexpected", nullptr},
    {{"UTMREF", {"U U 347", "32 P 91602"}}, "digits", "347"},
    {{"", {"NKMD6008"}}, "minutes", "6008"},
    {{"BNG", {"530000 180000 x"}}, "leftover", "x"},
    {{"BNG", {"180000.000 TQ 70000.000", "530000.000 TQ 30000.000"}}, "northing", "70000.000"},
    {{"BNG", {"180000.000 TP 80000.000", "530000.000 TQ 30000.000"}}, "square", "Q"},
    // A boundary in the middle of an angle isn't ignored.
    {{"", {"48 8", "15 11 34 32"}}, "leftover", nullptr},
    {{"", {"48,8 15 11 34 32"}}, "leftover", nullptr},
    {{"GK-AT@MGI", {"5300000", "-5000"}}, "strip", "-5000"},
    {{"BMN@MGI", {"28 450000 280000"}}, "strip", "28"},
    {{"RD", {"0", "0"}}, "north", "0"},
    // Two meanings each.
    {{"", {"32S 691602 4034791"}}, "ambiguous", nullptr},
    {{"CH", {"600000 200000"}}, "ambiguous", nullptr},
    {{"UTM", {"5334791.000", "32691602.000"}}, "ambiguous", nullptr},
    {{"BNG", {"530000 180000"}}, "ambiguous", nullptr},
};

// 34 minutes have no seconds; 11 + 34 / 60 degrees would be 33 minutes and 59.999... seconds.
TEST(TypedReader, KeepsTheWholeNumbersOfAnAngleWithFewerNumbersThanTheOther) {
    const TypedResult read = Read({"", {"48 8 15 N 11 34 E"}});
    ASSERT_TRUE(read.IsRead());
    const auto seconds = Load<GeogradPayload>(read.readings[0].record);
    EXPECT_EQ(seconds.lonDegrees, 11);
    EXPECT_EQ(seconds.lonMinutes, 34);
    EXPECT_EQ(seconds.lonSeconds, 0.0);
    const TypedResult degrees = Read({"", {"48.5 N 11 34 30 E"}});
    ASSERT_TRUE(degrees.IsRead());
    const auto half = Load<GeogradPayload>(degrees.readings[0].record);
    EXPECT_EQ(half.latDegrees, 48);
    EXPECT_EQ(half.latMinutes, 30);
    EXPECT_EQ(half.latSeconds, 0.0);
}

TEST(TypedReader, RefusesAndSaysWhichPieceIsWrong) {
    for (const auto& [typed, code, piece] : REFUSED) {
        SCOPED_TRACE(Words(typed));
        const TypedResult result = Read(typed);
        ASSERT_FALSE(result.IsRead()) << Describe(result.readings.front());
        EXPECT_TRUE(result.fault.IsThere());
        EXPECT_FALSE(result.fault.reason.empty());
        EXPECT_STREQ(result.fault.code, code) << result.fault.reason;
        const Piece& found = result.fault.piece;
        ASSERT_LT(found.text, typed.texts.size());
        ASSERT_LE(found.begin, found.end);
        ASSERT_LE(found.end, typed.texts[found.text].size());
        if (piece == nullptr) continue;
        EXPECT_EQ(typed.texts[found.text].substr(found.begin, found.end - found.begin), piece)
            << result.fault.reason;
    }
}

TEST(TypedReader, NamesAllMeaningsOfAnAmbiguousText) {
    // By cs2cs from EPSG:32732 and EPSG:32632.
    const TypedResult result = Read({"", {"32S 691602 4034791"}});
    ASSERT_EQ(result.readings.size(), 2u);
    EXPECT_NE(result.fault.reason.find("UTM 32 S 691602"), std::string::npos) << result.fault.reason;
    EXPECT_NE(result.fault.reason.find("UTM 32 N 691602"), std::string::npos);
    EXPECT_NE(result.fault.reason.find("(36.43923 11.13767)"), std::string::npos);
}

TEST(TypedReader, TakesTheOrderOfBareNumbersThatIsWanted) {
    const auto eastingOf = [](Order order) {
        const TypedResult result = ReaderOf("CH", order).Read("600000 200000");
        return result.IsRead() ? Load<GridPayload>(result.readings.front().record).easting : -1.0;
    };
    EXPECT_EQ(eastingOf(Order::EastFirst), 600000.0);
    EXPECT_EQ(eastingOf(Order::NorthFirst), 200000.0);
    EXPECT_EQ(eastingOf(Order::Unknown), -1.0);
}

TEST(TypedReader, TakesPositionsBeyondTheBordersOfAWantedZone) {
    // By cs2cs from EPSG:4326 to EPSG:32633.
    const TypedResult result = Read({"UTM:zone=33", {"N 5337256.119", "33 245243.706"}});
    ASSERT_TRUE(result.IsRead()) << result.fault.reason;
    GeodezPayload degrees{};
    ASSERT_TRUE(DegreesOf(result.readings.front().record, &degrees));
    EXPECT_NEAR(degrees.latitude, 48.1375, TOLERANCE);
    EXPECT_NEAR(degrees.longitude, 11.5755, TOLERANCE);
    EXPECT_STREQ(Read({"UTM", {"N 5337256.119", "33 245243.706"}}).fault.code, "outside-zone");
}

TEST(TypedReader, TellsTheDigitsThatWereTyped) {
    const auto pictureOf = [](const Typed& typed) { return PictureOf(Read(typed).readings.at(0)); };
    EXPECT_EQ(pictureOf({"", {"32U PU 916 348"}}), "32 U PU 916__ 348__");
    EXPECT_EQ(pictureOf({"", {"32UPU"}}), "32 U PU _____ _____");
    EXPECT_EQ(pictureOf({"", {"48.1375 11.5"}}), "48.1375 11.5");
    EXPECT_EQ(pictureOf({"", {"48 8 15.50 N 11 34 32 E"}}), "48 8 15.50 N 11 34 32 E");
    EXPECT_EQ(pictureOf({"UTM", {"N 5334791.12", "32 691602"}}), "32 N 691602 5334791.12");
    const Reading reading = Read({"", {"32U PU 916 348"}}).readings.at(0);
    EXPECT_EQ(reading.northResolution, 100.0);
    EXPECT_EQ(reading.eastResolution, 100.0);
    EXPECT_EQ(Read({"", {"48.1375 11.5"}}).readings.at(0).northResolution, 1e-4);
    EXPECT_NEAR(Read({"", {"48 8 15.5 11 34 32.5"}}).readings.at(0).eastResolution, 0.1 / 3600.0, 1e-15);
}

// Of a random position, or of letters and digits without sense, sometimes with a character that doesn't
// belong there.
std::string RandomReference(std::int32_t datum, Random* random) {
    constexpr std::string_view characters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789u";
    const auto digits = [random](std::int32_t number) {
        std::string text = std::to_string(100000 + number).substr(1);
        return text.substr(0, static_cast<std::size_t>(random->Below(6)));
    };
    tagKOORD degrees = MakeKoord(datum, KOORD_GEODEZ);
    Store(degrees, GeodezPayload{random->Between(-80.0, 84.0), random->Between(-180.0, 180.0), 0.0});
    tagKOORD reference = MakeKoord(datum, KOORD_UTMREF);
    KoordConvert(&degrees, &reference);
    auto p = Load<UtmrefPayload>(reference);
    if (random->Below(4) == 0) p.zone = static_cast<std::int16_t>(random->Below(64));
    if (random->Below(4) == 0) p.band = characters[static_cast<std::size_t>(random->Below(26))];
    if (random->Below(4) == 0) p.row = characters[static_cast<std::size_t>(random->Below(26))];
    const std::string east = digits(p.easting);
    std::string text = std::to_string(p.zone) + p.band + p.column + p.row + east +
                       std::to_string(100000 + p.northing).substr(1, east.size());
    if (random->Below(4) == 0)
        text[static_cast<std::size_t>(random->Below(static_cast<std::int32_t>(text.size())))] =
            characters[static_cast<std::size_t>(random->Below(37))];
    if (random->Below(8) == 0) text.erase(static_cast<std::size_t>(random->Below(5)), 1);
    return text;
}

// A plain reference has a way of its own, which a blank in front of it closes.
TEST(TypedReader, ReadsPlainReferencesAsItReadsThemWithBlanks) {
    Random random(26);
    int readCount = 0;
    for (const char* const wanted : {"", "UTMREF", "UTMREF@GER"}) {
        const TypedReader reader = ReaderOf(wanted);
        const std::int32_t datum = wanted == std::string_view("UTMREF@GER") ? 3 : DATUM_WGS84;
        for (int i = 0; i < 2000; ++i) {
            const std::string text = RandomReference(datum, &random);
            const TypedResult plain = reader.Read(text);
            const TypedResult spaced = reader.Read(' ' + text);
            EXPECT_STREQ(plain.fault.code, spaced.fault.code) << text;
            ASSERT_EQ(plain.readings.size(), spaced.readings.size()) << text;
            if (!plain.IsRead()) continue;
            ++readCount;
            const Reading& one = plain.readings[0];
            const Reading& other = spaced.readings[0];
            EXPECT_EQ(one.reference.Name(), other.reference.Name()) << text;
            EXPECT_EQ(std::memcmp(&one.record, &other.record, sizeof one.record), 0) << text;
            EXPECT_EQ(one.northResolution, other.northResolution) << text;
            EXPECT_EQ(one.eastResolution, other.eastResolution) << text;
        }
    }
    EXPECT_GT(readCount, 1500);
    EXPECT_LT(readCount, 4500);
}

TEST(TypedReader, ReadsManyTextsAsItReadsEach) {
    Random random(27);
    for (const char* const wanted : {"", "UTMREF", "UTMREF@GER", "UTM"}) {
        const TypedReader reader = ReaderOf(wanted);
        const std::int32_t datum = wanted == std::string_view("UTMREF@GER") ? 3 : DATUM_WGS84;
        std::vector<std::string> words;
        for (int i = 0; i < 1000; ++i)
            words.push_back(i % 3 > 0 ? RandomReference(datum, &random) : std::to_string(i % 100) + " 11.5");
        const std::vector<std::string_view> texts(words.begin(), words.end());
        std::vector<GeodezPayload> degrees(texts.size());
        reader.ReadDegrees(texts, degrees);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const TypedResult alone = reader.Read(texts[i]);
            GeodezPayload expected{};
            const bool isRead = alone.IsRead() && DegreesOf(alone.readings[0].record, &expected);
            EXPECT_EQ(std::isnan(degrees[i].latitude), !isRead) << texts[i];
            EXPECT_EQ(std::isnan(degrees[i].longitude), !isRead) << texts[i];
            if (!isRead) continue;
            EXPECT_EQ(degrees[i].latitude, expected.latitude) << texts[i];
            EXPECT_EQ(degrees[i].longitude, expected.longitude) << texts[i];
        }
    }
}

// No part of a text may be left unread: a letter put anywhere into a position makes it another or none.
TEST(TypedReader, ConsumesTheWholeText) {
    for (const auto& [typed, expected] : READ) {
        for (std::size_t text = 0; text < typed.texts.size(); ++text) {
            Typed longer = typed;
            longer.texts[text] += " q";
            const TypedResult result = Read(longer);
            EXPECT_FALSE(result.IsRead()) << Words(longer);
        }
    }
}

}  // namespace
}  // namespace tessara::toolkit

#include "text/display_text.h"

#include <gtest/gtest.h>

#include "tessara/kernel/koord.h"

namespace tessara {
namespace {

std::string Display(Axis axis, std::int32_t system, std::int16_t precision, const PlainTexts& plain) {
    std::string display;
    return text::Display(axis, system, precision, plain, &display) ? display : "(false)";
}

// The display text of the north axis, of which only its own text is known.
std::string North(std::int32_t system, std::int16_t precision, const std::string& text) {
    return Display(Axis::North, system, precision, {text, "unused"});
}

TEST(TextDisplay, Utm) {
    const PlainTexts plain{"N 5400000.000", "32 500000.000"};
    EXPECT_EQ(Display(Axis::North, KOORD_UTM, -3, plain), "5400000.000");
    EXPECT_EQ(Display(Axis::East, KOORD_UTM, -3, plain), "32500000.000");
}

TEST(TextDisplay, UtmrefIsTheWholeReferenceOnBothAxes) {
    const PlainTexts plain{"U A 42661", "32 Q 7819"};
    for (const Axis axis : {Axis::North, Axis::East}) {
        EXPECT_EQ(Display(axis, KOORD_UTMREF, 0, plain), "32UQA0781942661");
        EXPECT_EQ(Display(axis, KOORD_UTMREF, 1, plain), "32UQA07814266");
        EXPECT_EQ(Display(axis, KOORD_UTMREF, 2, plain), "32UQA078426");
        EXPECT_EQ(Display(axis, KOORD_UTMREF, 3, plain), "32UQA0742");
        EXPECT_EQ(Display(axis, KOORD_UTMREF, 4, plain), "32UQA04");
        EXPECT_EQ(Display(axis, KOORD_UTMREF, 5, plain), "32UQA");
        EXPECT_EQ(Display(axis, KOORD_UTMREF, 6, plain), "32UQA");
    }
}

TEST(TextDisplay, DigitGroupsStandForMetresWhateverTheirSize) {
    const PlainTexts plain{"U A 7", "32 Q 42"};
    EXPECT_EQ(Display(Axis::North, KOORD_UTMREF, 0, plain), "32UQA0004200007");
    EXPECT_EQ(Display(Axis::North, KOORD_UTMREF, 2, plain), "32UQA000000");
}

TEST(TextDisplay, AReferenceNeedsTheWordsOfBothAxes) {
    EXPECT_EQ(Display(Axis::North, KOORD_UTMREF, 0, {"U A 7", "32 Q"}), "(false)");
    EXPECT_EQ(Display(Axis::North, KOORD_UTMREF, 0, {"U A", "32 Q 42"}), "(false)");
    EXPECT_EQ(Display(Axis::East, KOORD_UTMREF, 5, {"U", "32 Q"}), "(false)");
    EXPECT_EQ(Display(Axis::East, KOORD_UTMREF, 5, {"U A", "32"}), "(false)");
}

// With decimals a group is 5 minus the precision characters wide, the point among them: fewer are filled up
// with zeros, more are cut.
TEST(TextDisplay, AFinerPrecisionShowsDecimalsInADigitGroup) {
    EXPECT_EQ(Display(Axis::North, KOORD_UTMREF, -3, {"U A 42661.000", "32 Q 7819.000"}),
              "32UQA7819.00042661.00");
    EXPECT_EQ(Display(Axis::North, KOORD_UTMREF, -3, {"U A 7.000", "32 Q 12345.000"}),
              "32UQA12345.000007.000");
    EXPECT_EQ(Display(Axis::North, KOORD_UTMREF, -1, {"U A 42661.0", "32 Q 42.0"}), "32UQA0042.042661.");
    EXPECT_EQ(North(KOORD_BNG, -3, "107819.250 TQ 7819.250"), "TQ7819.250107819.250");
    EXPECT_EQ(North(KOORD_ING, -3, "312345.000 O 12345.000"), "O12345.00312345.000");
}

// A precision of the other axis may bring decimals where only the leading digits are shown.
TEST(TextDisplay, DecimalsThatTheOtherAxisBringsAreCutWithTheirDigits) {
    EXPECT_EQ(Display(Axis::East, KOORD_UTMREF, 0, {"U A 42.125", "32 Q 7819"}), "32UQA0781900042");
    EXPECT_EQ(Display(Axis::East, KOORD_UTMREF, 2, {"U A 7819.125", "32 Q 7819"}), "32UQA078078");
}

TEST(TextDisplay, DegreesHaveTheirSign) {
    EXPECT_EQ(North(KOORD_GEODEZ, -7, "48.5000000"), "48.5000000\xB0");
    EXPECT_EQ(North(KOORD_GEODEZ, -7, ""), "\xB0");
}

TEST(TextDisplay, GeogradDropsWhatIsntSignificant) {
    const std::string text = "N 48 5 3.250";
    EXPECT_EQ(North(KOORD_GEOGRAD, -3, text),
              "48\xB0"
              "05'3.250''N");
    EXPECT_EQ(North(KOORD_GEOGRAD, 1, text),
              "48\xB0"
              "05'3.250''N");
    EXPECT_EQ(North(KOORD_GEOGRAD, 2, text),
              "48\xB0"
              "05'N");
    EXPECT_EQ(North(KOORD_GEOGRAD, 3, text),
              "48\xB0"
              "05'N");
    EXPECT_EQ(North(KOORD_GEOGRAD, 4, text),
              "48\xB0"
              "N");
    EXPECT_EQ(North(KOORD_GEOGRAD, 6, text),
              "48\xB0"
              "N");
    EXPECT_EQ(North(KOORD_GEOGRAD, -3, "W 11 30 59.500"),
              "11\xB0"
              "30'59.500''W");
}

TEST(TextDisplay, GeodezMinDropsMinutesThatArentSignificant) {
    EXPECT_EQ(North(KOORD_GEODEZMIN, -5, "N 48 5.50000"),
              "48\xB0"
              "05.50000'N");
    EXPECT_EQ(North(KOORD_GEODEZMIN, -1, "N 48 5.5"),
              "48\xB0"
              "05.5'N");
    EXPECT_EQ(North(KOORD_GEODEZMIN, 0, "N 48 5"),
              "48\xB0"
              "05'N");
    EXPECT_EQ(North(KOORD_GEODEZMIN, 1, "N 48 55"),
              "48\xB0"
              "55'N");
    EXPECT_EQ(North(KOORD_GEODEZMIN, 2, "N 48 5"),
              "48\xB0"
              "N");
}

TEST(TextDisplay, GeorefHasNoBlanks) {
    EXPECT_EQ(North(KOORD_GEOREF, 0, "G A 00007"), "GA00007");
    EXPECT_EQ(North(KOORD_GEOREF, 0, ""), "(false)");
}

TEST(TextDisplay, LetterGridsShowTheSquareTheDigitsAndTheWholeValue) {
    EXPECT_EQ(North(KOORD_BNG, 0, "112345 TQ 12345"), "TQ12345112345");
    EXPECT_EQ(North(KOORD_BNG, 2, "112345 TQ 12345"), "TQ123112345");
    EXPECT_EQ(North(KOORD_BNG, 5, "112345 TQ 12345"), "TQ112345");
    EXPECT_EQ(North(KOORD_ING, 0, "312345 O 42"), "O00042312345");
    EXPECT_EQ(North(KOORD_ING, -3, "312345.000 "), "(false)") << "without letters";
}

TEST(TextDisplay, AllOtherSystemsShowThePlainText) {
    for (const std::int32_t system :
         {KOORD_LONGPIXEL, KOORD_FLOATPIXEL, KOORD_GK, KOORD_GK6, KOORD_BMN, KOORD_OEM, KOORD_GKAT, KOORD_CH,
          KOORD_ECEF, KOORD_UPS, KOORD_PO_MILITARY, KOORD_TM, KOORD_VDG, KOORD_RD, KOORD_LUREF}) {
        EXPECT_EQ(North(system, -3, "N 1.000"), "N 1.000") << system;
        EXPECT_EQ(Display(Axis::East, system, -3, {"N 1", "2.000"}), "2.000") << system;
    }
}

TEST(TextDisplay, LacksAPartThatTheTextLacks) {
    EXPECT_EQ(North(KOORD_UTM, -3, ""), "(false)");
    EXPECT_EQ(North(KOORD_GEOGRAD, -3, "N 48 5"), "(false)");
    EXPECT_EQ(North(KOORD_GEOGRAD, 4, "N 48"),
              "48\xB0"
              "N")
        << "what isn't shown needn't be there";
    EXPECT_EQ(Display(Axis::North, KOORD_UTMREF, 0, {"", "32 "}), "(false)");
}

TEST(GetToken, CountsWordsFromZero) {
    std::string token;
    EXPECT_TRUE(GetToken("  a  bc d", 0, " ", &token));
    EXPECT_EQ(token, "a");
    EXPECT_TRUE(GetToken("  a  bc d", 1, " ", &token));
    EXPECT_EQ(token, "bc");
    EXPECT_TRUE(GetToken("  a  bc d", 2, " ", &token));
    EXPECT_EQ(token, "d");
    EXPECT_FALSE(GetToken("  a  bc d", 3, " ", &token));
}

TEST(GetToken, TheFirstWordOfAnEmptyTextIsEmpty) {
    std::string token = "x";
    EXPECT_TRUE(GetToken("", 0, " ", &token));
    EXPECT_EQ(token, "");
    EXPECT_FALSE(GetToken("", 1, " ", &token));
    EXPECT_TRUE(GetToken("a ", 1, " ", &token)) << "there is a separation";
    EXPECT_EQ(token, "");
}

}  // namespace
}  // namespace tessara

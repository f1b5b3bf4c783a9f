#include "text/text_reader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>
#include <vector>

namespace tessara {
namespace {

std::optional<double> NumberIn(std::string_view text) {
    double number = 0.0;
    return TextReader(text).ReadNumber(&number) ? std::optional(number) : std::nullopt;
}

template <class Whole>
std::optional<Whole> WholeIn(std::string_view text) {
    Whole number = 0;
    return TextReader(text).ReadWhole(&number) ? std::optional(number) : std::nullopt;
}

TEST(TextReader, ReadsANumberAsFarAsItGoes) {
    EXPECT_EQ(NumberIn("48.5"), 48.5);
    EXPECT_EQ(NumberIn("48.5 and more"), 48.5);
    EXPECT_EQ(NumberIn("48,5"), 48.0);
    EXPECT_EQ(NumberIn("1.2.3"), 1.2);
    EXPECT_EQ(NumberIn("1-2"), 1.0);
    EXPECT_EQ(NumberIn("0x10"), 0.0);
}

TEST(TextReader, TakesEverySpellingOfADecimalNumber) {
    EXPECT_EQ(NumberIn("+48.5"), 48.5);
    EXPECT_EQ(NumberIn("-48.5"), -48.5);
    EXPECT_EQ(NumberIn(".5"), 0.5);
    EXPECT_EQ(NumberIn("5."), 5.0);
    EXPECT_EQ(NumberIn("-.5"), -0.5);
    EXPECT_EQ(NumberIn("00048"), 48.0);
    EXPECT_EQ(NumberIn("1e3"), 1000.0);
    EXPECT_EQ(NumberIn("1.5E+3x"), 1500.0);
    EXPECT_EQ(NumberIn("1e-3e"), 0.001);
    EXPECT_EQ(NumberIn(" \t\n\v\f\r7"), 7.0);
}

TEST(TextReader, KnowsWhatIsNoNumber) {
    for (const char* text :
         {"",    " ",   "abc",  ".",      "+",   "-",   "--5",  "+-5",      "- 5",   "e5",
          ".e5", "12e", "12e+", "48.5E ", "nan", "inf", "-inf", "Infinity", "1e999", "-1e999"}) {
        EXPECT_EQ(NumberIn(text), std::nullopt) << text;
    }
}

TEST(TextReader, ANumberTooSmallForADoubleIsZeroAndOneTooLargeIsNone) {
    const std::string zeros(400, '0');
    const std::string nines(25, '9');
    for (const std::string& text : std::vector<std::string>{
             "1e-999", "+1e-999", ".5E-400", "0." + zeros + "1", "0." + zeros + "1e5", "1" + zeros + "e-999",
             "1e-" + nines, "0e" + nines, "0e-" + nines, "0." + zeros + "e+" + nines}) {
        EXPECT_EQ(NumberIn(text), 0.0) << text;
        std::string negative = "-";
        negative += text.substr(text.front() == '+' ? 1 : 0);
        EXPECT_EQ(NumberIn(negative), 0.0) << text;
    }
    EXPECT_TRUE(std::signbit(*NumberIn("-1e-999")));
    EXPECT_EQ(NumberIn("5e-324"), 5e-324) << "the smallest double";
    for (const std::string& text :
         std::vector<std::string>{"1e999", std::string("+1e999"), "1" + zeros, "1" + zeros + ".5",
                                  "1" + zeros + "e-5", "0." + zeros + "1e999", "1e" + nines, "1e+" + nines}) {
        EXPECT_EQ(NumberIn(text), std::nullopt) << text;
    }
    EXPECT_EQ(NumberIn("1" + zeros + "e-400"), 1.0);
}

TEST(TextReader, WholeNumbersAreDecimalAlsoWithLeadingZeros) {
    EXPECT_EQ(WholeIn<std::int16_t>("032"), std::int16_t{32});
    EXPECT_EQ(WholeIn<std::int16_t>("+32"), std::int16_t{32});
    EXPECT_EQ(WholeIn<std::int16_t>("-32768"), INT16_MIN);
    EXPECT_EQ(WholeIn<std::int16_t>("32.5"), std::int16_t{32});
    EXPECT_EQ(WholeIn<std::int32_t>("-2147483648"), INT32_MIN);
    EXPECT_EQ(WholeIn<std::int32_t>("000000000000000000000000000000000007"), 7);
}

TEST(TextReader, AWholeNumberMustFit) {
    EXPECT_EQ(WholeIn<std::int16_t>("32768"), std::nullopt);
    EXPECT_EQ(WholeIn<std::int16_t>("70000"), std::nullopt);
    EXPECT_EQ(WholeIn<std::int32_t>("2147483648"), std::nullopt);
    EXPECT_EQ(WholeIn<std::int32_t>("-2147483649"), std::nullopt);
    EXPECT_EQ(WholeIn<std::int32_t>("99999999999999999999999"), std::nullopt);
    EXPECT_EQ(WholeIn<std::int32_t>(""), std::nullopt);
    EXPECT_EQ(WholeIn<std::int32_t>("x"), std::nullopt);
    EXPECT_EQ(WholeIn<std::int32_t>("+"), std::nullopt);
}

TEST(TextReader, AMissingWholeNumberMayStandForZero) {
    const auto read = [](std::string_view text) {
        std::int32_t number = 7;
        return TextReader(text).ReadWholeOrNothing(&number) ? std::optional(number) : std::nullopt;
    };
    EXPECT_EQ(read("12"), 12);
    EXPECT_EQ(read(""), 0);
    EXPECT_EQ(read(" x"), 0);
    EXPECT_EQ(read("99999999999"), std::nullopt);
}

TEST(TextReader, NothingNeedsToStandBetweenALetterAndANumber) {
    TextReader reader("S5400000");
    char letter = 0;
    double number = 0.0;
    EXPECT_TRUE(reader.ReadLetter(&letter));
    EXPECT_TRUE(reader.ReadNumber(&number));
    EXPECT_EQ(letter, 'S');
    EXPECT_EQ(number, 5400000.0);
    EXPECT_FALSE(reader.ReadLetter(&letter)) << "at the end";
}

TEST(TextReader, LettersAreAnyBytesButBlanks) {
    TextReader reader(
        " \x80\xFF"
        "1n");
    char letter = 0;
    for (const char expected : {'\x80', '\xFF', '1', 'n'}) {
        EXPECT_TRUE(reader.ReadLetter(&letter));
        EXPECT_EQ(letter, expected);
    }
}

TEST(TextReader, APairOfLettersMayBeOne) {
    char first = 0;
    char second = 0;
    TextReader reader(" TQ1 T 5");
    EXPECT_TRUE(reader.ReadLetterPair(&first, &second));
    EXPECT_EQ(first, 'T');
    EXPECT_EQ(second, 'Q');
    double number = 0.0;
    EXPECT_TRUE(reader.ReadNumber(&number));
    EXPECT_TRUE(reader.ReadLetterPair(&first, &second));
    EXPECT_EQ(first, 'T');
    EXPECT_EQ(second, '\0');
    EXPECT_TRUE(reader.ReadNumber(&number));
    EXPECT_EQ(number, 5.0);
    EXPECT_FALSE(reader.ReadLetterPair(&first, &second));
}

TEST(TextReader, APairMayEndTheText) {
    char first = 'x';
    char second = 'x';
    EXPECT_TRUE(TextReader(" B").ReadLetterPair(&first, &second));
    EXPECT_EQ(first, 'B');
    EXPECT_EQ(second, '\0') << "a single letter";
    EXPECT_TRUE(TextReader("CD").ReadLetterPair(&first, &second));
    EXPECT_EQ(first, 'C');
    EXPECT_EQ(second, 'D');
}

TEST(TextReader, AFailureLeavesTheOutputAlone) {
    double number = 3.0;
    std::int16_t whole = 4;
    char letter = 'a';
    EXPECT_FALSE(TextReader("x").ReadNumber(&number));
    EXPECT_FALSE(TextReader("70000").ReadWhole(&whole));
    EXPECT_FALSE(TextReader(" ").ReadLetter(&letter));
    EXPECT_EQ(number, 3.0);
    EXPECT_EQ(whole, 4);
    EXPECT_EQ(letter, 'a');
}

}  // namespace
}  // namespace tessara

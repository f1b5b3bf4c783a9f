#include "kernel/letters.h"

#include <gtest/gtest.h>

namespace tessara::letters_test {
namespace {

TEST(LetterIndex, CountsFromZeroAndEndsAtTheAlphabetsEnd) {
    EXPECT_EQ(LetterIndex("VWXYZ", 'V'), 0);
    EXPECT_EQ(LetterIndex("VWXYZ", 'Z'), 4);
    EXPECT_EQ(LetterIndex("VWXYZ", 'A'), NO_LETTER);
    EXPECT_EQ(LetterIndex("", 'A'), NO_LETTER);
}

TEST(LetterIndex, DoesNotFindZeroNorBytesBeyondAscii) {
    EXPECT_EQ(LetterIndex("VWXYZ", '\0'), NO_LETTER);
    EXPECT_EQ(LetterIndex("VWXYZ", '\xFF'), NO_LETTER);
}

TEST(HasIndex, HoldsForThePositionsOfTheAlphabetOnly) {
    EXPECT_FALSE(HasIndex("VWXYZ", -1));
    EXPECT_TRUE(HasIndex("VWXYZ", 0));
    EXPECT_TRUE(HasIndex("VWXYZ", 4));
    EXPECT_FALSE(HasIndex("VWXYZ", 5));
    EXPECT_FALSE(HasIndex("VWXYZ", INT32_MIN));
    EXPECT_FALSE(HasIndex("VWXYZ", INT32_MAX));
}

constexpr Alphabet ALPHABET = "VWXYZA";

TEST(Alphabet, KnowsThePlaceOfEachOfItsLetters) {
    for (std::int32_t index = 0; index < 6; ++index)
        EXPECT_EQ(ALPHABET.IndexOf(ALPHABET.LetterAt(index)), index);
    EXPECT_EQ(ALPHABET.LetterAt(0), 'V');
    EXPECT_EQ(ALPHABET.LetterAt(5), 'A');
}

TEST(Alphabet, HasNoPlaceForAnyOtherByte) {
    const std::string_view letters = "VWXYZA";
    for (int byte = 0; byte < 256; ++byte) {
        const char letter = static_cast<char>(byte);
        EXPECT_EQ(ALPHABET.IndexOf(letter), LetterIndex(letters, letter)) << byte;
    }
}

TEST(UpperCase, ChangesTheSmallLettersOfAsciiOnly) {
    EXPECT_EQ(UpperCase('a'), 'A');
    EXPECT_EQ(UpperCase('z'), 'Z');
    for (const char other : {'A', 'Z', '`', '{', '0', '\0', '\xE4', '\xFF'})
        EXPECT_EQ(UpperCase(other), other);
}

}  // namespace
}  // namespace tessara::letters_test

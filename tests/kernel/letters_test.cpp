#include "kernel/letters.h"

#include <gtest/gtest.h>

namespace tessara {
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

TEST(UpperCase, ChangesTheSmallLettersOfAsciiOnly) {
    EXPECT_EQ(UpperCase('a'), 'A');
    EXPECT_EQ(UpperCase('z'), 'Z');
    for (const char other : {'A', 'Z', '`', '{', '0', '\0', '\xE4', '\xFF'})
        EXPECT_EQ(UpperCase(other), other);
}

}  // namespace
}  // namespace tessara

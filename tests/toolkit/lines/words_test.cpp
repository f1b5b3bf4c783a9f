#include "lines/words.h"

#include <gtest/gtest.h>

namespace tessara::toolkit {
namespace {

TEST(TrimBlanks, RemovesThemFromBothEndsAlone) {
    EXPECT_EQ(TrimBlanks(" \t48 8\t15 N\r\n"), "48 8\t15 N");
    EXPECT_EQ(TrimBlanks("\v\fa"), "a");
    EXPECT_EQ(TrimBlanks("a"), "a");
}

TEST(TrimBlanks, LeavesNothingOfBlanks) {
    EXPECT_EQ(TrimBlanks(""), "");
    EXPECT_EQ(TrimBlanks(" \t\r\n\v\f"), "");
}

TEST(WordsOf, AreWhatBlanksSeparate) {
    using Words = std::vector<std::string>;
    EXPECT_EQ(WordsOf(""), Words{});
    EXPECT_EQ(WordsOf(" \t"), Words{});
    EXPECT_EQ(WordsOf("32U"), Words{"32U"});
    EXPECT_EQ(WordsOf("\t32  U\r\nPU "), (Words{"32", "U", "PU"}));
}

TEST(Joined, HasOneSpaceBetweenWords) {
    EXPECT_EQ(Joined({}), "");
    EXPECT_EQ(Joined({"32"}), "32");
    EXPECT_EQ(Joined({"32", "U", "PU"}), "32 U PU");
}

}  // namespace
}  // namespace tessara::toolkit

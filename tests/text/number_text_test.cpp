#include "text/number_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace tessara {
namespace {

TEST(FixedText, ShowsAsManyDecimalsAsAskedFor) {
    EXPECT_EQ(FixedText(48.5, 7), "48.5000000");
    EXPECT_EQ(FixedText(48.5, 3), "48.500");
    EXPECT_EQ(FixedText(5400000.0, 0), "5400000");
    EXPECT_EQ(FixedText(-0.25, 2), "-0.25");
}

TEST(FixedText, RoundsTheExactBinaryValueAndATieToEven) {
    EXPECT_EQ(FixedText(0.5, 0), "0");
    EXPECT_EQ(FixedText(1.5, 0), "2");
    EXPECT_EQ(FixedText(2.5, 0), "2");
    // 1.005 is 1.00499999999999989... in binary.
    EXPECT_EQ(FixedText(1.005, 2), "1.00");
}

TEST(FixedText, KeepsTheSignOfWhatRoundsToZero) {
    EXPECT_EQ(FixedText(-0.00000001, 7), "-0.0000000");
    EXPECT_EQ(FixedText(-0.0, 1), "-0.0");
}

TEST(FixedText, HasRoomForTheLargestDouble) {
    const std::string text = FixedText(std::numeric_limits<double>::max(), 7);
    EXPECT_EQ(text.size(), 309u + 1u + 7u);
    EXPECT_EQ(text.substr(0, 17), "17976931348623157");
    EXPECT_EQ(text.substr(309), ".0000000");
    EXPECT_EQ(FixedText(-std::numeric_limits<double>::max(), 7), "-" + text);
}

TEST(FixedText, WritesWhatIsntFiniteAsAWord) {
    EXPECT_EQ(FixedText(std::numeric_limits<double>::infinity(), 3), "inf");
    EXPECT_EQ(FixedText(-std::numeric_limits<double>::infinity(), 3), "-inf");
    EXPECT_EQ(FixedText(std::numeric_limits<double>::quiet_NaN(), 3), "nan");
}

TEST(WholeText, FillsUpWithZerosBehindTheSign) {
    EXPECT_EQ(WholeText(42), "42");
    EXPECT_EQ(WholeText(42, 5), "00042");
    EXPECT_EQ(WholeText(-42, 5), "-00042");
    EXPECT_EQ(WholeText(123456, 5), "123456");
    EXPECT_EQ(WholeText(0, 3), "000");
    EXPECT_EQ(WholeText(INT32_MIN), "-2147483648");
}

TEST(ZeroFilled, NeverCuts) {
    EXPECT_EQ(ZeroFilled("7", 2), "07");
    EXPECT_EQ(ZeroFilled("07", 2), "07");
    EXPECT_EQ(ZeroFilled("107", 2), "107");
    EXPECT_EQ(ZeroFilled("", 2), "00");
    EXPECT_EQ(ZeroFilled("7", -1), "7");
}

}  // namespace
}  // namespace tessara

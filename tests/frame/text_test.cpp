#include "tessara/host/text.h"

#include <gtest/gtest.h>

#include "support/live_objects.h"

namespace tessara {
namespace {

class HostText : public testing::BalancedTest {
  protected:
    IRef<ITessaraString> text = NewObject<host::Text>();
};

TEST_F(HostText, IsUtf8ForTheProgramsAround) {
    text->AssignText(
        "48\xB0"
        "08'15\"N");
    EXPECT_EQ(host::ToUtf8(text),
              "48\u00B0"
              "08'15\"N");
}

TEST_F(HostText, OfPlainLettersIsItsOwnUtf8) {
    text->AssignText("32 U PU 91603");
    EXPECT_EQ(host::ToUtf8(text), "32 U PU 91603");
}

// Latin-1 has the code points 0x80 to 0xFF, two bytes each: 0xC2 or 0xC3, then 0x80 to 0xBF.
TEST_F(HostText, OfAnyByteIsTwoBytesFrom0x80On) {
    for (int code = 0x80; code <= 0xFF; ++code) {
        const char latin1[2] = {static_cast<char>(code), 0};
        text->AssignText(latin1);
        const std::string utf8 = host::ToUtf8(text);
        ASSERT_EQ(utf8.size(), 2u);
        EXPECT_EQ(static_cast<unsigned char>(utf8[0]), code < 0xC0 ? 0xC2 : 0xC3);
        EXPECT_EQ(static_cast<unsigned char>(utf8[1]), code & 0xBF);
    }
}

TEST_F(HostText, OfNullIsEmpty) {
    EXPECT_EQ(host::ToUtf8(nullptr), "");
}

}  // namespace
}  // namespace tessara

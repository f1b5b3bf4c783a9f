#include "frame/tessara_string.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/array.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::MakeText;

class TessaraStringTest : public testing::BalancedTest {
  protected:
    IRef<ITessaraString> text{NewObject<TessaraString>()};
};

int SignOf(std::int32_t value) {
    return (value > 0) - (value < 0);
}

TEST_F(TessaraStringTest, StartsEmpty) {
    EXPECT_STREQ(text->GetText(), "");
    EXPECT_EQ(text->GetLength(), 0);
    EXPECT_TRUE(text->IsEmpty());
}

TEST_F(TessaraStringTest, AssignTextReplacesTheText) {
    text->AssignText("first");
    text->AssignText("two");
    EXPECT_STREQ(text->GetText(), "two");
    EXPECT_EQ(text->GetLength(), 3);
    EXPECT_FALSE(text->IsEmpty());
}

TEST_F(TessaraStringTest, HoldsLongTexts) {
    const std::string longText(100000, 'x');
    text->AssignText(longText.c_str());
    EXPECT_EQ(text->GetLength(), 100000);
    EXPECT_EQ(std::strlen(text->GetText()), 100000u);
}

TEST_F(TessaraStringTest, HoldsEveryByteAsItIs) {
    std::string bytes;
    for (int c = 1; c < 256; ++c)
        bytes += static_cast<char>(c);
    text->AssignText(bytes.c_str());
    EXPECT_EQ(text->GetLength(), 255);
    EXPECT_EQ(text->GetText(), bytes);
}

TEST_F(TessaraStringTest, ClearEmptiesIt) {
    text->AssignText("something");
    text->Clear();
    EXPECT_TRUE(text->IsEmpty());
    EXPECT_STREQ(text->GetText(), "");
}

TEST_F(TessaraStringTest, AssignTextOfNullEmptiesIt) {
    text->AssignText("something");
    text->AssignText(nullptr);
    EXPECT_TRUE(text->IsEmpty());
}

TEST_F(TessaraStringTest, AssignCopiesAnotherText) {
    const auto other = MakeText("other");
    EXPECT_TRUE(text->Assign(other.Get()));
    other->AssignText("changed");
    EXPECT_STREQ(text->GetText(), "other");
    EXPECT_EQ(CountOf(other), 1u);
}

TEST_F(TessaraStringTest, AssignTakesAnyInterfaceOfTheOtherText) {
    const IRef<IUnknown> other(MakeText("other"));
    EXPECT_TRUE(text->Assign(other.Get()));
    EXPECT_STREQ(text->GetText(), "other");
}

TEST_F(TessaraStringTest, AssignOfWhatIsNoTextFailsAndKeepsTheText) {
    text->AssignText("kept");
    const IRef<IArray> array(CreateClassArray());
    EXPECT_FALSE(text->Assign(array.Get()));
    EXPECT_FALSE(text->Assign(nullptr));
    EXPECT_STREQ(text->GetText(), "kept");
    EXPECT_EQ(CountOf(array), 1u);
}

TEST_F(TessaraStringTest, MayBeGivenItsOwnText) {
    text->AssignText("a text that is too long for the small buffer of a string");
    text->AssignText(text->GetText());
    EXPECT_STREQ(text->GetText(), "a text that is too long for the small buffer of a string");
    text->AssignText(text->GetText() + 7);
    EXPECT_STREQ(text->GetText(), "that is too long for the small buffer of a string");
    EXPECT_TRUE(text->Assign(text.Get()));
    EXPECT_STREQ(text->GetText(), "that is too long for the small buffer of a string");
    EXPECT_EQ(text->Compare(text.Get()), 0);
    EXPECT_EQ(CountOf(text), 1u);
}

TEST_F(TessaraStringTest, ComparesByBytes) {
    text->AssignText("bcd");
    EXPECT_EQ(text->CompareText("bcd"), 0);
    EXPECT_EQ(SignOf(text->CompareText("bce")), -1);
    EXPECT_EQ(SignOf(text->CompareText("bcc")), 1);
    EXPECT_EQ(SignOf(text->CompareText("bc")), 1) << "the longer one comes after its beginning";
    EXPECT_EQ(SignOf(text->CompareText("bcde")), -1);
    EXPECT_EQ(SignOf(text->CompareText("")), 1);
    EXPECT_EQ(SignOf(text->CompareText("BCD")), 1) << "capitals come first";
    text->Clear();
    EXPECT_EQ(text->CompareText(""), 0);
    EXPECT_EQ(SignOf(text->CompareText("a")), -1);
}

TEST_F(TessaraStringTest, ComparesBytesAsUnsigned) {
    text->AssignText("\xB0");
    EXPECT_EQ(SignOf(text->CompareText("z")), 1);
    EXPECT_EQ(SignOf(text->CompareTextNoCase("z")), 1);
}

TEST_F(TessaraStringTest, ComparesWithoutCase) {
    text->AssignText("aBc");
    EXPECT_EQ(text->CompareTextNoCase("AbC"), 0);
    EXPECT_EQ(text->CompareTextNoCase("abc"), 0);
    EXPECT_EQ(SignOf(text->CompareTextNoCase("ABD")), -1);
    EXPECT_EQ(SignOf(text->CompareTextNoCase("aBb")), 1);
    EXPECT_EQ(SignOf(text->CompareTextNoCase("AB")), 1);
}

TEST_F(TessaraStringTest, OnlyTheLettersAToZHaveTwoCases) {
    text->AssignText("[{@`\xC4");
    EXPECT_EQ(text->CompareTextNoCase("[{@`\xC4"), 0);
    EXPECT_NE(text->CompareTextNoCase("[{@`\xE4"), 0) << "no locale is asked about the bytes above 127";
    text->AssignText("@");
    EXPECT_NE(text->CompareTextNoCase("`"), 0);
    text->AssignText("[");
    EXPECT_NE(text->CompareTextNoCase("{"), 0);
    text->AssignText("AZ");
    EXPECT_EQ(text->CompareTextNoCase("az"), 0);
}

TEST_F(TessaraStringTest, ComparesWithOtherTexts) {
    text->AssignText("abc");
    EXPECT_EQ(text->Compare(MakeText("abc").Get()), 0);
    EXPECT_EQ(SignOf(text->Compare(MakeText("abd").Get())), -1);
    EXPECT_EQ(SignOf(text->Compare(MakeText("ABC").Get())), 1);
    EXPECT_EQ(text->CompareNoCase(MakeText("ABC").Get()), 0);
    EXPECT_EQ(SignOf(text->CompareNoCase(MakeText("ABB").Get())), 1);
    EXPECT_EQ(text->CompareNoCase(IRef<IUnknown>(MakeText("ABC")).Get()), 0) << "by any interface";
}

TEST_F(TessaraStringTest, IsNotComparableWithNothing) {
    const IRef<IArray> array(CreateClassArray());
    for (const char* content : {"", "abc"}) {
        text->AssignText(content);
        EXPECT_EQ(text->CompareText(nullptr), INT_MIN);
        EXPECT_EQ(text->CompareTextNoCase(nullptr), INT_MIN);
        EXPECT_EQ(text->Compare(nullptr), INT_MIN);
        EXPECT_EQ(text->CompareNoCase(nullptr), INT_MIN);
        EXPECT_EQ(text->Compare(array.Get()), INT_MIN);
        EXPECT_EQ(text->CompareNoCase(array.Get()), INT_MIN);
    }
    EXPECT_EQ(CountOf(array), 1u);
}

TEST_F(TessaraStringTest, GivenToItselfUncountedItLivesUntilTheOperationEnds) {
    ITessaraString* fresh = NewObject<TessaraString>();
    EXPECT_TRUE(fresh->Assign(fresh));
    fresh = NewObject<TessaraString>();
    EXPECT_EQ(fresh->Compare(fresh), 0);
    fresh = NewObject<TessaraString>();
    EXPECT_EQ(fresh->CompareNoCase(fresh), 0);
}

}  // namespace
}  // namespace tessara

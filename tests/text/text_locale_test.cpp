// Texts are the same under every locale of the host.
#include <gtest/gtest.h>

#include <sstream>

#include "support/comma_locale.h"
#include "support/legal_positions.h"
#include "support/texts.h"

namespace tessara {
namespace {

using testing::TextPair;

TEST(TextLocale, TheTestsLocaleHasAComma) {
    const testing::CommaLocale comma;
    std::ostringstream stream;
    stream << 1234.5;
    EXPECT_EQ(stream.str(), "1.234,5");
}

struct AllTexts {
    TextPair plain;
    TextPair display;
    std::string geographic[3];
    std::string cartesian[3];

    bool operator==(const AllTexts&) const = default;
};

AllTexts TextsOf(const tagKOORD& record) {
    const IRef<ICoordinateString> string = testing::StringOf(record);
    AllTexts texts{testing::PlainTextsOf(string), testing::DisplayTextsOf(string), {}, {}};
    const IRef<ITessaraString> t[] = {testing::MakeText(), testing::MakeText(), testing::MakeText()};
    string->GetGeographicTexts(t[0].Get(), t[1].Get(), t[2].Get());
    for (std::size_t i = 0; i < 3; ++i)
        texts.geographic[i] = t[i]->GetText();
    string->GetCartesianTexts(t[0].Get(), t[1].Get(), t[2].Get());
    for (std::size_t i = 0; i < 3; ++i)
        texts.cartesian[i] = t[i]->GetText();
    return texts;
}

TEST(TextLocale, PlaysNoRoleInWriting) {
    testing::Random random(15);
    for (const testing::LegalArea& area : testing::LEGAL_AREAS) {
        const tagKOORD record = testing::RandomLegal(area, &random);
        const AllTexts expected = TextsOf(record);
        const testing::CommaLocale comma;
        EXPECT_EQ(TextsOf(record), expected) << area.system;
    }
}

TEST(TextLocale, PlaysNoRoleInReading) {
    testing::Random random(16);
    for (const testing::LegalArea& area : testing::LEGAL_AREAS) {
        const TextPair texts = testing::PlainTextsOf(testing::RandomLegal(area, &random));
        const IRef<ICoordinateString> expected(CreateClassCoordinateString());
        EXPECT_TRUE(testing::Parse(expected, area.system, texts.north, texts.east)) << texts;
        const testing::CommaLocale comma;
        const IRef<ICoordinateString> string(CreateClassCoordinateString());
        EXPECT_TRUE(testing::Parse(string, area.system, texts.north, texts.east)) << texts;
        EXPECT_EQ(testing::PlainTextsOf(string), testing::PlainTextsOf(expected));
    }
}

TEST(TextLocale, ACommaEndsANumberEverywhere) {
    const testing::CommaLocale comma;
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(testing::Parse(string, KOORD_GEODEZ, "48,5", "11.5"));
    EXPECT_EQ(testing::PlainTextsOf(string), (TextPair{"48.0000000", "11.5000000"}));
}

}  // namespace
}  // namespace tessara

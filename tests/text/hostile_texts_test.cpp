// Texts of any length and any bytes: read or refused in linear time, and never anything worse.
#include <gtest/gtest.h>

#include <cstring>

#include "support/legal_positions.h"
#include "support/sanitized.h"
#include "support/texts.h"

namespace tessara {
namespace {

using testing::LegalArea;
using testing::TextPair;

constexpr std::size_t MEGABYTE = 1u << 20;

// A piece at a time would take longer than reading the text does.
void FillWith(const char* piece, std::size_t size, std::string* text) {
    std::string pieces;
    while (pieces.size() < 1000)
        pieces += piece;
    while (text->size() < size)
        *text += pieces;
}

constexpr const char* PIECES[] = {" ", "\t",   "9",    "0",    "-",    "+",  ".",    "e",   "1e",   "9.", "N",
                                  "A", "\x80", "\xFF", "\xB0", "N 1 ", "1 ", "1e9 ", "-1 ", "%s%n", "\n"};

// Texts of a size that repeat one piece, alone and after characters that some systems accept as fields.
std::vector<std::string> TextsOfSize(std::size_t size) {
    std::vector<std::string> texts;
    for (const char* piece : PIECES) {
        for (const char* start : {"", "N 1 1 "}) {
            texts.emplace_back(start);
            FillWith(piece, size, &texts.back());
        }
    }
    return texts;
}

// Whatever the texts are taken for, the string goes on working.
void Read(const std::vector<std::string>& texts, std::int32_t system) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    const CKoord origin = testing::KoordOf(string);
    for (const std::string& text : texts) {
        if (testing::Parse(string, system, text, text)) string->SetCoord(CoordOf(origin).Get());
        EXPECT_EQ(testing::PlainTextsOf(string), (TextPair{"0.0000000", "0.0000000"})) << "system " << system;
    }
}

TEST(HostileTexts, EverySystemAnswersThem) {
    const std::vector<std::string> texts = TextsOfSize(10000);
    for (std::int32_t system = 0; system < KOORD_TYPE_COUNT; ++system)
        Read(texts, system);
}

TEST(HostileTexts, AMegabyteIsAnsweredToo) {
    const std::vector<std::string> texts = TextsOfSize(MEGABYTE);
    for (const std::int32_t system : {KOORD_UTM, KOORD_GEOGRAD})
        Read(texts, system);
}

TEST(HostileTexts, TenThousandBlanksAreBlanks) {
    const std::string blanks(10000, ' ');
    std::string north = blanks;
    north += 'N';
    north += blanks;
    north += "5400000";
    north += blanks;
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(testing::Parse(string, KOORD_UTM, north, "32 500000"));
    EXPECT_EQ(testing::PlainTextsOf(string).north, "N 5400000.000");
}

TEST(HostileTexts, AZeroEndsAText) {
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(testing::Parse(string, KOORD_GEODEZ, std::string("48\0.5", 5), "11"));
    EXPECT_EQ(testing::PlainTextsOf(string).north, "48.0000000");
    EXPECT_FALSE(testing::Parse(string, KOORD_GEODEZ,
                                std::string("\0"
                                            "48",
                                            3),
                                "11"));
}

TEST(HostileTexts, AMillionDigitsAreANumber) {
    std::string text = "48.";
    text.append(MEGABYTE, '0');
    text += '5';
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    EXPECT_TRUE(testing::Parse(string, KOORD_GEODEZ, text, "11"));
    EXPECT_EQ(testing::PlainTextsOf(string).north, "48.0000000");
    std::string zone(MEGABYTE, '0');
    zone.append("32 500000");
    EXPECT_TRUE(testing::Parse(string, KOORD_UTM, "N 5400000", zone));
    EXPECT_FALSE(testing::Parse(string, KOORD_GEODEZ, std::string(MEGABYTE, '9'), "11"));
}

// One to three random changes of a byte, dropped, doubled or exchanged, in texts of legal positions.
class MutatedTexts : public ::testing::TestWithParam<LegalArea> {};

std::string Mutated(std::string text, testing::Random* random) {
    const int changes = 1 + random->Below(3);
    for (int i = 0; i < changes && !text.empty(); ++i) {
        const auto at = static_cast<std::size_t>(random->Below(static_cast<std::int32_t>(text.size())));
        switch (random->Below(4)) {
            case 0:
                text.erase(at, 1);
                break;
            case 1:
                text.insert(at, 1, text[at]);
                break;
            case 2:
                text[at] = static_cast<char>(1 + random->Below(255));
                break;
            default:
                text[at] = "0123456789 .-+eENSWOA"[random->Below(21)];
        }
    }
    return text;
}

TEST_P(MutatedTexts, AreRefusedOrALegalPosition) {
    const LegalArea& area = GetParam();
    testing::Random random(static_cast<std::uint64_t>(area.system) + 77);
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    int positions = 0, refusals = 0;
    for (int i = 0; i < testing::Samples(10000) && !HasFailure(); ++i) {
        const TextPair texts = testing::PlainTextsOf(testing::RandomLegal(area, &random));
        const TextPair mutated{Mutated(texts.north, &random), Mutated(texts.east, &random)};
        const CKoord before = testing::KoordOf(string);
        if (testing::Parse(string, area.system, mutated.north, mutated.east)) {
            EXPECT_TRUE(testing::IsLegal(testing::KoordOf(string))) << mutated;
            ++positions;
        } else {
            const CKoord after = testing::KoordOf(string);
            EXPECT_EQ(std::memcmp(&before, &after, sizeof(tagKOORD)), 0) << mutated;
            ++refusals;
        }
    }
    EXPECT_GT(positions, 0);
    EXPECT_GT(refusals, 0);
}

INSTANTIATE_TEST_SUITE_P(Systems, MutatedTexts, ::testing::ValuesIn(testing::LEGAL_AREAS),
                         [](const auto& test) { return "System" + std::to_string(test.param.system); });

}  // namespace
}  // namespace tessara

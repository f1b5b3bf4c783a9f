// Every legal position that can be typed survives writing and reading to the last digit shown.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include "records/zones.h"
#include "support/legal_positions.h"
#include "support/sanitized.h"
#include "support/texts.h"
#include "text/text_layout.h"

namespace tessara {
namespace {

using testing::LegalArea;
using testing::TextPair;

constexpr int POSITIONS = testing::Samples(10000);
constexpr double RESOLUTIONS[] = {1e-7, 1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 0.1, 1.0, 10.0, 100.0, 1e3, 1e4, 1e5};

// Seven decimals in every system, in GEOGRAD of a second.
constexpr double FINEST = 1e-12;
// Half a unit of the seventh decimal, plus the rounding of a number with eight digits before the point.
constexpr double LAST_DIGIT = 0.6e-7;

void ExpectSameField(RecordField field, const tagKOORD& read, const tagKOORD& written) {
    switch (field.kind) {
        case FieldKind::Number:
            EXPECT_NEAR(ValueOf<double>(read, field), ValueOf<double>(written, field), LAST_DIGIT);
            return;
        case FieldKind::Whole32:
        case FieldKind::Metres:
            EXPECT_EQ(ValueOf<std::int32_t>(read, field), ValueOf<std::int32_t>(written, field));
            return;
        case FieldKind::Letter:
            EXPECT_EQ(ValueOf<char>(read, field), ValueOf<char>(written, field));
            return;
        default:
            EXPECT_EQ(ValueOf<std::int16_t>(read, field), ValueOf<std::int16_t>(written, field));
    }
}

// Compares all typed values, and the zone, which some systems derive from them.
void ExpectSamePosition(const tagKOORD& read, const tagKOORD& written) {
    for (const Axis axis : {Axis::North, Axis::East}) {
        for (const RecordField field : TextFieldsOf(axis, written))
            ExpectSameField(field, read, written);
    }
    EXPECT_EQ(zones::Number(read), zones::Number(written));
}

class TextRoundTrip : public ::testing::TestWithParam<LegalArea> {
  protected:
    // Writes the position of the writer and reads it; writing the result gives the same texts.
    void GoThroughText(double resolution) {
        testing::SetResolution(writer, resolution);
        const TextPair texts = testing::PlainTextsOf(writer);
        EXPECT_TRUE(testing::Parse(reader, GetParam().system, texts.north, texts.east)) << texts;
        testing::SetResolution(reader, resolution);
        EXPECT_EQ(testing::PlainTextsOf(reader), texts);
    }

    const IRef<ICoordinateString> writer{CreateClassCoordinateString()};
    const IRef<ICoordinateString> reader{CreateClassCoordinateString()};
};

// Random positions in the area, each in the finest resolution and in one of all in turn.
TEST_P(TextRoundTrip, EveryLegalPositionComesBackToTheLastDigitShown) {
    const LegalArea& area = GetParam();
    testing::Random random(static_cast<std::uint64_t>(area.system) + 1);
    for (int i = 0; i < POSITIONS && !HasFailure(); ++i) {
        const tagKOORD record = testing::RandomLegal(area, &random);
        EXPECT_TRUE(testing::IsLegal(record));
        EXPECT_TRUE(writer->SetCoord(CoordOf(record).Get()));
        GoThroughText(RESOLUTIONS[static_cast<std::size_t>(i) % std::size(RESOLUTIONS)]);
        GoThroughText(FINEST);
        ExpectSamePosition(testing::KoordOf(reader), record);
    }
}

bool CanBeTypedInFull(const LegalArea& area) {
    return area.system != KOORD_GEOREF;
}

std::vector<LegalArea> FullyTypedAreas() {
    std::vector<LegalArea> areas;
    std::copy_if(std::begin(testing::LEGAL_AREAS), std::end(testing::LEGAL_AREAS), std::back_inserter(areas),
                 CanBeTypedInFull);
    return areas;
}

INSTANTIATE_TEST_SUITE_P(Systems, TextRoundTrip, ::testing::ValuesIn(FullyTypedAreas()),
                         [](const auto& test) { return "System" + std::to_string(test.param.system); });

// No precision is read with a GEOREF, so its minutes are kept but aren't shown again.
TEST(GeorefRoundTrip, KeepsTheLettersAndTheMinutes) {
    testing::Random random(6);
    const IRef<ICoordinateString> reader(CreateClassCoordinateString());
    for (int i = 0; i < POSITIONS && !HasFailure(); ++i) {
        const tagKOORD record = testing::RandomLegal(testing::LegalAreaOf(KOORD_GEOREF), &random);
        const TextPair texts = testing::PlainTextsOf(record);
        EXPECT_TRUE(testing::Parse(reader, KOORD_GEOREF, texts.north, texts.east)) << texts;
        auto expected = Load<GeorefPayload>(record);
        expected.precision = 0;
        const auto read = Load<GeorefPayload>(testing::KoordOf(reader));
        EXPECT_EQ(std::memcmp(&read, &expected, sizeof read), 0) << texts;
        EXPECT_EQ(testing::PlainTextsOf(reader), (TextPair{"", ""}));
    }
}

}  // namespace
}  // namespace tessara

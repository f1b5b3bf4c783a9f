// What isn't a number has one pattern of bits in every result, whatever pattern goes in and whichever
// operations give it.
#include "systems/not_a_number.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

#include "support/mixed_records.h"
#include "support/records.h"
#include "systems/convert_columns.h"
#include "systems/convert_many.h"

namespace tessara {
namespace {

using Records = std::vector<tagKOORD>;

constexpr std::uint64_t QUIET = 0x7FF8000000000000;

bool IsDouble(const OutputField& field) {
    switch (field.kind) {
        case OutputKind::Letters:
        case OutputKind::Whole16:
        case OutputKind::Whole32:
        case OutputKind::GeorefMinutes:
        case OutputKind::SquareMetres:
            return false;
        default:
            return true;
    }
}

// Where a type has doubles that a conversion reads or writes.
std::vector<std::size_t> OffsetsOf(std::int32_t type) {
    std::vector<std::size_t> offsets;
    for (const OutputField& field : System_Columns(type)) {
        if (IsDouble(field)) offsets.push_back(field.offset);
    }
    if (type == KOORD_GEODEZ) offsets.push_back(offsetof(GeodezPayload, height));
    if (type == KOORD_GEODEZMIN) offsets.push_back(offsetof(GeodezMinPayload, height));
    return offsets;
}

double At(const tagKOORD& record, std::size_t offset) {
    double value;
    std::memcpy(&value, record.payload + offset, sizeof value);
    return value;
}

bool IsNumberOrQuiet(double value) {
    return !std::isnan(value) || std::bit_cast<std::uint64_t>(value) == QUIET;
}

// Ordinary and wild ones, and of the ordinary ones each number replaced by what no formula is made for.
Records SourcesOf(testing::Random& random, std::int32_t type) {
    constexpr double extremes[] = {std::bit_cast<double>(0xFFF8000000000000),
                                   std::bit_cast<double>(0x7FF8000000000001),
                                   std::bit_cast<double>(0xFFFFFFFFFFFFFFFF),
                                   std::bit_cast<double>(0x7FF0000000000001),
                                   HUGE_VAL,
                                   -HUGE_VAL,
                                   std::numeric_limits<double>::max(),
                                   -std::numeric_limits<double>::max(),
                                   std::numeric_limits<double>::denorm_min(),
                                   90.0,
                                   -90.0,
                                   95.0,
                                   1e8,
                                   -0.0};
    Records sources = testing::MixedSources(random, type, DATUM_WGS84, 300);
    for (const std::size_t offset : OffsetsOf(type)) {
        for (const double extreme : extremes) {
            sources.push_back(sources[static_cast<std::size_t>(random.Below(300))]);
            std::memcpy(sources.back().payload + offset, &extreme, sizeof extreme);
        }
    }
    return sources;
}

// The number of results that are none.
int ExpectOnePattern(const Records& results, std::int32_t type) {
    int count = 0;
    for (const tagKOORD& result : results) {
        for (const std::size_t offset : OffsetsOf(type)) {
            EXPECT_TRUE(IsNumberOrQuiet(At(result, offset))) << "type " << type << " at " << offset;
            count += std::isnan(At(result, offset)) ? 1 : 0;
        }
    }
    return count;
}

TEST(NotANumber, HasOnePatternInRecordsOfEveryPairOfTypes) {
    testing::Random random(26);
    int count = 0;
    for (std::int32_t from = 0; from < KOORD_TYPE_COUNT; ++from) {
        const Records sources = SourcesOf(random, from);
        for (std::int32_t to = 0; to < KOORD_TYPE_COUNT; ++to) {
            SCOPED_TRACE(from);
            for (const std::int32_t datum : {DATUM_WGS84, 3}) {
                const Records targets(sources.size(), testing::WithParameters(to, datum));
                Records single = targets, many = targets;
                for (std::size_t i = 0; i < sources.size(); ++i)
                    KoordConvertEx(&sources[i], &single[i], 0);
                KoordConvertMany(sources.data(), many.data(), many.size(), 0, nullptr);
                count += ExpectOnePattern(single, to);
                ExpectOnePattern(many, to);
            }
            if (HasFailure()) return;
        }
    }
    EXPECT_GT(count, 0);
}

TEST(NotANumber, HasOnePatternInColumns) {
    testing::Random random(27);
    for (const std::int32_t to :
         {KOORD_GEODEZ, KOORD_UTM, KOORD_ECEF, KOORD_TM, KOORD_LAMBERTCC, KOORD_VDG}) {
        const Records sources = SourcesOf(random, KOORD_GEODEZ);
        for (const std::int32_t datum : {DATUM_WGS84, 3}) {
            const tagKOORD target = testing::WithParameters(to, datum);
            SourceColumns from;
            const auto* const first =
                reinterpret_cast<const char*>(sources.data()) + offsetof(tagKOORD, payload);
            from.fields[0] = {first + offsetof(GeodezPayload, latitude), sizeof(tagKOORD)};
            from.fields[1] = {first + offsetof(GeodezPayload, longitude), sizeof(tagKOORD)};
            from.height = {first + offsetof(GeodezPayload, height), sizeof(tagKOORD)};
            std::vector<double> results(4 * sources.size());
            TargetColumns columns;
            std::size_t column = 0;
            for (const OutputField& field : System_Columns(to)) {
                const std::size_t i = static_cast<std::size_t>(&field - System_Columns(to).data());
                if (IsDouble(field))
                    columns.fields[i] = {&results[column++ * sources.size()], sizeof(double)};
            }
            columns.height = {&results[3 * sources.size()], sizeof(double)};
            KoordConvertColumns(&sources[0], &from, &target, &columns, sources.size(), 0);
            for (const double result : results)
                ASSERT_TRUE(IsNumberOrQuiet(result)) << "type " << to << " on " << datum;
        }
    }
}

// A height that is none doesn't keep its position from being converted.
TEST(NotANumber, HasOnePatternAsAHeight) {
    const double none = -std::numeric_limits<double>::quiet_NaN();
    const Records sources(100, Record(KOORD_GEODEZ, GeodezPayload{48.0, 9.0, none}));
    Records targets(100, MakeKoord(3, KOORD_GEODEZ));
    EXPECT_EQ(KoordConvertMany(sources.data(), targets.data(), 100, 1, nullptr), KOORD_OK);
    for (const tagKOORD& target : targets) {
        EXPECT_NEAR(Load<GeodezPayload>(target).latitude, 48.0, 0.01);
        EXPECT_EQ(std::bit_cast<std::uint64_t>(Load<GeodezPayload>(target).height), QUIET);
    }
}

TEST(WithOneNan, KeepsNumbers) {
    for (const double number : {0.0, -0.0, 1.5, -1e300, HUGE_VAL, -HUGE_VAL, 1e-320})
        EXPECT_EQ(std::bit_cast<std::uint64_t>(WithOneNan(number)), std::bit_cast<std::uint64_t>(number));
    constexpr std::uint64_t patterns[] = {0xFFF8000000000000, 0x7FF0000000000001, 0xFFFFFFFFFFFFFFFF, QUIET};
    for (const std::uint64_t bits : patterns)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(WithOneNan(std::bit_cast<double>(bits))), QUIET);
}

}  // namespace
}  // namespace tessara

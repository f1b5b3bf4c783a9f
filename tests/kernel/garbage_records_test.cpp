// No 64-byte record whatsoever, with any other as its target, crashes, hangs or reads outside a table.
//
// TESSARA_GARBAGE_RECORDS sets how many conversions each test makes; the default is sized for a few seconds.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "support/records.h"
#include "support/timing.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/range_checks.h"

namespace tessara {
namespace {

constexpr int DEFAULT_CONVERSIONS = testing::IS_SANITIZED ? 100000 : 1000000;
constexpr double SLOWEST_CONVERSION = 0.001;  // seconds

int Conversions() {
    const char* wanted = std::getenv("TESSARA_GARBAGE_RECORDS");
    return wanted != nullptr ? std::stoi(wanted) : DEFAULT_CONVERSIONS;
}

using Random = std::mt19937_64;

std::uint64_t Below(Random& random, std::uint64_t count) {
    return random() % count;
}

// Any bytes, under a datum and a type that mostly exist.
tagKOORD RandomBytes(Random& random) {
    tagKOORD record;
    for (std::size_t i = 0; i < sizeof record.payload; i += 8) {
        const std::uint64_t bytes = random();
        std::memcpy(record.payload + i, &bytes, 8);
    }
    record.datum = static_cast<std::uint32_t>(Below(random, 16) == 0 ? random() : Below(random, 239));
    record.type = static_cast<std::uint32_t>(Below(random, 32) == 0 ? random() : Below(random, 24));
    return record;
}

// A record that a conversion made, so that every field is plausible.
tagKOORD Plausible(Random& random) {
    std::uniform_real_distribution<double> latitude(-90.0, 90.0);
    std::uniform_real_distribution<double> longitude(-180.0, 180.0);
    const auto datum = static_cast<std::int32_t>(Below(random, 239));
    const auto type = static_cast<std::int32_t>(Below(random, 24));
    const tagKOORD source = GeodezRecord(latitude(random), longitude(random), 0.0, datum);
    tagKOORD record = NaturalTarget(type, datum);
    KoordConvertEx(&source, &record, 0);
    return record;
}

// Overwrites one aligned field of eight, four, two or one bytes by a value that hurts.
void Mutate(Random& random, tagKOORD& record) {
    const double doubles[] = {0.0,  -0.0,  1e-320, 1e-9, 1.0,   90.0,     180.0,     500000.0, 6e8,
                              1e16, 1e300, -1e300, -1.0, -90.0, HUGE_VAL, -HUGE_VAL, NAN};
    const std::int16_t shorts[] = {0, -1, 1, 28, 31, 34, 60, 61, -1000, INT16_MIN, INT16_MAX};
    const std::size_t size = sizeof record.payload;
    switch (Below(random, 4)) {
        case 0: {
            double value = doubles[Below(random, std::size(doubles))];
            if (Below(random, 2) == 0) value = -value;
            std::memcpy(record.payload + 8 * Below(random, size / 8), &value, sizeof value);
            return;
        }
        case 1: {
            const auto value = static_cast<std::int32_t>(random());
            std::memcpy(record.payload + 4 * Below(random, size / 4), &value, sizeof value);
            return;
        }
        case 2: {
            const std::int16_t value = shorts[Below(random, std::size(shorts))];
            std::memcpy(record.payload + 2 * Below(random, size / 2), &value, sizeof value);
            return;
        }
        default:
            record.payload[Below(random, size)] = static_cast<std::byte>(random());
    }
}

tagKOORD Garbage(Random& random) {
    if (Below(random, 2) == 0) return RandomBytes(random);
    tagKOORD record = Plausible(random);
    for (std::uint64_t mutations = Below(random, 4); mutations > 0; --mutations)
        Mutate(random, record);
    return record;
}

class GarbageRecords : public ::testing::TestWithParam<int> {};

TEST_P(GarbageRecords, EndInTimeWithAnyTarget) {
    Random random(static_cast<std::uint64_t>(GetParam()));
    const int conversions = Conversions();
    for (int i = 0; i < conversions; ++i) {
        const tagKOORD source = Garbage(random);
        const tagKOORD target = Garbage(random);
        const auto check = static_cast<std::int32_t>(Below(random, 2));
        const auto convert = [&source, &target, check] {
            tagKOORD result = target;
            KoordConvertEx(&source, &result, check);
        };
        ASSERT_TRUE(testing::EndsWithin(SLOWEST_CONVERSION, convert))
            << "source type " << source.type << ", target type " << target.type;
        std::int32_t detail = 0;
        Range_CheckRecord(&source, &detail);
        ASSERT_TRUE(detail == KOORD_OK || detail < 0);
    }
}

INSTANTIATE_TEST_SUITE_P(TenMillion, GarbageRecords, ::testing::Range(0, 10));

}  // namespace
}  // namespace tessara

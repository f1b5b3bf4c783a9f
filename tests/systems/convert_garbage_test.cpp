// Any 64-byte record converts into any other without a crash, a hang or a read outside a table.
//
// TESSARA_GARBAGE_RECORDS sets the number of conversions in each test; the default takes a few seconds.

#include <gtest/gtest.h>

#include <string>

#include "support/garbage_records.h"
#include "support/sanitized.h"
#include "support/setting.h"
#include "support/timing.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/range_checks.h"

namespace tessara {
namespace {

constexpr double SLOWEST_CONVERSION = 0.001;  // seconds

using testing::GarbageRecord;

class GarbageRecords : public ::testing::TestWithParam<int> {};

TEST_P(GarbageRecords, EndInTimeWithAnyTarget) {
    testing::Random random(static_cast<std::uint64_t>(GetParam()));
    const std::uint64_t conversions =
        testing::Setting("TESSARA_GARBAGE_RECORDS", testing::IS_SANITIZED ? 100000 : 1000000);
    for (std::uint64_t i = 0; i < conversions; ++i) {
        const tagKOORD source = GarbageRecord(random);
        const tagKOORD target = GarbageRecord(random);
        const auto check = random.Below(2);
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

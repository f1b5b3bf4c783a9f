// No 64-byte record whatsoever, with any other as its target, crashes, hangs or reads outside a table.
//
// TESSARA_GARBAGE_RECORDS sets how many conversions each test makes; the default is sized for a few seconds.

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>

#include "support/garbage_records.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/range_checks.h"

namespace tessara {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int DEFAULT_CONVERSIONS = 100000;
constexpr double SLOWEST_CONVERSION = 0.02;  // seconds; sanitizers cost up to a factor of 20
#else
constexpr int DEFAULT_CONVERSIONS = 1000000;
constexpr double SLOWEST_CONVERSION = 0.001;
#endif

int Conversions() {
    const char* wanted = std::getenv("TESSARA_GARBAGE_RECORDS");
    return wanted != nullptr ? std::stoi(wanted) : DEFAULT_CONVERSIONS;
}

using testing::Below;
using testing::Garbage;

double SecondsOf(const tagKOORD& source, tagKOORD target, std::int32_t check) {
    const auto start = std::chrono::steady_clock::now();
    KoordConvertEx(&source, &target, check);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The machine may interrupt a conversion: one that seems slow is timed again.
bool IsSlow(const tagKOORD& source, const tagKOORD& target, std::int32_t check) {
    for (int attempt = 0; attempt < 5; ++attempt) {
        if (SecondsOf(source, target, check) <= SLOWEST_CONVERSION) return false;
    }
    return true;
}

class GarbageRecords : public ::testing::TestWithParam<int> {};

TEST_P(GarbageRecords, EndInTimeWithAnyTarget) {
    testing::Engine random(static_cast<std::uint64_t>(GetParam()));
    const int conversions = Conversions();
    for (int i = 0; i < conversions; ++i) {
        const tagKOORD source = Garbage(random);
        const tagKOORD target = Garbage(random);
        const auto check = static_cast<std::int32_t>(Below(random, 2));
        ASSERT_FALSE(IsSlow(source, target, check))
            << "source type " << source.type << ", target type " << target.type;
        std::int32_t detail = 0;
        Range_CheckRecord(&source, &detail);
        ASSERT_TRUE(detail == KOORD_OK || detail < 0);
    }
}

INSTANTIATE_TEST_SUITE_P(TenMillion, GarbageRecords, ::testing::Range(0, 10));

}  // namespace
}  // namespace tessara

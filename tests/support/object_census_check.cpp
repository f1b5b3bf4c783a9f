#include "support/object_census_check.h"

#include <gtest/gtest.h>

#include "tessara/internal/object_census.h"

namespace tessara::testing {

#if defined(TESSARA_COUNT_OBJECTS)

void ExpectNoLivingObjects() {
    for (const CensusEntry* entry = CensusEntry::First(); entry != nullptr; entry = entry->Next())
        EXPECT_EQ(entry->Living(), 0) << entry->ClassName() << " objects are alive";
}

namespace {

class CensusCheck : public ::testing::EmptyTestEventListener {
    void OnTestEnd(const ::testing::TestInfo&) override { ExpectNoLivingObjects(); }
};

[[maybe_unused]] const bool isRegistered = [] {
    ::testing::UnitTest::GetInstance()->listeners().Append(new CensusCheck);
    return true;
}();

}  // namespace

#else

void ExpectNoLivingObjects() {}

#endif

}  // namespace tessara::testing

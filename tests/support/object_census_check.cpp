// Where objects are counted by class, every test ends with none alive.
#include <gtest/gtest.h>

#include "tessara/object_census.h"

#if defined(TESSARA_COUNT_OBJECTS)

namespace tessara::testing {
namespace {

class CensusCheck : public ::testing::EmptyTestEventListener {
    void OnTestEnd(const ::testing::TestInfo&) override {
        for (const CensusEntry* entry = CensusEntry::First(); entry != nullptr; entry = entry->Next())
            EXPECT_EQ(entry->Living(), 0) << entry->ClassName() << " objects are alive";
    }
};

[[maybe_unused]] const bool isRegistered = [] {
    ::testing::UnitTest::GetInstance()->listeners().Append(new CensusCheck);
    return true;
}();

}  // namespace
}  // namespace tessara::testing

#endif

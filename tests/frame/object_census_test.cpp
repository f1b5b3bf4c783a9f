#include "tessara/internal/object_census.h"

#include <gtest/gtest.h>

#include <string>

#include "support/objects.h"

namespace tessara {
namespace {

#if defined(TESSARA_COUNT_OBJECTS)

std::int64_t Living(const std::string& part) {
    std::int64_t living = 0;
    for (const CensusEntry* entry = CensusEntry::First(); entry != nullptr; entry = entry->Next()) {
        if (std::string(entry->ClassName()).find(part) != std::string::npos) living += entry->Living();
    }
    return living;
}

TEST(ObjectCensus, CountsTheLivingObjectsOfEachClass) {
    {
        const IRef<IUnknown> first = testing::MakeStranger();
        const IRef<IUnknown> again = first;
        const IRef<IUnknown> second = testing::MakeStranger();
        EXPECT_EQ(Living("Stranger"), 2);
    }
    EXPECT_EQ(Living("Stranger"), 0);
}

#else

TEST(ObjectCensus, CostsNothingWhereNothingIsCounted) {
    struct TableAndCount {
        void* table;
        std::atomic<std::int32_t> count;
    };
    EXPECT_EQ(sizeof(CountedObject<testing::Stranger>), sizeof(TableAndCount));
}

#endif

}  // namespace
}  // namespace tessara

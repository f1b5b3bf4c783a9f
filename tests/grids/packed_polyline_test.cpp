#include "grids/packed_polyline.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/random.h"
#include "support/records.h"

namespace tessara::testing {
namespace {

std::vector<tagKOORD> RecordsOf(const PackedPolyline& polyline) {
    std::vector<tagKOORD> records;
    EXPECT_TRUE(polyline.ForEach([&](const tagKOORD& record) {
        records.push_back(record);
        return true;
    }));
    return records;
}

TEST(PackedPolyline, GivesBackEveryByte) {
    Random random(41);
    PackedPolyline polyline;
    std::vector<tagKOORD> records;
    for (int i = 0; i < 500; ++i) {
        // Some bytes change from one to the next; now and then none, or all.
        tagKOORD record = records.empty() ? tagKOORD{} : records.back();
        auto* const bytes = reinterpret_cast<unsigned char*>(&record);
        const int changes = i % 10 == 0 ? 64 : i % 7;
        for (int k = 0; k < changes; ++k)
            bytes[static_cast<int>(random.Between(0.0, 63.99))] =
                static_cast<unsigned char>(random.Between(0.0, 255.99));
        records.push_back(record);
        polyline.Append(record);
    }
    polyline.Finish();
    ASSERT_EQ(polyline.Size(), records.size());
    const auto read = RecordsOf(polyline);
    ASSERT_EQ(read.size(), records.size());
    for (std::size_t i = 0; i < read.size(); ++i)
        EXPECT_EQ(std::memcmp(&read[i], &records[i], sizeof(tagKOORD)), 0) << i;
}

TEST(PackedPolyline, IsReadUntilTheReaderHasEnough) {
    PackedPolyline polyline;
    for (int i = 0; i < 5; ++i)
        polyline.Append(GeodezRecord(48.0, 11.0 + i));
    int count = 0;
    EXPECT_FALSE(polyline.ForEach([&count](const tagKOORD&) { return ++count < 3; }));
    EXPECT_EQ(count, 3);
    EXPECT_TRUE(RecordsOf(PackedPolyline()).empty());
}

}  // namespace
}  // namespace tessara::testing

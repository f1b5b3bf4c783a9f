#include "support/common_operations.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "support/live_objects.h"

namespace tessara {
namespace {

using testing::AllocatedBlocks;
using testing::CommonOperations;

std::int64_t BlocksOf(const CommonOperations::Operation& operation) {
    operation.run();  // texts have grown as far as they have to
    const std::int64_t before = AllocatedBlocks();
    operation.run();
    return AllocatedBlocks() - before;
}

// An operation that allocates more than its result would create an object that nobody needs.
TEST(CommonOperations, AllocateWhatTheyHandOutAndNoMore) {
    const std::map<std::string, std::int64_t> expected = {
        {"make a coordinate", 1},           // the coordinate itself
        {"make a coordinate's string", 5},  // itself, a coordinate, and a reference with its two parts
        {"set degrees", 0},
        {"read degrees", 0},
        {"change the reference and back", 0},
        {"transfer to another reference", 3},  // a reference with its two parts, which the coordinate takes
        {"check a reference's position", 0},
        {"read two texts", 0},
        {"write two texts", 0},             // up to 15 characters stand in the text's object
        {"write a text for a screen", 2},   // 23 characters: composed, and copied into the caller's object
        {"request: degrees to UTMREF", 2},  // those of the text for a screen
        {"request: UTM to UTMREF", 2},
        {"request: UTMREF to UTMREF", 2},
    };
    CommonOperations operations;
    for (const auto& operation : operations.All()) {
        ASSERT_TRUE(expected.contains(operation.name)) << operation.name;
        EXPECT_EQ(BlocksOf(operation), expected.at(operation.name)) << operation.name;
    }
}

}  // namespace
}  // namespace tessara

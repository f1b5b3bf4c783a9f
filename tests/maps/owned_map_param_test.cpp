#include "maps/owned_map_param.h"

#include <gtest/gtest.h>

#include <utility>

#include "support/live_objects.h"

namespace tessara::testing {
namespace {

class OwnedMapParamTest : public BalancedTest {};

// A record with a chain of `count` nodes behind the first.
MapParam ChainOf(std::uint32_t count) {
    MapParam record;
    record.referenceCount = count + 1;
    MapReferenceNode* node = &record.reference;
    for (std::uint32_t i = 0; i < count; ++i) {
        node->next = new MapReferenceNode;
        node = node->next;
    }
    return record;
}

TEST_F(OwnedMapParamTest, FreesItsChain) {
    OwnedMapParam map;
    map.Adopt(ChainOf(3));
}

TEST_F(OwnedMapParamTest, FreesAVeryLongChain) {
    OwnedMapParam map;
    map.Adopt(ChainOf(200000));
}

TEST_F(OwnedMapParamTest, TheChainMovesAlong) {
    OwnedMapParam first;
    first.Adopt(ChainOf(2));
    first->datum = 6;
    OwnedMapParam second(std::move(first));
    EXPECT_EQ(second->referenceCount, 3u);
    EXPECT_NE(second->reference.next, nullptr);
    EXPECT_EQ(second->datum, 6u);
    EXPECT_EQ(first->referenceCount, 0u);
    EXPECT_EQ(first->reference.next, nullptr);
}

TEST_F(OwnedMapParamTest, AReleasedChainIsLeftToTheCaller) {
    OwnedMapParam next;
    {
        OwnedMapParam map;
        map.Adopt(ChainOf(2));
        next.Adopt(map.Release());
    }
    EXPECT_NE(next->reference.next->next, nullptr);
}

TEST_F(OwnedMapParamTest, AdoptingLeavesTheOldChainReadable) {
    OwnedMapParam map;
    map.Adopt(ChainOf(1));
    const MapParam before = *map;
    map.Adopt(ChainOf(2));
    EXPECT_EQ(before.reference.next->pixelX, 0);
    OwnedMapParam heir;
    heir.Adopt(before);
}

TEST_F(OwnedMapParamTest, MayAdoptItsOwnRecord) {
    OwnedMapParam map;
    map.Adopt(ChainOf(2));
    const MapParam own = *map;
    map.Adopt(own);
    EXPECT_EQ(map->reference.next, own.reference.next);
}

TEST_F(OwnedMapParamTest, CopiesARecordWithAChainOfItsOwn) {
    OwnedMapParam original;
    original.Adopt(ChainOf(2));
    original->datum = 6;
    original->reference.next->next->pixelY = 7;
    OwnedMapParam copy;
    copy.Adopt(ChainOf(1));
    ASSERT_TRUE(copy.CopyWithChain(*original));
    EXPECT_EQ(copy->datum, 6u);
    EXPECT_EQ(copy->referenceCount, 3u);
    ASSERT_NE(copy->reference.next, nullptr);
    EXPECT_NE(copy->reference.next, original->reference.next);
    EXPECT_EQ(copy->reference.next->next->pixelY, 7);
    EXPECT_EQ(copy->reference.next->next->next, nullptr);
}

TEST_F(OwnedMapParamTest, IsEmptyWhereACopyHadNoMemory) {
    OwnedMapParam original;
    original.Adopt(ChainOf(3));
    for (const int nth : {1, 2, 3}) {
        OwnedMapParam copy;
        copy->datum = 6;
        const FailAllocation failure(nth);
        EXPECT_FALSE(copy.CopyWithChain(*original));
        EXPECT_EQ(copy->reference.next, nullptr);
        EXPECT_EQ(copy->referenceCount, 0u);
        EXPECT_EQ(copy->datum, MapParam().datum);
    }
}

}  // namespace
}  // namespace tessara::testing

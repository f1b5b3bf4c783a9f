#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include "support/mixed_records.h"
#include "systems/block_form.h"

namespace tessara {
namespace {

constexpr std::size_t ROWS = 5;

// A number that no form admits: it's no zone, no meridian and no pair of letters.
constexpr double AS_BEFORE = 999.0;

// Every column of the rows behind the first ones.
bool AreUntouched(const Block& block, std::size_t first) {
    constexpr std::size_t columns = sizeof(Block) / sizeof(Block::Column);
    for (std::size_t column = 0; column < columns; ++column) {
        double rows[Block::SIZE];
        std::memcpy(rows, reinterpret_cast<const char*>(&block) + column * sizeof rows, sizeof rows);
        if (!std::all_of(rows + first, std::end(rows), [](double value) { return value == AS_BEFORE; }))
            return false;
    }
    return true;
}

std::unique_ptr<Block> UntouchedBlock() {
    auto block = std::make_unique<Block>();
    static_assert(sizeof(Block) % sizeof(double) == 0);
    std::fill_n(reinterpret_cast<double*>(block.get()), sizeof(Block) / sizeof(double), AS_BEFORE);
    return block;
}

TEST(BlockForms, ChangeNoRowBehindThoseOfTheirRecords) {
    testing::Random random(31);
    for (std::int32_t type = 0; type < KOORD_TYPE_COUNT; ++type) {
        const auto sources = testing::MixedSources(random, type, DATUM_WGS84, ROWS);
        const BlockForm* const form = SystemOf(sources[0]).blocks;
        if (form == nullptr) continue;
        SCOPED_TRACE(type);
        const auto block = UntouchedBlock();
        form->load(sources, *block);
        EXPECT_TRUE(AreUntouched(*block, ROWS)) << "load";
        if (form->admit != nullptr) form->admit(*block, ROWS);
        EXPECT_TRUE(AreUntouched(*block, ROWS)) << "admit";
        if (form->loadWanted != nullptr) form->loadWanted(sources, *block);
        EXPECT_TRUE(AreUntouched(*block, ROWS)) << "wanted";
        std::fill_n(block->special, ROWS, 0.0);
        if (form->toFields != nullptr) form->toFields(*block, ROWS, sources[0]);
        EXPECT_TRUE(AreUntouched(*block, ROWS)) << "to fields";
        if (form->fromFields != nullptr) form->fromFields(*block, ROWS, sources[0]);
        EXPECT_TRUE(AreUntouched(*block, ROWS)) << "from fields";
    }
}

TEST(BlockForms, LeaveSpecialRowsAlone) {
    testing::Random random(32);
    for (std::int32_t type = 0; type < KOORD_TYPE_COUNT; ++type) {
        const auto sources = testing::MixedSources(random, type, DATUM_WGS84, ROWS);
        const BlockForm* const form = SystemOf(sources[0]).blocks;
        if (form == nullptr) continue;
        const auto block = UntouchedBlock();
        ASSERT_TRUE(block->IsSpecial(0));
        auto targets = sources;
        form->store(*block, targets);
        for (std::size_t row = 0; row < ROWS; ++row)
            EXPECT_EQ(std::memcmp(&targets[row], &sources[row], sizeof targets[row]), 0) << type;
        if (form->toFields != nullptr) form->toFields(*block, ROWS, sources[0]);
        EXPECT_TRUE(AreUntouched(*block, 0)) << type;
    }
}

// The Eiffel tower, 31U DQ 48251 11932: the column D begins at 400 km of easting, and the row Q of an odd
// zone at 1400 km, for the third time at 5400 km of northing.
TEST(BlockForms, ReadAMilitaryReferenceFromItsFields) {
    const auto block = std::make_unique<Block>();
    block->zone[0] = 31.0;
    block->band[0] = NumberOfLetters({'U', '\0'});
    block->square[0] = NumberOfLetters({'D', 'Q'});
    block->squareEast[0] = 48251.0;
    block->squareNorth[0] = 11932.0;
    UTMREF_BLOCKS.fromFields(*block, 1, MakeKoord(DATUM_WGS84, KOORD_UTMREF));
    EXPECT_FALSE(block->IsSpecial(0));
    EXPECT_EQ(block->zone[0], 31.0);
    EXPECT_EQ(block->south[0], 0.0);
    EXPECT_EQ(block->east[0], 448251.0);
    EXPECT_EQ(block->north[0], 5411932.0);
}

TEST(BlockForms, RefuseZonesAndMeridiansThatDontExist) {
    const auto admitted = [](const BlockForm& form, double zone) {
        Block block{};
        block.zone[0] = zone;
        form.admit(block, 1);
        return !block.IsSpecial(0);
    };
    for (const BlockForm* const form : {&UTM_BLOCKS, &UTMREF_BLOCKS}) {
        for (const double zone : {1.0, 32.0, 60.0})
            EXPECT_TRUE(admitted(*form, zone)) << zone;
        for (const double zone : {0.0, -1.0, 61.0, static_cast<double>(NAN)})
            EXPECT_FALSE(admitted(*form, zone)) << zone;
    }
    for (const BlockForm* const form : {&BMN_BLOCKS, &OEM_BLOCKS, &GKAT_BLOCKS}) {
        for (const double meridian : {28.0, 31.0, 34.0})
            EXPECT_TRUE(admitted(*form, meridian)) << meridian;
        for (const double meridian : {0.0, 27.0, 29.0, 37.0, static_cast<double>(NAN)})
            EXPECT_FALSE(admitted(*form, meridian)) << meridian;
    }
}

}  // namespace
}  // namespace tessara

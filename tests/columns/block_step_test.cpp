#include "columns/block_step.h"

#include <gtest/gtest.h>

#include <cmath>

#include "columns/block_loop.h"

namespace tessara {
namespace {

struct SquareRoots {
    double factor;
    void operator()(Block& block, std::size_t row) const {
        block.east[row] = factor * std::sqrt(block.north[row]);
    }
};

TEST(BlockStep, RunsItsFormulaOverTheRowsWithEverySetOfInstructions) {
    for (const InstructionSet set : INSTRUCTION_SETS) {
        if (!IsSupported(set)) continue;
        Block block{};
        for (std::size_t row = 0; row < Block::SIZE; ++row)
            block.north[row] = static_cast<double>(row * row);
        StepOver(SquareRoots{3.0}).Run(set, block, 100);
        for (std::size_t row = 0; row < Block::SIZE; ++row)
            EXPECT_EQ(block.east[row], row < 100 ? 3.0 * static_cast<double>(row) : 0.0);
    }
}

TEST(BlockStep, WithoutAFormulaDoesNothing) {
    Block block{};
    block.east[0] = 7.0;
    BlockStep().Run(InstructionSet::Plain, block, Block::SIZE);
    EXPECT_EQ(block.east[0], 7.0);
}

TEST(BlockStep, ARowOnceRefusedStaysSpecial) {
    Block block{};
    block.Refuse(1, true);
    block.Refuse(1, false);
    block.Refuse(2, false);
    EXPECT_TRUE(block.IsSpecial(1));
    EXPECT_FALSE(block.IsSpecial(2));
}

TEST(InstructionSets, PlainOnesAreEverywhereAndTheBestAreSupported) {
    EXPECT_TRUE(IsSupported(InstructionSet::Plain));
    EXPECT_TRUE(IsSupported(BestInstructionSet()));
}

}  // namespace
}  // namespace tessara

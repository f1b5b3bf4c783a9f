#include "columns/geodesic_loops.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/instruction_sets.h"
#include "support/random.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

using Solver = void (*)(InstructionSet, const geodesic::Ellipsoid&, GeodesicBlock&, std::size_t);

constexpr double WGS84_B = WGS84_A * (1.0 - 1.0 / 298.257223563);

std::size_t SpecialRows(Solver solve, GeodesicBlock& block, InstructionSet set) {
    solve(set, geodesic::Ellipsoid(WGS84_A, WGS84_B), block, GeodesicBlock::SIZE);
    std::size_t special = 0;
    for (const double row : block.special)
        special += static_cast<std::size_t>(row != 0.0);
    return special;
}

// A row that a block refuses has the right result all the same, from a solution of its own.
TEST(GeodesicLoops, SolveOrdinaryProblemsThemselves) {
    testing::Random random(34);
    for (const InstructionSet set : testing::SupportedSets()) {
        const auto inverse = std::make_unique<GeodesicBlock>();
        const auto direct = std::make_unique<GeodesicBlock>();
        for (std::size_t row = 0; row < GeodesicBlock::SIZE; ++row) {
            inverse->in[0][row] = direct->in[0][row] = random.Between(-80.0, 80.0);
            inverse->in[1][row] = direct->in[1][row] = random.Between(-90.0, 0.0);
            inverse->in[2][row] = random.Between(-80.0, 80.0);
            inverse->in[3][row] = random.Between(0.0, 60.0);
            direct->in[2][row] = random.Between(1.0, 5e6);
            direct->in[3][row] = random.Between(-180.0, 180.0);
        }
        // The last rows of a block that need more passes are left to others: one in 32 at most.
        EXPECT_LE(SpecialRows(SolveInverse, *inverse, set), GeodesicBlock::SIZE / 32);
        EXPECT_EQ(SpecialRows(SolveDirect, *direct, set), 0u);
    }
}

}  // namespace
}  // namespace tessara

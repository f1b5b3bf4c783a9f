// The sets of instructions that this processor has.
#pragma once

#include <vector>

#include "columns/block_step.h"

namespace tessara::testing {

inline std::vector<InstructionSet> SupportedSets() {
    std::vector<InstructionSet> sets;
    for (const InstructionSet set : INSTRUCTION_SETS) {
        if (IsSupported(set)) sets.push_back(set);
    }
    return sets;
}

}  // namespace tessara::testing

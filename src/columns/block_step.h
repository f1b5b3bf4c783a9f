// A formula that runs over a block, with its constants. A formula computes one row, without a branch or a
// call that stays one; the loop around it is compiled once for each set of instructions, of which all give
// the same bits.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "columns/block.h"

namespace tessara {

// What processors of one family have: registers of 2, 4 and 8 doubles.
enum class InstructionSet : std::uint8_t { Plain, Avx2, Avx512 };

inline constexpr InstructionSet INSTRUCTION_SETS[] = {InstructionSet::Plain, InstructionSet::Avx2,
                                                      InstructionSet::Avx512};

[[nodiscard]] bool IsSupported(InstructionSet set);
// The last one that this processor has.
[[nodiscard]] InstructionSet BestInstructionSet();

// One loop over columns of a kind for each set of instructions.
template <class Columns>
struct LoopsOver {
    using Loop = void (*)(const std::byte* constants, Columns& columns, std::size_t rows);
    std::array<Loop, std::size(INSTRUCTION_SETS)> bySet;
};

// Rows are computed by whole registers: what stands behind the last one, too.
[[nodiscard]] constexpr std::size_t WholeRegisters(InstructionSet set, std::size_t rows) {
    const std::size_t doubles = std::size_t{2} << static_cast<std::size_t>(set);
    return (rows + doubles - 1) / doubles * doubles;
}

class BlockStep {
  public:
    // Does nothing.
    BlockStep() = default;

    template <class Formula>
    BlockStep(const Formula& formula, const LoopsOver<Block>& loops) : loops_(&loops) {
        static_assert(std::is_trivially_copyable_v<Formula> && sizeof formula <= sizeof constants_);
        std::memcpy(constants_, &formula, sizeof formula);
    }

    void Run(InstructionSet set, Block& block, std::size_t rows) const {
        if (loops_ != nullptr) loops_->bySet[static_cast<std::size_t>(set)](constants_, block, rows);
    }

  private:
    const LoopsOver<Block>* loops_ = nullptr;
    alignas(8) std::byte constants_[256];
};

}  // namespace tessara

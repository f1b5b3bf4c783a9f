// A prepared conversion of many records at once: blocks of them become columns, the formulas for the common
// case run over these, and what isn't the common case is converted by itself. All results are those of single
// conversions, bit for bit.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "columns/block_step.h"
#include "systems/conversion.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

class BlockConversion {
  public:
    // Fewer records than this are converted one by one.
    static constexpr std::size_t FEWEST = 16;

    // For records of the projections of these two, which outlive it, as the single conversion does.
    void Prepare(const Conversion& single, const tagKOORD& source, const tagKOORD& target, RangeCheck check);

    // Whether there is anything to be gained; else nothing below may be called.
    [[nodiscard]] bool IsWorthwhile() const { return isWorthwhile_; }

    // At most Block::SIZE records, which don't overlap unless they are the same.
    void Convert(std::span<const tagKOORD> sources, std::span<tagKOORD> targets,
                 std::span<KoordStatus> statuses, Block& block, InstructionSet set) const;

    // The same in parts, for columns that don't come from records or don't become any. Clear goes first, and
    // whoever doesn't load sources fills the columns of their type and has the rows admitted.
    void Clear(Block& block, std::size_t rows) const;
    void Load(std::span<const tagKOORD> sources, Block& block) const;
    void Admit(Block& block, std::size_t rows) const;
    void LoadWanted(std::span<const tagKOORD> targets, Block& block) const;
    void Compute(Block& block, std::size_t rows, InstructionSet set) const;
    // The rows that aren't special.
    void Store(const Block& block, std::span<tagKOORD> targets, std::span<KoordStatus> statuses) const;

  private:
    const Conversion* single_ = nullptr;
    RangeCheck check_ = RangeCheck::Off;
    bool isWorthwhile_ = false;
    const BlockForm* from_ = nullptr;
    const BlockForm* to_ = nullptr;
    // From the source's columns to a position, into the hub, out of it, the range, to the target's columns.
    std::array<BlockStep, 5> steps_;
};

}  // namespace tessara

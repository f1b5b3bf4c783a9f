#include "systems/block_conversion.h"

#include <algorithm>

#include "columns/datum_loops.h"
#include "columns/range_loops.h"
#include "systems/reading.h"

namespace tessara {

void BlockConversion::Prepare(const Conversion& single, const tagKOORD& source, const tagKOORD& target,
                              RangeCheck check) {
    single_ = &single;
    check_ = check;
    from_ = single.From().blocks;
    to_ = single.To().blocks;
    const bool isShifted = source.datum != target.datum;
    const auto isProjected = [](const BlockForm* form) { return form != nullptr && form != &GEODEZ_BLOCKS; };
    const RangeTest test = single.To().range.test;
    const bool isTested = check == RangeCheck::On && target.type != KOORD_GEODEZ;
    isWorthwhile_ = (isShifted || isProjected(from_) || isProjected(to_)) &&
                    !IsPixelType(static_cast<std::int32_t>(source.type)) &&
                    !(isTested && test == RangeTest::Refused);
    if (!isWorthwhile_) return;

    steps_ = {};
    if (from_ != nullptr) steps_[0] = from_->inverse({source, single.Source()});
    if (isShifted) {
        steps_[1] = ShiftToHub(DatumOf(source));
        steps_[2] = ShiftFromHub(DatumOf(target));
    }
    if (to_ == nullptr) return;
    if (isTested && test == RangeTest::Before) steps_[3] = PositionWithin(single.To().limits);
    if (isTested && test == RangeTest::BeforePolar)
        steps_[3] = PolarWithin(UPS_LATITUDES.nearest, UPS_LATITUDES.furthest);
    steps_[4] = to_->forward({target, single.Target()});
}

void BlockConversion::Clear(Block& block, std::size_t rows) const {
    std::fill_n(block.special, rows, 0.0);
    std::fill_n(block.height, rows, 0.0);
}

void BlockConversion::Load(std::span<const tagKOORD> sources, Block& block) const {
    if (from_ != nullptr) {
        from_->load(sources, block);
        return Admit(block, sources.size());
    }
    for (std::size_t row = 0; row < sources.size(); ++row) {
        double position[3] = {};
        block.Refuse(row, single_->Read(sources[row], position) != KOORD_OK);
        block.latitude[row] = position[0];
        block.longitude[row] = position[1];
        block.height[row] = position[2];
    }
}

void BlockConversion::Admit(Block& block, std::size_t rows) const {
    if (from_->admit != nullptr) from_->admit(block, rows);
}

void BlockConversion::LoadWanted(std::span<const tagKOORD> targets, Block& block) const {
    if (to_ != nullptr && to_->loadWanted != nullptr) to_->loadWanted(targets, block);
}

void BlockConversion::Compute(Block& block, std::size_t rows, InstructionSet set) const {
    for (const BlockStep& step : steps_)
        step.Run(set, block, WholeRegisters(set, rows));
}

void BlockConversion::Store(const Block& block, std::span<tagKOORD> targets,
                            std::span<KoordStatus> statuses) const {
    if (to_ != nullptr) {
        to_->store(block, targets);
        std::fill(statuses.begin(), statuses.end(), KOORD_OK);
        return;
    }
    for (std::size_t row = 0; row < targets.size(); ++row) {
        if (block.IsSpecial(row)) continue;
        const double position[3] = {block.latitude[row], block.longitude[row], block.height[row]};
        statuses[row] = single_->Write(position, &targets[row], check_);
    }
}

void BlockConversion::Convert(std::span<const tagKOORD> sources, std::span<tagKOORD> targets,
                              std::span<KoordStatus> statuses, Block& block, InstructionSet set) const {
    const std::size_t rows = sources.size();
    Clear(block, rows);
    Load(sources, block);
    LoadWanted(targets, block);
    Compute(block, rows, set);
    Store(block, targets, statuses);
    for (std::size_t row = 0; row < rows; ++row) {
        if (block.IsSpecial(row)) statuses[row] = single_->Convert(sources[row], &targets[row], check_);
    }
}

}  // namespace tessara

// How the records of a type become columns and columns records, and the formulas that run over them in
// between.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "columns/block_step.h"
#include "systems/projection.h"
#include "tessara/kernel/koord.h"

namespace tessara {

// The datum and the parameters of a run of records: one of them, and what follows from it.
struct RunOf {
    const tagKOORD& record;
    const Projection& projection;
    [[nodiscard]] std::int32_t Datum() const { return static_cast<std::int32_t>(record.datum); }
};

// A column of a block by its name.
using BlockColumn = Block::Column Block::*;

// One or two letters as a number of a column.
struct LetterPair {
    char first, second;
};

[[nodiscard]] inline double NumberOfLetters(LetterPair letters) {
    return static_cast<std::uint8_t>(letters.first) + 256 * static_cast<std::uint8_t>(letters.second);
}

[[nodiscard]] inline LetterPair LettersOf(double number) {
    const auto both = static_cast<std::uint32_t>(number);
    return {static_cast<char>(both & 0xFF), static_cast<char>(both >> 8)};
}

struct BlockForm {
    // Records to columns; a record that the formulas can't take becomes a special row.
    void (*load)(std::span<const tagKOORD> records, Block& block) = nullptr;
    // From the type's columns to latitude and longitude.
    BlockStep (*inverse)(const RunOf& run) = nullptr;
    // What targets say of the result; null if nothing.
    void (*loadWanted)(std::span<const tagKOORD> targets, Block& block) = nullptr;
    // From latitude and longitude to the type's columns.
    BlockStep (*forward)(const RunOf& run) = nullptr;
    // The rows that aren't special to records.
    void (*store)(const Block& block, std::span<tagKOORD> records) = nullptr;
    // The columns of the type's fields, in their order.
    std::span<const BlockColumn> columns{};
    // Makes rows special whose columns hold what the formulas can't take; null if they take all.
    void (*admit)(Block& block, std::size_t rows) = nullptr;
    // What a letter says that is a hemisphere.
    bool (*isSouth)(char letter) = nullptr;
    // Of lettered references: from the columns of the fields to those of the formulas, where references that
    // don't exist make rows special, and back. `record` has the datum.
    void (*fromFields)(Block& block, std::size_t rows, const tagKOORD& record) = nullptr;
    void (*toFields)(Block& block, std::size_t rows, const tagKOORD& record) = nullptr;
};

extern const BlockForm GEODEZ_BLOCKS, UTM_BLOCKS, UTMREF_BLOCKS, GK_BLOCKS, GK6_BLOCKS, BMN_BLOCKS,
    OEM_BLOCKS, GKAT_BLOCKS, BNG_BLOCKS, ING_BLOCKS, LUREF_BLOCKS, PO_MILITARY_BLOCKS, TM_BLOCKS, ECEF_BLOCKS,
    UPS_BLOCKS, CH_BLOCKS, RD_BLOCKS, VDG_BLOCKS, LAMBERTCC_BLOCKS;

}  // namespace tessara

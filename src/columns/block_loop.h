// The loops around a formula, for the sources that have formulas.
//
// Everything that a loop calls becomes part of it (`flatten`): no function that others call, too, is ever
// compiled for more than the plain instructions.
#pragma once

#include <cstddef>
#include <cstring>

#include "columns/block_step.h"

// 64-bit Windows aligns the stack to 16 bytes, and compilers there spill longer registers all the same.
#if defined(__x86_64__) && !defined(_WIN32)
#define TESSARA_LONG_REGISTERS
#endif

namespace tessara {

// The constants are a copy on the stack, which no column overlaps.
template <class Formula>
inline void RunOverRows(const std::byte* constants, Block& block, std::size_t rows) {
    Formula formula;
    std::memcpy(static_cast<void*>(&formula), constants, sizeof formula);
    for (std::size_t row = 0; row < rows; ++row)
        formula(block, row);
}

template <class Formula>
[[gnu::flatten]] void PlainLoop(const std::byte* constants, Block& block, std::size_t rows) {
    RunOverRows<Formula>(constants, block, rows);
}

#if defined(TESSARA_LONG_REGISTERS)
template <class Formula>
[[gnu::target("avx2"), gnu::flatten]] void Avx2Loop(const std::byte* constants, Block& block,
                                                    std::size_t rows) {
    RunOverRows<Formula>(constants, block, rows);
}

template <class Formula>
[[gnu::target("avx512f,avx512dq,avx512bw,avx512vl"), gnu::flatten]] void Avx512Loop(
    const std::byte* constants, Block& block, std::size_t rows) {
    RunOverRows<Formula>(constants, block, rows);
}

template <class Formula>
inline constexpr BlockLoops LOOPS{{PlainLoop<Formula>, Avx2Loop<Formula>, Avx512Loop<Formula>}};
#else
template <class Formula>
inline constexpr BlockLoops LOOPS{{PlainLoop<Formula>, PlainLoop<Formula>, PlainLoop<Formula>}};
#endif

template <class Formula>
[[nodiscard]] BlockStep StepOver(const Formula& formula) {
    return {formula, LOOPS<Formula>};
}

}  // namespace tessara

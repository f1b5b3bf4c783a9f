// The loops around a formula, for the sources that have formulas.
//
// Everything that a loop calls becomes part of it (`flatten`): no function that others call, too, is ever
// compiled for more than the plain instructions.
#pragma once

#include <cstddef>
#include <cstring>
#include <span>
#include <type_traits>

#include "columns/block_step.h"

// 64-bit Windows aligns the stack to 16 bytes, and compilers there spill longer registers all the same.
#if defined(__x86_64__) && !defined(_WIN32)
#define TESSARA_LONG_REGISTERS
#endif

namespace tessara {

// The constants are a copy on the stack, which no column overlaps.
template <class Formula, class Columns>
inline void RunOverRows(const std::byte* constants, Columns& columns, std::size_t rows) {
    Formula formula;
    std::memcpy(static_cast<void*>(&formula), constants, sizeof formula);
    for (std::size_t row = 0; row < rows; ++row)
        formula(columns, row);
}

template <class Formula, class Columns>
[[gnu::flatten]] void PlainLoop(const std::byte* constants, Columns& columns, std::size_t rows) {
    RunOverRows<Formula>(constants, columns, rows);
}

#if defined(TESSARA_LONG_REGISTERS)
template <class Formula, class Columns>
[[gnu::target("avx2"), gnu::flatten]] void Avx2Loop(const std::byte* constants, Columns& columns,
                                                    std::size_t rows) {
    RunOverRows<Formula>(constants, columns, rows);
}

// GCOVR_EXCL_START: not every processor has these instructions.
template <class Formula, class Columns>
[[gnu::target("avx512f,avx512dq,avx512bw,avx512vl"), gnu::flatten]] void Avx512Loop(
    const std::byte* constants, Columns& columns, std::size_t rows) {
    RunOverRows<Formula>(constants, columns, rows);
}
// GCOVR_EXCL_STOP

template <class Formula, class Columns>
inline constexpr LoopsOver<Columns> LOOPS{
    {PlainLoop<Formula, Columns>, Avx2Loop<Formula, Columns>, Avx512Loop<Formula, Columns>}};
#else
template <class Formula, class Columns>
inline constexpr LoopsOver<Columns> LOOPS{
    {PlainLoop<Formula, Columns>, PlainLoop<Formula, Columns>, PlainLoop<Formula, Columns>}};
#endif

template <class Formula>
[[nodiscard]] BlockStep StepOver(const Formula& formula) {
    return {formula, LOOPS<Formula, Block>};
}

// Over columns of a kind of their own, once.
template <class Formula, class Columns>
void RunOver(InstructionSet set, const Formula& formula, Columns& columns, std::size_t rows) {
    static_assert(std::is_trivially_copyable_v<Formula>);
    LOOPS<Formula, Columns>.bySet[static_cast<std::size_t>(set)](std::as_bytes(std::span(&formula, 1)).data(),
                                                                 columns, WholeRegisters(set, rows));
}

}  // namespace tessara

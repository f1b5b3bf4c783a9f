#include "columns/block_step.h"

#include "columns/block_loop.h"

namespace tessara {

bool IsSupported(InstructionSet set) {
#if defined(TESSARA_LONG_REGISTERS)
    // GCOVR_EXCL_START: depends on the processor
    if (set == InstructionSet::Avx2) return __builtin_cpu_supports("avx2");
    if (set == InstructionSet::Avx512) {
        return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
               __builtin_cpu_supports("avx512bw") && __builtin_cpu_supports("avx512vl");
    }
#endif
    return set == InstructionSet::Plain;
}

InstructionSet BestInstructionSet() {
    if (IsSupported(InstructionSet::Avx512)) return InstructionSet::Avx512;
    return IsSupported(InstructionSet::Avx2) ? InstructionSet::Avx2 : InstructionSet::Plain;
}  // GCOVR_EXCL_STOP

}  // namespace tessara

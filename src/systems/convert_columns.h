// KoordConvertColumns with the instructions to use, of which all give the same.
#pragma once

#include "columns/block_step.h"
#include "systems/range_check.h"
#include "tessara/kernel/columns.h"

namespace tessara {

KoordStatus ConvertColumns(const tagKOORD* source, const SourceColumns* from, const tagKOORD* target,
                           const TargetColumns* to, std::size_t count, RangeCheck check, InstructionSet set);

}  // namespace tessara

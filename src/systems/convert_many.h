// KoordConvertMany with the instructions to use, of which all give the same.
#pragma once

#include <cstddef>

#include "columns/block_step.h"
#include "systems/range_check.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

KoordStatus ConvertMany(const tagKOORD* source, tagKOORD* target, std::size_t count, RangeCheck check,
                        KoordStatus* status, InstructionSet set);

}  // namespace tessara

// A named type for the flag of KoordConvertEx.
#pragma once

#include <cstdint>

#include "tessara/kernel/convert.h"

namespace tessara {

// Whether a conversion tests the limits of its target.
enum class RangeCheck : std::int32_t { Off = 0, On = 1 };

inline KoordStatus ConvertRecord(const tagKOORD& source, tagKOORD* target, RangeCheck check) {
    return KoordConvertEx(&source, target, static_cast<std::int32_t>(check));
}

}  // namespace tessara

// Whether a record is a legal position: within the area of its system and its zone, and convertible to
// degrees and back.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"

namespace tessara {

[[nodiscard]] bool IsLegalRecord(const tagKOORD& record);
[[nodiscard]] bool IsInSystemArea(const tagKOORD& record);
[[nodiscard]] bool IsConvertible(const tagKOORD& record, std::int32_t datum, std::int32_t system);

}  // namespace tessara

// The reference of a record: its datum and its coordinate type.
#pragma once

#include "tessara/kernel/koord.h"

namespace tessara {

[[nodiscard]] inline std::int32_t DatumOf(const tagKOORD& record) {
    return static_cast<std::int32_t>(record.datum);
}

[[nodiscard]] inline std::int32_t TypeOf(const tagKOORD& record) {
    return static_cast<std::int32_t>(record.type);
}

[[nodiscard]] inline bool IsPixel(const tagKOORD& record) {
    return IsPixelType(TypeOf(record));
}

}  // namespace tessara

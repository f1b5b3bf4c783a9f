// Whether two records of one system have the same projection parameters.
#pragma once

#include <cstring>

#include "systems/system_row.h"

namespace tessara {

// The parameters are the first numbers of the payload and compare as numbers, so a NaN equals nothing.
[[nodiscard]] inline bool HaveSameParameters(const tagKOORD& first, const tagKOORD& second) {
    for (std::size_t i = 0; i < SystemOf(first).parameterBytes; i += sizeof(double)) {
        double a;
        double b;
        std::memcpy(&a, first.payload + i, sizeof a);
        std::memcpy(&b, second.payload + i, sizeof b);
        if (!(a == b)) return false;
    }
    return true;
}

}  // namespace tessara

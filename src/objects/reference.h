// The datum and system of a record as plain numbers, where no ICoordinateReference has to be made of them.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"

namespace tessara {

struct Reference {
    std::int32_t datum;
    std::int32_t system;

    bool operator==(const Reference&) const = default;
};

[[nodiscard]] inline Reference ReferenceOf(const tagKOORD& koord) {
    return {static_cast<std::int32_t>(koord.datum), static_cast<std::int32_t>(koord.type)};
}

}  // namespace tessara

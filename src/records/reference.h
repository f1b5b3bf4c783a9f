// The datum and system of a record as plain numbers, for code that needs no ICoordinateReference object.
#pragma once

#include <cstdint>

#include "tessara/kernel/constants.h"
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

// Whether an ICoordinateReference accepts the number; the one for "no datum" is accepted, too.
[[nodiscard]] constexpr bool IsReferenceDatum(std::int32_t datum) {
    return (datum >= 0 && datum < DATUM_COUNT) || datum == NO_DATUM;
}
[[nodiscard]] constexpr bool IsReferenceSystem(std::int32_t system) {
    return system >= NO_SYSTEM && system < KOORD_TYPE_COUNT;
}

}  // namespace tessara

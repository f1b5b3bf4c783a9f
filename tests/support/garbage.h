// Records that nobody would make.
#pragma once

#include "support/random.h"
#include "tessara/kernel/koord.h"

namespace tessara::testing {

// Any 56 bytes under a datum and a type.
inline tagKOORD Garbage(std::int32_t datum, std::int32_t type, Random& random) {
    tagKOORD record = MakeKoord(datum, type);
    for (std::byte& byte : record.payload)
        byte = static_cast<std::byte>(random.Below(256));
    return record;
}

}  // namespace tessara::testing

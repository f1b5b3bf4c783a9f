// Records of arbitrary and of nearly right bytes.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <random>

#include "support/records.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {

using Engine = std::mt19937_64;

inline std::uint64_t Below(Engine& random, std::uint64_t count) {
    return random() % count;
}

// Any bytes, under a datum and a type that mostly exist.
inline tagKOORD RandomBytes(Engine& random) {
    tagKOORD record;
    for (std::size_t i = 0; i < sizeof record.payload; i += 8) {
        const std::uint64_t bytes = random();
        std::memcpy(record.payload + i, &bytes, 8);
    }
    record.datum = static_cast<std::uint32_t>(Below(random, 16) == 0 ? random() : Below(random, 239));
    record.type = static_cast<std::uint32_t>(Below(random, 32) == 0 ? random() : Below(random, 24));
    return record;
}

// A record that a conversion made, so that every field is plausible.
inline tagKOORD Plausible(Engine& random) {
    std::uniform_real_distribution<double> latitude(-90.0, 90.0);
    std::uniform_real_distribution<double> longitude(-180.0, 180.0);
    const auto datum = static_cast<std::int32_t>(Below(random, 239));
    const auto type = static_cast<std::int32_t>(Below(random, 24));
    const tagKOORD source = GeodezRecord(latitude(random), longitude(random), 0.0, datum);
    tagKOORD record = NaturalTarget(type, datum);
    KoordConvertEx(&source, &record, 0);
    return record;
}

// Overwrites one aligned field of eight, four, two or one bytes by a value that hurts.
inline void Mutate(Engine& random, tagKOORD& record) {
    const double doubles[] = {0.0,  -0.0,  1e-320, 1e-9, 1.0,   90.0,     180.0,     500000.0, 6e8,
                              1e16, 1e300, -1e300, -1.0, -90.0, HUGE_VAL, -HUGE_VAL, NAN};
    const std::int16_t shorts[] = {0, -1, 1, 28, 31, 34, 60, 61, -1000, INT16_MIN, INT16_MAX};
    const std::size_t size = sizeof record.payload;
    switch (Below(random, 4)) {
        case 0: {
            double value = doubles[Below(random, std::size(doubles))];
            if (Below(random, 2) == 0) value = -value;
            std::memcpy(record.payload + 8 * Below(random, size / 8), &value, sizeof value);
            return;
        }
        case 1: {
            const auto value = static_cast<std::int32_t>(random());
            std::memcpy(record.payload + 4 * Below(random, size / 4), &value, sizeof value);
            return;
        }
        case 2: {
            const std::int16_t value = shorts[Below(random, std::size(shorts))];
            std::memcpy(record.payload + 2 * Below(random, size / 2), &value, sizeof value);
            return;
        }
        default:
            record.payload[Below(random, size)] = static_cast<std::byte>(random());
    }
}

inline tagKOORD Garbage(Engine& random) {
    if (Below(random, 2) == 0) return RandomBytes(random);
    tagKOORD record = Plausible(random);
    for (std::uint64_t mutations = Below(random, 4); mutations > 0; --mutations)
        Mutate(random, record);
    return record;
}

}  // namespace tessara::testing

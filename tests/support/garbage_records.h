// Invalid records: arbitrary bytes, and nearly legal records.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>

#include "support/byte_order.h"
#include "support/random.h"
#include "support/records.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {

// Arbitrary 56 bytes with any datum and type.
inline tagKOORD ArbitraryPayload(Random& random, std::int32_t datum, std::int32_t type) {
    tagKOORD record = MakeKoord(datum, type);
    for (std::size_t i = 0; i < sizeof record.payload; i += 8) {
        const std::uint64_t bits = random.Bits();
        std::memcpy(record.payload + i, &bits, sizeof bits);
    }
    return record;
}

// The same with a datum and a type that mostly exist.
inline tagKOORD ArbitraryRecord(Random& random) {
    const auto mostlyBelow = [&random](std::int32_t count, std::int32_t rounds) {
        return random.Below(rounds) == 0 ? random.AnyInt32() : random.Below(count);
    };
    const std::int32_t datum = mostlyBelow(DATUM_COUNT, 16);
    const std::int32_t type = mostlyBelow(KOORD_TYPE_COUNT, 32);
    return ArbitraryPayload(random, datum, type);
}

// The result of a conversion, so that every field is plausible.
inline tagKOORD PlausibleRecord(Random& random) {
    const std::int32_t datum = random.Below(DATUM_COUNT);
    const std::int32_t type = random.Below(KOORD_TYPE_COUNT);
    const double latitude = random.Between(-90.0, 90.0);
    const double longitude = random.Between(-180.0, 180.0);
    const tagKOORD source = GeodezRecord(latitude, longitude, 0.0, datum);
    tagKOORD record = NaturalTarget(type, datum);
    KoordConvertEx(&source, &record, 0);
    return record;
}

// Overwrites one of the fields of this size in the payload, in which it may be a part of another field: the
// same on every machine.
template <class Field>
void OverwriteField(Random& random, Field value, tagKOORD* record) {
    constexpr std::size_t bytes = sizeof record->payload;
    constexpr auto fields = static_cast<std::int32_t>(bytes / sizeof(Field));
    const Field image = LittleEndian(value);
    *record = LittleEndian(*record);
    std::memcpy(record->payload + sizeof(Field) * static_cast<std::size_t>(random.Below(fields)), &image,
                sizeof image);
    *record = LittleEndian(*record);
}

// Overwrites one field of eight, four, two or one bytes by an extreme value.
inline void Mutate(Random& random, tagKOORD* record) {
    constexpr double doubles[] = {0.0, 1e-320, 1e-9, 1.0, 90.0, 180.0, 5e5, 6e8, 1e16, 1e300, HUGE_VAL, NAN};
    constexpr std::int16_t shorts[] = {0, -1, 1, 28, 31, 34, 60, 61, -1000, INT16_MIN, INT16_MAX};
    switch (random.Below(4)) {
        case 0: {
            const double value = random.OneOf(doubles);
            return OverwriteField(random, random.Below(2) == 0 ? -value : value, record);
        }
        case 1:
            return OverwriteField(random, random.AnyInt32(), record);
        case 2:
            return OverwriteField(random, random.OneOf(shorts), record);
        default:
            return OverwriteField(random, static_cast<std::uint8_t>(random.Below(256)), record);
    }
}

// One half is arbitrary; the other half is plausible except for up to three fields.
inline tagKOORD GarbageRecord(Random& random) {
    if (random.Below(2) == 0) return ArbitraryRecord(random);
    tagKOORD record = PlausibleRecord(random);
    for (std::int32_t mutations = random.Below(4); mutations > 0; --mutations)
        Mutate(random, &record);
    return record;
}

}  // namespace tessara::testing

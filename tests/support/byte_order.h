// Records by the bytes of a little-endian machine, so that all machines see the same.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tessara/kernel/koord.h"

namespace tessara::testing {

// How many bytes each field of a payload has. Single bytes follow the last.
inline constexpr std::string_view FIELD_BYTES[KOORD_TYPE_COUNT] = {
    "44",               // LONGPIXEL
    "88",               // FLOATPIXEL
    "11221188",         // UTM
    "22111144",         // UTMREF
    "888",              // GEODEZ
    "22111181122118",   // GEOGRAD
    "2111122",          // GEOREF
    "112111188",        // GK
    "22111188",         // BMN
    "22111188",         // OEM
    "88",               // CH
    "888",              // ECEF
    "2111111811211118"  // GEODEZMIN, to the minutes of longitude
    "111111118",        // and on
    "112111188",        // GK6
    "22111188",         // GK-AT
    "1111111188",       // UPS
    "88",               // PO_MILITARY
    "8888888",          // TM
    "8888",             // VDG
    "111111118888",     // BNG
    "111111118888",     // ING
    "88",               // RD
    "88",               // LUREF
    "44448888",         // LAMBERTCC
};

// Calls visit(offset, bytes) for the fields of more than one byte.
template <class Visit>
constexpr void VisitWideFields(std::uint32_t type, Visit visit) {
    if (type >= KOORD_TYPE_COUNT) return;
    std::size_t offset = 0;
    for (const char digit : FIELD_BYTES[type]) {
        const auto bytes = static_cast<std::size_t>(digit - '0');
        if (bytes > 1) visit(offset, bytes);
        offset += bytes;
    }
}

constexpr bool AreFieldsAligned() {
    bool areAligned = true;
    for (std::uint32_t type = 0; type < KOORD_TYPE_COUNT; ++type) {
        VisitWideFields(type, [&areAligned](std::size_t offset, std::size_t bytes) {
            areAligned = areAligned && offset % bytes == 0 && offset + bytes <= sizeof(tagKOORD::payload);
        });
    }
    return areAligned;
}
static_assert(AreFieldsAligned());

// The bytes of a value in little-endian order, or those of a value from them.
template <class Value>
[[nodiscard]] Value LittleEndian(Value value) {
    if constexpr (std::endian::native == std::endian::big) {
        auto* const bytes = reinterpret_cast<std::byte*>(&value);
        std::reverse(bytes, bytes + sizeof value);
    }
    return value;
}

// Likewise with the fields of a payload.
[[nodiscard]] inline tagKOORD LittleEndian(tagKOORD record) {
    if constexpr (std::endian::native == std::endian::big) {
        VisitWideFields(record.type, [&record](std::size_t offset, std::size_t bytes) {
            std::reverse(record.payload + offset, record.payload + offset + bytes);
        });
    }
    return record;
}

}  // namespace tessara::testing

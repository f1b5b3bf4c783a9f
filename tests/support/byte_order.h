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
    "44",               // KOORD_LONGPIXEL
    "88",               // KOORD_FLOATPIXEL
    "11221188",         // KOORD_UTM
    "22111144",         // KOORD_UTMREF
    "888",              // KOORD_GEODEZ
    "22111181122118",   // KOORD_GEOGRAD
    "2111122",          // KOORD_GEOREF
    "112111188",        // KOORD_GK
    "22111188",         // KOORD_BMN
    "22111188",         // KOORD_OEM
    "88",               // KOORD_CH
    "888",              // KOORD_ECEF
    "2111111811211118"  // KOORD_GEODEZMIN, to the minutes of longitude
    "111111118",        // and on
    "112111188",        // KOORD_GK6
    "22111188",         // KOORD_GKAT
    "1111111188",       // KOORD_UPS
    "88",               // KOORD_PO_MILITARY
    "8888888",          // KOORD_TM
    "8888",             // KOORD_VDG
    "111111118888",     // KOORD_BNG
    "111111118888",     // KOORD_ING
    "88",               // KOORD_RD
    "88",               // KOORD_LUREF
    "44448888",         // KOORD_LAMBERTCC
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

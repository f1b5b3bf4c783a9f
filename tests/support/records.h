// Records for tests; unnamed fields are zero.
#pragma once

#include <cstdint>
#include <cstring>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"

namespace tessara {

inline constexpr std::int32_t NO_RANGE_TESTS = 0;  // for KoordConvertEx

inline bool SameBytes(const tagKOORD& one, const tagKOORD& other) {
    return std::memcmp(&one, &other, sizeof one) == 0;
}

inline tagKOORD GeodezRecord(double latitude, double longitude, double height = 0.0,
                             std::int32_t datum = DATUM_WGS84) {
    tagKOORD record = MakeKoord(datum, KOORD_GEODEZ);
    Store(record, GeodezPayload{latitude, longitude, height});
    return record;
}

template <KoordPayload Payload>
tagKOORD Record(std::int32_t type, const Payload& payload, std::int32_t datum = DATUM_WGS84) {
    tagKOORD record = MakeKoord(datum, type);
    Store(record, payload);
    return record;
}

// A GK target with the natural strip; 0 would be a wanted meridian.
inline tagKOORD NaturalTarget(std::int32_t type, std::int32_t datum = DATUM_WGS84) {
    tagKOORD record = MakeKoord(datum, type);
    if (type == KOORD_GK || type == KOORD_GK6) {
        GkPayload payload{};
        payload.wantedMeridian = NO_WANTED_ZONE;
        Store(record, payload);
    }
    return record;
}

// Reads a record's payload as that of another type. Payloads of several systems share the offset of a field,
// and some operations leave the bytes of another system in a record.
template <KoordPayload Payload>
[[nodiscard]] Payload BytesAs(const tagKOORD& record) {
    Payload payload;
    std::memcpy(&payload, record.payload, sizeof payload);
    return payload;
}

}  // namespace tessara

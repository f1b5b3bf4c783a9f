// The coordinate record of 64 bytes and its payloads.
//
// Example: a record of degrees is written and read.
//
//     tessara::tagKOORD record = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_GEODEZ);
//     tessara::Store(record, tessara::GeodezPayload{48.1375, 11.5755, 520.0});
//     const auto position = tessara::Load<tessara::GeodezPayload>(record);
//     const double longitude = position.longitude;  // 11.5755
//
// A record has the byte order of the machine and natural alignment, and is copied as bytes. `datum` and
// `type` say what the 56 bytes of the payload mean; each type has one of the structs of this header. Bytes
// that a type doesn't use are `unused` members, so reading and writing a payload preserves them.
//
// Latitudes and longitudes are in degrees, positive to the north and east. Grid values and heights are in
// metres.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <type_traits>

namespace tessara {

struct alignas(8) tagKOORD {
    std::uint32_t datum;  // row of the datum table, 0..238
    std::uint32_t type;   // a KoordType
    std::byte payload[56];
};

enum KoordType : std::int32_t {
    KOORD_LONGPIXEL = 0,     // whole-number map pixel
    KOORD_FLOATPIXEL = 1,    // fractional map pixel
    KOORD_UTM = 2,           // Universal Transverse Mercator
    KOORD_UTMREF = 3,        // military grid reference, structured
    KOORD_GEODEZ = 4,        // decimal degrees
    KOORD_GEOGRAD = 5,       // degrees, minutes, seconds
    KOORD_GEOREF = 6,        // world geographic reference
    KOORD_GK = 7,            // Gauss-Krueger, 3 degree strips
    KOORD_BMN = 8,           // Austrian federal grid
    KOORD_OEM = 9,           // Austrian federal grid with shifted origin
    KOORD_CH = 10,           // Swiss oblique Mercator
    KOORD_ECEF = 11,         // earth-centred Cartesian
    KOORD_GEODEZMIN = 12,    // degrees and decimal minutes
    KOORD_GK6 = 13,          // Gauss-Krueger, 6 degree strips
    KOORD_GKAT = 14,         // Austrian Gauss-Krueger
    KOORD_UPS = 15,          // Universal Polar Stereographic
    KOORD_PO_MILITARY = 16,  // Portuguese military grid
    KOORD_TM = 17,           // free transverse Mercator
    KOORD_VDG = 18,          // van der Grinten
    KOORD_BNG = 19,          // British National Grid
    KOORD_ING = 20,          // Irish National Grid
    KOORD_RD = 21,           // Dutch oblique stereographic
    KOORD_LUREF = 22,        // Luxembourg grid
    KOORD_LAMBERTCC = 23,    // freely parametrised Lambert conformal conic
};

inline constexpr std::int32_t KOORD_TYPE_COUNT = 24;

// LONGPIXEL or FLOATPIXEL.
[[nodiscard]] constexpr bool IsPixelType(std::int32_t type) {
    return type == KOORD_LONGPIXEL || type == KOORD_FLOATPIXEL;
}

struct LongPixelPayload {
    std::int32_t x;  // column
    std::int32_t y;  // row, growing southward
};

struct FloatPixelPayload {
    double x;  // column
    double y;  // row, growing southward
};

struct UtmPayload {
    char hemisphere;  // 'N' or 'S'
    std::byte unused1;
    std::int16_t wantedZone;  // input: the zone to convert into, 1..60; otherwise the natural one
    std::int16_t zone;        // 1..60
    std::byte unused2[2];
    double easting;
    double northing;
};

struct UtmrefPayload {
    std::int16_t wantedZone;  // as for UTM
    std::int16_t zone;
    char band;  // latitude band letter
    std::byte unused1;
    char column;            // 100 km column letter
    char row;               // 100 km row letter
    std::int32_t easting;   // whole metres within the square, 0..99999
    std::int32_t northing;  // whole metres within the square, 0..99999
};

struct GeodezPayload {
    double latitude;
    double longitude;
    double height;  // above the ellipsoid
};

struct GeogradPayload {
    std::int16_t latDegrees;  // magnitude
    std::int16_t latMinutes;
    std::byte unused1[4];
    double latSeconds;
    char latHemisphere;  // 'N' or 'S'
    std::byte unused2;
    std::int16_t lonDegrees;  // magnitude
    std::int16_t lonMinutes;
    std::byte unused3[2];
    double lonSeconds;
    char lonHemisphere;  // 'E' or 'W'
    std::byte unused4[7];
};

struct GeorefPayload {
    std::int16_t precision;   // 3, 4 or 5
    char lonZone;             // 15 degree longitude letter
    char latZone;             // 15 degree latitude letter
    char lonDegree;           // 1 degree longitude letter
    char latDegree;           // 1 degree latitude letter
    std::int16_t lonMinutes;  // minutes scaled by the precision
    std::int16_t latMinutes;  // minutes scaled by the precision
};

struct GkPayload {  // GK and GK6
    char letter;    // carried along by the object layer; no calculation reads it
    std::byte unused1;
    std::int16_t wantedMeridian;  // input: the meridian to convert to, in degrees, if the system has it
    std::byte unused2[4];
    double easting;  // strip number times 1000000 included
    double northing;
};

struct BmnPayload {               // BMN, OEM and GK-AT
    std::int16_t wantedMeridian;  // input: the meridian to convert to, degrees east of Ferro: 28, 31 or 34
    std::int16_t meridian;        // 28, 31 or 34
    std::byte unused1[4];
    double easting;
    double northing;
};

struct GridPayload {  // CH, RD, LUREF and PO_MILITARY
    double easting;
    double northing;
};

struct EcefPayload {
    double x;
    double y;
    double z;
};

struct GeodezMinPayload {
    std::int16_t latDegrees;  // magnitude
    std::byte unused1[6];
    double latMinutes;
    char latHemisphere;  // 'N' or 'S'
    std::byte unused2;
    std::int16_t lonDegrees;  // magnitude
    std::byte unused3[4];
    double lonMinutes;
    char lonHemisphere;  // 'E' or 'W'
    std::byte unused4[7];
    double height;
};

struct UpsPayload {
    char hemisphere;  // 'N' or 'S'
    std::byte unused1[7];
    double easting;
    double northing;
};

struct TmPayload {
    double originLongitude;
    double originLatitude;
    double falseEasting;
    double falseNorthing;
    double scale;
    double easting;
    double northing;
};

struct VdgPayload {
    double originLongitude;
    double originLatitude;
    double x;
    double y;
};

struct LetterGridPayload {  // BNG and ING
    char square;            // first grid letter
    char subSquare;         // second grid letter
    std::byte unused1[6];
    double easting;       // within the 100 km square
    double northing;      // within the 100 km square
    double fullEasting;   // whole grid value
    double fullNorthing;  // whole grid value
};

struct LambertCCPayload {
    float parallel1;  // first standard parallel
    float parallel2;  // second standard parallel
    float originLongitude;
    float originLatitude;
    double falseEasting;
    double falseNorthing;
    double easting;
    double northing;
};

template <class Payload>
concept KoordPayload = std::is_trivially_copyable_v<Payload> && sizeof(Payload) <= sizeof(tagKOORD::payload);

// The types whose records have this payload; none for a struct of the caller, which may be laid over any
// record.
template <class Payload>
inline constexpr std::array<KoordType, 0> TYPES_OF{};
template <>
inline constexpr std::array TYPES_OF<LongPixelPayload>{KOORD_LONGPIXEL};
template <>
inline constexpr std::array TYPES_OF<FloatPixelPayload>{KOORD_FLOATPIXEL};
template <>
inline constexpr std::array TYPES_OF<UtmPayload>{KOORD_UTM};
template <>
inline constexpr std::array TYPES_OF<UtmrefPayload>{KOORD_UTMREF};
template <>
inline constexpr std::array TYPES_OF<GeodezPayload>{KOORD_GEODEZ};
template <>
inline constexpr std::array TYPES_OF<GeogradPayload>{KOORD_GEOGRAD};
template <>
inline constexpr std::array TYPES_OF<GeorefPayload>{KOORD_GEOREF};
template <>
inline constexpr std::array TYPES_OF<GkPayload>{KOORD_GK, KOORD_GK6};
template <>
inline constexpr std::array TYPES_OF<BmnPayload>{KOORD_BMN, KOORD_OEM, KOORD_GKAT};
template <>
inline constexpr std::array TYPES_OF<GridPayload>{KOORD_CH, KOORD_RD, KOORD_LUREF, KOORD_PO_MILITARY};
template <>
inline constexpr std::array TYPES_OF<EcefPayload>{KOORD_ECEF};
template <>
inline constexpr std::array TYPES_OF<GeodezMinPayload>{KOORD_GEODEZMIN};
template <>
inline constexpr std::array TYPES_OF<UpsPayload>{KOORD_UPS};
template <>
inline constexpr std::array TYPES_OF<TmPayload>{KOORD_TM};
template <>
inline constexpr std::array TYPES_OF<VdgPayload>{KOORD_VDG};
template <>
inline constexpr std::array TYPES_OF<LetterGridPayload>{KOORD_BNG, KOORD_ING};
template <>
inline constexpr std::array TYPES_OF<LambertCCPayload>{KOORD_LAMBERTCC};

template <KoordPayload Payload>
[[nodiscard]] constexpr bool IsPayloadOf(std::uint32_t type) {
    if constexpr (TYPES_OF<Payload>.empty()) return true;
    for (const KoordType own : TYPES_OF<Payload>) {
        if (type == static_cast<std::uint32_t>(own)) return true;
    }
    return false;
}

// The payload of a record of the payload's type. For a record of another type debug builds stop, and release
// builds return its bytes; use LoadIf where the type isn't known.
template <KoordPayload Payload>
[[nodiscard]] inline Payload Load(const tagKOORD& record) {
    assert(IsPayloadOf<Payload>(record.type));
    Payload payload;
    std::memcpy(&payload, record.payload, sizeof payload);
    return payload;
}

// The payload of a record of the payload's type; nothing for a record of another type.
template <KoordPayload Payload>
[[nodiscard]] inline std::optional<Payload> LoadIf(const tagKOORD& record) {
    if (!IsPayloadOf<Payload>(record.type)) return std::nullopt;
    return Load<Payload>(record);
}

template <KoordPayload Payload>
inline void Store(tagKOORD& record, const Payload& payload) {
    std::memcpy(record.payload, &payload, sizeof payload);
}

// A record with `datum` and `type` set and every payload byte zero.
[[nodiscard]] inline tagKOORD MakeKoord(std::int32_t datum, std::int32_t type) {
    return tagKOORD{static_cast<std::uint32_t>(datum), static_cast<std::uint32_t>(type), {}};
}

}  // namespace tessara

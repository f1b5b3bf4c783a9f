// Records of the zoned systems without a wanted zone, and common checks on coordinates.
#pragma once

#include <cstring>

#include "support/coords.h"
#include "support/objects.h"
#include "support/records.h"
#include "tessara/ckoord.h"
#include "tessara/kernel/constants.h"

namespace tessara::testing {

[[nodiscard]] inline CKoord UtmRecord(std::int32_t datum, char hemisphere, std::int16_t zone, double easting,
                                      double northing) {
    UtmPayload payload{};
    payload.hemisphere = hemisphere;
    payload.wantedZone = NO_WANTED_ZONE;
    payload.zone = zone;
    payload.easting = easting;
    payload.northing = northing;
    return Record(KOORD_UTM, payload, datum);
}

// GK or GK6.
[[nodiscard]] inline CKoord StripRecord(std::int32_t datum, std::int32_t system, double easting,
                                        double northing) {
    GkPayload payload{};
    payload.letter = 'N';
    payload.wantedMeridian = NO_WANTED_ZONE;
    payload.easting = easting;
    payload.northing = northing;
    return Record(system, payload, datum);
}

// BMN, OEM or GK-AT.
[[nodiscard]] inline CKoord AustrianRecord(std::int32_t datum, std::int32_t system, std::int16_t meridian,
                                           double easting, double northing) {
    BmnPayload payload{};
    payload.wantedMeridian = NO_WANTED_ZONE;
    payload.meridian = meridian;
    payload.easting = easting;
    payload.northing = northing;
    return Record(system, payload, datum);
}

[[nodiscard]] inline CKoord UtmrefRecord(std::int32_t datum, std::int16_t zone, const char* bandColumnRow,
                                         std::int32_t easting, std::int32_t northing) {
    UtmrefPayload payload{};
    payload.wantedZone = NO_WANTED_ZONE;
    payload.zone = zone;
    payload.band = bandColumnRow[0];
    payload.column = bandColumnRow[1];
    payload.row = bandColumnRow[2];
    payload.easting = easting;
    payload.northing = northing;
    return Record(KOORD_UTMREF, payload, datum);
}

[[nodiscard]] inline bool SameRecord(const tagKOORD& left, const tagKOORD& right) {
    return std::memcmp(&left, &right, sizeof(tagKOORD)) == 0;
}

// Whether a coordinate holds a position. The check destroys the position: a coordinate without a position
// accepts any reference, one with a position rejects a system to which no position converts.
[[nodiscard]] inline bool HeldPosition(const IRef<ICoord>& coord) {
    double x = 0.0;
    double y = 0.0;
    const auto nowhere = MakeHostReference(-77, NO_SYSTEM);
    return coord->GetPixel(&x, &y) || !coord->SetReference(nowhere.Get());
}

}  // namespace tessara::testing

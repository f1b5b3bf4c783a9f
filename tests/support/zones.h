// Records of the zoned systems for tests of zones, each on one datum and at a random place.
#pragma once

#include <cmath>
#include <vector>

#include "records/zones.h"
#include "support/random.h"
#include "support/zoned_records.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"

namespace tessara::testing {

[[nodiscard]] inline tagKOORD Wanting(std::int16_t wanted, tagKOORD record) {
    zones::Want(wanted, &record);
    return record;
}

inline tagKOORD Utm(std::int16_t zone, char hemisphere, double easting, double northing,
                    std::int16_t wantedZone = NO_WANTED_ZONE) {
    return Wanting(wantedZone, UtmRecord(DATUM_WGS84, hemisphere, zone, easting, northing));
}

inline tagKOORD Utmref(std::int16_t zone, char band, const char* square, std::int32_t easting,
                       std::int32_t northing, std::int32_t datum = DATUM_WGS84) {
    const char letters[] = {band, square[0], square[1]};
    return UtmrefRecord(datum, zone, letters, easting, northing);
}

// GK or GK6, on a Bessel datum. The letter is that of the northing, as the library writes it.
inline tagKOORD Strip(std::int32_t type, double easting, double northing,
                      std::int16_t wantedMeridian = NO_WANTED_ZONE, std::int32_t datum = 3) {
    tagKOORD record = StripRecord(datum, type, easting, northing);
    auto payload = Load<GkPayload>(record);
    payload.letter = northing >= 0.0 ? 'N' : 'S';
    Store(record, payload);
    return Wanting(wantedMeridian, record);
}

// BMN, OEM or GK-AT, on the datum MGI.
inline tagKOORD Austrian(std::int32_t type, std::int16_t meridian, double easting, double northing,
                         std::int16_t wantedMeridian = NO_WANTED_ZONE) {
    return Wanting(wantedMeridian, AustrianRecord(6, type, meridian, easting, northing));
}

// The false easting of an Austrian system.
inline double AustrianFalseEasting(std::int32_t type, std::int32_t meridian) {
    if (type == KOORD_GKAT) return 0.0;
    return 150000.0 + (meridian - 28) / 3 * 300000.0 + (type == KOORD_OEM ? 300000.0 : 0.0);
}

// A random position well inside the zones of a system, up to 60 km from a central line.
inline tagKOORD RandomZoned(std::int32_t type, Random& random) {
    const double offset = random.Between(-60000.0, 60000.0);
    switch (type) {
        case KOORD_UTM: {
            const bool isSouth = random.Below(2) == 1;
            const double northing = isSouth ? random.Between(1200000.0, 1.0e7) : random.Between(0.0, 9.3e6);
            return Utm(static_cast<std::int16_t>(random.Below(60) + 1), isSouth ? 'S' : 'N', 5.0e5 + offset,
                       northing);
        }
        case KOORD_GK: {
            const std::int32_t strip = random.Below(121) - 60;
            const double rest = 5.0e5 + offset;
            return Strip(type, strip * 1.0e6 + (strip < 0 ? -rest : rest), random.Between(-8.8e6, 8.8e6));
        }
        case KOORD_GK6: {
            const std::int32_t magnitude = random.Below(30) + 1;
            const std::int32_t strip = random.Below(2) == 0 ? magnitude : -magnitude;
            const double rest = 5.0e5 + offset;
            return Strip(type, strip * 1.0e6 + (strip < 0 ? -rest : rest), random.Between(-8.8e6, 8.8e6));
        }
        default: {
            const auto meridian = static_cast<std::int16_t>(28 + 3 * random.Below(3));
            const double northing = random.Between(0.0, 630000.0) + (type == KOORD_BMN ? 0.0 : 5.0e6);
            return Austrian(type, meridian, AustrianFalseEasting(type, meridian) + offset, northing);
        }
    }
}

// The zoned systems whose values are doubles; UTMREF is computed through UTM.
inline const std::vector<std::int32_t> ZONED_TYPES = {KOORD_UTM, KOORD_GK,  KOORD_GK6,
                                                      KOORD_BMN, KOORD_OEM, KOORD_GKAT};

// The difference of two longitudes in degrees, modulo 360.
inline double LongitudesApart(double first, double second) {
    return std::fabs(std::remainder(first - second, 360.0));
}

}  // namespace tessara::testing

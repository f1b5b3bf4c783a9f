// Single positions in degrees on WGS84 to UTM and to military references, what queries ask for most: with the
// functions of the kernel that KoordConvert calls, and with its statuses, but without records.
#pragma once

#include "tessara/kernel/constants.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/range_checks.h"
#include "tessara/kernel/transverse_mercator.h"
#include "tessara/kernel/utmref.h"
#include "tessara/kernel/zone_systems.h"

namespace tessara::postgresql {

inline const TmConstants WGS84_FORWARD = [] {
    TmConstants constants{};
    TM_LoadForwardConstants(DATUM_WGS84, &constants);
    return constants;
}();

template <class Payload>
KoordStatus FromDegrees(double latitude, double longitude, std::int32_t system,
                        KoordStatus (*fromGeodetic)(const double*, Payload*, const TmConstants*),
                        Payload* payload) {
    const double latLon[2] = {latitude, longitude};
    const bool isInRange = latitude >= UTM_LIMITS.south && latitude <= UTM_LIMITS.north &&
                           longitude >= UTM_LIMITS.west && longitude <= UTM_LIMITS.east;
    if (isInRange) return fromGeodetic(latLon, payload, &WGS84_FORWARD);
    std::int32_t reason = KOORD_OK;
    Range_CheckGeodetic(latLon, system, &reason);
    return reason;
}

// In the wanted zone of the payload, or the natural one.
inline KoordStatus ToUtm(double latitude, double longitude, UtmPayload* utm) {
    return FromDegrees(latitude, longitude, KOORD_UTM, UTM_FromGeodetic, utm);
}
inline KoordStatus ToUtmref(double latitude, double longitude, UtmrefPayload* reference) {
    return FromDegrees(latitude, longitude, KOORD_UTMREF, UTMREF_FromGeodetic, reference);
}

}  // namespace tessara::postgresql

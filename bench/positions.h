// The areas in which each coordinate type is measured, and random positions in them.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/koord.h"

namespace tessara::bench {

inline constexpr std::size_t POSITIONS = 4096;

struct Area {
    const char* name;
    std::int32_t type;
    std::int32_t datum;
    double south, north, west, east;
};

inline constexpr Area AREAS[] = {
    {"UTM", KOORD_UTM, 2, -79.0, 83.0, -179.9, 179.9},
    {"UTMREF", KOORD_UTMREF, 2, -79.0, 83.0, -179.9, 179.9},
    {"GEODEZ", KOORD_GEODEZ, 2, -89.0, 89.0, -179.9, 179.9},
    {"GEOGRAD", KOORD_GEOGRAD, 2, -89.0, 89.0, -179.9, 179.9},
    {"GEOREF", KOORD_GEOREF, 2, -89.0, 89.0, -179.9, 179.9},
    {"GK", KOORD_GK, 3, -79.0, 79.0, -179.9, 179.9},
    {"BMN", KOORD_BMN, 6, 46.4, 49.0, 9.6, 17.1},
    {"OEM", KOORD_OEM, 6, 46.4, 49.0, 9.6, 17.1},
    {"CH", KOORD_CH, 7, 45.9, 47.7, 6.0, 10.4},
    {"ECEF", KOORD_ECEF, 2, -89.0, 89.0, -179.9, 179.9},
    {"GEODEZMIN", KOORD_GEODEZMIN, 2, -89.0, 89.0, -179.9, 179.9},
    {"GK6", KOORD_GK6, 3, -79.0, 79.0, -179.9, 179.9},
    {"GK-AT", KOORD_GKAT, 6, 46.4, 49.0, 9.6, 17.1},
    {"UPS", KOORD_UPS, 2, 80.5, 89.5, -179.9, 179.9},
    {"PO_MILITARY", KOORD_PO_MILITARY, 1, 37.0, 42.0, -9.4, -6.3},
    {"TM", KOORD_TM, 2, 40.0, 55.0, 3.0, 15.0},
    {"VDG", KOORD_VDG, 2, -80.0, 80.0, -179.0, 179.0},
    {"BNG", KOORD_BNG, 98, 50.2, 58.5, -5.0, 1.5},
    {"ING", KOORD_ING, 97, 51.6, 55.2, -10.0, -6.0},
    {"RD", KOORD_RD, 237, 51.0, 53.4, 3.5, 7.1},
    {"LUREF", KOORD_LUREF, 238, 49.5, 50.1, 5.8, 6.5},
    {"LAMBERTCC", KOORD_LAMBERTCC, 2, 43.0, 60.0, 0.0, 20.0},
};

// Of the positions. The measurements of time are repeated with the same ones.
inline std::uint64_t positionsSeed = 4096;

inline std::vector<tagKOORD> RandomPositions(const Area& area) {
    std::mt19937_64 random(positionsSeed);
    std::uniform_real_distribution<double> latitude(area.south, area.north);
    std::uniform_real_distribution<double> longitude(area.west, area.east);
    std::vector<tagKOORD> positions(POSITIONS, MakeKoord(area.datum, KOORD_GEODEZ));
    for (tagKOORD& position : positions) {
        const double lat = latitude(random);
        Store(position, GeodezPayload{lat, longitude(random), 0.0});
    }
    return positions;
}

// A target record for positions of the area: without a wanted zone, with the parameters of a common
// projection.
inline tagKOORD Target(const Area& area) {
    tagKOORD target = MakeKoord(area.datum, area.type);
    if (area.type == KOORD_GK || area.type == KOORD_GK6) {
        GkPayload payload{};
        payload.wantedMeridian = NO_WANTED_ZONE;
        Store(target, payload);
    } else if (area.type == KOORD_TM) {
        Store(target, TmPayload{9.0, 48.0, 500000.0, 0.0, 0.9999, 0.0, 0.0});
    } else if (area.type == KOORD_LAMBERTCC) {
        LambertCCPayload payload{};
        payload.parallel1 = 48.5f;
        payload.parallel2 = 53.5f;
        payload.originLongitude = 10.0f;
        payload.originLatitude = 51.0f;
        Store(target, payload);
    }
    return target;
}

// LAMBERTCC has no range test; all other types are measured with their range test.
inline std::int32_t CheckRange(const Area& area) {
    return area.type == KOORD_LAMBERTCC ? 0 : 1;
}

inline std::vector<tagKOORD> Converted(const Area& area) {
    std::vector<tagKOORD> records;
    for (const tagKOORD& position : RandomPositions(area)) {
        tagKOORD record = Target(area);
        if (KoordConvertEx(&position, &record, CheckRange(area)) == KOORD_OK) records.push_back(record);
    }
    return records;
}

}  // namespace tessara::bench

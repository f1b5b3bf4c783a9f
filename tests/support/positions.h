// Random positions of every coordinate system, for properties that hold everywhere.
#pragma once

#include <gtest/gtest.h>

#include "support/random.h"
#include "support/records.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {

// A region well inside the area of a system, in degrees on a datum.
struct Region {
    std::int32_t type;
    std::int32_t datum;
    double south, north;
    double west, east;
};

// Every system but the pixels.
inline constexpr Region REGIONS[] = {
    {KOORD_UTM, 2, -79.0, 83.0, -179.0, 179.0},
    {KOORD_UTMREF, 2, -79.0, 83.0, -179.0, 179.0},
    {KOORD_GEODEZ, 2, -89.0, 89.0, -179.0, 179.0},
    {KOORD_GEOGRAD, 2, -89.0, 89.0, -179.0, 179.0},
    {KOORD_GEOREF, 2, -89.0, 89.0, -179.0, 179.0},
    {KOORD_GK, 3, -79.0, 79.0, -179.0, 179.0},
    {KOORD_BMN, 6, 45.5, 50.5, 9.0, 17.7},
    {KOORD_OEM, 6, 45.5, 50.5, 9.0, 17.7},
    {KOORD_CH, 7, 45.0, 48.0, 5.0, 11.0},
    {KOORD_ECEF, 2, -89.0, 89.0, -179.0, 179.0},
    {KOORD_GEODEZMIN, 2, -89.0, 89.0, -179.0, 179.0},
    {KOORD_GK6, 3, -79.0, 79.0, -179.0, 179.0},
    {KOORD_GKAT, 6, 45.5, 50.5, 9.0, 17.7},
    {KOORD_UPS, 2, 81.0, 89.0, -60.0, 60.0},
    {KOORD_PO_MILITARY, 1, 37.0, 42.0, -9.5, -6.5},
    {KOORD_TM, 2, -60.0, 60.0, -15.0, 15.0},
    {KOORD_VDG, 2, -80.0, 80.0, -170.0, 170.0},
    {KOORD_BNG, 2, 50.5, 58.5, -5.5, 1.0},
    {KOORD_ING, 2, 51.8, 55.0, -9.8, -6.0},
    {KOORD_RD, 3, 51.0, 53.5, 3.5, 7.0},
    {KOORD_LUREF, 2, 49.3, 50.5, 5.4, 7.4},
};

// A position in degrees as a record of the region's system, in its natural zone.
inline tagKOORD RecordIn(const Region& region, double latitude, double longitude) {
    tagKOORD record = NaturalTarget(region.type, region.datum);
    if (region.type == KOORD_TM) {
        TmPayload payload{};
        payload.scale = 1.0;
        Store(record, payload);
    }
    const tagKOORD geodez = GeodezRecord(latitude, longitude, 0.0, region.datum);
    EXPECT_EQ(KoordConvert(&geodez, &record), KOORD_OK) << region.type;
    return record;
}

inline tagKOORD RandomIn(const Region& region, Random& random) {
    const double latitude = random.Between(region.south, region.north);
    return RecordIn(region, latitude, random.Between(region.west, region.east));
}

}  // namespace tessara::testing

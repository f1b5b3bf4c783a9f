// Random legal positions of each system.
#pragma once

#include "support/coords.h"
#include "support/random.h"
#include "support/records.h"
#include "tessara/coordinate_checker.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {

// Where a system has nothing but legal positions: degrees. Pixels have the numbers themselves.
struct LegalArea {
    std::int32_t system;
    double south, north;
    double west, east;
};

inline constexpr LegalArea LEGAL_AREAS[] = {
    {KOORD_LONGPIXEL, -2.0e9, 2.0e9, -2.0e9, 2.0e9},
    {KOORD_FLOATPIXEL, -1.0e6, 1.0e6, -1.0e6, 1.0e6},
    {KOORD_UTM, -79.9, 83.9, -180.0, 180.0},
    {KOORD_UTMREF, -79.9, 83.9, -180.0, 180.0},
    {KOORD_GEODEZ, -90.0, 90.0, -360.0, 360.0},
    {KOORD_GEOGRAD, -90.0, 90.0, -360.0, 360.0},
    {KOORD_GEOREF, -90.0, 90.0, -180.0, 180.0},
    {KOORD_GK, -79.8, 79.8, -180.0, 180.0},
    {KOORD_BMN, 45.1, 50.9, 8.9, 17.8},
    {KOORD_OEM, 45.1, 50.9, 8.9, 17.8},
    {KOORD_CH, 45.8, 47.9, 5.9, 10.5},
    {KOORD_GEODEZMIN, -90.0, 90.0, -360.0, 360.0},
    {KOORD_GK6, -79.8, 79.8, -180.0, 180.0},
    {KOORD_UPS, 80.1, 90.0, -180.0, 180.0},
    {KOORD_PO_MILITARY, 37.0, 42.1, -9.5, -6.2},
    {KOORD_VDG, -50.0, 50.0, -179.0, 179.0},
    {KOORD_BNG, 50.2, 58.5, -4.9, 1.0},
    {KOORD_ING, 51.6, 55.3, -9.5, -6.0},
    {KOORD_RD, 50.8, 53.5, 3.5, 7.1},
    {KOORD_LUREF, 49.5, 50.1, 5.8, 6.5},
};

inline const LegalArea& LegalAreaOf(std::int32_t system) {
    for (const LegalArea& area : LEGAL_AREAS) {
        if (area.system == system) return area;
    }
    ADD_FAILURE() << "no legal area for system " << system;
    return LEGAL_AREAS[0];
}

inline tagKOORD RandomLegal(const LegalArea& area, Random* random, std::int32_t datum = DATUM_WGS84) {
    const double north = random->Between(area.south, area.north);
    const double east = random->Between(area.west, area.east);
    tagKOORD record = NaturalTarget(area.system, datum);
    if (area.system == KOORD_LONGPIXEL) {
        Store(record, LongPixelPayload{static_cast<std::int32_t>(east), static_cast<std::int32_t>(north)});
    } else if (area.system == KOORD_FLOATPIXEL) {
        Store(record, FloatPixelPayload{east, north});
    } else {
        const tagKOORD degrees = GeodezRecord(north, east, 0.0, datum);
        EXPECT_EQ(KoordConvert(&degrees, &record), KOORD_OK) << north << ' ' << east;
    }
    return record;
}

inline bool IsLegal(const tagKOORD& record) {
    const IRef<ICoordinateChecker> checker(CreateClassCoordinateChecker());
    return checker->CheckCoord(CoordOf(record).Get());
}

}  // namespace tessara::testing

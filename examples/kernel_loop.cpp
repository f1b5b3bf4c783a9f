// The plain functions in a loop, without objects: the stations of a journey, in degrees on WGS84, become
// Gauss-Krueger coordinates on Bessel's ellipsoid, and the legs between them add up.
//
// Records are the caller's; nothing is allocated or kept, so that any number of threads may do this at once.
#include <iomanip>
#include <iostream>

#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/geodesic.h"

using namespace tessara;

namespace {

struct Station {
    const char* name;
    double latitude, longitude;
};

constexpr Station STATIONS[] = {
    {"Muenchen", 48.1375, 11.5755},
    {"Nordpol", 90.0, 0.0},
    {"Berlin", 52.5163, 13.3777},
};

tagKOORD RecordOf(const Station& station) {
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    Store(record, GeodezPayload{station.latitude, station.longitude, 0.0});
    return record;
}

// What is wanted stands in the target: datum and type, and for some types parameters. A payload of zeros
// would want the meridian 0.
tagKOORD WantedRecord() {
    constexpr std::int32_t DATUM_GERMANY = 3;
    tagKOORD record = MakeKoord(DATUM_GERMANY, KOORD_GK);
    GkPayload wanted{};
    wanted.wantedMeridian = NO_WANTED_ZONE;
    Store(record, wanted);
    return record;
}

}  // namespace

int main() {
    std::cout << std::fixed << std::setprecision(2);
    double journey = 0.0;
    tagKOORD last{};
    bool isFirst = true;
    for (const Station& station : STATIONS) {
        const tagKOORD here = RecordOf(station);
        tagKOORD grid = WantedRecord();
        const KoordStatus status = KoordConvert(&here, &grid);
        if (status != KOORD_OK) {
            std::cout << station.name << ": no position of the grid, status " << status << '\n';
            continue;
        }
        const auto gk = Load<GkPayload>(grid);
        std::cout << station.name << ": " << gk.easting << ' ' << gk.northing << '\n';

        double leg = 0.0, azimuth = 0.0, azimuthBack = 0.0;
        if (!isFirst && Geodesic_Inverse(&last, &here, DATUM_WGS84, &leg, &azimuth, &azimuthBack) != KOORD_OK)
            return 1;
        journey += leg;
        last = here;
        isFirst = false;
    }
    std::cout << journey << " m\n";
}

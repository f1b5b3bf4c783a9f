// Uses the plain functions in a loop, without objects: converts the stations of a journey from degrees on
// WGS84 to Gauss-Krueger coordinates on Bessel's ellipsoid, and adds up the distances between them.
//
// The caller owns the records, and nothing is allocated or kept, so any number of threads may do this at the
// same time.
#include <iomanip>
#include <iostream>

#include "tessara/kernel.h"

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

tessara::tagKOORD RecordOf(const Station& station) {
    tessara::tagKOORD record = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_GEODEZ);
    tessara::Store(record, tessara::GeodezPayload{station.latitude, station.longitude, 0.0});
    return record;
}

// The target says what is wanted: its datum and type, and for some types parameters. A payload of zeros
// would want the meridian 0.
tessara::tagKOORD WantedRecord() {
    constexpr std::int32_t DATUM_GERMANY = 3;
    tessara::tagKOORD record = tessara::MakeKoord(DATUM_GERMANY, tessara::KOORD_GK);
    tessara::GkPayload wanted{};
    wanted.wantedMeridian = tessara::NO_WANTED_ZONE;
    tessara::Store(record, wanted);
    return record;
}

}  // namespace

int main() {
    std::cout << std::fixed << std::setprecision(2);
    double journey = 0.0;
    tessara::tagKOORD last{};
    bool isFirst = true;
    for (const Station& station : STATIONS) {
        const tessara::tagKOORD here = RecordOf(station);
        tessara::tagKOORD grid = WantedRecord();
        const tessara::KoordStatus status = tessara::KoordConvert(&here, &grid);
        if (status != tessara::KOORD_OK) {
            std::cout << station.name << ": no position of the grid, status " << status << '\n';
            continue;
        }
        const auto gk = tessara::Load<tessara::GkPayload>(grid);
        std::cout << station.name << ": " << gk.easting << ' ' << gk.northing << '\n';

        double leg = 0.0, azimuth = 0.0, azimuthBack = 0.0;
        if (!isFirst && tessara::Geodesic_Inverse(&last, &here, tessara::DATUM_WGS84, &leg, &azimuth,
                                                  &azimuthBack) != tessara::KOORD_OK)
            return 1;
        journey += leg;
        last = here;
        isFirst = false;
    }
    std::cout << journey << " m\n";
}

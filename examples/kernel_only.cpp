// The plain functions, without objects: a position in degrees on WGS84 becomes a Gauss-Krueger record on
// Bessel's ellipsoid, and a distance.
#include <iomanip>
#include <iostream>

#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/geodesic.h"

using namespace tessara;

int main() {
    tagKOORD munich = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    Store(munich, GeodezPayload{48.1375, 11.5755, 0.0});

    // The target says what is wanted: datum and type, and for some types parameters.
    constexpr std::int32_t DATUM_GERMANY = 3;
    tagKOORD grid = MakeKoord(DATUM_GERMANY, KOORD_GK);
    GkPayload wanted{};
    wanted.wantedMeridian = NO_WANTED_ZONE;
    Store(grid, wanted);
    if (KoordConvert(&munich, &grid) != KOORD_OK) return 1;

    const auto gk = Load<GkPayload>(grid);
    std::cout << std::fixed << std::setprecision(2) << gk.easting << ' ' << gk.northing << '\n';

    tagKOORD berlin = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    Store(berlin, GeodezPayload{52.5163, 13.3777, 0.0});
    double distance = 0.0, azimuth = 0.0, azimuthBack = 0.0;
    if (Geodesic_Inverse(&munich, &berlin, DATUM_WGS84, &distance, &azimuth, &azimuthBack) != KOORD_OK)
        return 1;
    std::cout << distance << " m\n";
}

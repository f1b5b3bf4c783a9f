// Halfway between two positions in neighbouring UTM zones: the mean of the grids, laid out from the common
// border, and not the middle of the shortest way.
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

using namespace tessara;

namespace {

IRef<ICoord> UtmAt(std::int16_t zone, double easting, double northing) {
    UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.wantedZone = NO_WANTED_ZONE;
    utm.zone = zone;
    utm.easting = easting;
    utm.northing = northing;
    CKoord record(MakeKoord(DATUM_WGS84, KOORD_UTM));
    Store(record, utm);
    IRef<ICoord> coord(CreateClassCoord());
    IRef<ICoordInternal>(coord)->SetKoord(&record);
    return coord;
}

void Write(const char* what, const IRef<ICoord>& coord) {
    CKoord record;
    IRef<ICoordInternal>(coord)->GetKoord(&record);
    const auto utm = Load<UtmPayload>(record);
    std::cout << what << utm.zone << utm.hemisphere << ' ' << utm.easting << ' ' << utm.northing << '\n';
}

}  // namespace

int main() {
    std::cout << std::fixed << std::setprecision(3);
    const IRef<ICoord> west = UtmAt(32, 700000.0, 5300000.0);
    const IRef<ICoord> east = UtmAt(33, 290000.0, 5300000.0);

    // The border between the zones at this northing, as either of them counts it.
    const IRef<IZoneCoordOperations> zones(CreateClassZoneCoordOperations());
    const IRef<ICoord> border(CreateClassCoord());
    if (!zones->GetEastNeighbour(west.Get(), border.Get())) return 1;
    Write("border ", border);

    const IRef<ICoordinateAverage> averages(CreateClassCoordinateAverage());
    const IRef<ICoord> middle(CreateClassCoord());
    if (!averages->Average(west.Get(), east.Get(), middle.Get())) return 1;
    Write("middle ", middle);
}

// Finds the point halfway between two positions in adjacent UTM zones: the mean in the grids, measured from
// the common border, which isn't the middle of the shortest line.
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

namespace {

tessara::IRef<tessara::ICoord> UtmAt(std::int16_t zone, double easting, double northing) {
    tessara::UtmPayload utm{};
    utm.hemisphere = 'N';
    utm.wantedZone = tessara::NO_WANTED_ZONE;
    utm.zone = zone;
    utm.easting = easting;
    utm.northing = northing;
    tessara::CKoord record(tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_UTM));
    tessara::Store(record, utm);
    tessara::IRef coord = tessara::CreateClassCoord();
    tessara::IRef<tessara::ICoordInternal>(coord)->SetKoord(&record);
    return coord;
}

void Write(const char* what, const tessara::IRef<tessara::ICoord>& coord) {
    tessara::CKoord record;
    tessara::IRef<tessara::ICoordInternal>(coord)->GetKoord(&record);
    const auto utm = tessara::Load<tessara::UtmPayload>(record);
    std::cout << what << utm.zone << utm.hemisphere << ' ' << utm.easting << ' ' << utm.northing << '\n';
}

}  // namespace

int main() {
    std::cout << std::fixed << std::setprecision(3);
    const tessara::IRef<tessara::ICoord> west = UtmAt(32, 700000.0, 5300000.0);
    const tessara::IRef<tessara::ICoord> east = UtmAt(33, 290000.0, 5300000.0);

    // The border between the zones at this northing, in the coordinates of each zone.
    const tessara::IRef zones = tessara::CreateClassZoneCoordOperations();
    const tessara::IRef border = tessara::CreateClassCoord();
    if (!zones->GetEastNeighbour(west, border)) return 1;
    Write("border ", border);

    const tessara::IRef averages = tessara::CreateClassCoordinateAverage();
    const tessara::IRef middle = tessara::CreateClassCoord();
    if (!averages->Average(west, east, middle)) return 1;
    Write("middle ", middle);
}

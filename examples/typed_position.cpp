// Reads what a person types: lines "NORTH; EAST" in UTM from standard input become degrees, and if a text is
// refused, the program explains why. The library only answers yes or no; further questions find the reason.
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

#include "tessara/kernel/limits.h"
#include "tessara/tessara.h"

namespace {

// The reason for a refusal: the texts lack a field, the zone doesn't exist, or the place is outside the
// system.
std::string Explain(const std::string& north, const std::string& east) {
    tessara::UtmPayload utm{};
    utm.wantedZone = tessara::NO_WANTED_ZONE;
    std::istringstream northWords(north), eastWords(east);
    if (!(northWords >> utm.hemisphere >> utm.northing))
        return "north is a letter N or S and metres, as N 5334791";
    if (!(eastWords >> utm.zone >> utm.easting)) return "east is a zone and metres, as 32 691602";
    if (utm.zone < 1 || utm.zone > 60) return "the zone is outside 1..60";

    // A record may hold a position that no checker accepts, and a conversion to degrees has no range test.
    // So the host can find out where the place would be.
    tessara::CKoord record(tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_UTM));
    tessara::Store(record, utm);
    const tessara::IRef coord = tessara::CreateClassCoord();
    tessara::IRef<tessara::ICoordInternal>(coord)->SetKoord(&record);
    const tessara::IRef place = tessara::CreateClassCoordGeographic();
    if (!coord->GetGeographic(place)) return "there is no such place";
    if (place->GetLatitude() > tessara::UTM_LIMITS.north)
        return "the place lies north of 84 degrees, where UTM ends";
    if (place->GetLatitude() < tessara::UTM_LIMITS.south)
        return "the place lies south of 80 degrees, where UTM ends";
    const tessara::IRef checker = tessara::CreateClassCoordinateChecker();
    if (!checker->CheckInSystemArea(coord)) return "the place lies outside the zone";
    return "the place isn't legal";
}

}  // namespace

int main() {
    const tessara::IRef utm = tessara::CreateClassCoordinateReference();
    utm->SetDatum(tessara::DATUM_WGS84);
    utm->SetSystem(tessara::KOORD_UTM);
    const tessara::IRef reader = tessara::CreateClassCoordinateString();
    const tessara::IRef<tessara::ITessaraString> north(tessara::NewObject<tessara::host::Text>()),
        east(tessara::NewObject<tessara::host::Text>());
    const tessara::IRef coord = tessara::CreateClassCoord();
    const tessara::IRef place = tessara::CreateClassCoordGeographic();

    std::cout << std::fixed << std::setprecision(6);
    for (std::string northText, eastText; std::getline(std::cin, northText, ';');) {
        std::getline(std::cin, eastText);
        north->AssignText(northText.c_str());
        east->AssignText(eastText.c_str());
        if (reader->ParseCoord(utm, north, east) && reader->GetCoord(coord) && coord->GetGeographic(place)) {
            std::cout << place->GetLatitude() << ' ' << place->GetLongitude() << '\n';
        } else {
            std::cout << Explain(northText, eastText) << '\n';
        }
    }
}

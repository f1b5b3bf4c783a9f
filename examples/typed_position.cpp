// What a person types: lines "NORTH; EAST" in UTM from standard input become degrees, and a text that isn't
// taken is explained. The library itself says yes or no; why not can be found by asking it further questions.
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>

#include "tessara/host/text.h"
#include "tessara/kernel/limits.h"
#include "tessara/tessara.h"

using namespace tessara;

namespace {

// Why a text is refused: it has no such fields, or no such zone, or it is a place beyond the system.
std::string Explain(const std::string& north, const std::string& east) {
    UtmPayload utm{};
    utm.wantedZone = NO_WANTED_ZONE;
    std::istringstream northWords(north), eastWords(east);
    if (!(northWords >> utm.hemisphere >> utm.northing))
        return "north is a letter N or S and metres, as N 5334791";
    if (!(eastWords >> utm.zone >> utm.easting)) return "east is a zone and metres, as 32 691602";
    if (utm.zone < 1 || utm.zone > 60) return "zones are 1 to 60";

    // A record can hold what no checker lets pass, and degrees aren't tested when they are a target: so it
    // can be said where the place would be.
    CKoord record(MakeKoord(DATUM_WGS84, KOORD_UTM));
    Store(record, utm);
    const IRef<ICoord> coord(CreateClassCoord());
    IRef<ICoordInternal>(coord)->SetKoord(&record);
    const IRef<ICoordGeographic> place(CreateClassCoordGeographic());
    if (!coord->GetGeographic(place.Get())) return "there is no such place";
    if (place->GetLatitude() > UTM_LIMITS.north) return "the place lies north of 84 degrees, where UTM ends";
    if (place->GetLatitude() < UTM_LIMITS.south) return "the place lies south of 80 degrees, where UTM ends";
    const IRef<ICoordinateChecker> checker(CreateClassCoordinateChecker());
    if (!checker->CheckInSystemArea(coord.Get())) return "the place lies outside the zone";
    return "the place isn't legal";
}

}  // namespace

int main() {
    const IRef<ICoordinateReference> utm(CreateClassCoordinateReference());
    utm->SetDatum(DATUM_WGS84);
    utm->SetSystem(KOORD_UTM);
    const IRef<ICoordinateString> reader(CreateClassCoordinateString());
    const IRef<ITessaraString> north(NewObject<host::Text>()), east(NewObject<host::Text>());
    const IRef<ICoord> coord(CreateClassCoord());
    const IRef<ICoordGeographic> place(CreateClassCoordGeographic());

    std::cout << std::fixed << std::setprecision(6);
    for (std::string northText, eastText; std::getline(std::cin, northText, ';');) {
        std::getline(std::cin, eastText);
        north->AssignText(northText.c_str());
        east->AssignText(eastText.c_str());
        if (reader->ParseCoord(utm.Get(), north.Get(), east.Get()) && reader->GetCoord(coord.Get()) &&
            coord->GetGeographic(place.Get())) {
            std::cout << place->GetLatitude() << ' ' << place->GetLongitude() << '\n';
        } else {
            std::cout << Explain(northText, eastText) << '\n';
        }
    }
}

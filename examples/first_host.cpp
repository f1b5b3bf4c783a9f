// The first steps of a host: converts a position in degrees to a UTM coordinate.
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

int main() {
    // 48.1375 degrees north, 11.5755 degrees east, on WGS84. Wrap a new object in a handle on the line that
    // creates it.
    const tessara::IRef munich = tessara::CreateClassCoordGeographic();
    munich->Set(11.5755, 48.1375, 520.0);

    const tessara::IRef coord = tessara::CreateClassCoord();
    if (!coord->SetGeographic(munich)) return 1;

    // Convert the position to UTM. The result is false if it can't be converted.
    const tessara::IRef reference = tessara::CreateClassCoordinateReference();
    reference->SetDatum(tessara::DATUM_WGS84);
    reference->SetSystem(tessara::KOORD_UTM);
    if (!coord->SetReference(reference)) return 1;

    // The record of the object has the fields of its system.
    tessara::CKoord koord;
    tessara::IRef<tessara::ICoordInternal>(coord)->GetKoord(&koord);
    const auto utm = tessara::Load<tessara::UtmPayload>(koord);
    std::cout << utm.zone << utm.hemisphere << std::fixed << std::setprecision(3) << ' ' << utm.easting << ' '
              << utm.northing << " height " << coord->GetHeight() << '\n';
}

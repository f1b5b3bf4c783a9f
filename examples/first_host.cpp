// A host's first steps: a position in degrees becomes a UTM coordinate.
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

using namespace tessara;

int main() {
    // 48.1375 degrees north, 11.5755 degrees east, on WGS84. An object goes into its handle on the same line.
    const IRef<ICoordGeographic> munich(CreateClassCoordGeographic());
    munich->Set(11.5755, 48.1375, 520.0);

    const IRef<ICoord> coord(CreateClassCoord());
    if (!coord->SetGeographic(munich.Get())) return 1;

    // Convert it to UTM. False would say that it can't be converted.
    const IRef<ICoordinateReference> reference(CreateClassCoordinateReference());
    reference->SetDatum(DATUM_WGS84);
    reference->SetSystem(KOORD_UTM);
    if (!coord->SetReference(reference.Get())) return 1;

    // The record behind the object has the fields of its system.
    CKoord koord;
    IRef<ICoordInternal>(coord)->GetKoord(&koord);
    const auto utm = Load<UtmPayload>(koord);
    std::cout << utm.zone << utm.hemisphere << std::fixed << std::setprecision(3) << ' ' << utm.easting << ' '
              << utm.northing << " height " << coord->GetHeight() << '\n';
}

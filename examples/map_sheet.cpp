// A scanned map sheet: positions become pixels, and a pixel becomes a position.
#include <cstdlib>
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

namespace {

// A sheet of 1:50000, scanned with 20 pixels a millimetre and brought in line with the UTM grid: 2.5 metres a
// pixel. The upper left corner is 675000 5345000 in zone 32.
tessara::IRef<tessara::IMapCoordOperations> MakeSheet() {
    const tessara::MapUtmParams params{.hemisphere = 'N',
                                       .zone = 32,
                                       .originEasting = 675000.0,
                                       .originNorthing = 5345000.0,
                                       .metresPerPixelX = 2.5,
                                       .metresPerPixelY = 2.5};
    const tessara::IRef projections = tessara::CreateClassProjectionFactory();
    const tessara::IRef<tessara::IProjection> projection(projections->CreateUtm(&params));

    const tessara::IRef datum = tessara::CreateClassGeoDate();
    datum->SetDatum(tessara::DATUM_WGS84);

    // A reference point ties a map to the earth. A grid map has no need of one and just keeps it.
    const tessara::IRef corner = tessara::CreateClassCoord();
    const tessara::IRef place = tessara::CreateClassCoordGeographic();
    place->Set(11.356, 48.234, 0.0);
    corner->SetGeographic(place);
    const tessara::IRef point = tessara::CreateClassReferencePoint();
    point->SetLong(corner, 0, 0);

    const tessara::IRef maps = tessara::CreateClassMapCoordOperationsFactory();
    return tessara::IRef<tessara::IMapCoordOperations>(
        maps->CreateFromReferencePoint(point, 50000, 20.0, datum, projection));
}

void PutOnSheet(const tessara::IRef<tessara::IMapCoordOperations>& sheet, const char* name, double latitude,
                double longitude) {
    const tessara::IRef place = tessara::CreateClassCoordGeographic();
    place->Set(longitude, latitude, 0.0);
    const tessara::IRef coord = tessara::CreateClassCoord();
    coord->SetGeographic(place);

    std::int32_t column = 0;
    std::int32_t row = 0;
    if (!sheet->CoordToLongPixel(coord, &column, &row)) std::exit(1);
    std::cout << name << ": column " << column << ", row " << row << '\n';
}

}  // namespace

int main() {
    const tessara::IRef<tessara::IMapCoordOperations> sheet = MakeSheet();
    if (!sheet.IsValid()) return 1;
    PutOnSheet(sheet, "Marienplatz", 48.1375, 11.5755);
    PutOnSheet(sheet, "Olympiapark", 48.1735, 11.5466);

    // What lies under a pixel, in the reference that the coordinate has: a new one is in WGS84 degrees.
    const tessara::IRef found = tessara::CreateClassCoord();
    if (!sheet->FloatPixelToCoord(4000.0, 2000.0, found)) return 1;
    const tessara::IRef degrees = tessara::CreateClassCoordGeographic();
    found->GetGeographic(degrees);
    std::cout << "pixel 4000 2000: " << std::fixed << std::setprecision(6) << degrees->GetLatitude() << ' '
              << degrees->GetLongitude() << '\n';
}

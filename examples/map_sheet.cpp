// Works with a scanned map sheet: converts positions to pixels, and a pixel to a position.
#include <cstdlib>
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

namespace {

// A sheet at 1:50000, scanned with 20 pixels per millimetre and aligned with the UTM grid: 2.5 metres per
// pixel, with the upper left corner at 675000 5345000 in zone 32.
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

    // A reference point places a map on the earth. A grid map doesn't need it and only stores it.
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

    // The position of a pixel, in the reference of the coordinate; a new coordinate has WGS84 degrees.
    const tessara::IRef found = tessara::CreateClassCoord();
    if (!sheet->FloatPixelToCoord(4000.0, 2000.0, found)) return 1;
    const tessara::IRef degrees = tessara::CreateClassCoordGeographic();
    found->GetGeographic(degrees);
    std::cout << "pixel 4000 2000: " << std::fixed << std::setprecision(6) << degrees->GetLatitude() << ' '
              << degrees->GetLongitude() << '\n';
}

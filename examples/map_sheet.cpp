// A scanned map sheet: positions become pixels, and a pixel becomes a position.
#include <cstdlib>
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

using namespace tessara;

namespace {

// A sheet of 1:50000, scanned with 20 pixels a millimetre and brought in line with the UTM grid: 2.5 metres a
// pixel. The upper left corner is 675000 5345000 in zone 32.
IRef<IMapCoordOperations> MakeSheet() {
    const MapUtmParams params{.hemisphere = 'N',
                              .zone = 32,
                              .originEasting = 675000.0,
                              .originNorthing = 5345000.0,
                              .metresPerPixelX = 2.5,
                              .metresPerPixelY = 2.5};
    const IRef<IProjectionFactory> projections(CreateClassProjectionFactory());
    const IRef<IProjection> projection(projections->CreateUtm(&params));

    const IRef<IGeoDate> datum(CreateClassGeoDate());
    datum->SetDatum(DATUM_WGS84);

    // A reference point ties a map to the earth. A grid map has no need of one and just keeps it.
    const IRef<ICoord> corner(CreateClassCoord());
    const IRef<ICoordGeographic> place(CreateClassCoordGeographic());
    place->Set(11.356, 48.234, 0.0);
    corner->SetGeographic(place.Get());
    const IRef<IReferencePoint> point(CreateClassReferencePoint());
    point->SetLong(corner.Get(), 0, 0);

    const IRef<IMapCoordOperationsFactory> maps(CreateClassMapCoordOperationsFactory());
    return IRef<IMapCoordOperations>(
        maps->CreateFromReferencePoint(point.Get(), 50000, 20.0, datum.Get(), projection.Get()));
}

void PutOnSheet(const IRef<IMapCoordOperations>& sheet, const char* name, double latitude, double longitude) {
    const IRef<ICoordGeographic> place(CreateClassCoordGeographic());
    place->Set(longitude, latitude, 0.0);
    const IRef<ICoord> coord(CreateClassCoord());
    coord->SetGeographic(place.Get());

    std::int32_t column = 0;
    std::int32_t row = 0;
    if (!sheet->CoordToLongPixel(coord.Get(), &column, &row)) std::exit(1);
    std::cout << name << ": column " << column << ", row " << row << '\n';
}

}  // namespace

int main() {
    const IRef<IMapCoordOperations> sheet = MakeSheet();
    if (!sheet.IsValid()) return 1;
    PutOnSheet(sheet, "Marienplatz", 48.1375, 11.5755);
    PutOnSheet(sheet, "Olympiapark", 48.1735, 11.5466);

    // What lies under a pixel, in the reference that the coordinate has: a new one is in WGS84 degrees.
    const IRef<ICoord> found(CreateClassCoord());
    if (!sheet->FloatPixelToCoord(4000.0, 2000.0, found.Get())) return 1;
    const IRef<ICoordGeographic> degrees(CreateClassCoordGeographic());
    found->GetGeographic(degrees.Get());
    std::cout << "pixel 4000 2000: " << std::fixed << std::setprecision(6) << degrees->GetLatitude() << ' '
              << degrees->GetLongitude() << '\n';
}

// Draws a grid of degrees on a map sheet in UTM: each line is a polyline of pixels.
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

namespace {

// The sheet is 1:50000 in UTM zone 32 with 2.5 metres per pixel and the upper left corner at 675000 5345000.
// A grid map needs no reference point.
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
    const tessara::IRef noPoints = tessara::CreateClassArray();
    const tessara::IRef maps = tessara::CreateClassMapCoordOperationsFactory();
    return tessara::IRef<tessara::IMapCoordOperations>(
        maps->CreateFromReferencePoints(noPoints, 50000, 20.0, datum, projection));
}

tessara::IRef<tessara::IFloatPoint> PointAt(double column, double row) {
    tessara::IRef point = tessara::CreateClassFloatPoint();
    point->SetX(column);
    point->SetY(row);
    return point;
}

// A line covers the extent of the window in degrees, so it may start and end outside the window.
void WriteLines(const char* direction, tessara::IArray* lines) {
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        const tessara::IRef<tessara::IArray> line(lines->GetAt(i));
        const tessara::IRef<tessara::IFloatPoint> start(line->GetAt(0));
        const tessara::IRef<tessara::IFloatPoint> end(line->GetAt(line->GetCount() - 1));
        std::cout << direction << " from " << start->GetX() << ' ' << start->GetY() << " to " << end->GetX()
                  << ' ' << end->GetY() << '\n';
    }
}

}  // namespace

int main() {
    const tessara::IRef<tessara::IMapCoordOperations> sheet = MakeSheet();
    const tessara::IRef grids = tessara::CreateClassCoordinateGridFactory();
    constexpr double STEP = 0.1;
    const tessara::IRef<tessara::ICoordinateGrid> grid(
        grids->CreateGeodezGrid(sheet, tessara::DATUM_WGS84, STEP, STEP));
    if (!grid.IsValid()) return 1;

    // The window is the whole sheet: 7000 columns, 6000 rows.
    if (!grid->SetWindowFromPoints(PointAt(0, 0).Get(), PointAt(7000, 0).Get(), PointAt(7000, 6000).Get(),
                                   PointAt(0, 6000).Get()))
        return 1;

    std::cout << std::fixed << std::setprecision(1);
    const tessara::IRef lines = tessara::CreateClassArray();
    if (!grid->GetEastLinePixels(lines)) return 1;
    WriteLines("meridian", lines);
    if (!grid->GetNorthLinePixels(lines)) return 1;
    WriteLines("parallel", lines);
}

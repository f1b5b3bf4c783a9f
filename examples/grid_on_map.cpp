// A grid of degrees on a map sheet that is drawn in UTM: the lines as chains of pixels, ready to be joined.
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

using namespace tessara;

namespace {

// 1:50000 in UTM zone 32, 2.5 metres a pixel, upper left corner at 675000 5345000. A grid map needs no
// reference point.
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
    const IRef<IArray> noPoints(CreateClassArray());
    const IRef<IMapCoordOperationsFactory> maps(CreateClassMapCoordOperationsFactory());
    return IRef<IMapCoordOperations>(
        maps->CreateFromReferencePoints(noPoints.Get(), 50000, 20.0, datum.Get(), projection.Get()));
}

IRef<IFloatPoint> PointAt(double column, double row) {
    IRef<IFloatPoint> point(CreateClassFloatPoint());
    point->SetX(column);
    point->SetY(row);
    return point;
}

// A line goes over the whole extent of the window in degrees, so that it may begin and end beside the window.
void WriteLines(const char* direction, IArray* lines) {
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        const IRef<IArray> line(lines->GetAt(i));
        const IRef<IFloatPoint> start(line->GetAt(0));
        const IRef<IFloatPoint> end(line->GetAt(line->GetCount() - 1));
        std::cout << direction << " from " << start->GetX() << ' ' << start->GetY() << " to " << end->GetX()
                  << ' ' << end->GetY() << '\n';
    }
}

}  // namespace

int main() {
    const IRef<IMapCoordOperations> sheet = MakeSheet();
    const IRef<ICoordinateGridFactory> grids(CreateClassCoordinateGridFactory());
    constexpr double STEP = 0.1;
    const IRef<ICoordinateGrid> grid(grids->CreateGeodezGrid(sheet.Get(), DATUM_WGS84, STEP, STEP));
    if (!grid.IsValid()) return 1;

    // The whole sheet: 7000 columns, 6000 rows.
    if (!grid->SetWindowFromPoints(PointAt(0, 0).Get(), PointAt(7000, 0).Get(), PointAt(7000, 6000).Get(),
                                   PointAt(0, 6000).Get()))
        return 1;

    std::cout << std::fixed << std::setprecision(1);
    const IRef<IArray> lines(CreateClassArray());
    if (!grid->GetEastLinePixels(lines.Get())) return 1;
    WriteLines("meridian", lines.Get());
    if (!grid->GetNorthLinePixels(lines.Get())) return 1;
    WriteLines("parallel", lines.Get());
}

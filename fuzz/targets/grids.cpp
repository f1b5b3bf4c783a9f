// Coordinate grids of every system, with any steps over any window of any map, and the extremes and valid
// positions of such windows.
#include <cmath>

#include "fuzz/draw.h"
#include "support/managed_library.h"
#include "tessara/coordinate_area.h"
#include "tessara/coordinate_grid.h"
#include "tessara/coordinate_grid_factory.h"
#include "tessara/float_point.h"
#include "tessara/host/rect.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara::fuzz {
namespace {

using Factory = ICoordinateGridFactory;
using GridMaker = ICoordinateGrid* (Factory::*)(IMapCoordOperations*, std::int32_t, double, double);

constexpr GridMaker GRIDS[] = {
    &Factory::CreateFloatPixelGrid, &Factory::CreateUtmGrid,       &Factory::CreateUtmrefGrid,
    &Factory::CreateGeodezGrid,     &Factory::CreateGeodezminGrid, &Factory::CreateGeogradGrid,
    &Factory::CreateGeorefGrid,     &Factory::CreateGkGrid,        &Factory::CreateBmnGrid,
    &Factory::CreateOemGrid,        &Factory::CreateChGrid,        &Factory::CreateGk6Grid,
    &Factory::CreateGkAtGrid,       &Factory::CreateUpsGrid,       &Factory::CreatePoMilitaryGrid,
    &Factory::CreateTmGrid,         &Factory::CreateVdgGrid,       &Factory::CreateBngGrid,
    &Factory::CreateIngGrid,        &Factory::CreateRdGrid,        &Factory::CreateLurefGrid};

IRef<IFloatPoint> DrawPoint(ByteReader& bytes) {
    IRef<IFloatPoint> point(CreateClassFloatPoint());
    const bool isNear = bytes.Below(4) != 0;
    point->SetX(isNear ? bytes.Raw<std::int16_t>() / 16.0 : bytes.Number());
    point->SetY(isNear ? bytes.Raw<std::int16_t>() / 16.0 : bytes.Number());
    return point;
}

// A grid of up to twenty million points takes a minute, so such steps are skipped. Illegal steps draw
// nothing.
bool MeansManyLines(GridMaker make, double step) {
    const bool isAngular = make == &Factory::CreateGeodezGrid || make == &Factory::CreateGeodezminGrid ||
                           make == &Factory::CreateGeogradGrid || make == &Factory::CreateGeorefGrid;
    const double coarse = isAngular ? 1.0 : 1e5;
    return std::fabs(step) < coarse && step != 0.0;
}

void DrawLines(const IRef<ICoordinateGrid>& grid) {
    const IRef<IArray> lines(CreateClassArray());
    grid->GetEastLines(lines.Get());
    grid->GetNorthLines(lines.Get());
    Require(grid->GetEastLinePixels(lines.Get()) || lines->GetCount() == 0);
    Require(grid->GetNorthLinePixels(lines.Get()) || lines->GetCount() == 0);
}

void SearchRect(ByteReader& bytes, const IRef<IMapCoordOperations>& map) {
    const IRef<IRect> rect(
        NewObject<host::Rect>(bytes.Integer(), bytes.Integer(), bytes.Integer(), bytes.Integer()));
    const IRef<ICoord> north = DrawCoord(bytes);
    const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
    area->GetMapRectNorth(map.Get(), rect.Get(), north.Get());
    area->GetMapRectEast(map.Get(), rect.Get(), north.Get());
    const IRef<ITransformableMapPixel> transformable(CreateClassTransformableMapPixel());
    transformable->FindValidCoordInRect(map.Get(), rect.Get(), north.Get());
}

// A walk over ten million pixels exceeds the time limit of an input.
bool IsLongWalk(const IRef<IFloatPoint>& a, const IRef<IFloatPoint>& b) {
    const double length = std::hypot(b->GetX() - a->GetX(), b->GetY() - a->GetY());
    return length > 5000.0 && length < 2e7;
}

void ClipLine(ByteReader& bytes, const IRef<IMapCoordOperations>& map) {
    const IRef<IFloatPoint> a = DrawPoint(bytes), b = DrawPoint(bytes);
    const std::int32_t datum = DrawDatum(bytes);
    const auto reference = testing::MakeHostReference(datum, DrawType(bytes));
    const IRef<ITransformableMapPixel> transformable(CreateClassTransformableMapPixel());
    // The outputs may be the same objects as the ends.
    if (IsLongWalk(a, b)) return;
    transformable->ClipLineToValid(map.Get(), reference.Get(), a.Get(), b.Get(), a.Get(), b.Get());
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara;
    using namespace tessara::fuzz;
    static const tessara::testing::ManagedLibrary library;
    ByteReader bytes(data, size);
    const IRef<IMapCoordOperations> map = DrawMapObject(bytes);
    const IRef<ICoordinateGridFactory> factory(CreateClassCoordinateGridFactory());
    const GridMaker make = bytes.OneOf(GRIDS);
    const std::int32_t datum = DrawDatum(bytes);
    const double eastStep = bytes.Number(), northStep = bytes.Number();
    const IRef<ICoordinateGrid> grid((factory.Get()->*make)(map.Get(), datum, eastStep, northStep));
    const bool isCoarse = !MeansManyLines(make, eastStep) && !MeansManyLines(make, northStep);
    if (grid.IsValid()) {
        const IRef<IFloatPoint> a = DrawPoint(bytes), b = DrawPoint(bytes);
        if (grid->SetWindowFromPoints(a.Get(), a.Get(), b.Get(), b.Get()) && isCoarse) DrawLines(grid);
    }
    SearchRect(bytes, map);
    ClipLine(bytes, map);
    return 0;
}

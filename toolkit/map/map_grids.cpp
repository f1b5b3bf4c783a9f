#include "map/map_grids.h"

#include <array>

#include "conversion/made.h"

namespace tessara::toolkit {
namespace {

using CreateGrid = ICoordinateGrid* (ICoordinateGridFactory::*)(IMapCoordOperations*, std::int32_t, double,
                                                                double);

// Indexed by the number of the system; null for a system without grid lines.
constexpr std::array<CreateGrid, KOORD_TYPE_COUNT> CREATE = {
    nullptr,  // LONGPIXEL
    &ICoordinateGridFactory::CreateFloatPixelGrid,
    &ICoordinateGridFactory::CreateUtmGrid,
    &ICoordinateGridFactory::CreateUtmrefGrid,
    &ICoordinateGridFactory::CreateGeodezGrid,
    &ICoordinateGridFactory::CreateGeogradGrid,
    &ICoordinateGridFactory::CreateGeorefGrid,
    &ICoordinateGridFactory::CreateGkGrid,
    &ICoordinateGridFactory::CreateBmnGrid,
    &ICoordinateGridFactory::CreateOemGrid,
    &ICoordinateGridFactory::CreateChGrid,
    nullptr,  // ECEF
    &ICoordinateGridFactory::CreateGeodezminGrid,
    &ICoordinateGridFactory::CreateGk6Grid,
    &ICoordinateGridFactory::CreateGkAtGrid,
    &ICoordinateGridFactory::CreateUpsGrid,
    &ICoordinateGridFactory::CreatePoMilitaryGrid,
    nullptr,  // TM has no fixed extent
    &ICoordinateGridFactory::CreateVdgGrid,
    &ICoordinateGridFactory::CreateBngGrid,
    &ICoordinateGridFactory::CreateIngGrid,
    &ICoordinateGridFactory::CreateRdGrid,
    &ICoordinateGridFactory::CreateLurefGrid,
    nullptr,  // LAMBERTCC
};

}  // namespace

bool HasGrid(std::int32_t system) {
    return CREATE.at(static_cast<std::size_t>(system)) != nullptr;
}

bool HasZones(const Reference& reference) {
    const IRef<ICoord> coord = Made(CreateClassCoord());
    coord->SetReference(MakeReference(reference).Get());
    return Made(CreateClassZoneCoordOperations())->HasZones(coord.Get());
}

std::optional<std::int32_t> ZoneOf(ICoord* coord) {
    const IRef<IZoneCoordOperations> zones = Made(CreateClassZoneCoordOperations());
    const std::int32_t zone = zones->GetZoneNumber(coord);
    return zone == UNKNOWN_ZONE ? std::nullopt : std::optional(zone);
}

IRef<ICoordinateGrid> MakeGrid(const MapSheet& sheet, const Reference& reference, double eastStep,
                               double northStep) {
    const IRef<ICoordinateGridFactory> factory = Made(CreateClassCoordinateGridFactory());
    const CreateGrid create = CREATE.at(static_cast<std::size_t>(reference.system));
    IRef<ICoordinateGrid> grid((factory.Get()->*create)(sheet.Map(), reference.datum, eastStep, northStep));
    if (!grid.IsValid()) return {};

    // Adds a pixel on each side, because the extremes of a window are accurate to a quarter of a pixel and
    // lines must reach the frame.
    Window window = sheet.MapWindow();
    window = {window.left - 1.0, window.top - 1.0, window.right + 1.0, window.bottom + 1.0};
    const auto corner = [](double x, double y) {
        IRef<IFloatPoint> point = Made(CreateClassFloatPoint());
        point->SetX(x);
        point->SetY(y);
        return point;
    };
    const bool hasWindow = grid->SetWindowFromPoints(
        corner(window.left, window.top).Get(), corner(window.right, window.top).Get(),
        corner(window.right, window.bottom).Get(), corner(window.left, window.bottom).Get());
    return hasWindow ? grid : IRef<ICoordinateGrid>();
}

}  // namespace tessara::toolkit

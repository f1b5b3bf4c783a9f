// Measures coordinate grids: the window and all lines of a sheet of 5000 by 5000 pixels, ten metres each,
// across the border between two zones. The figures are per grid, with a new grid object each time.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>
#include <utility>

#include "tessara/array.h"
#include "tessara/coordinate_grid.h"
#include "tessara/coordinate_grid_factory.h"
#include "tessara/float_point.h"
#include "tessara/internal/map_param_internal.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/map.h"
#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"

namespace tessara::bench {
namespace {

constexpr double SIDE = 5000.0;  // pixels

using Make = ICoordinateGrid* (ICoordinateGridFactory::*)(IMapCoordOperations*, std::int32_t, double, double);

using Sheet = IRef<IMapCoordOperations> (*)();

IRef<IMapCoordOperations> GridSheet() {
    MapParam map;
    map.type = MAP_UTM;
    map.datum = DATUM_WGS84;
    Store(map, MapUtmParams{'N', 32, 695000.0, 5365000.0, 10.0, 10.0});
    IRef<IMapCoordOperations> sheet(CreateClassMapCoordOperations());
    IRef<IMapParamInternal>(sheet)->SetMapParam(&map);
    return sheet;
}

// The same ground on a map at 1:100000 with ten pixels per millimetre, on which no grid line is straight.
IRef<IMapCoordOperations> ConeSheet() {
    MapParam map;
    map.type = MAP_LAMBERT2;
    map.datum = DATUM_WGS84;
    map.scaleDenominator = 100000;
    map.resolution = 10.0;
    map.referenceCount = 1;
    map.reference.world = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    Store(map.reference.world, GeodezPayload{48.2, 12.0, 0.0});
    map.reference.pixelX = 2500;
    map.reference.pixelY = 2500;
    Store(map, MapLambert2Params{47.0, 51.0, 10.0});
    IRef<IMapCoordOperations> sheet(CreateClassMapCoordOperations());
    IRef<IMapParamInternal>(sheet)->SetMapParam(&map);
    return sheet;
}

IRef<IFloatPoint> Corner(double x, double y) {
    IRef<IFloatPoint> corner(CreateClassFloatPoint());
    corner->SetX(x);
    corner->SetY(y);
    return corner;
}

void DrawGrid(benchmark::State& state, Sheet sheet, Make make, double step) {
    const IRef<IMapCoordOperations> map = sheet();
    const IRef<ICoordinateGridFactory> factory(CreateClassCoordinateGridFactory());
    const auto topLeft = Corner(0.0, 0.0);
    const auto bottomRight = Corner(SIDE, SIDE);
    for (auto _ : state) {
        const IRef<ICoordinateGrid> grid((factory.Get()->*make)(map.Get(), DATUM_WGS84, step, step));
        const IRef<IArray> east(CreateClassArray());
        const IRef<IArray> north(CreateClassArray());
        const bool isDrawn =
            grid->SetWindowFromPoints(topLeft.Get(), topLeft.Get(), bottomRight.Get(), bottomRight.Get()) &&
            grid->GetEastLinePixels(east.Get()) && grid->GetNorthLinePixels(north.Get());
        if (!isDrawn) state.SkipWithError("the grid can't be drawn");
        state.counters["lines"] = east->GetCount() + north->GetCount();
    }
    state.SetItemsProcessed(state.iterations());
}

void RegisterGrids() {
    const struct {
        const char* name;
        Make make;
        double step;
    } grids[] = {
        {"UTM 10 km", &ICoordinateGridFactory::CreateUtmGrid, 10000.0},
        {"UTM 1 km", &ICoordinateGridFactory::CreateUtmGrid, 1000.0},
        {"UTMREF 10 km", &ICoordinateGridFactory::CreateUtmrefGrid, 10000.0},
        {"GK 10 km", &ICoordinateGridFactory::CreateGkGrid, 10000.0},
        {"GEODEZ 0.1 degrees", &ICoordinateGridFactory::CreateGeodezGrid, 0.1},
    };
    for (const auto& grid : grids) {
        for (const auto& [place, sheet] :
             {std::pair{" on a grid sheet", &GridSheet}, {" on a cone", &ConeSheet}}) {
            benchmark::RegisterBenchmark((std::string(grid.name) + place).c_str(), DrawGrid, sheet, grid.make,
                                         grid.step)
                ->Unit(benchmark::kMillisecond);
        }
    }
}

const bool REGISTERED = [] {
    RegisterGrids();
    return true;
}();

}  // namespace
}  // namespace tessara::bench

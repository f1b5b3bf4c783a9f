// Coordinate grids for tests, and windows for grids of every system.
#pragma once

#include <vector>

#include "support/lines.h"
#include "support/sheets.h"
#include "tessara/coordinate_grid.h"
#include "tessara/coordinate_grid_factory.h"
#include "tessara/float_point.h"

namespace tessara::testing {

using GridMaker = ICoordinateGrid* (ICoordinateGridFactory::*)(IMapCoordOperations*, std::int32_t, double,
                                                               double);

struct GridSystem {
    const char* name;
    GridMaker make;
    std::int32_t system;
};

// In the order of the factory's operations.
inline constexpr GridSystem GRID_SYSTEMS[] = {
    {"FLOATPIXEL", &ICoordinateGridFactory::CreateFloatPixelGrid, KOORD_FLOATPIXEL},
    {"UTM", &ICoordinateGridFactory::CreateUtmGrid, KOORD_UTM},
    {"UTMREF", &ICoordinateGridFactory::CreateUtmrefGrid, KOORD_UTMREF},
    {"GEODEZ", &ICoordinateGridFactory::CreateGeodezGrid, KOORD_GEODEZ},
    {"GEODEZMIN", &ICoordinateGridFactory::CreateGeodezminGrid, KOORD_GEODEZMIN},
    {"GEOGRAD", &ICoordinateGridFactory::CreateGeogradGrid, KOORD_GEOGRAD},
    {"GEOREF", &ICoordinateGridFactory::CreateGeorefGrid, KOORD_GEOREF},
    {"GK", &ICoordinateGridFactory::CreateGkGrid, KOORD_GK},
    {"BMN", &ICoordinateGridFactory::CreateBmnGrid, KOORD_BMN},
    {"OEM", &ICoordinateGridFactory::CreateOemGrid, KOORD_OEM},
    {"CH", &ICoordinateGridFactory::CreateChGrid, KOORD_CH},
    {"GK6", &ICoordinateGridFactory::CreateGk6Grid, KOORD_GK6},
    {"GKAT", &ICoordinateGridFactory::CreateGkAtGrid, KOORD_GKAT},
    {"UPS", &ICoordinateGridFactory::CreateUpsGrid, KOORD_UPS},
    {"PO_MILITARY", &ICoordinateGridFactory::CreatePoMilitaryGrid, KOORD_PO_MILITARY},
    {"TM", &ICoordinateGridFactory::CreateTmGrid, KOORD_TM},
    {"VDG", &ICoordinateGridFactory::CreateVdgGrid, KOORD_VDG},
    {"BNG", &ICoordinateGridFactory::CreateBngGrid, KOORD_BNG},
    {"ING", &ICoordinateGridFactory::CreateIngGrid, KOORD_ING},
    {"RD", &ICoordinateGridFactory::CreateRdGrid, KOORD_RD},
    {"LUREF", &ICoordinateGridFactory::CreateLurefGrid, KOORD_LUREF},
};

inline const GridSystem& GridSystemOf(std::int32_t system) {
    return *std::find_if(std::begin(GRID_SYSTEMS), std::end(GRID_SYSTEMS),
                         [system](const GridSystem& row) { return row.system == system; });
}

inline IRef<ICoordinateGrid> GridOf(std::int32_t system, const IRef<IMapCoordOperations>& map,
                                    double eastStep, double northStep, std::int32_t datum = DATUM_WGS84) {
    const IRef<ICoordinateGridFactory> factory(CreateClassCoordinateGridFactory());
    const GridMaker make = GridSystemOf(system).make;
    return IRef<ICoordinateGrid>((factory.Get()->*make)(map.Get(), datum, eastStep, northStep));
}

inline IRef<IFloatPoint> FloatPointOf(double x, double y) {
    IRef<IFloatPoint> point(CreateClassFloatPoint());
    point->SetX(x);
    point->SetY(y);
    return point;
}

// The rectangle with two opposite corners.
inline bool SetWindow(const IRef<ICoordinateGrid>& grid, double left, double top, double right,
                      double bottom) {
    return grid->SetWindowFromPoints(FloatPointOf(left, top).Get(), FloatPointOf(right, top).Get(),
                                     FloatPointOf(right, bottom).Get(), FloatPointOf(left, bottom).Get());
}

inline IRef<IArray> LineAt(const IRef<IArray>& lines, std::uint32_t index) {
    return IRef<IArray>(lines->GetAt(index));
}

inline std::vector<CKoord> KoordsOf(const IRef<IArray>& line) {
    std::vector<CKoord> koords;
    for (std::uint32_t i = 0; i < line->GetCount(); ++i)
        koords.push_back(KoordOf(At(line, i)));
    return koords;
}

inline std::vector<std::vector<CKoord>> LinesOf(const IRef<IArray>& lines) {
    std::vector<std::vector<CKoord>> all;
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i)
        all.push_back(KoordsOf(LineAt(lines, i)));
    return all;
}

inline std::vector<std::vector<CKoord>> EastLinesOf(const IRef<ICoordinateGrid>& grid) {
    const IRef<IArray> lines(CreateClassArray());
    EXPECT_TRUE(grid->GetEastLines(lines.Get()));
    return LinesOf(lines);
}

inline std::vector<std::vector<CKoord>> NorthLinesOf(const IRef<ICoordinateGrid>& grid) {
    const IRef<IArray> lines(CreateClassArray());
    EXPECT_TRUE(grid->GetNorthLines(lines.Get()));
    return LinesOf(lines);
}

// Places in the area of a system, on a border or on the equator if there is one.
struct GridPlace {
    const char* name;
    std::int32_t system;
    std::int32_t datum;
    double latitude, longitude;
};

inline const std::vector<GridPlace> GRID_PLACES = {
    {"pixels", KOORD_FLOATPIXEL, DATUM_WGS84, 48.0, 12.0},
    {"UTM zones 32 and 33", KOORD_UTM, DATUM_WGS84, 48.0, 12.0},
    {"UTM on the equator", KOORD_UTM, DATUM_WGS84, 0.1, 6.1},
    {"UTM zones 22 and 23 south", KOORD_UTM, DATUM_WGS84, -23.5, -48.2},
    {"UTMREF zones 32 and 33", KOORD_UTMREF, DATUM_WGS84, 54.2, 11.9},
    {"UTMREF south", KOORD_UTMREF, DATUM_WGS84, -36.9, 174.8},
    {"GEODEZ at Greenwich", KOORD_GEODEZ, DATUM_WGS84, 51.3, 0.2},
    {"GEODEZMIN south", KOORD_GEODEZMIN, DATUM_WGS84, -16.1, 28.4},
    {"GEOGRAD west", KOORD_GEOGRAD, DATUM_WGS84, 40.4, -74.2},
    {"GEOREF over letters", KOORD_GEOREF, DATUM_WGS84, 44.9, 15.2},
    {"GK strips 3 and 4", KOORD_GK, DATUM_GER, 50.0, 10.4},
    {"GK strips -1 and 0", KOORD_GK, DATUM_GER, 40.0, -1.4},
    {"BMN meridians 31 and 34", KOORD_BMN, DATUM_MGI, 47.8, 14.8},
    {"OEM meridians 28 and 31", KOORD_OEM, DATUM_MGI, 47.3, 11.7},
    {"CH", KOORD_CH, DATUM_CH1903, 46.9, 8.2},
    {"GK6 strips 5 and 6", KOORD_GK6, DATUM_KS42, 55.0, 30.1},
    {"GK6 strips -1 and 1", KOORD_GK6, DATUM_WGS84, 51.5, 0.1},
    {"GK-AT meridians 31 and 34", KOORD_GKAT, DATUM_MGI, 48.1, 14.9},
    {"UPS", KOORD_UPS, DATUM_WGS84, 84.0, 20.0},
    {"PO_MILITARY", KOORD_PO_MILITARY, DATUM_EUR_M, 39.4, -8.2},
    {"VDG", KOORD_VDG, DATUM_WGS84, 35.0, 25.0},
    {"BNG", KOORD_BNG, DATUM_OGB, 53.0, -1.5},
    {"ING", KOORD_ING, DATUM_IRL, 53.4, -7.8},
    {"RD", KOORD_RD, DATUM_RDNAP, 52.2, 5.4},
    {"LUREF", KOORD_LUREF, DATUM_NTL, 49.8, 6.1},
};

// A map around the place with pixels of a hundred metres, on which lines of equal latitude and longitude are
// curved.
inline IRef<IMapCoordOperations> ConeMap(const GridPlace& place) {
    const MapLambert2Params cone{place.latitude - 1.0, place.latitude + 1.5, place.longitude - 1.0};
    const tagKOORD centre = GeodezRecord(place.latitude, place.longitude, 0.0, place.datum);
    return MapOf(WithReference(Map(MAP_LAMBERT2, cone, place.datum), centre, 800, 600, 1000000, 10.0));
}

// A sheet in degrees around the same place, with ten pixels for a kilometre of latitude.
inline IRef<IMapCoordOperations> PlateMap(const GridPlace& place) {
    return MapOf(
        Map(MAP_DD, MapDdParams{place.longitude - 0.8, place.latitude + 0.55, 1100.0, 1100.0}, place.datum));
}

}  // namespace tessara::testing

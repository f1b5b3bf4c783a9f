// Creates coordinate grids, with one operation for each coordinate system that has grid lines.
#pragma once

#include <cstdint>

#include "tessara/unknown.h"

namespace tessara {

class ICoordinateGrid;
class IMapCoordOperations;

inline constexpr GUID CLSID_CoordinateGridFactory = ParseGuid("7A75CF12-C05A-48E4-ACAF-6A8DEF72EC68");
inline constexpr GUID IID_ICoordinateGridFactory = ParseGuid("86915788-2BD0-49FC-ACD5-0367AE993045");

// Example: lines every kilometre of UTM.
//
//     const tessara::IRef factory = tessara::CreateClassCoordinateGridFactory();
//     const tessara::IRef grid = factory->CreateUtmGrid(map, tessara::DATUM_WGS84, 1000.0, 1000.0);
//     if (!grid.IsValid()) return;
//     const double step = grid->GetEastStep();  // 1000
//
// Each operation creates a grid with count 0 in the system of its name, on the given datum: 0..238, or 999
// for no datum, which only the pixel grid can use. The grid keeps the map and has no window yet. A negative
// step counts as its absolute value.
//
// Returns null for a null map or an object of another kind, for another datum, for a step that is 0.0,
// infinite or a NaN, and if memory runs out. A TM grid never accepts a window, because TM has no fixed
// extent.
class ICoordinateGridFactory : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateGridFactory;

    virtual ICoordinateGrid* CreateFloatPixelGrid(IMapCoordOperations* map, std::int32_t datum,
                                                  double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateUtmGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                           double northStep) = 0;
    virtual ICoordinateGrid* CreateUtmrefGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                              double northStep) = 0;
    virtual ICoordinateGrid* CreateGeodezGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                              double northStep) = 0;
    virtual ICoordinateGrid* CreateGeodezminGrid(IMapCoordOperations* map, std::int32_t datum,
                                                 double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateGeogradGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                               double northStep) = 0;
    virtual ICoordinateGrid* CreateGeorefGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                              double northStep) = 0;
    virtual ICoordinateGrid* CreateGkGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                          double northStep) = 0;
    virtual ICoordinateGrid* CreateBmnGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                           double northStep) = 0;
    virtual ICoordinateGrid* CreateOemGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                           double northStep) = 0;
    virtual ICoordinateGrid* CreateChGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                          double northStep) = 0;
    virtual ICoordinateGrid* CreateGk6Grid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                           double northStep) = 0;
    virtual ICoordinateGrid* CreateGkAtGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                            double northStep) = 0;
    virtual ICoordinateGrid* CreateUpsGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                           double northStep) = 0;
    virtual ICoordinateGrid* CreatePoMilitaryGrid(IMapCoordOperations* map, std::int32_t datum,
                                                  double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateTmGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                          double northStep) = 0;
    virtual ICoordinateGrid* CreateVdgGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                           double northStep) = 0;
    virtual ICoordinateGrid* CreateBngGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                           double northStep) = 0;
    virtual ICoordinateGrid* CreateIngGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                           double northStep) = 0;
    virtual ICoordinateGrid* CreateRdGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                          double northStep) = 0;
    virtual ICoordinateGrid* CreateLurefGrid(IMapCoordOperations* map, std::int32_t datum, double eastStep,
                                             double northStep) = 0;

  protected:
    ~ICoordinateGridFactory() = default;
};

// Creates a factory with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateGridFactory* CreateClassCoordinateGridFactory();

}  // namespace tessara

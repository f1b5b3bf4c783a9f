// Makes coordinate grids, one operation for each coordinate system.
#pragma once

#include <cstdint>

#include "tessara/unknown.h"

namespace tessara {

class ICoordinateGrid;
class IMapCoordOperations;

inline constexpr GUID CLSID_CoordinateGridFactory = ParseGuid("7A75CF12-C05A-48E4-ACAF-6A8DEF72EC68");
inline constexpr GUID IID_ICoordinateGridFactory = ParseGuid("86915788-2BD0-49FC-ACD5-0367AE993045");

// Each operation gives a new grid with count 0, which holds the map and has no window yet, in the system of
// the operation's name on the given datum (0..238, or 999 for none, on which only pixels have a place). A
// negative step counts as its absolute value.
//
// Null for a null or wrong map, another datum, a step that is 0.0, infinite or no number, and without memory.
// A TM grid can be made, but TM positions have no extent in common and so no window can be set.
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

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateGridFactory* CreateClassCoordinateGridFactory();

}  // namespace tessara

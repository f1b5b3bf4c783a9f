// Extents, polygons, midpoints, comparison, neighbours and grids.
#pragma once

#include "abi/contract/maps.h"

namespace contract {

class ICoordinateArea : public IUnknown {
  public:
    static constexpr Guid ID = Id("BBC9C06E-DFB8-4A8F-95C1-535BC32A43EE");
    virtual bool GetSystemNorth(ICoord* point) = 0;
    virtual bool GetSystemEast(ICoord* point) = 0;
    virtual bool GetSystemSouth(ICoord* point) = 0;
    virtual bool GetSystemWest(ICoord* point) = 0;
    virtual bool GetSystemExtremes(ICoord* north, ICoord* east, ICoord* south, ICoord* west) = 0;
    virtual bool GetMapRectNorth(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectEast(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectSouth(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectWest(IMapCoordOperations* map, IRect* rect, ICoord* point) = 0;
    virtual bool GetMapRectExtremes(IMapCoordOperations* map, IRect* rect, ICoord* north, ICoord* east,
                                    ICoord* south, ICoord* west) = 0;
    virtual bool GetMapLineNorth(IMapCoordOperations* map, IArray* line, ICoord* point) = 0;
    virtual bool GetLineNorth(IArray* line, ICoord* point) = 0;
    virtual bool GetMapLineEast(IMapCoordOperations* map, IArray* line, ICoord* point) = 0;
    virtual bool GetLineEast(IArray* line, ICoord* point) = 0;
    virtual bool GetMapLineSouth(IMapCoordOperations* map, IArray* line, ICoord* point) = 0;
    virtual bool GetLineSouth(IArray* line, ICoord* point) = 0;
    virtual bool GetMapLineWest(IMapCoordOperations* map, IArray* line, ICoord* point) = 0;
    virtual bool GetLineWest(IArray* line, ICoord* point) = 0;
    virtual bool GetMapLineExtremes(IMapCoordOperations* map, IArray* line, ICoord* north, ICoord* east,
                                    ICoord* south, ICoord* west) = 0;
    virtual bool GetLineExtremes(IArray* line, ICoord* north, ICoord* east, ICoord* south, ICoord* west) = 0;
    virtual bool IsInsideCoordEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    virtual bool IsInsideCoordEdgesNoMap(ICoord* point, IArray* polygon) = 0;
    virtual bool IsInsideMapEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    virtual bool IsInsideTransferred(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    virtual bool IsInsideOnMap(IMapCoordOperations* map, ICoord* point, IArray* polygon) = 0;
    virtual bool IsInsidePixels(ICoord* point, IArray* polygon) = 0;
    virtual bool SetTolerance(double tolerance) = 0;
    virtual double GetTolerance() = 0;
    virtual int32_t OverlayOnMap(IMapCoordOperations* map, IArray* first, IArray* second, IArray* neither,
                                 IArray* onlySecond, IArray* onlyFirst, IArray* both) = 0;
    virtual int32_t Overlay(IArray* first, IArray* second, IArray* neither, IArray* onlySecond,
                            IArray* onlyFirst, IArray* both) = 0;
    virtual int32_t OverlayPixels(IMapCoordOperations* map, IArray* first, IArray* second, IArray* neither,
                                  IArray* onlySecond, IArray* onlyFirst, IArray* both) = 0;
    virtual bool SplitPolygon(IMapCoordOperations* map, IArray* polygon, IArray* parts) = 0;

  protected:
    ~ICoordinateArea() = default;
};

class ICoordinateAreaInternal : public IUnknown {
  public:
    static constexpr Guid ID = Id("ECED2B61-F554-4CC5-BCDE-C00D5F18C476");
    virtual bool GetRectExtremes(IMapCoordOperations* map, const PixelRect* rect, ICoord* north, ICoord* east,
                                 ICoord* south, ICoord* west) = 0;

  protected:
    ~ICoordinateAreaInternal() = default;
};

class ICoordinateAverage : public IUnknown {
  public:
    static constexpr Guid ID = Id("AFADCB18-85B8-4E45-81C5-0411952E6B5B");
    virtual bool Average(ICoord* first, ICoord* second, ICoord* result) = 0;

  protected:
    ~ICoordinateAverage() = default;
};

class ICoordinateCompare : public IUnknown {
  public:
    static constexpr Guid ID = Id("F410B044-E00F-429F-A09D-C21C31DC0B3F");
    virtual int32_t CompareNorthSouth(ICoord* first, ICoord* second) = 0;
    virtual int32_t CompareEastWest(ICoord* first, ICoord* second) = 0;

  protected:
    ~ICoordinateCompare() = default;
};

class ICoordinateNeighbor : public IUnknown {
  public:
    static constexpr Guid ID = Id("CB374C83-9347-48BF-83E2-A51F595DA72C");
    virtual bool GetNorthNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetSouthNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetEastNeighbor(ICoord* source, ICoord* target) = 0;
    virtual bool GetWestNeighbor(ICoord* source, ICoord* target) = 0;

  protected:
    ~ICoordinateNeighbor() = default;
};

class ICoordinateGrid : public IUnknown {
  public:
    static constexpr Guid ID = Id("B22763C2-57F5-4FFD-B028-F82F84242609");
    virtual bool SetWindowFromPoints(IFloatPoint* a, IFloatPoint* b, IFloatPoint* c, IFloatPoint* d) = 0;
    virtual bool SetWindow(ICoord* a, ICoord* b, ICoord* c, ICoord* d) = 0;
    virtual bool GetEastLines(IArray* out) = 0;
    virtual bool GetNorthLines(IArray* out) = 0;
    virtual bool GetEastLinePixels(IArray* out) = 0;
    virtual bool GetNorthLinePixels(IArray* out) = 0;
    virtual double GetEastStep() = 0;
    virtual double GetNorthStep() = 0;
    virtual bool CopyMapTo(IMapCoordOperations* target) = 0;
    virtual bool GetReference(ICoordinateReference* target) = 0;

  protected:
    ~ICoordinateGrid() = default;
};

class ICoordinateGridFactory : public IUnknown {
  public:
    static constexpr Guid ID = Id("86915788-2BD0-49FC-ACD5-0367AE993045");
    using Map = IMapCoordOperations;
    virtual ICoordinateGrid* CreateFloatPixelGrid(Map* map, int32_t datum, double eastStep,
                                                  double northStep) = 0;
    virtual ICoordinateGrid* CreateUtmGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateUtmrefGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateGeodezGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateGeodezminGrid(Map* map, int32_t datum, double eastStep,
                                                 double northStep) = 0;
    virtual ICoordinateGrid* CreateGeogradGrid(Map* map, int32_t datum, double eastStep,
                                               double northStep) = 0;
    virtual ICoordinateGrid* CreateGeorefGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateGkGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateBmnGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateOemGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateChGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateGk6Grid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateGkAtGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateUpsGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreatePoMilitaryGrid(Map* map, int32_t datum, double eastStep,
                                                  double northStep) = 0;
    virtual ICoordinateGrid* CreateTmGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateVdgGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateBngGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateIngGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateRdGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;
    virtual ICoordinateGrid* CreateLurefGrid(Map* map, int32_t datum, double eastStep, double northStep) = 0;

  protected:
    ~ICoordinateGridFactory() = default;
};

}  // namespace contract

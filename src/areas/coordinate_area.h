#pragma once

#include "records/axis.h"
#include "tessara/coordinate_area.h"
#include "tessara/object.h"

namespace tessara {

class CoordinateArea : public ICoordinateArea, public ICoordinateAreaInternal {
  public:
    using Faces = FaceList<ICoordinateArea, ICoordinateAreaInternal>;

    bool GetSystemNorth(ICoord* point) override;
    bool GetSystemEast(ICoord* point) override;
    bool GetSystemSouth(ICoord* point) override;
    bool GetSystemWest(ICoord* point) override;
    bool GetSystemExtremes(ICoord* north, ICoord* east, ICoord* south, ICoord* west) override;

    bool GetMapRectNorth(IMapCoordOperations* map, IRect* rect, ICoord* point) override;
    bool GetMapRectEast(IMapCoordOperations* map, IRect* rect, ICoord* point) override;
    bool GetMapRectSouth(IMapCoordOperations* map, IRect* rect, ICoord* point) override;
    bool GetMapRectWest(IMapCoordOperations* map, IRect* rect, ICoord* point) override;
    bool GetMapRectExtremes(IMapCoordOperations* map, IRect* rect, ICoord* north, ICoord* east, ICoord* south,
                            ICoord* west) override;

    bool GetMapLineNorth(IMapCoordOperations* map, IArray* line, ICoord* point) override;
    bool GetLineNorth(IArray* line, ICoord* point) override;
    bool GetMapLineEast(IMapCoordOperations* map, IArray* line, ICoord* point) override;
    bool GetLineEast(IArray* line, ICoord* point) override;
    bool GetMapLineSouth(IMapCoordOperations* map, IArray* line, ICoord* point) override;
    bool GetLineSouth(IArray* line, ICoord* point) override;
    bool GetMapLineWest(IMapCoordOperations* map, IArray* line, ICoord* point) override;
    bool GetLineWest(IArray* line, ICoord* point) override;
    bool GetMapLineExtremes(IMapCoordOperations* map, IArray* line, ICoord* north, ICoord* east,
                            ICoord* south, ICoord* west) override;
    bool GetLineExtremes(IArray* line, ICoord* north, ICoord* east, ICoord* south, ICoord* west) override;

    bool IsInsideCoordEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) override;
    bool IsInsideCoordEdgesNoMap(ICoord* point, IArray* polygon) override;
    bool IsInsideMapEdges(IMapCoordOperations* map, ICoord* point, IArray* polygon) override;
    bool IsInsideTransferred(IMapCoordOperations* map, ICoord* point, IArray* polygon) override;
    bool IsInsideOnMap(IMapCoordOperations* map, ICoord* point, IArray* polygon) override;
    bool IsInsidePixels(ICoord* point, IArray* polygon) override;

    bool SetTolerance(double tolerance) override;
    double GetTolerance() override { return tolerance_; }

    std::int32_t OverlayOnMap(IMapCoordOperations* map, IArray* first, IArray* second, IArray* neither,
                              IArray* onlySecond, IArray* onlyFirst, IArray* both) override;
    std::int32_t Overlay(IArray* first, IArray* second, IArray* neither, IArray* onlySecond,
                         IArray* onlyFirst, IArray* both) override;
    std::int32_t OverlayPixels(IMapCoordOperations* map, IArray* first, IArray* second, IArray* neither,
                               IArray* onlySecond, IArray* onlyFirst, IArray* both) override;
    bool SplitPolygon(IMapCoordOperations* map, IArray* polygon, IArray* parts) override;

    // An operation of the class, behind those of the interface.
    virtual ~CoordinateArea() = default;

    bool GetRectExtremes(IMapCoordOperations* map, const PixelRect* rect, ICoord* north, ICoord* east,
                         ICoord* south, ICoord* west) override;

  private:
    double tolerance_ = 2.220446049250313e-11;
};

}  // namespace tessara

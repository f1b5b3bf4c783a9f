#pragma once

#include "geometry/densify.h"
#include "tessara/line_points.h"
#include "tessara/object.h"

namespace tessara {

class LinePoints : public ILinePoints {
  public:
    using Faces = FaceList<ILinePoints>;

    bool SetPixelTolerance(double tolerance) override;
    double GetPixelTolerance() override { return pixelTolerance_; }
    bool DensifyMapStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) override;
    bool DensifyCoordStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) override;
    bool DensifyCoordStraightZoned(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) override;
    bool DensifyGeodesic(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) override;
    bool DensifyInReference(ICoord* a, ICoord* b, ICoordinateReference* reference, IArray* out) override;
    bool IntersectOnMap(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                        IIntersectionResults* results) override;
    bool IntersectOnMapToArray(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                               IArray* points) override;
    bool IntersectPixelLines(IArray* lineA, IArray* lineB, IIntersectionResults* results) override;
    bool IntersectPixelLinesToArray(IArray* lineA, IArray* lineB, IArray* points) override;
    bool IsPointOnLine(IMapCoordOperations* map, ICoord* point, IArray* line) override;
    double GetSignedDistance(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b) override;
    bool GetFootPoint(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b, ICoord* out) override;
    // An operation of the class, behind those of the interface.
    virtual ~LinePoints() = default;

  private:
    bool Densify(DensifyMode mode, IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out);

    double pixelTolerance_ = DEFAULT_PIXEL_TOLERANCE;
};

}  // namespace tessara

#pragma once

#include "tessara/coord.h"
#include "tessara/coordinate_transfer.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/euclidean_vector.h"
#include "tessara/object.h"
#include "tessara/ref.h"
#include "tessara/tangent_plane.h"

namespace tessara {

class TangentPlane : public ITangentPlane {
  public:
    using Faces = FaceList<ITangentPlane>;

    // Throws std::bad_alloc if there is no memory for its parts.
    TangentPlane();

    bool SetOrigin(ICoord* p) override;
    bool GetFrame(ICoord* origin, Vector* east, Vector* north) override;
    bool GetOrigin(ICoord* out) override;
    bool GetNormal(Vector* out) override;
    bool GetDirection(double azimuth, Vector* out) override;
    double GetAzimuth(ICoord* p) override;
    double IntersectRay(const Vector* point, const Vector* direction, double* x, double* y) override;
    double ProjectAlong(ICoord* p, const Vector* direction, ICoord* out) override;
    bool MapByGeodesic(ICoord* p, ICoord* out) override;
    bool MapByChord(ICoord* p, ICoord* out) override;
    bool GetPlaneCoords(ICoord* p, double* x, double* y, double* z) override;
    bool PlaneCoordsToCoord(double x, double y, double z, ICoord* out) override;

  protected:
    ~TangentPlane() override = default;

  private:
    bool PointInPlane(ICoord* p, double distance, ICoord* out);

    IRef<ICoord> origin_;  // GEODEZ, in the datum of the coordinate it was set from
    IRef<IEllipsoidOfRevolution> ellipsoid_;
    IRef<IVector> vectors_;
    IRef<ICoordinateTransfer> transfer_;
    Vector originXyz_;
    Vector east_;
    Vector north_;
};

}  // namespace tessara

#pragma once

#include "frame/managed_object.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/euclidean_vector.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class EllipsoidOfRevolution : public IEllipsoidOfRevolution {
  public:
    using Faces = FaceList<IEllipsoidOfRevolution>;

    bool GetLocalAxes(ICoord* p, Vector* east, Vector* north) override;
    bool GetNormal(ICoord* p, Vector* normal) override;
    bool GetDirection(ICoord* p, double azimuth, Vector* direction) override;
    bool CoordToEcefVector(ICoord* p, Vector* xyz) override;
    bool EcefVectorToCoord(const Vector* xyz, ICoord* out) override;
    bool PointAtGeodesicDistance(ICoord* start, double azimuth, double distance, ICoord* out) override;
    bool PointAtChordDistance(ICoord* start, double azimuth, double distance, ICoord* out) override;
    bool IntersectLine(ICoord* origin, const Vector* direction, ICoord* near, ICoord* far) override;

  protected:
    ~EllipsoidOfRevolution() override = default;

  private:
    // The frame at a start: its place, the direction up and the direction of an azimuth.
    struct Tripod {
        Vector origin;
        Vector normal;
        Vector direction;
    };

    bool GetTripod(ICoord* start, double azimuth, Tripod* tripod);
    // The point origin + t * direction.
    Vector Along(const Vector& origin, double t, const Vector& direction) const;

    IRef<IVector> vectors_ = ManagedPart(CLSID_EuclideanVector, CreateClassEuclideanVector);
};

}  // namespace tessara

#pragma once

#include "frame/managed_object.h"
#include "tessara/circle_on_tangent_plane.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/euclidean_vector.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class CircleOnTangentPlane : public ICircleOnTangentPlane {
  public:
    using Faces = FaceList<ICircleOnTangentPlane>;

    bool MakeCircle(ICoord* centre, double startAngle, double endAngle, double radius, IArray* out,
                    std::uint32_t count, bool clockwise) override;

  protected:
    ~CircleOnTangentPlane() override = default;

  private:
    IRef<IEllipsoidOfRevolution> ellipsoid_ =
        ManagedPart(CLSID_EllipsoidOfRevolution, CreateClassEllipsoidOfRevolution);
    IRef<IVector> vectors_ = ManagedPart(CLSID_EuclideanVector, CreateClassEuclideanVector);
};

}  // namespace tessara

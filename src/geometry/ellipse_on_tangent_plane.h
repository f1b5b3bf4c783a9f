#pragma once

#include "frame/managed_object.h"
#include "tessara/ellipse_on_tangent_plane.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/euclidean_vector.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class EllipseOnTangentPlane : public IEllipseOnTangentPlane {
  public:
    using Faces = FaceList<IEllipseOnTangentPlane>;

    bool MakeEllipse(ICoord* centre, double rotation, double axisAlong, double axisAcross, double startAngle,
                     double endAngle, IArray* out, std::uint32_t count, bool clockwise) override;

  protected:
    ~EllipseOnTangentPlane() override = default;

  private:
    IRef<IEllipsoidOfRevolution> ellipsoid_ =
        ManagedPart(CLSID_EllipsoidOfRevolution, CreateClassEllipsoidOfRevolution);
    IRef<IVector> vectors_ = ManagedPart(CLSID_EuclideanVector, CreateClassEuclideanVector);
};

}  // namespace tessara

#include "geometry/ellipse_on_tangent_plane.h"

#include "geometry/plane_arc.h"

namespace tessara {

bool EllipseOnTangentPlane::MakeEllipse(ICoord* centre, double rotation, double axisAlong, double axisAcross,
                                        double startAngle, double endAngle, IArray* out, std::uint32_t count,
                                        bool clockwise) {
    return MakePlaneArc(ellipsoid_, vectors_, centre, {rotation, axisAlong, axisAcross},
                        {startAngle, endAngle, count, clockwise}, out);
}

IEllipseOnTangentPlane* CreateClassEllipseOnTangentPlane() {
    return NewObject<EllipseOnTangentPlane>();
}

}  // namespace tessara

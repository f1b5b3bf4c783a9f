#include "geometry/circle_on_tangent_plane.h"

#include "geometry/plane_arc.h"

namespace tessara {

bool CircleOnTangentPlane::MakeCircle(ICoord* centre, double startAngle, double endAngle, double radius,
                                      IArray* out, std::uint32_t count, bool clockwise) {
    return MakePlaneArc(ellipsoid_, vectors_, centre, {0.0, radius, radius},
                        {startAngle, endAngle, count, clockwise}, out);
}

ICircleOnTangentPlane* CreateClassCircleOnTangentPlane() {
    return NewObject<CircleOnTangentPlane>();
}

}  // namespace tessara

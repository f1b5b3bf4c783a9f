// Arcs of an ellipse in the horizontal plane at a coordinate. A circle is the one of equal axes.
#pragma once

#include "tessara/array.h"
#include "tessara/coord.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/euclidean_vector.h"
#include "tessara/ref.h"

namespace tessara {

struct PlaneEllipse {
    double rotation;  // azimuth of the axis along, degrees
    double along;     // semi-axes, metres
    double across;
};

struct ArcAngles {
    double start;  // degrees
    double end;
    std::uint32_t count;
    bool clockwise;
};

// Fills `out` with the points of the arc as ECEF coordinates in the datum of the centre. False, with `out`
// empty, for an empty handle of either service and as the interfaces of circle and ellipse tell.
bool MakePlaneArc(const IRef<IEllipsoidOfRevolution>& ellipsoid, const IRef<IVector>& vectors, ICoord* centre,
                  const PlaneEllipse& ellipse, const ArcAngles& angles, IArray* out);

}  // namespace tessara

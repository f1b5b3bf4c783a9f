// Arcs of an ellipse in the horizontal plane at a coordinate. A circle is an ellipse with equal axes.
#pragma once

#include "tessara/array.h"
#include "tessara/coord.h"
#include "tessara/ellipsoid_of_revolution.h"
#include "tessara/euclidean_vector.h"
#include "tessara/ref.h"

namespace tessara {

struct PlaneEllipse {
    double rotation;  // azimuth of the semi-axis `along`, degrees
    double along;     // semi-axes, metres
    double across;
};

struct ArcAngles {
    double start;  // degrees
    double end;
    std::uint32_t count;
    bool clockwise;
};

// Fills `out` with the points of the arc, as ECEF coordinates in the datum of the centre. False, with `out`
// empty, if a service handle is empty, the count is below 2, the centre has no position or a number isn't
// finite.
bool MakePlaneArc(const IRef<IEllipsoidOfRevolution>& ellipsoid, const IRef<IVector>& vectors, ICoord* centre,
                  const PlaneEllipse& ellipse, const ArcAngles& angles, IArray* out);

}  // namespace tessara

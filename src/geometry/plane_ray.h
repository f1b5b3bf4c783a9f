// The intersection of a ray with the plane that two vectors span.
#pragma once

#include <array>

namespace tessara {

using Triple = std::array<double, 3>;

struct PlaneHit {
    double t;  // the ray's parameter, RAY_IN_PLANE, or MISSING_NUMBER with x and y 0.0
    double x;
    double y;
};

// Solves d + t D = x E + y N by elimination: d is the start of the ray relative to the origin of the plane,
// D the direction of the ray, E and N are the axes of the plane. A ray along the plane lies in it up to 0.01
// mm beside it; the result is then the place of its start.
[[nodiscard]] PlaneHit IntersectPlane(const Triple& d, const Triple& D, const Triple& E, const Triple& N);

}  // namespace tessara

// An ellipsoid of revolution in earth-centred space: positions to x, y, z and back, and the line through it.
// Plain functions of numbers; metres and degrees.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"

namespace tessara {

struct EllipsoidAxes {
    double a;   // semi-major axis
    double e2;  // eccentricity squared
};

// False for a datum outside 0..238.
bool LoadEllipsoid(std::int32_t datum, EllipsoidAxes* ellipsoid);

[[nodiscard]] EcefPayload SpacePoint(const EllipsoidAxes& ellipsoid, const GeodezPayload& position);

// The iteration that include/tessara/ellipsoid_of_revolution.h tells of. False for the centre, for numbers
// that aren't finite and where the iteration doesn't end; *position is then unchanged.
bool SpacePosition(const EllipsoidAxes& ellipsoid, const EcefPayload& point, GeodezPayload* position);

// The two parameters t at which point + t direction lies on the ellipsoid: the one of smaller magnitude in
// *near, the positive root on a tie. False if the line misses or has no direction.
bool IntersectEllipsoid(const EllipsoidAxes& ellipsoid, const EcefPayload& point,
                        const EcefPayload& direction, double* near, double* far);

}  // namespace tessara

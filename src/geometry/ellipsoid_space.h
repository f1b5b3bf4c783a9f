// An ellipsoid of revolution in earth-centred space: conversion between positions and x, y, z, and
// intersection with a line. Plain functions on numbers; metres and degrees.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord.h"

namespace tessara {

struct EllipsoidAxes {
    double a;   // semi-major axis
    double e2;  // eccentricity squared
};

// False for a datum outside 0..238; *ellipsoid is then unchanged.
bool LoadEllipsoid(std::int32_t datum, EllipsoidAxes* ellipsoid);

[[nodiscard]] EcefPayload SpacePoint(const EllipsoidAxes& ellipsoid, const GeodezPayload& position);

// Iterates latitude and height in turn until the height moves by less than 0.01 m and the latitude by less
// than 1e-6 degrees. False for the centre, for numbers that aren't finite and if the iteration doesn't
// converge; *position is then unchanged.
bool SpacePosition(const EllipsoidAxes& ellipsoid, const EcefPayload& point, GeodezPayload* position);

// Finds the two parameters t at which point + t direction lies on the ellipsoid. *near receives the one of
// smaller magnitude, on a tie the positive one. False if the line misses or has no direction.
bool IntersectEllipsoid(const EllipsoidAxes& ellipsoid, const EcefPayload& point,
                        const EcefPayload& direction, double* near, double* far);

}  // namespace tessara

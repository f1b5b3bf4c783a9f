// Earth-centred Cartesian coordinates and positions on an ellipsoid: what conversions of one position and of
// many share.
#pragma once

#include <cmath>

#include "numerics/arcs.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/koord.h"

namespace tessara::ecef {

inline constexpr double LATITUDE_TOLERANCE = 1.7453292519943295e-8;  // radians, a millionth of a degree

struct Figure {
    double a, e2;
};

// The radius of curvature in the prime vertical.
[[nodiscard]] inline double NormalRadius(const Figure& figure, double sinLat) {
    return figure.a / std::sqrt(1.0 - figure.e2 * sinLat * sinLat);
}

// A point of height 0.
[[nodiscard]] inline EcefPayload PointOf(const Figure& figure, SinCos phi, SinCos lambda) {
    const double N = NormalRadius(figure, phi.sine);
    return {N * phi.cosine * lambda.cosine, N * phi.cosine * lambda.sine, (1.0 - figure.e2) * N * phi.sine};
}

[[nodiscard]] inline double LongitudeOf(double x, double y) {
    const double lon = Atan(y / x);
    const double behind = y < 0.0 ? lon - PI : lon + PI;
    return x < 0.0 ? behind : lon;
}

struct Latitude {
    double angle;
    SinCos direction;
};

// The tangent of the latitude that a point of height 0 has; `p` is the distance from the axis.
[[nodiscard]] inline double FirstTangent(const Figure& figure, double p, double z) {
    return z / ((1.0 - figure.e2) * p);
}

// Of a tangent whose square is a number.
[[nodiscard]] inline Latitude LatitudeOf(double tangent) {
    const double cosine = 1.0 / std::sqrt(1.0 + tangent * tangent);
    return {Atan(tangent), {tangent * cosine, cosine}};
}

// Newton's step from a latitude, to be taken off.
[[nodiscard]] inline double StepFrom(const Latitude& lat, const Figure& figure, double p, double z) {
    const auto [s, c] = lat.direction;
    const double N = NormalRadius(figure, s);
    const double nByA = N / figure.a;
    return (s / c - (N * figure.e2 * s + z) / p) / (1.0 / (c * c) - N / p * (nByA * nByA) * figure.e2 * c);
}

[[nodiscard]] inline double HeightOf(const Latitude& lat, const Figure& figure, double p) {
    return p / lat.direction.cosine - NormalRadius(figure, lat.direction.sine);
}

// A position in degrees of height 0, to a record.
void Write(double latitude, double longitude, const DatumRow& row, tagKOORD* target);

}  // namespace tessara::ecef

#include "geometry/ellipsoid_space.h"

#include <cmath>

#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

constexpr int MAX_ROUNDS = 50;
constexpr double HEIGHT_TOLERANCE = 0.01;    // metres
constexpr double LATITUDE_TOLERANCE = 1e-6;  // degrees

// The radius of curvature in the prime vertical, metres.
double NormalRadius(const EllipsoidAxes& ellipsoid, double sinPhi) {
    return ellipsoid.a / std::sqrt(1.0 - ellipsoid.e2 * sinPhi * sinPhi);
}

// Finds the latitude and height of a point at distance p from the axis; false if the iteration doesn't
// converge. The height converges on each latitude before the latitude moves, so each move of the latitude
// takes at least two rounds.
bool SettleLatitude(const EllipsoidAxes& ellipsoid, double p, double z, double* latitude, double* height) {
    double h = 0.0;
    double phi = Atan2(z, (1.0 - ellipsoid.e2) * p) * DEGREES_PER_RADIAN;
    for (int round = 0; round < MAX_ROUNDS; ++round) {
        const auto [sinPhi, cosPhi] = SinCosOf(phi / DEGREES_PER_RADIAN);
        const double N = NormalRadius(ellipsoid, sinPhi);
        // The cosine is small at a pole but never 0: no double equals pi / 2.
        const double newH = p / cosPhi - N;
        const double newPhi = Atan2(z, (1.0 - N / (N + newH) * ellipsoid.e2) * p) * DEGREES_PER_RADIAN;
        const double heightStep = std::fabs(newH - h);
        h = newH;
        if (heightStep > HEIGHT_TOLERANCE) continue;
        const double latitudeStep = std::fabs(newPhi - phi);
        phi = newPhi;
        if (latitudeStep > LATITUDE_TOLERANCE) continue;
        *latitude = phi;
        *height = h;
        return true;
    }
    return false;
}

}  // namespace

bool LoadEllipsoid(std::int32_t datum, EllipsoidAxes* ellipsoid) {
    ellipsoid->a = Datum_SemiMajorAxis(datum);
    ellipsoid->e2 = Datum_EccentricitySquared(datum);
    return ellipsoid->a != -1.0 && ellipsoid->e2 != -1.0;
}

EcefPayload SpacePoint(const EllipsoidAxes& ellipsoid, const GeodezPayload& position) {
    const SinCos phi = SinCosOf(position.latitude / DEGREES_PER_RADIAN);
    const SinCos lambda = SinCosOf(position.longitude / DEGREES_PER_RADIAN);
    const double h = position.height;
    const double N = NormalRadius(ellipsoid, phi.sine);
    return {(N + h) * lambda.cosine * phi.cosine, (N + h) * lambda.sine * phi.cosine,
            ((1.0 - ellipsoid.e2) * N + h) * phi.sine};
}

bool SpacePosition(const EllipsoidAxes& ellipsoid, const EcefPayload& point, GeodezPayload* position) {
    const auto [x, y, z] = point;
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) return false;
    if (x == 0.0 && y == 0.0 && z == 0.0) return false;
    const double p = std::sqrt(x * x + y * y);
    double latitude = 0.0;
    double height = 0.0;
    if (p == 0.0) {
        // On the axis the iteration would divide 0 by 0.
        latitude = z < 0.0 ? -90.0 : 90.0;
        height = std::fabs(z) - ellipsoid.a * std::sqrt(1.0 - ellipsoid.e2);
    } else if (!SettleLatitude(ellipsoid, p, z, &latitude, &height)) {
        return false;
    }
    // Near the centre the iteration may converge on the wrong side of the equator or beyond a pole.
    if (latitude * z < 0.0 || !(std::fabs(latitude) <= 90.0) || !std::isfinite(height)) return false;
    *position = {latitude, Atan2(y, x) * DEGREES_PER_RADIAN, height};
    return true;
}

bool IntersectEllipsoid(const EllipsoidAxes& ellipsoid, const EcefPayload& point,
                        const EcefPayload& direction, double* near, double* far) {
    const auto [px, py, pz] = point;
    const auto [dx, dy, dz] = direction;
    const double w = 1.0 - ellipsoid.e2;
    const double A = dx * dx + dy * dy + dz * dz / w;
    const double B = 2.0 * (px * dx + py * dy + pz * dz / w);
    const double C = px * px + py * py + pz * pz / w - ellipsoid.a * ellipsoid.a;
    const double D = B * B - 4.0 * A * C;
    if (D < 0.0) return false;
    const double t1 = (-B + std::sqrt(D)) / (2.0 * A);
    const double t2 = (-B - std::sqrt(D)) / (2.0 * A);
    if (!std::isfinite(t1) || !std::isfinite(t2)) return false;
    const bool swap = std::fabs(t2) < std::fabs(t1);
    *near = swap ? t2 : t1;
    *far = swap ? t1 : t2;
    return true;
}

}  // namespace tessara

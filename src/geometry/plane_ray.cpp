#include "geometry/plane_ray.h"

#include <cmath>
#include <cstddef>

#include "numerics/hypotenuse.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

constexpr PlaneHit MISS{MISSING_NUMBER, 0.0, 0.0};

// Both eliminations divide by a component that vanishes when the plane lies at a pole or on the equator. If
// a divisor is smaller than this fraction of the largest component, the components are reordered; above it
// the place is accurate to 1e-6 m.
constexpr double SMALL_COMPONENT = 1e-3;
// A ray whose direction has a sine up to this toward the plane runs along it; rounding makes as much out of
// zero.
constexpr double SMALL_SINE = 1e-14;
// The distance from the plane, in metres, up to which a ray that runs along it lies in it.
constexpr double BESIDE = 1e-5;

// The components in cyclic order, with `last` as the third one. The equations keep their form in this order.
Triple Turned(const Triple& v, std::size_t last) {
    return {v[(last + 1) % 3], v[(last + 2) % 3], v[last]};
}

// The component to divide by.
std::size_t Pivot(const Triple& v) {
    const double first = std::fabs(v[0]);
    const double second = std::fabs(v[1]);
    const double third = std::fabs(v[2]);
    if (first > second && first > third) return 0;
    return second <= third ? 2 : 1;
}

Triple Cross(const Triple& a, const Triple& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

bool RunsAlong(const Triple& D, const Triple& normal) {
    const double cosine = D[0] * normal[0] + D[1] * normal[1] + D[2] * normal[2];
    return std::fabs(cosine) <= SMALL_SINE * Hypot(Hypot(D[0], D[1]), D[2]);
}

bool IsSmall(double component, double beside) {
    return std::fabs(component) < SMALL_COMPONENT * std::fabs(beside);
}

// The hit of a ray that runs along the plane: the place of its start, or a miss if the start lies beside the
// plane.
PlaneHit AlongPlane(const Triple& r, const Triple& E, const Triple& N) {
    const auto [r1, r2, r3] = r;
    const auto [e1, e2, e3] = E;
    const auto [n1, n2, n3] = N;
    const double u = n1 * e3 - n3 * e1;
    const double v = n2 * e3 - n3 * e2;
    const double w1 = r3 * e1 - r1 * e3;
    const double w2 = r3 * e2 - r2 * e3;
    const double y = std::fabs(u) <= std::fabs(v) ? w2 / v : w1 / u;
    const std::size_t i = Pivot(E);
    const double x = (-r[i] - y * N[i]) / E[i];
    for (std::size_t k = 0; k < 3; ++k)
        if (std::fabs(r[k] + x * E[k] + y * N[k]) > BESIDE) return MISS;
    return {RAY_IN_PLANE, x, y};
}

// Results near the axes depend on the divisors that are chosen here.
PlaneHit AcrossPlane(const Triple& r, const Triple& D, const Triple& E, const Triple& N) {
    const auto [r1, r2, r3] = r;
    const auto [p, q, s] = D;
    const auto [e1, e2, e3] = E;
    const auto [n1, n2, n3] = N;
    const double b1 = e3 * p - e1 * s;
    const double b2 = e3 * q - e2 * s;
    const double c1 = n1 * s - n3 * p;
    const double c2 = n2 * s - n3 * q;
    const double y = ((p * b2 - q * b1) * r3 + (r2 * b1 - r1 * b2) * s) / (c1 * b2 - c2 * b1);
    const double x = std::fabs(b1) <= std::fabs(b2) ? (y * c2 + (r2 * s - r3 * q)) / b2
                                                    : (y * c1 + (r1 * s - r3 * p)) / b1;
    const std::size_t i = Pivot(D);
    return {(y * N[i] + x * E[i] + r[i]) / D[i], x, y};
}

}  // namespace

PlaneHit IntersectPlane(const Triple& d, const Triple& D, const Triple& E, const Triple& N) {
    // 0.0 - d and not -d: no negative zeros.
    const Triple r{0.0 - d[0], 0.0 - d[1], 0.0 - d[2]};
    const Triple normal = Cross(E, N);
    PlaneHit hit{};
    if (RunsAlong(D, normal)) {
        const bool isUpright = IsSmall(normal[0], normal[2]) && IsSmall(normal[1], normal[2]);
        const std::size_t last = isUpright ? 0 : 2;
        hit = AlongPlane(Turned(r, last), Turned(E, last), Turned(N, last));
    } else {
        const bool isFlat = IsSmall(D[2], D[0]) || IsSmall(D[2], D[1]);
        const std::size_t last = isFlat ? Pivot(D) : 2;
        hit = AcrossPlane(Turned(r, last), Turned(D, last), Turned(E, last), Turned(N, last));
    }
    return std::isfinite(hit.t) && std::isfinite(hit.x) && std::isfinite(hit.y) ? hit : MISS;
}

}  // namespace tessara

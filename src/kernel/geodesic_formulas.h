// The two geodesic problems for one pair of positions, which single calls and columns share.
#pragma once

#include <cmath>

#include "numerics/arcs.h"
#include "numerics/cases.h"
#include "numerics/circular.h"
#include "numerics/conditions.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::geodesic {

inline constexpr int LONGITUDE_ITERATIONS = 100;
inline constexpr double LONGITUDE_TOLERANCE = 1e-13;  // radians

[[nodiscard]] inline double ToRadians(double degrees) {
    return degrees / DEGREES_PER_RADIAN;
}

[[nodiscard]] inline double ToDegrees(double radians) {
    return radians * DEGREES_PER_RADIAN;
}

[[nodiscard]] inline double ToAzimuth(double radians) {
    const double degrees = ToDegrees(radians);
    return degrees < 0.0 ? degrees + 360.0 : degrees;
}

// The elementary functions of a formula. To choose between the cases, all their arguments have to be
// ordinary.
template <Cases cases>
class Elementary {
  public:
    [[nodiscard]] bool AreOrdinary() const { return areOrdinary_; }

    [[nodiscard]] SinCos DirectionOf(double angle) {
        Require(Absolute(angle) <= ORDINARY_ANGLE);
        return tessara::DirectionOf<cases>(angle);
    }
    [[nodiscard]] SinCos DirectionOfSmall(double angle) {
        constexpr Reach reach = cases == Cases::Choose ? Reach::Near : Reach::Everywhere;
        Require(IsSmall(angle * angle));
        return SinCosOfSmall<reach>(angle);
    }
    [[nodiscard]] double AngleOf(double y, double x) {
        Require(IsOrdinaryVector(y, x));
        return cases == Cases::Choose ? Atan2Ordinary(y, x) : Atan2(y, x);
    }

  private:
    void Require(bool condition) {
        if constexpr (cases == Cases::Choose) areOrdinary_ = AllOf(areOrdinary_, condition);
    }

    bool areOrdinary_ = true;
};

struct Ellipsoid {
    double a, b;
    double n;  // third flattening
    double c;  // polar radius of curvature
    double q;  // second eccentricity squared

    Ellipsoid() = default;
    Ellipsoid(double majorAxis, double minorAxis)
        : a(majorAxis), b(minorAxis), n((a - b) / (a + b)), c(a / b * a), q(c / b - 1.0) {}

    template <Cases cases>
    [[nodiscard]] double ReducedLatitude(double p, Elementary<cases>& elementary) const {
        return p + LatitudeStep(elementary.DirectionOf(2.0 * p), -n);
    }
    // `twice` is the direction of 2u.
    [[nodiscard]] double GeodeticLatitude(double u, SinCos twice) const { return u + LatitudeStep(twice, n); }

    // The expansion parameter of the geodesic whose azimuth at the equator has the sine `sa`.
    [[nodiscard]] double ExpansionParameter(double sa) const {
        const double u = std::sqrt(1.0 + q - q * sa * sa);
        return (u - 1.0) / (u + 1.0);
    }

  private:
    // k sin 2x + k^2/2 sin 4x + k^3/3 sin 6x from the direction of 2x.
    static double LatitudeStep(SinCos twice, double k) {
        const auto [s, c] = twice;
        return k * s * (1.0 + k * (c + k / 3.0 * (3.0 - 4.0 * s * s)));
    }
};

// The ratio of arc on the ellipsoid to arc on the auxiliary sphere.
[[nodiscard]] inline double ArcFactor(double K) {
    return (K * K / 4.0 + 1.0) / (1.0 - K);
}

// The direction of (x, y), whose length is h; like the arctangent, (0, 0) gives the direction of 0.
template <Cases cases>
[[nodiscard]] inline SinCos SinCosOfSides(double y, double x, double h) {
    const bool isNowhere = h == 0.0;
    return {Either<cases>(
                isNowhere, [] { return 0.0; }, [=] { return y / h; }),
            Either<cases>(
                isNowhere, [] { return 1.0; }, [=] { return x / h; })};
}

// Two reduced latitudes, as half their sum and half their difference.
struct Latitudes {
    SinCos first, sum, difference;
};

// Of two latitudes in radians.
template <Cases cases>
[[nodiscard]] inline Latitudes LatitudesOf(double p1, double p2, const Ellipsoid& ellipsoid,
                                           Elementary<cases>& elementary) {
    const double U1 = ellipsoid.ReducedLatitude(p1, elementary);
    const double U2 = ellipsoid.ReducedLatitude(p2, elementary);
    return {elementary.DirectionOf(U1), elementary.DirectionOf((U2 + U1) / 2.0),
            elementary.DirectionOf((U2 - U1) / 2.0)};
}

// A geodesic between two points on the auxiliary sphere, where it is a great circle. Half-angle formulas
// solve the triangle with the pole: the azimuth is x + y at the start and, back from the end, y - x, where x
// is the angle of (B, A) and y that of (E, -C).
struct SphericalArc {
    double A, B, C, E;
    double sigma;  // length of the arc
    SinCos sigmaSinCos;
    double K;                // expansion parameter
    SinCos m;                // of twice the arc from the great circle's northernmost point to its middle
    double longitudeExcess;  // longitude difference on the sphere minus that on the ellipsoid
};

template <Cases cases>
[[nodiscard]] inline SphericalArc ArcOfLongitude(double lam, const Latitudes& latitudes,
                                                 const Ellipsoid& ellipsoid, Elementary<cases>& elementary) {
    const auto [sh, ch] = elementary.DirectionOf(lam / 2.0);
    SphericalArc arc;
    arc.A = ch * latitudes.difference.cosine;
    arc.B = sh * latitudes.sum.sine;
    arc.C = ch * latitudes.difference.sine;
    arc.E = sh * latitudes.sum.cosine;

    const double cosHalf = std::sqrt(arc.A * arc.A + arc.B * arc.B);
    const double sinHalf = std::sqrt(arc.C * arc.C + arc.E * arc.E);
    arc.sigma = 2.0 * elementary.AngleOf(sinHalf, cosHalf);
    arc.sigmaSinCos = Doubled({sinHalf, cosHalf});
    const SinCos azimuth =
        Difference(SinCosOfSides<cases>(arc.A, arc.B, cosHalf), SinCosOfSides<cases>(arc.C, arc.E, sinHalf));
    const double sinU1 = latitudes.first.sine;
    const double sa = azimuth.sine * latitudes.first.cosine;
    const double ca = azimuth.cosine * latitudes.first.cosine;
    const SinCos g = SinCosOfSides<cases>(ca, sinU1, std::sqrt(ca * ca + sinU1 * sinU1));
    arc.m = Difference(arc.sigmaSinCos, Doubled(g));

    const double K = ellipsoid.ExpansionParameter(sa);
    const double f = ellipsoid.q / (1.0 + ellipsoid.q) * sa;
    const double T = (1.0 + ellipsoid.n - K / 2.0 - K * K / 4.0) * 0.5 * arc.sigma -
                     K * arc.m.cosine * arc.sigmaSinCos.sine / 4.0 +
                     Doubled(arc.m).cosine * K * K * Doubled(arc.sigmaSinCos).sine / 16.0;
    arc.K = K;
    arc.longitudeExcess = T * f;
    return arc;
}

[[nodiscard]] inline double LengthOf(const SphericalArc& arc, const Ellipsoid& ellipsoid) {
    const double K = arc.K;
    const SinCos sigma2 = Doubled(arc.sigmaSinCos);
    const SinCos m2 = Doubled(arc.m);
    return ArcFactor(K) * ellipsoid.c / (1.0 + ellipsoid.q) *
           (arc.sigma + (K - 3.0 * K * K * K / 8.0) * arc.m.cosine * arc.sigmaSinCos.sine -
            m2.cosine * K * K * sigma2.sine / 8.0 +
            Sum(m2, arc.m).cosine * K * K * K * Sum(sigma2, arc.sigmaSinCos).sine / 24.0);
}

// What an arc that no longer changes leads to.
template <Cases cases>
[[nodiscard]] inline GeodesicResult WayAlong(const SphericalArc& arc, const Ellipsoid& ellipsoid,
                                             Elementary<cases>& elementary) {
    const double x = elementary.AngleOf(arc.A, arc.B);
    const double y = -elementary.AngleOf(arc.C, arc.E);
    GeodesicResult result{};
    result.distance = LengthOf(arc, ellipsoid);
    result.azimuth12 = ToAzimuth(x + y);
    result.azimuth21 = ToAzimuth(y - x);
    return result;
}

// The point at a distance and an azimuth. Latitude, longitude and azimuth are in degrees.
template <Cases cases>
[[nodiscard]] inline GeodesicResult EndOf(double lat, double lon, double distance, double azimuth,
                                          const Ellipsoid& ellipsoid, Elementary<cases>& elementary) {
    const double n = ellipsoid.n;
    const double q = ellipsoid.q;
    const double U1 = ellipsoid.ReducedLatitude(ToRadians(lat), elementary);
    const SinCos halfR = elementary.DirectionOf((HALF_PI - U1) / 2.0);  // half the distance from the pole
    const SinCos r = Doubled(halfR);
    const SinCos h = elementary.DirectionOf(ToRadians(azimuth) / 2.0);
    const SinCos A = Doubled(h);
    const double sa = r.sine * A.sine;
    const double ca = r.sine * A.cosine;
    const SinCos g2 = Doubled(SinCosOfSides<cases>(ca, r.cosine, std::sqrt(ca * ca + r.cosine * r.cosine)));

    // The arc on the auxiliary sphere by a reverted series. Its angles differ by a few thousandths from
    // known ones: t from 2g, sigma from s0.
    const double K = ellipsoid.ExpansionParameter(sa);
    const SinCos t = Sum(g2, elementary.DirectionOfSmall(K * g2.sine - K * K / 8.0 * Doubled(g2).sine));
    const double s0 = (1.0 + q) * distance / ellipsoid.c / ArcFactor(K);
    const SinCos halfArc = elementary.DirectionOf(s0 / 2.0);
    const SinCos arc = Doubled(halfArc);
    const SinCos arc2 = Doubled(arc);
    const SinCos w2 = Difference(arc, t);
    const SinCos w4 = Doubled(w2);
    const double K3 = K * K * K;
    const double correction = -(K - 9.0 * K3 / 16.0) * w2.cosine * arc.sine +
                              5.0 * K * K / 8.0 * w4.cosine * arc2.sine -
                              29.0 * K3 / 48.0 * Sum(w4, w2).cosine * Sum(arc2, arc).sine;
    const double sigma = s0 + correction;

    // Solves the triangle of the two points and the pole by half sums and half differences.
    const SinCos halfSigma = Sum(halfArc, elementary.DirectionOfSmall(correction / 2.0));
    const SinCos d = Difference(halfSigma, halfR);
    const SinCos v = Sum(halfSigma, halfR);
    const double P = h.cosine * d.cosine;
    const double Q = h.cosine * d.sine;
    const double R = h.sine * v.cosine;
    const double S = h.sine * v.sine;
    const SinCos halfR2{std::sqrt(Q * Q + S * S), std::sqrt(P * P + R * R)};
    const double U2 = HALF_PI - 2.0 * elementary.AngleOf(halfR2.sine, halfR2.cosine);
    const SinCos r2 = Doubled(halfR2);
    const double F = elementary.AngleOf(P, R);
    const double G = elementary.AngleOf(Q, S);
    const double C = q / (1.0 + q) * sa *
                     ((1.0 + n - K / 2.0 - K * K / 4.0) * 0.5 * sigma - K / 4.0 * w2.cosine * arc.sine +
                      3.0 * K * K / 16.0 * w4.cosine * arc2.sine);

    GeodesicResult result{};
    result.latitude = ToDegrees(ellipsoid.GeodeticLatitude(U2, Doubled({r2.cosine, r2.sine})));
    result.longitude = lon + ToDegrees((F + G) - C);
    result.backAzimuth = ToAzimuth(G - F);
    return result;
}

}  // namespace tessara::geodesic

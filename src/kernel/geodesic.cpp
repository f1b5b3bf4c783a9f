#include "tessara/kernel/geodesic.h"

#include <cmath>
#include <limits>

#include "kernel/numeric.h"
#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "numerics/rounding.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

constexpr int LONGITUDE_ITERATIONS = 100;
constexpr double LONGITUDE_TOLERANCE = 1e-13;  // radians
constexpr double SEARCH_TOLERANCE = 0.01;      // metres
constexpr double SEARCH_LATITUDE = 5.0;        // degrees; the largest sum of the latitudes
constexpr double SEARCH_COSINE = 0.9;          // of the longitude's distance from the antipode

// The search ends by itself after a few dozen steps; the bound stops it for numbers that aren't positions on
// the globe.
constexpr int SEARCH_STEPS = 200;

double ToRadians(double degrees) {
    return degrees / DEGREES_PER_RADIAN;
}

double ToDegrees(double radians) {
    return radians * DEGREES_PER_RADIAN;
}

double ToAzimuth(double radians) {
    const double degrees = ToDegrees(radians);
    return degrees < 0.0 ? degrees + 360.0 : degrees;
}

struct Ellipsoid {
    double a, b;
    double n;  // third flattening
    double c;  // polar radius of curvature
    double q;  // second eccentricity squared

    Ellipsoid(double majorAxis, double minorAxis)
        : a(majorAxis), b(minorAxis), n((a - b) / (a + b)), c(a / b * a), q(c / b - 1.0) {}

    [[nodiscard]] double ReducedLatitude(double p) const { return p + LatitudeStep(SinCosOf(2.0 * p), -n); }
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
double ArcFactor(double K) {
    return (K * K / 4.0 + 1.0) / (1.0 - K);
}

// Two reduced latitudes, as half their sum and half their difference.
struct Latitudes {
    SinCos first, sum, difference;

    Latitudes(double U1, double U2)
        : first(SinCosOf(U1)), sum(SinCosOf((U2 + U1) / 2.0)), difference(SinCosOf((U2 - U1) / 2.0)) {}
};

// The direction of (x, y), whose length is h; like the arctangent, (0, 0) gives the direction of 0.
SinCos SinCosOfSides(double y, double x, double h) {
    return h == 0.0 ? SinCos{0.0, 1.0} : SinCos{y / h, x / h};
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

SphericalArc ArcOfLongitude(double lam, const Latitudes& latitudes, const Ellipsoid& ellipsoid) {
    const auto [sh, ch] = SinCosOf(lam / 2.0);
    SphericalArc arc;
    arc.A = ch * latitudes.difference.cosine;
    arc.B = sh * latitudes.sum.sine;
    arc.C = ch * latitudes.difference.sine;
    arc.E = sh * latitudes.sum.cosine;

    const double cosHalf = std::sqrt(arc.A * arc.A + arc.B * arc.B);
    const double sinHalf = std::sqrt(arc.C * arc.C + arc.E * arc.E);
    arc.sigma = 2.0 * Atan2(sinHalf, cosHalf);
    arc.sigmaSinCos = Doubled({sinHalf, cosHalf});
    const SinCos azimuth =
        Difference(SinCosOfSides(arc.A, arc.B, cosHalf), SinCosOfSides(arc.C, arc.E, sinHalf));
    const double sinU1 = latitudes.first.sine;
    const double sa = azimuth.sine * latitudes.first.cosine;
    const double ca = azimuth.cosine * latitudes.first.cosine;
    const SinCos g = SinCosOfSides(ca, sinU1, std::sqrt(ca * ca + sinU1 * sinU1));
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

double LengthOf(const SphericalArc& arc, const Ellipsoid& ellipsoid) {
    const double K = arc.K;
    const SinCos sigma2 = Doubled(arc.sigmaSinCos);
    const SinCos m2 = Doubled(arc.m);
    return ArcFactor(K) * ellipsoid.c / (1.0 + ellipsoid.q) *
           (arc.sigma + (K - 3.0 * K * K * K / 8.0) * arc.m.cosine * arc.sigmaSinCos.sine -
            m2.cosine * K * K * sigma2.sine / 8.0 +
            Sum(m2, arc.m).cosine * K * K * K * Sum(sigma2, arc.sigmaSinCos).sine / 24.0);
}

GeodesicResult NoSolution() {
    GeodesicResult result{};
    result.distance = -1.0;
    return result;
}

struct Position {
    double latitude, longitude;  // degrees
};

// Whether two positions are the same apart from whole turns.
bool Coincide(Position p1, Position p2) {
    return p1.latitude == p2.latitude && Remainder(p2.longitude - p1.longitude, 360.0) == 0.0;
}

// The iteration on the longitude. It converges except near the antipode.
GeodesicResult InverseByIteration(Position p1, Position p2, const Ellipsoid& ellipsoid) {
    const Latitudes latitudes(ellipsoid.ReducedLatitude(ToRadians(p1.latitude)),
                              ellipsoid.ReducedLatitude(ToRadians(p2.latitude)));
    const double L = ToRadians(p2.longitude) - ToRadians(p1.longitude);
    double lam = L;
    for (int i = 0; i < LONGITUDE_ITERATIONS; ++i) {
        const SphericalArc arc = ArcOfLongitude(lam, latitudes, ellipsoid);
        const double next = arc.longitudeExcess + L;
        if (std::fabs(next - lam) <= LONGITUDE_TOLERANCE) {
            const double x = Atan2(arc.A, arc.B);
            const double y = -Atan2(arc.C, arc.E);
            GeodesicResult result{};
            if (Coincide(p1, p2)) return result;
            result.distance = LengthOf(arc, ellipsoid);
            result.azimuth12 = ToAzimuth(x + y);
            result.azimuth21 = ToAzimuth(y - x);
            return result;
        }
        lam = next;
    }
    return NoSolution();
}

// A line of two geodesics that meet on the meridian halfway. Each of them spans 77 to 103 degrees of
// longitude, so the iteration converges.
struct BrokenLine {
    Position p1, p2;
    double midLongitude;
    const Ellipsoid& ellipsoid;

    // The distance is negative if either half has no solution.
    [[nodiscard]] GeodesicResult Through(double midLatitude) const {
        const Position mid{midLatitude, midLongitude};
        const GeodesicResult half1 = InverseByIteration(p1, mid, ellipsoid);
        if (half1.distance < 0.0) return half1;
        const GeodesicResult half2 = InverseByIteration(mid, p2, ellipsoid);
        if (half2.distance < 0.0) return half2;
        GeodesicResult whole{};
        whole.distance = half1.distance + half2.distance;
        whole.azimuth12 = half1.azimuth12;
        whole.azimuth21 = half2.azimuth21;
        return whole;
    }
};

double MidLongitude(double lon1, double lon2) {
    const bool isEastward = Sin(ToRadians(lon2) - ToRadians(lon1)) > 0.0;
    const double end = isEastward ? RaiseByTurns(lon2, lon1, 360.0) : LowerByTurns(lon2, lon1, 360.0);
    return WrapTurns((lon1 + end) * 0.5, 360.0);
}

// Starts at the pole and tries half the latitude. Continues while the line gets shorter, each stride half as
// long again as the one before; at the first longer line it turns round and halves the stride.
GeodesicResult SearchShortest(const BrokenLine& line, double pole) {
    enum class Step { FIRST, BACK, ONWARD };

    const GeodesicResult start = line.Through(pole);
    if (start.distance < 0.0) return start;
    double best = start.distance;
    double previous = pole;
    double mid = pole / 2.0;
    Step step = Step::FIRST;
    double change = 0.0;
    int count = 0;
    do {
        const GeodesicResult trial = line.Through(mid);
        if (trial.distance < 0.0) return trial;
        change = std::fabs(best - trial.distance);
        if (best < trial.distance) {
            mid = step == Step::ONWARD ? previous - (mid - previous) : (previous + mid) * 0.5;
            step = Step::BACK;
        } else {
            const double kept = mid;
            mid = (mid - previous) * 1.5 + previous;
            previous = kept;
            best = trial.distance;
            step = Step::ONWARD;
        }
    } while (change > SEARCH_TOLERANCE && ++count < SEARCH_STEPS);
    return line.Through(previous);
}

bool IsNearAntipode(Position p1, Position p2) {
    return std::fabs(ToRadians(p1.latitude) + ToRadians(p2.latitude)) < ToRadians(SEARCH_LATITUDE) &&
           Cos(ToRadians(p1.longitude) - ToRadians(p2.longitude) - PI) > SEARCH_COSINE;
}

GeodesicResult InverseBySearch(Position p1, Position p2, const Ellipsoid& ellipsoid) {
    const double pole = Sin(ToRadians(p1.latitude) + ToRadians(p2.latitude)) < 0.0 ? -90.0 : 90.0;
    return SearchShortest({p1, p2, MidLongitude(p1.longitude, p2.longitude), ellipsoid}, pole);
}

}  // namespace

void Geodesic_LoadAxes(double axes[2], std::int32_t datum) {
    const DatumRow* row = Datum_Row(datum);
    axes[0] = row ? row->a : std::numeric_limits<double>::quiet_NaN();
    axes[1] = row ? row->a - row->a * row->f : std::numeric_limits<double>::quiet_NaN();
}

GeodesicResult Geodesic_DirectCore(double lat, double lon, double distance, double azimuth, double a,
                                   double b) {
    const Ellipsoid ellipsoid(a, b);
    const double n = ellipsoid.n;
    const double q = ellipsoid.q;
    const double U1 = ellipsoid.ReducedLatitude(ToRadians(lat));
    const SinCos halfR = SinCosOf((HALF_PI - U1) / 2.0);  // half the distance from the pole
    const SinCos r = Doubled(halfR);
    const SinCos h = SinCosOf(ToRadians(azimuth) / 2.0);
    const SinCos A = Doubled(h);
    const double sa = r.sine * A.sine;
    const double ca = r.sine * A.cosine;
    const SinCos g2 = Doubled(SinCosOfSides(ca, r.cosine, std::sqrt(ca * ca + r.cosine * r.cosine)));

    // The arc on the auxiliary sphere by a reverted series. Its angles differ by a few thousandths from
    // known ones: t from 2g, sigma from s0.
    const double K = ellipsoid.ExpansionParameter(sa);
    const SinCos t = Sum(g2, SinCosOfSmall(K * g2.sine - K * K / 8.0 * Doubled(g2).sine));
    const double s0 = (1.0 + q) * distance / ellipsoid.c / ArcFactor(K);
    const SinCos halfArc = SinCosOf(s0 / 2.0);
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
    const SinCos halfSigma = Sum(halfArc, SinCosOfSmall(correction / 2.0));
    const SinCos d = Difference(halfSigma, halfR);
    const SinCos v = Sum(halfSigma, halfR);
    const double P = h.cosine * d.cosine;
    const double Q = h.cosine * d.sine;
    const double R = h.sine * v.cosine;
    const double S = h.sine * v.sine;
    const SinCos halfR2{std::sqrt(Q * Q + S * S), std::sqrt(P * P + R * R)};
    const double U2 = HALF_PI - 2.0 * Atan2(halfR2.sine, halfR2.cosine);
    const SinCos r2 = Doubled(halfR2);
    const double F = Atan2(P, R);
    const double G = Atan2(Q, S);
    const double C = q / (1.0 + q) * sa *
                     ((1.0 + n - K / 2.0 - K * K / 4.0) * 0.5 * sigma - K / 4.0 * w2.cosine * arc.sine +
                      3.0 * K * K / 16.0 * w4.cosine * arc2.sine);

    GeodesicResult result{};
    result.latitude = ToDegrees(ellipsoid.GeodeticLatitude(U2, Doubled({r2.cosine, r2.sine})));
    result.longitude = lon + ToDegrees((F + G) - C);
    result.backAzimuth = ToAzimuth(G - F);
    return result;
}

GeodesicResult Geodesic_InverseCore(double lat1, double lon1, double lat2, double lon2, double a, double b) {
    const Ellipsoid ellipsoid(a, b);
    const Position p1{lat1, lon1};
    const Position p2{lat2, lon2};
    const GeodesicResult result = InverseByIteration(p1, p2, ellipsoid);
    if (result.distance < 0.0 && IsNearAntipode(p1, p2)) return InverseBySearch(p1, p2, ellipsoid);
    return result;
}

KoordStatus Geodesic_Direct(const tagKOORD* from, std::int32_t datum, double distance, double azimuth,
                            tagKOORD* to) {
    tagKOORD start = MakeKoord(datum, KOORD_GEODEZ);
    const KoordStatus status = KoordConvert(from, &start);
    if (status != KOORD_OK) return status;
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    const auto position = Load<GeodezPayload>(start);
    const GeodesicResult result =
        Geodesic_DirectCore(position.latitude, position.longitude, distance, azimuth, axes[0], axes[1]);
    tagKOORD end = MakeKoord(datum, KOORD_GEODEZ);
    Store(end, GeodezPayload{result.latitude, result.longitude, 0.0});
    return KoordConvert(&end, to);
}

KoordStatus Geodesic_Inverse(const tagKOORD* p1, const tagKOORD* p2, std::int32_t datum, double* distance,
                             double* azimuth12, double* azimuth21) {
    *distance = 0.0;
    *azimuth12 = 0.0;
    *azimuth21 = 0.0;
    tagKOORD start = MakeKoord(datum, KOORD_GEODEZ);
    KoordStatus status = KoordConvert(p1, &start);
    if (status != KOORD_OK) return status;
    tagKOORD end = MakeKoord(datum, KOORD_GEODEZ);
    status = KoordConvert(p2, &end);
    if (status != KOORD_OK) return status;

    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    const auto from = Load<GeodezPayload>(start);
    const auto to = Load<GeodezPayload>(end);
    const GeodesicResult result =
        Geodesic_InverseCore(from.latitude, from.longitude, to.latitude, to.longitude, axes[0], axes[1]);
    if (result.distance < 0.0) return GEODESIC_NO_SOLUTION;
    *distance = result.distance;
    *azimuth12 = result.azimuth12;
    *azimuth21 = result.azimuth21;
    return KOORD_OK;
}

}  // namespace tessara

#include "tessara/kernel/geodesic.h"

#include <cmath>
#include <limits>

#include "kernel/whole_turns.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

constexpr int LONGITUDE_ITERATIONS = 100;
constexpr double LONGITUDE_TOLERANCE = 1e-13;  // radians
constexpr double SEARCH_TOLERANCE = 0.01;      // metres
constexpr double SEARCH_LATITUDE = 5.0;        // degrees that the latitudes may add up to
constexpr double SEARCH_COSINE = 0.9;          // of the longitude's distance from the antipode

// The search ends by itself after a few dozen steps; the bound is for doubles that are no position on the
// globe.
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

    [[nodiscard]] double ReducedLatitude(double p) const {
        return p - n * std::sin(2.0 * p) + n * n / 2.0 * std::sin(4.0 * p) -
               n * n * n / 3.0 * std::sin(6.0 * p);
    }

    [[nodiscard]] double GeodeticLatitude(double u) const {
        return u + n * std::sin(2.0 * u) + n * n / 2.0 * std::sin(4.0 * u) +
               n * n * n / 3.0 * std::sin(6.0 * u);
    }

    // The expansion parameter of the geodesic whose azimuth at the equator has the sine `sa`.
    [[nodiscard]] double ExpansionParameter(double sa) const {
        const double u = std::sqrt(1.0 + q - q * sa * sa);
        return (u - 1.0) / (u + 1.0);
    }
};

// Ratio of arc on the ellipsoid to arc on the auxiliary sphere.
double ArcFactor(double K) {
    return (K * K / 4.0 + 1.0) / (1.0 - K);
}

// A geodesic between two points, on the auxiliary sphere where it is a great circle.
struct SphericalArc {
    double sigma;            // its length
    double x, y;             // the azimuth is x + y at its start, y - x (the way back) at its end
    double K;                // expansion parameter
    double m;                // twice the arc from the great circle's northernmost point to its middle
    double longitudeExcess;  // by which the longitude on the sphere exceeds that on the ellipsoid
};

SphericalArc ArcOfLongitude(double lam, double U1, double U2, const Ellipsoid& ellipsoid) {
    const double S = (U2 + U1) / 2.0;
    const double D = (U2 - U1) / 2.0;
    const double ch = std::cos(lam / 2.0);
    const double sh = std::sin(lam / 2.0);
    const double A = ch * std::cos(D);
    const double B = sh * std::sin(S);
    const double C = ch * std::sin(D);
    const double E = sh * std::cos(S);

    SphericalArc arc;
    arc.sigma = 2.0 * std::atan2(std::sqrt(C * C + E * E), std::sqrt(A * A + B * B));
    arc.x = std::atan2(A, B);
    arc.y = -std::atan2(C, E);
    const double alpha = arc.x + arc.y;
    const double sinU1 = std::sin(U1);
    const double sa = std::sin(alpha) * std::cos(U1);
    const double ca = std::cos(alpha) * std::cos(U1);
    const double g = ca == 0.0 && sinU1 == 0.0 ? 0.0 : std::atan2(ca, sinU1);
    arc.m = arc.sigma - 2.0 * g;

    const double K = ellipsoid.ExpansionParameter(sa);
    const double f = ellipsoid.q / (1.0 + ellipsoid.q) * sa;
    const double T = (1.0 + ellipsoid.n - K / 2.0 - K * K / 4.0) * 0.5 * arc.sigma -
                     K * std::cos(arc.m) * std::sin(arc.sigma) / 4.0 +
                     std::cos(2.0 * arc.m) * K * K * std::sin(2.0 * arc.sigma) / 16.0;
    arc.K = K;
    arc.longitudeExcess = T * f;
    return arc;
}

double LengthOf(const SphericalArc& arc, const Ellipsoid& ellipsoid) {
    const double K = arc.K;
    return ArcFactor(K) * ellipsoid.c / (1.0 + ellipsoid.q) *
           (arc.sigma + (K - 3.0 * K * K * K / 8.0) * std::cos(arc.m) * std::sin(arc.sigma) -
            std::cos(2.0 * arc.m) * K * K * std::sin(2.0 * arc.sigma) / 8.0 +
            std::cos(3.0 * arc.m) * K * K * K * std::sin(3.0 * arc.sigma) / 24.0);
}

GeodesicResult NoSolution() {
    GeodesicResult result{};
    result.distance = -1.0;
    return result;
}

struct Position {
    double latitude, longitude;  // degrees
};

// The iteration on the longitude. It converges except near the antipode.
GeodesicResult InverseByIteration(Position p1, Position p2, const Ellipsoid& ellipsoid) {
    const double U1 = ellipsoid.ReducedLatitude(ToRadians(p1.latitude));
    const double U2 = ellipsoid.ReducedLatitude(ToRadians(p2.latitude));
    const double L = ToRadians(p2.longitude) - ToRadians(p1.longitude);
    double lam = L;
    for (int i = 0; i < LONGITUDE_ITERATIONS; ++i) {
        const SphericalArc arc = ArcOfLongitude(lam, U1, U2, ellipsoid);
        const double next = arc.longitudeExcess + L;
        if (std::fabs(next - lam) <= LONGITUDE_TOLERANCE) {
            GeodesicResult result{};
            result.distance = LengthOf(arc, ellipsoid);
            result.azimuth12 = ToAzimuth(arc.x + arc.y);
            result.azimuth21 = ToAzimuth(arc.y - arc.x);
            return result;
        }
        lam = next;
    }
    return NoSolution();
}

// A way of two geodesics that meet on the meridian half-way. Each of them spans 77 to 103 degrees of
// longitude, so the iteration converges.
struct BrokenLine {
    Position p1, p2;
    double midLongitude;
    const Ellipsoid& ellipsoid;

    // A negative distance if either half has no solution.
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
    const bool isEastward = std::sin(ToRadians(lon2) - ToRadians(lon1)) > 0.0;
    const double end = isEastward ? RaiseByTurns(lon2, lon1, 360.0) : LowerByTurns(lon2, lon1, 360.0);
    return WrapTurns((lon1 + end) * 0.5, 360.0);
}

// Starts at the pole, goes to half the latitude, strides on while the way gets shorter (each stride half as
// long again as the one before), turns round at the first longer one and then halves the stride.
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
           std::cos(ToRadians(p1.longitude) - ToRadians(p2.longitude) - PI) > SEARCH_COSINE;
}

GeodesicResult InverseBySearch(Position p1, Position p2, const Ellipsoid& ellipsoid) {
    const double pole = std::sin(ToRadians(p1.latitude) + ToRadians(p2.latitude)) < 0.0 ? -90.0 : 90.0;
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
    const double A = ToRadians(azimuth);
    const double sa = std::cos(U1) * std::sin(A);
    const double g = std::atan2(std::cos(U1) * std::cos(A), std::sin(U1));

    // The arc on the auxiliary sphere by a reverted series.
    const double K = ellipsoid.ExpansionParameter(sa);
    const double t = 2.0 * g + K * std::sin(2.0 * g) - K * K / 8.0 * std::sin(4.0 * g);
    const double s0 = (1.0 + q) * distance / ellipsoid.c / ArcFactor(K);
    const double w = (s0 - t) / 2.0;
    const double K3 = K * K * K;
    const double sigma = s0 - (K - 9.0 * K3 / 16.0) * std::cos(2.0 * w) * std::sin(s0) +
                         5.0 * K * K / 8.0 * std::cos(4.0 * w) * std::sin(2.0 * s0) -
                         29.0 * K3 / 48.0 * std::cos(6.0 * w) * std::sin(3.0 * s0);

    // The triangle of the two points and the pole by half sums and half differences.
    const double r = HALF_PI - U1;
    const double h = A / 2.0;
    const double d = (sigma - r) / 2.0;
    const double v = (sigma + r) / 2.0;
    const double P = std::cos(h) * std::cos(d);
    const double Q = std::cos(h) * std::sin(d);
    const double R = std::sin(h) * std::cos(v);
    const double S = std::sin(h) * std::sin(v);
    const double U2 = HALF_PI - 2.0 * std::atan2(std::sqrt(Q * Q + S * S), std::sqrt(P * P + R * R));
    const double F = std::atan2(P, R);
    const double G = std::atan2(Q, S);
    const double C =
        q / (1.0 + q) * sa *
        ((1.0 + n - K / 2.0 - K * K / 4.0) * 0.5 * sigma - K / 4.0 * std::cos(2.0 * w) * std::sin(s0) +
         3.0 * K * K / 16.0 * std::cos(4.0 * w) * std::sin(2.0 * s0));

    GeodesicResult result{};
    result.latitude = ToDegrees(ellipsoid.GeodeticLatitude(U2));
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

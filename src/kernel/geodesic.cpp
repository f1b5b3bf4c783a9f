#include "tessara/kernel/geodesic.h"

#include <cmath>
#include <limits>

#include "kernel/geodesic_formulas.h"
#include "kernel/numeric.h"
#include "numerics/circular.h"
#include "numerics/rounding.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

using geodesic::ArcOfLongitude;
using geodesic::Ellipsoid;
using geodesic::LatitudesOf;
using geodesic::SphericalArc;
using geodesic::ToRadians;
using Elementary = geodesic::Elementary<Cases::Branch>;

constexpr double SEARCH_TOLERANCE = 0.01;  // metres
constexpr double SEARCH_LATITUDE = 5.0;    // degrees; the largest sum of the latitudes
constexpr double SEARCH_COSINE = 0.9;      // of the longitude's distance from the antipode

// The search ends by itself after a few dozen steps; the bound stops it for numbers that aren't positions on
// the globe.
constexpr int SEARCH_STEPS = 200;

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
    Elementary elementary;
    const geodesic::Latitudes latitudes =
        LatitudesOf(ToRadians(p1.latitude), ToRadians(p2.latitude), ellipsoid, elementary);
    const double L = ToRadians(p2.longitude) - ToRadians(p1.longitude);
    double lam = L;
    for (int i = 0; i < geodesic::LONGITUDE_ITERATIONS; ++i) {
        const SphericalArc arc = ArcOfLongitude(lam, latitudes, ellipsoid, elementary);
        const double next = arc.longitudeExcess + L;
        if (std::fabs(next - lam) <= geodesic::LONGITUDE_TOLERANCE)
            return Coincide(p1, p2) ? GeodesicResult{} : WayAlong(arc, ellipsoid, elementary);
        if (next != next) break;
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
    Elementary elementary;
    return geodesic::EndOf(lat, lon, distance, azimuth, Ellipsoid(a, b), elementary);
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

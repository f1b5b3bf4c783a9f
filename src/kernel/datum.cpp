#include "tessara/kernel/datum.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "kernel/datum_rows.h"
#include "kernel/ellipsoids.h"
#include "kernel/numeric.h"
#include "kernel/sin_cos.h"

namespace tessara {
namespace {

constexpr double NEAR_POLE = 89.99999;         // degrees; no longitude tolerance beyond it
constexpr double LONGITUDE_LIMIT = 89.999999;  // degrees; no longitude shift from there to the pole
constexpr double WORTH_REFINING = 0.001;       // degrees; a step up to this stands unrefined
constexpr double REFINED = 0.0001;             // degrees; an iteration up to this is the last
constexpr int REFINEMENTS = 4;

// Degrees of longitude that 0.1 metre subtends at a latitude, taken linearly in the distance from the pole,
// within lowerBound..360. The constant is 0.1 * (180/pi)^2.
double LongitudeTolerance(double latitude, double a, double lowerBound) {
    if (!(std::fabs(latitude) <= NEAR_POLE)) return 360.0;
    const double tolerance = 328.28063500117446 / ((90.0 - std::fabs(latitude)) * a);
    if (tolerance > 360.0) return 360.0;
    return tolerance < lowerBound ? lowerBound : tolerance;
}

// The value with one whole turn taken off if its magnitude is above the limit.
double TakeTurnOff(double degrees, double limit) {
    if (degrees > limit) return degrees - 360.0;
    if (degrees < -limit) return degrees + 360.0;
    return degrees;
}

bool HasPassedPole(double latitude) {
    return latitude > 90.0 || latitude < -90.0;
}

double ReflectAtPole(double latitude) {
    return (latitude > 0.0 ? 180.0 : -180.0) - latitude;
}

// What of a Molodensky step doesn't depend on the position.
struct StepConstants {
    double e2;
    double dx, dy, dz;
    double perN, perM;       // 1 / a and 1 / (a (1 - e2)), of the radii of curvature
    double constant, slope;  // of what the other figure changes, in w
};

constexpr StepConstants StepOf(const HubParams& p) {
    const double perSquare = 1.0 / (1.0 - p.e2);
    const double perM = perSquare / p.a;
    const double perB = 1.0 / (1.0 - p.f);  // a/b
    return {.e2 = p.e2,
            .dx = p.dx,
            .dy = p.dy,
            .dz = p.dz,
            .perN = 1.0 / p.a,
            .perM = perM,
            .constant = perB * p.df,
            .slope = p.e2 * perM * p.da + (1.0 - p.f) * perSquare * p.df};
}

constexpr auto TO_HUB = ForEachDatum<StepConstants>([](const EllipsoidFigure&, std::int32_t datum) consteval {
    return StepOf(ToHubOf(DATUMS[static_cast<std::size_t>(datum)]));
});
constexpr auto FROM_HUB =
    ForEachDatum<StepConstants>([](const EllipsoidFigure&, std::int32_t datum) consteval {
        return StepOf(FromHubOf(DATUMS[static_cast<std::size_t>(datum)]));
    });

// What a Molodensky step needs of the position from which it starts.
struct Place {
    SinCos phi;
    double secant;             // 1 / cos phi
    double outward, eastward;  // the translation's part parallel to the equator, seen from this meridian
    double w, rootW;           // 1 - e2 sin^2 phi, on the ellipsoid of the step
};

// The same place with the step of another ellipsoid and the opposite translation.
inline Place Opposite(const Place& place, double e2) {
    const double w = 1.0 - place.phi.sine * place.phi.sine * e2;
    return {place.phi, place.secant, -place.outward, -place.eastward, w, std::sqrt(w)};
}

inline Place PlaceOf(SinCos phi, SinCos lambda, const StepConstants& p) {
    const double w = 1.0 - phi.sine * phi.sine * p.e2;
    return {phi,
            1.0 / phi.cosine,
            p.dx * lambda.cosine + p.dy * lambda.sine,
            -p.dx * lambda.sine + p.dy * lambda.cosine,
            w,
            std::sqrt(w)};
}

inline Place PlaceAt(const double latLon[2], const StepConstants& p) {
    constexpr double lastDigitsCount = 85.0;  // degrees; from there on the cosine is a small divisor
    const double phi = latLon[0] * RADIANS_PER_DEGREE;
    const double lambda = latLon[1] * RADIANS_PER_DEGREE;
    if (!(std::fabs(latLon[0]) < lastDigitsCount)) return PlaceOf(SinCosOf(phi), SinCosOf(lambda), p);
    return PlaceOf(SinCosByDoubling<1>(phi), SinCosByDoubling<2>(lambda), p);
}

// A change of latitude and longitude.
struct Shift {
    double phi, lambda;  // radians
};

// One Molodensky step. With w as above the radii of curvature are N = a / sqrt(w) in the prime vertical and
// M = a (1 - e2) / (w sqrt(w)) in the meridian; the formula's quotients by M are multiplied out, and what
// doesn't depend on the position waits for nothing.
inline Shift ShiftAt(const Place& place, const StepConstants& p) {
    const auto [s, c] = place.phi;
    const double northward = p.dz * c - s * place.outward;
    return {northward * p.perM * (place.w * place.rootW) + (p.constant + p.slope * place.w) * (s * c),
            place.eastward * (place.secant * p.perN) * place.rootW};
}

inline void Move(const Shift& shift, double latLon[2], bool keepOnGlobe) {
    latLon[0] += shift.phi * DEGREES_PER_RADIAN;
    if (keepOnGlobe && HasPassedPole(latLon[0])) {
        latLon[0] = ReflectAtPole(latLon[0]);
        latLon[1] += latLon[1] <= 0.0 ? 180.0 : -180.0;
    }
    latLon[1] = TakeTurnOff(latLon[1] + WrapTurns(shift.lambda * DEGREES_PER_RADIAN, 360.0), 360.0);
}

// One step from anywhere: next to the poles it leaves the longitude.
void Apply(const StepConstants& p, const Place& place, double latLon[2], bool keepOnGlobe) {
    Shift shift = ShiftAt(place, p);
    if (place.eastward == 0.0 || !(std::fabs(latLon[0]) < LONGITUDE_LIMIT)) shift.lambda = 0.0;
    Move(shift, latLon, keepOnGlobe);
}

// Whether a step is so short, and its start so far from the poles and the ends of the longitudes, that it
// crosses neither, that 0.1 metre of longitude is less than what counts anyway, and that FollowedBy is good
// for it.
inline bool IsPlain(const double start[2], const Place& place, const Shift& shift) {
    constexpr double fewTermsDo = 5e-4;  // radians, three kilometres
    return std::fabs(start[0]) < 88.0 && std::fabs(start[1]) < 359.0 &&
           std::fabs(shift.lambda) < fewTermsDo && std::fabs(shift.phi * place.secant) < fewTermsDo;
}

// The place where a short shift leads, without a call, a root or a quotient. The terms left out are parts of
// 1e-13, which is a hundred times what a shift of thousandths of a degree can show.
inline Place FollowedBy(const Place& place, const Shift& shift, double e2) {
    const auto turnOf = [](double angle) {
        const double y = angle * angle;
        return SinCos{angle - angle * y * (1.0 / 6.0), 1.0 - 0.5 * y};
    };
    const SinCos north = turnOf(shift.phi);
    const SinCos east = turnOf(shift.lambda);
    const SinCos twice = Doubled(place.phi);
    // The parts by which w grows and cos phi shrinks. The first is so small that 1 / w needs six digits.
    const double x = 1.0 - place.w;
    const double perW = (1.0 + x) * (1.0 + x * x);
    const double h = -e2 * perW * north.sine * (twice.sine * north.cosine + twice.cosine * north.sine);
    const double t = place.phi.sine * place.secant * north.sine + (1.0 - north.cosine);
    return {Sum(place.phi, north),
            place.secant * ((1.0 + t) * (1.0 + t * t)),
            place.outward * east.cosine + place.eastward * east.sine,
            place.eastward * east.cosine - place.outward * east.sine,
            place.w + place.w * h,
            place.rootW + place.rootW * (h * (0.5 - 0.125 * h))};
}

// The way out of the hub is the shift that the way in undoes: what the way in misses of the start is added to
// it until that is nothing to speak of.
void Refine(const Place& start, const StepConstants& back, Shift* shift) {
    constexpr double refined = REFINED / DEGREES_PER_RADIAN;
    for (int i = 0; i < REFINEMENTS; ++i) {
        const Shift returned = ShiftAt(FollowedBy(start, *shift, back.e2), back);
        const Shift miss{-(shift->phi + returned.phi), -(shift->lambda + returned.lambda)};
        shift->phi += miss.phi;
        shift->lambda += miss.lambda;
        if (std::fabs(miss.phi) <= refined && std::fabs(miss.lambda) <= refined) return;
    }
}

// The same on positions, across the poles and the ends of the longitudes.
void RefinePosition(const double start[2], const StepConstants& back, double a, double latLon[2]) {
    const double tolerance = LongitudeTolerance(latLon[0], a, REFINED);
    const SinCos phi = SinCosOf(start[0] * RADIANS_PER_DEGREE);
    const SinCos lambda = SinCosOf(start[1] * RADIANS_PER_DEGREE);
    for (int i = 0; i < REFINEMENTS; ++i) {
        // By sums: next to a pole an angle from 0 has not the digits of an angle from there.
        const SinCos north = SinCosOf((latLon[0] - start[0]) * RADIANS_PER_DEGREE);
        const SinCos east = SinCosOf((latLon[1] - start[1]) * RADIANS_PER_DEGREE);
        double returned[2] = {latLon[0], latLon[1]};
        Apply(back, PlaceOf(Sum(phi, north), Sum(lambda, east), back), returned, false);
        const double dLatitude = start[0] - returned[0];
        const double dLongitude = TakeTurnOff(start[1] - returned[1], 180.0);
        latLon[0] = TakeTurnOff(latLon[0] + dLatitude, 360.0);
        latLon[1] = TakeTurnOff(latLon[1] + dLongitude, 360.0);
        if (std::fabs(dLatitude) <= REFINED && std::fabs(dLongitude) <= tolerance) break;
    }
    if (HasPassedPole(latLon[0])) {
        latLon[0] = ReflectAtPole(latLon[0]);
        latLon[1] += latLon[1] < 0.0 ? 180.0 : -180.0;
    }
}

// Out of the hub from anywhere to a datum; one outside 0..238 gets the first step only.
void FromHubAnywhere(const StepConstants& step, std::int32_t datum, double latLon[2]) {
    const double start[2] = {latLon[0], latLon[1]};
    Apply(step, PlaceAt(latLon, step), latLon, true);
    const DatumRow* row = RowOf(datum);
    if (!row) return;
    if (std::fabs(latLon[0] - start[0]) <= WORTH_REFINING &&
        std::fabs(latLon[1] - start[1]) <= LongitudeTolerance(latLon[0], row->a, WORTH_REFINING)) {
        return;
    }
    RefinePosition(start, TO_HUB[static_cast<std::size_t>(datum)], row->a, latLon);
}

void FromHub(const StepConstants& step, std::int32_t datum, double latLon[2]) {
    constexpr double worthRefining = WORTH_REFINING / DEGREES_PER_RADIAN;
    if (!RowOf(datum)) return FromHubAnywhere(step, datum, latLon);
    const StepConstants& back = TO_HUB[static_cast<std::size_t>(datum)];
    const Place start = PlaceAt(latLon, step);
    Shift shift = ShiftAt(start, step);
    const bool isOpposite = back.dx == -step.dx && back.dy == -step.dy;
    if (!isOpposite || !IsPlain(latLon, start, shift)) return FromHubAnywhere(step, datum, latLon);

    // A single test: in many a country either of the two goes this way and that.
    const double larger = std::max(std::fabs(shift.phi), std::fabs(shift.lambda));
    if (larger > worthRefining) Refine(Opposite(start, back.e2), back, &shift);
    Move(shift, latLon, true);
}

}  // namespace

const DatumRow* Datum_Row(std::int32_t datum) {
    return RowOf(datum);
}

const char* Datum_Name(std::int32_t datum) {
    const DatumRow* row = Datum_Row(datum);
    return row ? row->name : nullptr;
}

const char* Ellipsoid_Name(std::int32_t ellipsoid) {
    const auto code = static_cast<std::size_t>(static_cast<std::uint32_t>(ellipsoid));
    return code < ELLIPSOIDS.size() ? ELLIPSOIDS[code].name : nullptr;
}

double Datum_SemiMajorAxis(std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    return row ? row->a : -1.0;
}

double Datum_EccentricitySquared(std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    return row ? row->e2 : -1.0;
}

void ShiftBetween(std::int32_t sourceDatum, std::int32_t targetDatum, double latLon[2]) {
    if (sourceDatum != DATUM_WGS84) {
        const StepConstants& step = TO_HUB[static_cast<std::size_t>(sourceDatum)];
        Apply(step, PlaceAt(latLon, step), latLon, true);
    }
    if (targetDatum != DATUM_WGS84) {
        FromHub(FROM_HUB[static_cast<std::size_t>(targetDatum)], targetDatum, latLon);
    }
}

void Molodensky_Apply(const HubParams* p, double latLon[2], std::int32_t keepOnGlobe) {
    const StepConstants step = StepOf(*p);
    Apply(step, PlaceAt(latLon, step), latLon, keepOnGlobe != 0);
}

void Molodensky_ToHub(double latLon[2], const HubParams* p) {
    Molodensky_Apply(p, latLon, 1);
}

void Molodensky_FromHub(double latLon[2], const HubParams* p, std::int32_t datum) {
    FromHub(StepOf(*p), datum, latLon);
}

}  // namespace tessara

#include "tessara/kernel/datum.h"

#include <cmath>

#include "kernel/datum_rows.h"
#include "kernel/datum_shift.h"
#include "kernel/direction.h"
#include "kernel/whole_turns.h"

namespace tessara {
namespace {

constexpr double NEAR_POLE = 89.99999;         // degrees; no longitude tolerance beyond it
constexpr double LONGITUDE_LIMIT = 89.999999;  // degrees; no longitude shift from there to the pole
constexpr double WORTH_REFINING = 0.001;       // degrees; a step up to this stands unrefined
constexpr double REFINED = 0.0001;             // degrees; an iteration up to this is the last
constexpr int REFINEMENTS = 4;

constexpr double EccentricitySquared(double f) {
    return 2.0 * f - f * f;
}

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

// Of a position's latitude and longitude.
struct Directions {
    Direction phi, lambda;
};

Directions DirectionsOf(const double latLon[2]) {
    return {DirectionOf(latLon[0] * RADIANS_PER_DEGREE), DirectionOf(latLon[1] * RADIANS_PER_DEGREE)};
}

// The direction after a turn as small as a shift, a few thousandths of a degree.
inline Direction TurnedBy(double degrees, Direction known) {
    constexpr double fewTermsDo = 0.002;  // radians
    const double angle = degrees * RADIANS_PER_DEGREE;
    const double y = angle * angle;
    if (!(std::fabs(angle) < fewTermsDo)) return Sum(known, DirectionOf(angle));
    const Direction turn{angle * (1.0 - y * (1.0 / 6.0 - y * (1.0 / 120.0))),
                         1.0 - y * (1.0 / 2.0 - y * (1.0 / 24.0))};
    return Sum(known, turn);
}

// DirectionsOf for a position near another one.
inline Directions DirectionsNear(const Directions& known, const double knownLatLon[2],
                                 const double latLon[2]) {
    return {TurnedBy(latLon[0] - knownLatLon[0], known.phi),
            TurnedBy(latLon[1] - knownLatLon[1], known.lambda)};
}

constexpr HubParams ToHubOf(const DatumRow& row) {
    return {.f = row.f,
            .a = row.a,
            .e2 = EccentricitySquared(row.f),
            .df = WGS84_F - row.f,
            .da = WGS84_A - row.a,
            .dx = row.dx,
            .dy = row.dy,
            .dz = row.dz};
}

constexpr HubParams FromHubOf(const DatumRow& row) {
    return {.f = WGS84_F,
            .a = WGS84_A,
            .e2 = EccentricitySquared(WGS84_F),
            .df = -(WGS84_F - row.f),
            .da = -(WGS84_A - row.a),
            .dx = -row.dx,
            .dy = -row.dy,
            .dz = -row.dz};
}

// What of a Molodensky step doesn't depend on the position.
struct StepConstants {
    double a, e2;
    double dx, dy, dz;
    double perA;             // 1 / (a (1 - e2))
    double constant, slope;  // of what the other figure changes, in w
};

constexpr StepConstants StepOf(const HubParams& p) {
    const double perSquare = 1.0 / (1.0 - p.e2);
    const double perA = perSquare / p.a;
    const double perB = 1.0 / (1.0 - p.f);  // a/b
    return {p.a,  p.e2, p.dx,        p.dy,
            p.dz, perA, perB * p.df, p.e2 * perA * p.da + (1.0 - p.f) * perSquare * p.df};
}

constexpr auto TO_HUB = ForEachDatum<StepConstants>([](const EllipsoidFigure&, std::int32_t datum) consteval {
    return StepOf(ToHubOf(DATUMS[static_cast<std::size_t>(datum)]));
});
constexpr auto FROM_HUB =
    ForEachDatum<StepConstants>([](const EllipsoidFigure&, std::int32_t datum) consteval {
        return StepOf(FromHubOf(DATUMS[static_cast<std::size_t>(datum)]));
    });

// One Molodensky step. With w = 1 - e2 sin^2 phi the radii of curvature are N = a / sqrt(w) in the prime
// vertical and M = a (1 - e2) / (w sqrt(w)) in the meridian; the formula's quotients by M are multiplied out,
// and what doesn't depend on the position waits for nothing.
inline void Apply(const StepConstants& p, const Directions& directions, double latLon[2], bool keepOnGlobe) {
    double latitude = latLon[0];
    double longitude = latLon[1];
    const auto [s, c] = directions.phi;
    const auto [sl, cl] = directions.lambda;

    const double w = 1.0 - s * s * p.e2;
    const double rootW = std::sqrt(w);
    const double translated = p.dz * c - s * (p.dx * cl + p.dy * sl);
    const double dLatitude =
        (translated * p.perA * (w * rootW) + (p.constant + p.slope * w) * (s * c)) * DEGREES_PER_RADIAN;

    const double eastward = -p.dx * sl + p.dy * cl;
    double dLongitude = 0.0;
    if (eastward != 0.0 && std::fabs(latitude) < LONGITUDE_LIMIT) {
        dLongitude = WrapTurns(eastward * rootW / (p.a * c) * DEGREES_PER_RADIAN, 360.0);
    }

    latitude += dLatitude;
    if (keepOnGlobe && HasPassedPole(latitude)) {
        latitude = ReflectAtPole(latitude);
        longitude += longitude <= 0.0 ? 180.0 : -180.0;
    }
    latLon[0] = latitude;
    latLon[1] = TakeTurnOff(longitude + dLongitude, 360.0);
}

// Out of the hub to a datum; one outside 0..238 gets the first step only.
void FromHub(const StepConstants& step, std::int32_t datum, double latLon[2]) {
    const double start[2] = {latLon[0], latLon[1]};
    const Directions startDirections = DirectionsOf(start);
    Apply(step, startDirections, latLon, true);

    if (!RowOf(datum)) return;
    const StepConstants& back = TO_HUB[static_cast<std::size_t>(datum)];
    if (std::fabs(latLon[0] - start[0]) <= WORTH_REFINING &&
        std::fabs(latLon[1] - start[1]) <= LongitudeTolerance(latLon[0], back.a, WORTH_REFINING)) {
        return;
    }

    // What the way in misses of the start is added to the result until it misses nothing to speak of.
    const double tolerance = LongitudeTolerance(latLon[0], back.a, REFINED);
    for (int i = 0; i < REFINEMENTS; ++i) {
        double returned[2] = {latLon[0], latLon[1]};
        const Directions directions = DirectionsNear(startDirections, start, latLon);
        Apply(back, directions, returned, false);
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

}  // namespace

double Datum_SemiMajorAxis(std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    return row ? row->a : -1.0;
}

double Datum_EccentricitySquared(std::int32_t datum) {
    const DatumRow* row = RowOf(datum);
    return row ? row->e2 : -1.0;
}

KoordStatus Datum_LoadToHub(std::int32_t datum, HubParams* p) {
    const DatumRow* row = RowOf(datum);
    if (!row) return KOORD_ERR_DATUM;
    *p = ToHubOf(*row);
    return KOORD_OK;
}

KoordStatus Datum_LoadFromHub(std::int32_t datum, HubParams* p) {
    const DatumRow* row = RowOf(datum);
    if (!row) return KOORD_ERR_DATUM;
    *p = FromHubOf(*row);
    return KOORD_OK;
}

KoordStatus Datum_Shift(const double in[2], double out[2], const HubParams* toHub, const HubParams* fromHub,
                        std::int32_t sourceDatum, std::int32_t targetDatum) {
    if (!RowOf(sourceDatum) || !RowOf(targetDatum)) return KOORD_ERR_DATUM;
    double position[2] = {in[0], in[1]};
    if (sourceDatum != DATUM_WGS84) Molodensky_ToHub(position, toHub);
    if (targetDatum != DATUM_WGS84) Molodensky_FromHub(position, fromHub, targetDatum);
    out[0] = position[0];
    out[1] = position[1];
    return KOORD_OK;
}

void ShiftBetween(std::int32_t sourceDatum, std::int32_t targetDatum, double latLon[2]) {
    if (sourceDatum != DATUM_WGS84) {
        Apply(TO_HUB[static_cast<std::size_t>(sourceDatum)], DirectionsOf(latLon), latLon, true);
    }
    if (targetDatum != DATUM_WGS84) {
        FromHub(FROM_HUB[static_cast<std::size_t>(targetDatum)], targetDatum, latLon);
    }
}

void Molodensky_Apply(const HubParams* p, double latLon[2], std::int32_t keepOnGlobe) {
    Apply(StepOf(*p), DirectionsOf(latLon), latLon, keepOnGlobe != 0);
}

void Molodensky_ToHub(double latLon[2], const HubParams* p) {
    Molodensky_Apply(p, latLon, 1);
}

void Molodensky_FromHub(double latLon[2], const HubParams* p, std::int32_t datum) {
    FromHub(StepOf(*p), datum, latLon);
}

}  // namespace tessara

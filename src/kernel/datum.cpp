#include "tessara/kernel/datum.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "kernel/datum_rows.h"
#include "kernel/datum_step.h"
#include "kernel/ellipsoids.h"
#include "kernel/numeric.h"
#include "numerics/called.h"
#include "numerics/sin_cos.h"

namespace tessara {
namespace {

constexpr double NEAR_POLE = 89.99999;         // degrees; beyond it there is no longitude tolerance
constexpr double LONGITUDE_LIMIT = 89.999999;  // degrees; from here to the pole the longitude isn't shifted
constexpr int REFINEMENTS = 4;

// The degrees of longitude that 0.1 metre subtends at a latitude, linear in the distance from the pole,
// within lowerBound..360. The constant is 0.1 * (180/pi)^2.
double LongitudeTolerance(double latitude, double a, double lowerBound) {
    if (!(std::fabs(latitude) <= NEAR_POLE)) return 360.0;
    const double tolerance = 328.28063500117446 / ((90.0 - std::fabs(latitude)) * a);
    if (tolerance > 360.0) return 360.0;
    return tolerance < lowerBound ? lowerBound : tolerance;
}

// The value, reduced by one turn if its magnitude is above the limit.
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

TESSARA_TABLE auto TO_HUB =
    ForEachDatum<StepConstants>([](const EllipsoidFigure&, std::int32_t datum) constexpr {
        return StepOf(ToHubOf(DATUMS[static_cast<std::size_t>(datum)]));
    });
TESSARA_TABLE auto FROM_HUB =
    ForEachDatum<StepConstants>([](const EllipsoidFigure&, std::int32_t datum) constexpr {
        return StepOf(FromHubOf(DATUMS[static_cast<std::size_t>(datum)]));
    });

inline Place PlaceAt(const double latLon[2], const StepConstants& p) {
    const double phi = latLon[0] * RADIANS_PER_DEGREE;
    const double lambda = latLon[1] * RADIANS_PER_DEGREE;
    if (!(std::fabs(latLon[0]) < LAST_DIGITS_COUNT))
        return PlaceOf(called::SinCosOf(phi), called::SinCosOf(lambda), p);
    return PlaceOf(SinCosByDoubling<1>(phi), SinCosByDoubling<2>(lambda), p);
}

inline void Move(const Shift& shift, double latLon[2], bool keepOnGlobe) {
    latLon[0] += shift.phi * DEGREES_PER_RADIAN;
    if (keepOnGlobe && HasPassedPole(latLon[0])) {
        latLon[0] = ReflectAtPole(latLon[0]);
        latLon[1] += latLon[1] <= 0.0 ? 180.0 : -180.0;
    }
    latLon[1] = TakeTurnOff(latLon[1] + WrapTurns(shift.lambda * DEGREES_PER_RADIAN, 360.0), 360.0);
}

// A step from any position; next to the poles it keeps the longitude.
void Apply(const StepConstants& p, const Place& place, double latLon[2], bool keepOnGlobe) {
    Shift shift = ShiftAt(place, p);
    if (place.eastward == 0.0 || !(std::fabs(latLon[0]) < LONGITUDE_LIMIT)) shift.lambda = 0.0;
    Move(shift, latLon, keepOnGlobe);
}

// A shift out of the hub, refined.
Shift RefineAll(const Place& start, const StepConstants& back, Shift shift) {
    for (int i = 0; i < REFINEMENTS; ++i) {
        const Refinement next = Refined(start, back, shift);
        shift = next.shift;
        if (next.isLast) break;
    }
    return shift;
}

// The same on positions, across the poles and the ends of the longitudes.
void RefinePosition(const double start[2], const StepConstants& back, double a, double latLon[2]) {
    const double tolerance = LongitudeTolerance(latLon[0], a, REFINED);
    const SinCos phi = SinCosOf(start[0] * RADIANS_PER_DEGREE);
    const SinCos lambda = SinCosOf(start[1] * RADIANS_PER_DEGREE);
    for (int i = 0; i < REFINEMENTS; ++i) {
        // By addition theorems, because next to a pole an angle from 0 has fewer digits than one from the
        // pole.
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

// Shifts any position from the hub to a datum; one outside 0..238 gets the first step only.
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
    if (!AreOpposite(step, back) || !IsPlain(latLon, start, shift))
        return FromHubAnywhere(step, datum, latLon);

    // One comparison for both: in many countries either of the two alone varies between both outcomes, which
    // mispredicts branches.
    const double larger = std::max(std::fabs(shift.phi), std::fabs(shift.lambda));
    if (larger > worthRefining) shift = RefineAll(Opposite(start, back.e2), back, shift);
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

const StepConstants& StepToHub(std::int32_t datum) {
    return TO_HUB[static_cast<std::size_t>(datum)];
}

const StepConstants& StepFromHub(std::int32_t datum) {
    return FROM_HUB[static_cast<std::size_t>(datum)];
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

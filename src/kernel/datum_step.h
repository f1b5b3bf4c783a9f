// A step between a datum and the hub, from anywhere but next to the poles: shared by the shift of one
// position and of many.
#pragma once

#include <cmath>
#include <cstdint>

#include "numerics/conditions.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {

inline constexpr double WORTH_REFINING = 0.001;  // degrees; a step up to this stands unrefined
inline constexpr double REFINED = 0.0001;        // degrees; an iteration up to this is the last

// Degrees; from there on the cosine of the latitude is a small divisor, of which the last digits count.
inline constexpr double LAST_DIGITS_COUNT = 85.0;

// The parts of a Molodensky step that don't depend on the position.
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

// Whether the translations of a step and its way back are opposite along the equator.
[[nodiscard]] constexpr bool AreOpposite(const StepConstants& step, const StepConstants& back) {
    return back.dx == -step.dx && back.dy == -step.dy;
}

// Of a datum 0..238.
[[nodiscard]] const StepConstants& StepToHub(std::int32_t datum);
[[nodiscard]] const StepConstants& StepFromHub(std::int32_t datum);

// The values of the start position that a Molodensky step needs.
struct Place {
    SinCos phi;
    double secant;             // 1 / cos phi
    double outward, eastward;  // the translation's part parallel to the equator, seen from this meridian
    double w, rootW;           // 1 - e2 sin^2 phi, on the ellipsoid of the step
};

// The same place for the step back, with the other ellipsoid and the opposite translation.
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

// A change of latitude and longitude.
struct Shift {
    double phi, lambda;  // radians
};

// One Molodensky step. With w as above the radii of curvature are N = a / sqrt(w) in the prime vertical and
// M = a (1 - e2) / (w sqrt(w)) in the meridian. The formula's quotients by M are multiplied out, so that the
// parts independent of the position don't wait for it.
inline Shift ShiftAt(const Place& place, const StepConstants& p) {
    const auto [s, c] = place.phi;
    const double northward = p.dz * c - s * place.outward;
    return {northward * p.perM * (place.w * place.rootW) + (p.constant + p.slope * place.w) * (s * c),
            place.eastward * (place.secant * p.perN) * place.rootW};
}

// Whether a step is so short, and its start so far from the poles and the ends of the longitudes, that it
// reaches neither, that 0.1 metre of longitude is below the other tolerance, and that FollowedBy is accurate
// enough.
inline bool IsPlain(const double start[2], const Place& place, const Shift& shift) {
    constexpr double fewTermsDo = 5e-4;  // radians, three kilometres
    return AllOf(std::fabs(start[0]) < 88.0, std::fabs(start[1]) < 359.0,
                 std::fabs(shift.lambda) < fewTermsDo, std::fabs(shift.phi * place.secant) < fewTermsDo);
}

// The place at the end of a short shift, without a call, a root or a quotient. The neglected terms are parts
// of 1e-13; a shift of thousandths of a degree would show a hundred times as much.
inline Place FollowedBy(const Place& place, const Shift& shift, double e2) {
    const auto turnOf = [](double angle) {
        const double y = angle * angle;
        return SinCos{angle - angle * y * (1.0 / 6.0), 1.0 - 0.5 * y};
    };
    const SinCos north = turnOf(shift.phi);
    const SinCos east = turnOf(shift.lambda);
    const SinCos twice = Doubled(place.phi);
    // The relative growth of w and decrease of cos phi. The first is so small that 1 / w needs only six
    // digits.
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

// Fixed-point iteration for the shift out of WGS84: applies the inward step and adds the residual, until it
// is at most REFINED.
struct Refinement {
    Shift shift;
    bool isLast;
};
[[nodiscard]] inline Refinement Refined(const Place& start, const StepConstants& back, const Shift& shift) {
    constexpr double refined = REFINED / DEGREES_PER_RADIAN;
    const Shift returned = ShiftAt(FollowedBy(start, shift, back.e2), back);
    const Shift miss{-(shift.phi + returned.phi), -(shift.lambda + returned.lambda)};
    return {{shift.phi + miss.phi, shift.lambda + miss.lambda},
            AllOf(std::fabs(miss.phi) <= refined, std::fabs(miss.lambda) <= refined)};
}

}  // namespace tessara

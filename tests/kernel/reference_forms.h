// The kernel's formulas in their published form, step by step. The kernel computes the same with fewer
// elementary functions and is compared with these functions. In long double their own rounding is
// negligible; in double they show which results aren't numbers.
#pragma once

#include <cmath>
#include <cstdint>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/lambert.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara::reference {

// The constants of one direction from the doubles of the datum's row; `matrix` holds the rows 1 to 4 of the
// series.
inline TmConstants TmConstantsOf(std::int32_t datum, const double matrix[4][5]) {
    constexpr double arcMatrix[4][5] = {{0.0, -3.0 / 8.0, -3.0 / 32.0, -45.0 / 1024.0, -105.0 / 4096.0},
                                        {0.0, 0.0, 15.0 / 256.0, 45.0 / 1024.0, 525.0 / 16384.0},
                                        {0.0, 0.0, 0.0, -35.0 / 3072.0, -175.0 / 12288.0},
                                        {0.0, 0.0, 0.0, 0.0, 315.0 / 131072.0}};
    constexpr double rectifying[5] = {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0};
    const DatumRow& row = *Datum_Row(datum);
    const auto evaluate = [&row](const double c[5]) {
        return c[0] + row.e2 * (c[1] + row.e2 * (c[2] + row.e2 * (c[3] + row.e2 * c[4])));
    };
    TmConstants c{};
    const double b = row.a - row.a * row.f;
    c.polarRadius = row.a * row.a / b;
    c.secondEcc2 = row.a * row.a / (b * b) - 1.0;
    c.datum = datum;
    c.arcCoef[0] = c.seriesCoef[0] = evaluate(rectifying);
    for (int i = 1; i < 5; ++i) {
        c.arcCoef[i] = evaluate(arcMatrix[i - 1]);
        c.seriesCoef[i] = evaluate(matrix[i - 1]);
    }
    return c;
}

inline TmConstants TmForwardConstantsOf(std::int32_t datum) {
    constexpr double matrix[4][5] = {{0.0, 1.0 / 8.0, -1.0 / 96.0, -9.0 / 1024.0, -901.0 / 184320.0},
                                     {0.0, 0.0, 13.0 / 768.0, 17.0 / 5120.0, -311.0 / 737280.0},
                                     {0.0, 0.0, 0.0, 61.0 / 15360.0, 899.0 / 430080.0},
                                     {0.0, 0.0, 0.0, 0.0, 49561.0 / 41287680.0}};
    return TmConstantsOf(datum, matrix);
}

inline TmConstants TmInverseConstantsOf(std::int32_t datum) {
    constexpr double matrix[4][5] = {{0.0, 1.0 / 8.0, 1.0 / 48.0, 7.0 / 2048.0, 1.0 / 61440.0},
                                     {0.0, 0.0, 1.0 / 768.0, 3.0 / 1280.0, 559.0 / 368640.0},
                                     {0.0, 0.0, 0.0, 17.0 / 30720.0, 283.0 / 430080.0},
                                     {0.0, 0.0, 0.0, 0.0, 4397.0 / 41287680.0}};
    return TmConstantsOf(datum, matrix);
}

template <class Real>
Real TmIsometricLatitude(Real lat, Real e) {
    const Real eSin = e * std::sin(lat);
    // The double nearest to pi/4 in the tangent of a double, pi/4 itself in a longer one.
    const Real quarterPi = sizeof(Real) == sizeof(double) ? Real(QUARTER_PI) : std::atan(Real(1));
    return std::log(std::tan(lat / 2 + quarterPi) * std::pow((1 - eSin) / (1 + eSin), e / 2));
}

// The sum of c[j] * sin(2j z) over j = 1..4, added to `north` and `east`.
template <class Real>
void AddSineSeries(const double c[5], Real zNorth, Real zEast, Real sign, Real* north, Real* east) {
    for (int j = 1; j <= 4; ++j) {
        const Real u = 2 * j * zNorth;
        const Real v = 2 * j * zEast;
        *north += sign * c[j] * std::sin(u) * std::cosh(v);
        *east += sign * c[j] * std::cos(u) * std::sinh(v);
    }
}

template <class Real>
void TmForward(Real dLon, Real lat, Real k, Real falseEasting, Real falseNorthing, Real* easting,
               Real* northing, const TmConstants& c) {
    const Real e = std::sqrt(Real(Datum_EccentricitySquared(c.datum)));
    const Real ka = k * Datum_SemiMajorAxis(c.datum);
    const Real psi = TmIsometricLatitude(lat, e);
    const Real sinhPsi = std::sinh(psi);
    const Real cosLon = std::cos(dLon);
    const Real xi = std::atan(sinhPsi / cosLon);
    const Real eta = std::asinh(std::sin(dLon) / std::sqrt(sinhPsi * sinhPsi + cosLon * cosLon));
    Real north = c.seriesCoef[0] * xi;
    Real east = c.seriesCoef[0] * eta;
    AddSineSeries(c.seriesCoef, xi, eta, Real(1), &north, &east);
    *easting = ka * east + falseEasting;
    *northing = ka * north + falseNorthing;
}

template <class Real>
Real TmLatitudeFromIsometric(Real psi, Real e, Real tolerance) {
    constexpr double halfPiShort = 1.570796326794897;
    const Real t = std::exp(psi);
    // The kernel's pi/2 is one digit shorter than the nearest double, which is part of the result.
    const Real halfPi = sizeof(Real) == sizeof(double) ? Real(halfPiShort)
                                                       : 2 * std::atan(Real(1)) + Real(halfPiShort - HALF_PI);
    Real lat = 2 * std::atan(t) - halfPi;
    Real step;
    int count = 0;
    do {
        const Real eSin = e * std::sin(lat);
        const Real next = 2 * std::atan(t * std::pow((1 + eSin) / (1 - eSin), e / 2)) - halfPi;
        step = std::fabs(lat - next);
        lat = next;
    } while (step > tolerance && ++count < 100);
    return lat;
}

template <class Real>
void TmInverse(Real easting, Real northing, Real k, Real falseEasting, Real falseNorthing,
               Real centralMeridian, Real* lon, Real* lat, const TmConstants& c) {
    const Real e = std::sqrt(Real(Datum_EccentricitySquared(c.datum)));
    const Real unit = k * Datum_SemiMajorAxis(c.datum) * c.seriesCoef[0];
    Real xi = (northing - falseNorthing) / unit;
    Real eta = (easting - falseEasting) / unit;
    AddSineSeries(c.seriesCoef, Real(xi), Real(eta), Real(-1), &xi, &eta);
    const Real sinhEta = std::sinh(eta);
    const Real cosXi = std::cos(xi);
    const Real psi = std::asinh(std::sin(xi) / std::sqrt(sinhEta * sinhEta + cosXi * cosXi));
    *lon = (std::atan(sinhEta / cosXi) + centralMeridian * RADIANS_PER_DEGREE) * DEGREES_PER_RADIAN;
    *lat = TmLatitudeFromIsometric(psi, e, Real(1e-11)) * DEGREES_PER_RADIAN;
}

template <class Real>
struct Geodesic {
    Real first, second, third;
    // Whether a step of the iteration came so near to the tolerance that the roundings of double decide
    // whether it is the last; the distance depends on that by up to 1e-13 radians.
    bool isClose = false;
};

// A negative distance means that the iteration on the longitude doesn't converge.

template <class Real>
Geodesic<Real> GeodesicInverse(Real lat1, Real lon1, Real lat2, Real lon2, Real a, Real b) {
    const Real n = (a - b) / (a + b);
    const Real c = a / b * a;
    const Real q = c / b - 1;
    const auto reduced = [n](Real p) {
        return p - n * std::sin(2 * p) + n * n / 2 * std::sin(4 * p) - n * n * n / 3 * std::sin(6 * p);
    };
    const Real R = DEGREES_PER_RADIAN;
    const Real U1 = reduced(lat1 / R);
    const Real U2 = reduced(lat2 / R);
    const Real S = (U2 + U1) / 2;
    const Real D = (U2 - U1) / 2;
    const Real L = lon2 / R - lon1 / R;
    Real lam = L;
    bool isClose = false;
    for (int i = 0; i < 100; ++i) {
        const Real ch = std::cos(lam / 2);
        const Real sh = std::sin(lam / 2);
        const Real A = ch * std::cos(D);
        const Real B = sh * std::sin(S);
        const Real C = ch * std::sin(D);
        const Real E = sh * std::cos(S);
        const Real sigma = 2 * std::atan2(std::sqrt(C * C + E * E), std::sqrt(A * A + B * B));
        const Real X = std::atan2(A, B);
        const Real Y = -std::atan2(C, E);
        const Real sa = std::sin(X + Y) * std::cos(U1);
        const Real ca = std::cos(X + Y) * std::cos(U1);
        const Real g = ca == 0 && std::sin(U1) == 0 ? 0 : std::atan2(ca, std::sin(U1));
        const Real m = sigma - 2 * g;
        const Real u = std::sqrt(1 + q - q * sa * sa);
        const Real K = (u - 1) / (u + 1);
        const Real T = (1 + n - K / 2 - K * K / 4) * sigma / 2 - K * std::cos(m) * std::sin(sigma) / 4 +
                       std::cos(2 * m) * K * K * std::sin(2 * sigma) / 16;
        const Real next = T * (q / (1 + q)) * sa + L;
        const Real step = std::fabs(next - lam);
        isClose = isClose || std::fabs(step - Real(1e-13)) <= Real(3e-15);
        if (step <= Real(1e-13)) {
            const Real distance = (K * K / 4 + 1) / (1 - K) * c / (1 + q) *
                                  (sigma + (K - 3 * K * K * K / 8) * std::cos(m) * std::sin(sigma) -
                                   std::cos(2 * m) * K * K * std::sin(2 * sigma) / 8 +
                                   std::cos(3 * m) * K * K * K * std::sin(3 * sigma) / 24);
            const auto azimuth = [R](Real x) { return x < 0 ? x * R + 360 : x * R; };
            return {distance, azimuth(X + Y), azimuth(Y - X), isClose};
        }
        lam = next;
    }
    return {-1, 0, 0};
}

// Latitude, longitude and the azimuth back.
template <class Real>
Geodesic<Real> GeodesicDirect(Real lat, Real lon, Real distance, Real azimuth, Real a, Real b) {
    const Real halfPi = sizeof(Real) == sizeof(double) ? Real(HALF_PI) : 2 * std::atan(Real(1));
    const Real n = (a - b) / (a + b);
    const Real c = a / b * a;
    const Real q = c / b - 1;
    const Real degrees = DEGREES_PER_RADIAN;
    const Real p = lat / degrees;
    const Real A = azimuth / degrees;
    const Real U1 = p - n * std::sin(2 * p) + n * n / 2 * std::sin(4 * p) - n * n * n / 3 * std::sin(6 * p);
    const Real sa = std::cos(U1) * std::sin(A);
    const Real g = std::atan2(std::cos(U1) * std::cos(A), std::sin(U1));
    const Real u = std::sqrt(1 + q - q * sa * sa);
    const Real K = (u - 1) / (u + 1);
    const Real L0 = (K * K / 4 + 1) / (1 - K);
    const Real t = 2 * g + K * std::sin(2 * g) - K * K / 8 * std::sin(4 * g);
    const Real s0 = (1 + q) * distance / c / L0;
    const Real w = (s0 - t) / 2;
    const Real sigma = s0 - (K - 9 * K * K * K / 16) * std::cos(2 * w) * std::sin(s0) +
                       5 * K * K / 8 * std::cos(4 * w) * std::sin(2 * s0) -
                       29 * K * K * K / 48 * std::cos(6 * w) * std::sin(3 * s0);
    const Real r = halfPi - U1;
    const Real h = A / 2;
    const Real d = (sigma - r) / 2;
    const Real v = (sigma + r) / 2;
    const Real P = std::cos(h) * std::cos(d);
    const Real Q = std::cos(h) * std::sin(d);
    const Real R = std::sin(h) * std::cos(v);
    const Real S = std::sin(h) * std::sin(v);
    const Real U2 = halfPi - 2 * std::atan2(std::sqrt(Q * Q + S * S), std::sqrt(P * P + R * R));
    const Real F = std::atan2(P, R);
    const Real G = std::atan2(Q, S);
    const Real C = q / (1 + q) * sa *
                   ((1 + n - K / 2 - K * K / 4) * sigma / 2 - K / 4 * std::cos(2 * w) * std::sin(s0) +
                    3 * K * K / 16 * std::cos(4 * w) * std::sin(2 * s0));
    const Real latitude =
        U2 + n * std::sin(2 * U2) + n * n / 2 * std::sin(4 * U2) + n * n * n / 3 * std::sin(6 * U2);
    const Real back = (G - F) * degrees;
    return {latitude * degrees, lon + (F + G - C) * degrees, back < 0 ? back + 360 : back};
}

template <class Real>
Real TurnTakenOff(Real degrees, Real limit) {
    if (degrees > limit) return degrees - 360;
    return degrees < -limit ? degrees + 360 : degrees;
}

template <class Real>
void MolodenskyApply(const HubParams& p, Real latLon[2], bool keepOnGlobe) {
    const Real phi = latLon[0] * RADIANS_PER_DEGREE;
    const Real lam = latLon[1] * RADIANS_PER_DEGREE;
    const Real s = std::sin(phi);
    const Real c = std::cos(phi);
    const Real sl = std::sin(lam);
    const Real cl = std::cos(lam);
    const Real r = 1 / (1 - Real(p.f));
    const Real w = 1 - s * s * p.e2;
    const Real N = p.a / std::sqrt(w);
    const Real M = (1 - Real(p.e2)) * p.a / std::pow(w, Real(1.5));
    const Real numerator = -p.dx * s * cl - p.dy * s * sl + p.dz * c + N * p.e2 * s * c * p.da / p.a +
                           (M * r + N / r) * p.df * s * c;
    const Real q = -p.dx * sl + p.dy * cl;
    Real dLam = 0;
    if (q != 0 && std::fabs(latLon[0]) < Real(89.999999)) dLam = q / (N * c) * DEGREES_PER_RADIAN;
    dLam = TurnTakenOff(std::fmod(dLam, Real(360)), Real(180));

    const bool isEast = latLon[1] > 0;
    latLon[0] += numerator / M * DEGREES_PER_RADIAN;
    if (keepOnGlobe && std::fabs(latLon[0]) > 90) {
        latLon[0] = (latLon[0] > 0 ? 180 : -180) - latLon[0];
        latLon[1] += isEast ? -180 : 180;
    }
    latLon[1] = TurnTakenOff(latLon[1] + dLam, Real(360));
}

template <class Real>
Real MolodenskyTolerance(Real latitude, double a, Real least) {
    if (!(std::fabs(latitude) <= Real(89.99999))) return 360;
    const Real tolerance = Real(328.28063500117446) / ((90 - std::fabs(latitude)) * a);
    return tolerance > 360 ? Real(360) : tolerance < least ? least : tolerance;
}

template <class Real>
void MolodenskyFromHub(Real latLon[2], const HubParams& p, const HubParams& back) {
    const Real start[2] = {latLon[0], latLon[1]};
    MolodenskyApply(p, latLon, true);
    if (std::fabs(latLon[0] - start[0]) <= Real(0.001) &&
        std::fabs(latLon[1] - start[1]) <= MolodenskyTolerance(latLon[0], back.a, Real(0.001))) {
        return;
    }
    const Real tolerance = MolodenskyTolerance(latLon[0], back.a, Real(0.0001));
    for (int i = 0; i < 4; ++i) {
        Real copy[2] = {latLon[0], latLon[1]};
        MolodenskyApply(back, copy, false);
        const Real dLat = start[0] - copy[0];
        const Real dLon = TurnTakenOff(start[1] - copy[1], Real(180));
        latLon[0] = TurnTakenOff(latLon[0] + dLat, Real(360));
        latLon[1] = TurnTakenOff(latLon[1] + dLon, Real(360));
        if (std::fabs(dLat) <= Real(0.0001) && std::fabs(dLon) <= tolerance) break;
    }
    if (std::fabs(latLon[0]) > 90) {
        latLon[0] = (latLon[0] > 0 ? 180 : -180) - latLon[0];
        latLon[1] += latLon[1] < 0 ? 180 : -180;
    }
}

template <class Real>
struct UpsConstantsOf {
    Real e, poleRadius, s2, s4, s6, s8;

    explicit UpsConstantsOf(std::int32_t datum) {
        const DatumRow& row = *Datum_Row(datum);
        const double b = (1.0 - row.f) * row.a;
        const double e2 = row.f == 0.0 ? 0.0 : (row.a * row.a - b * b) / (row.a * row.a);
        e = std::sqrt(Real(e2));
        poleRadius = 2 * row.a * std::pow((1 - e) / (1 + e), e / 2) / std::sqrt(1 - e * e);
        const double d = e2, d2 = d * d, d3 = d2 * d, d4 = d2 * d2;
        s2 = d / 2.0 + 5.0 * d2 / 24.0 + d3 / 12.0 + 13.0 * d4 / 360.0;
        s4 = 7.0 * d2 / 48.0 + 29.0 * d3 / 240.0 + 811.0 * d4 / 11520.0;
        s6 = 7.0 * d3 / 120.0 + 81.0 * d4 / 1120.0;
        s8 = 4279.0 * d4 / 161280.0;
    }
};

template <class Real>
void UpsForward(const double latLon[2], Real* easting, Real* northing, std::int32_t datum) {
    const UpsConstantsOf<Real> c(datum);
    const Real quarterPi = sizeof(Real) == sizeof(double) ? Real(QUARTER_PI) : std::atan(Real(1));
    const Real p = std::fabs(Real(latLon[0])) * RADIANS_PER_DEGREE;
    const Real lambda = Real(latLon[1]) * RADIANS_PER_DEGREE;
    const Real eSin = c.e * std::sin(p);
    const Real t = std::tan(quarterPi - p / 2) * std::pow((1 + eSin) / (1 - eSin), c.e / 2);
    const Real r = Real(0.994) * c.poleRadius * t;
    *northing = std::cos(lambda) * (latLon[0] < 0.0 ? 1 : -1) * r + Real(2.0e6);
    *easting = std::sin(lambda) * r + Real(2.0e6);
}

// For points off the pole.
template <class Real>
void UpsInverse(Real easting, Real northing, bool isSouth, Real latLon[2], std::int32_t datum) {
    const UpsConstantsOf<Real> c(datum);
    const Real halfPi = sizeof(Real) == sizeof(double) ? Real(HALF_PI) : 2 * std::atan(Real(1));
    const Real sign = isSouth ? 1 : -1;
    Real dx = easting - Real(2.0e6);
    Real dy = std::fabs(northing) - Real(2.0e6);
    if (std::fabs(dx) < Real(0.0001)) dx = 0;
    if (std::fabs(dy) < Real(0.0001)) dy = 0;
    const Real lambda = std::atan2(dx, sign * dy);
    const Real r =
        std::fabs(dy) <= std::fabs(dx) ? std::fabs(dx / std::sin(lambda)) : std::fabs(dy / std::cos(lambda));
    const Real chi = halfPi - 2 * std::atan(r / (c.poleRadius * Real(0.994)));
    const Real lat = chi + c.s2 * std::sin(2 * chi) + c.s4 * std::sin(4 * chi) + c.s6 * std::sin(6 * chi) +
                     c.s8 * std::sin(8 * chi);
    latLon[0] = -sign * lat * DEGREES_PER_RADIAN;
    latLon[1] = lambda * DEGREES_PER_RADIAN;
}

// Latitude in degrees and height, for points off the axis.
template <class Real>
void EcefInverse(Real p, Real z, const DatumRow& row, Real* latitude, Real* height) {
    const auto normalRadius = [&row](Real lat) {
        return row.a / std::sqrt(1 - row.e2 * std::sin(lat) * std::sin(lat));
    };
    Real lat = std::atan(z / ((1 - Real(row.e2)) * p));
    Real N = normalRadius(lat);
    Real d;
    int count = 0;
    do {
        const Real c = std::cos(lat);
        d = (std::tan(lat) - (N * row.e2 * std::sin(lat) + z) / p) /
            (1 / (c * c) - N / p * (N / row.a) * (N / row.a) * row.e2 * c);
        lat -= d;
        N = normalRadius(lat);
    } while (d > Real(1.7453292519943295e-8) && ++count < 100);
    *latitude = lat * DEGREES_PER_RADIAN;
    *height = p / std::cos(lat) - N;
}

template <class Real>
struct Swiss {
    Real degPerRad = 45 / std::atan(Real(1));
    Real quarterPi = sizeof(Real) == sizeof(double) ? Real(QUARTER_PI) : std::atan(Real(1));
    Real lon0 = Real(7.439583333333333) / degPerRad;
    Real lat0 = Real(46.95240555555556) / degPerRad;
    Real e = std::sqrt(Real(0.006674372231802145));
    Real alpha = std::sqrt(1 + Real(0.006719218799174759) * std::pow(std::cos(lat0), Real(4)));
    Real b0 =
        std::atan(std::sin(lat0) / alpha / std::sqrt(1 - std::sin(lat0) / alpha * (std::sin(lat0) / alpha)));
    Real radius = std::sqrt(Real(0.9933256277681979)) * Real(6377397.155) /
                  (1 - Real(0.006674372231802145) * std::sin(lat0) * std::sin(lat0));
    Real k = LogTan(b0) - alpha * LogTan(lat0) + alpha * e / 2 * LogRatio(lat0);

    Real LogTan(Real lat) const { return std::log(std::tan(lat / 2 + quarterPi)); }
    Real LogRatio(Real lat) const { return std::log((1 + e * std::sin(lat)) / (1 - e * std::sin(lat))); }

    void Forward(Real latitude, Real longitude, Real* easting, Real* northing) const {
        const Real lat = latitude / degPerRad;
        const Real S = alpha * LogTan(lat) + k - alpha * e / 2 * LogRatio(lat);
        const Real b = 2 * (std::atan(std::exp(S)) - quarterPi);
        const Real l = alpha * (longitude / degPerRad - lon0);
        const Real X = std::cos(l) * std::cos(b) * std::cos(b0) + std::sin(b) * std::sin(b0);
        const Real Y = std::sin(l) * std::cos(b);
        const Real Z = std::sin(b) * std::cos(b0) - std::cos(l) * std::cos(b) * std::sin(b0);
        const Real sinBBar = std::sin(std::atan(Z / std::sqrt(X * X + Y * Y)));
        *easting = radius * std::atan(Y / X) + 600000;
        *northing = radius / 2 * std::log((1 + sinBBar) / (1 - sinBBar)) + 200000;
    }

    void Inverse(Real easting, Real northing, Real latLon[2]) const {
        const Real E = std::exp(2 * (northing - 200000) / radius);
        const Real s = (E - 1) / (E + 1);
        const Real bBar = std::atan(s / std::sqrt(1 - s * s));
        const Real lBar = (easting - 600000) / radius;
        const Real X = std::cos(lBar) * std::cos(bBar) * std::cos(b0) - std::sin(b0) * std::sin(bBar);
        const Real Y = std::sin(lBar) * std::cos(bBar);
        const Real Z = std::cos(b0) * std::sin(bBar) + std::cos(lBar) * std::cos(bBar) * std::sin(b0);
        const Real b = std::atan(Z / std::sqrt(X * X + Y * Y));
        const Real c = (LogTan(b) - k) / alpha;
        Real p = b;
        Real old;
        do {
            old = p;
            p = 2 * (std::atan(std::exp(e / 2 * LogRatio(old) + c)) - quarterPi);
        } while (std::fabs(p - old) >= Real(1e-11));
        latLon[0] = p * degPerRad;
        latLon[1] = (std::atan(Y / X) / alpha + lon0) * degPerRad;
    }
};

template <class Real>
struct Dutch {
    Real quarterPi = sizeof(Real) == sizeof(double) ? Real(QUARTER_PI) : std::atan(Real(1));
    Real e, n, b0, m, radius;

    explicit Dutch(std::int32_t datum) {
        const Real a = Datum_SemiMajorAxis(datum);
        const Real e2 = Datum_EccentricitySquared(datum);
        const Real phi0 = Real(52.1561605556) * RADIANS_PER_DEGREE;
        const Real c2 = std::cos(phi0) * std::cos(phi0);
        const Real w = e2 / (1 - e2) * c2;
        const Real s = std::sin(phi0);
        e = std::sqrt(e2);
        b0 = std::atan(std::tan(phi0) / std::sqrt(1 + w));
        n = std::sqrt(w * c2 + 1);
        m = std::exp(n * (std::atanh(s) - e * std::atanh(e * s))) / std::exp(std::atanh(std::sin(b0)));
        radius =
            std::sqrt((1 - e2) * a / std::pow(1 - e2 * s * s, Real(1.5)) * a / std::sqrt(1 - e2 * s * s));
    }

    Real GaussLatitude(Real lat) const {
        const Real eSin = e * std::sin(lat);
        return 2 * std::atan(std::exp(n * std::log(std::tan(lat / 2 + quarterPi))) *
                             std::exp(n * e / 2 * std::log((1 - eSin) / (1 + eSin))) / m) -
               2 * quarterPi;
    }

    void Forward(Real latitude, Real longitude, Real* easting, Real* northing) const {
        const Real L = (longitude - Real(5.3876388889)) * RADIANS_PER_DEGREE * n;
        const Real b = GaussLatitude(latitude * RADIANS_PER_DEGREE);
        const Real D = 1 + std::sin(b0) * std::sin(b) + std::cos(b0) * std::cos(b) * std::cos(L);
        const Real y =
            (std::cos(b0) * std::sin(b) - std::sin(b0) * std::cos(b) * std::cos(L)) * 2 * radius / D;
        const Real x = std::cos(b) * std::sin(L) * 2 * radius / D;
        *easting = Real(0.99990790084) * x + 155000;
        *northing = Real(0.99990790084) * y + 463000;
    }

    // For points off the origin's meridian.
    void Inverse(Real easting, Real northing, Real latLon[2]) const {
        const Real x = (easting - 155000) / Real(0.99990790084);
        const Real y = (northing - 463000) / Real(0.99990790084);
        const Real A = 2 * quarterPi - std::atan(y / x) + (x < 0 ? 4 * quarterPi : 0);
        const Real psi = 2 * std::atan(std::sqrt(x * x + y * y) / 2 / radius);
        const Real b = std::asin(std::cos(psi) * std::sin(b0) + std::sin(psi) * std::cos(b0) * std::cos(A));
        const Real L = std::asin(std::sin(psi) * std::sin(A) / std::cos(b));
        Real p = b;
        Real d = 1;
        for (int i = 0; i < 50 && std::fabs(d) > Real(1e-14); ++i) {
            d = GaussLatitude(p) - b;
            p -= d;
        }
        latLon[0] = p * DEGREES_PER_RADIAN;
        latLon[1] = (Real(5.3876388889) * RADIANS_PER_DEGREE + L / n) * DEGREES_PER_RADIAN;
    }
};

// exp of the negative isometric latitude.
template <class Real>
Real LambertExponential(Real lat, Real e) {
    const auto atanhOf = [](Real x) { return std::log((1 + x) / (1 - x)) / 2; };
    const Real s = std::sin(-lat);
    return std::exp(atanhOf(s) - e * atanhOf(e * s));
}

// The constant of a cone with two parallels, in radians.
template <class Real>
Real ConeConstant(Real lat1, Real lat2, Real e) {
    const auto logM = [e](Real lat) {
        return std::log(std::cos(lat) / std::sqrt(1 - std::sin(lat) * std::sin(lat) * e * e));
    };
    return (logM(lat1) - logM(lat2)) /
           (std::log(LambertExponential(lat1, e)) - std::log(LambertExponential(lat2, e)));
}

// For cones with two parallels.
template <class Real>
void LambertForward(const double latLon[2], Real* easting, Real* northing, const LambertCC& cone) {
    const Real t = LambertExponential(Real(latLon[0]) * RADIANS_PER_DEGREE, Real(cone.e));
    const Real theta = (Real(latLon[1]) * RADIANS_PER_DEGREE - cone.lon0) * cone.n;
    const Real rho = Real(cone.a) * cone.F * std::pow(t, Real(cone.n));
    *easting = std::sin(theta) * rho + cone.falseEasting;
    *northing = cone.rho0 - std::cos(theta) * rho + cone.falseNorthing;
}

template <class Real>
void LambertInverse(double easting, double northing, Real latLon[2], const LambertCC& cone) {
    const Real halfPi = sizeof(Real) == sizeof(double) ? Real(HALF_PI) : 2 * std::atan(Real(1));
    const Real E = Real(easting) - cone.falseEasting;
    const Real N = cone.rho0 - (Real(northing) - cone.falseNorthing);
    const Real sign = cone.n > 0 ? 1 : cone.n < 0 ? -1 : 0;
    const Real t = std::pow(sign * std::sqrt(E * E + N * N) / cone.a / cone.F, 1 / Real(cone.n));
    const Real angle = std::atan2(sign * E, sign * N);
    Real lat = halfPi - 2 * std::atan(t);
    Real old;
    int count = 0;
    do {
        old = lat;
        const Real eSin = cone.e * std::sin(old);
        lat = halfPi - 2 * std::atan(t * std::pow((1 - eSin) / (1 + eSin), Real(cone.e) / 2));
    } while (std::fabs(lat - old) > Real(1e-13) && ++count < 100);
    latLon[0] = lat * DEGREES_PER_RADIAN;
    latLon[1] = (angle / cone.n + cone.lon0) * DEGREES_PER_RADIAN;
}

}  // namespace tessara::reference

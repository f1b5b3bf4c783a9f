// The formulas of the kernel as they are written down in their sources, one step after the other. The kernel
// computes the same with fewer calls into the mathematics library; here stands what it is compared with. In
// long double the reference's own rounding doesn't count; in double it shows what isn't a number.
#pragma once

#include <cmath>
#include <cstdint>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
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
    // What the short literal takes off pi/2 is part of the result.
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

}  // namespace tessara::reference

// The coefficients of the transverse Mercator series, for code that computes constants from them.
#pragma once

#include "kernel/conformal_latitude.h"
#include "kernel/ellipsoids.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"

namespace tessara {

// Row i gives coefficient i as a polynomial in the eccentricity squared. Row 0, the rectifying factor, is
// the same in all three matrices. The forward rows are the Krueger coefficients multiplied by that factor;
// the inverse rows aren't multiplied. The last number of inverse row 1, 1/61440, isn't the exact one; it
// stays because stored results have to agree to the last digit.
using CoefficientMatrix = double[5][5];

inline constexpr CoefficientMatrix ARC_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, -3.0 / 8.0, -3.0 / 32.0, -45.0 / 1024.0, -105.0 / 4096.0},
    {0.0, 0.0, 15.0 / 256.0, 45.0 / 1024.0, 525.0 / 16384.0},
    {0.0, 0.0, 0.0, -35.0 / 3072.0, -175.0 / 12288.0},
    {0.0, 0.0, 0.0, 0.0, 315.0 / 131072.0},
};

inline constexpr CoefficientMatrix FORWARD_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, 1.0 / 8.0, -1.0 / 96.0, -9.0 / 1024.0, -901.0 / 184320.0},
    {0.0, 0.0, 13.0 / 768.0, 17.0 / 5120.0, -311.0 / 737280.0},
    {0.0, 0.0, 0.0, 61.0 / 15360.0, 899.0 / 430080.0},
    {0.0, 0.0, 0.0, 0.0, 49561.0 / 41287680.0},
};

inline constexpr CoefficientMatrix INVERSE_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, 1.0 / 8.0, 1.0 / 48.0, 7.0 / 2048.0, 1.0 / 61440.0},
    {0.0, 0.0, 1.0 / 768.0, 3.0 / 1280.0, 559.0 / 368640.0},
    {0.0, 0.0, 0.0, 17.0 / 30720.0, 283.0 / 430080.0},
    {0.0, 0.0, 0.0, 0.0, 4397.0 / 41287680.0},
};

constexpr void Evaluate(const CoefficientMatrix& matrix, double e2, double coefficients[5]) {
    for (int i = 0; i < 5; ++i) {
        const auto& row = matrix[i];
        coefficients[i] = row[0] + e2 * (row[1] + e2 * (row[2] + e2 * (row[3] + e2 * row[4])));
    }
}

// A point of the complex plane in which the projection is computed: north and east, on a sphere or ellipsoid
// of radius 1.
struct Plane {
    double north;
    double east;
};

// Sine and cosine of twice the north coordinate, hyperbolic sine and cosine of twice the east coordinate.
struct DoubleAngles {
    double sine, cosine;
    double sinh, cosh;
};

// The sum of c[j] * sin(2j z) over j = 1..4 for the complex z: sin 2z times a polynomial in x = cos 2z, as
// sin 4z is sin 2z * 2x, sin 6z is sin 2z * (4x^2 - 1) and sin 8z is sin 2z * (8x^3 - 4x).
constexpr Plane SineSeries(const double c[5], const DoubleAngles& z) {
    const double re = z.cosine * z.cosh;  // of x
    const double im = -z.sine * z.sinh;
    const double re2 = re * re - im * im;  // of its square
    const double im2 = 2.0 * re * im;
    const double low = 2.0 * c[2] - 4.0 * c[4];
    const double high = 8.0 * c[4];
    const double highRe = 4.0 * c[3] + high * re;
    const double highIm = high * im;
    const double sumRe = c[1] - c[3] + low * re + (re2 * highRe - im2 * highIm);
    const double sumIm = low * im + (re2 * highIm + im2 * highRe);
    const double sinRe = z.sine * z.cosh;
    const double sinIm = z.cosine * z.sinh;
    return {sinRe * sumRe - sinIm * sumIm, sinRe * sumIm + sinIm * sumRe};
}

// The northing of a point on the central meridian at scale 1, exactly as TM_Forward computes it, so that an
// origin has its false northing exactly.
constexpr double NorthingOnMeridian(double phi, double a, const LatitudeSeries& conformal,
                                    const double c[5]) {
    const auto [chi, direction] = ConformalLatitude(phi, SinCosByDoubling<1>(phi), conformal);
    const auto [up, ahead] = direction;
    const double twice = 2.0 / (up * up + ahead * ahead);
    const DoubleAngles angles{twice * up * ahead, 0.5 * twice * (ahead - up) * (ahead + up), 0.0, 1.0};
    return a * (c[0] * chi + SineSeries(c, angles).north);
}

consteval double ComputeOriginNorthing(const EllipsoidFigure& figure, double degrees) {
    double coefficients[5];
    Evaluate(FORWARD_MATRIX, figure.EccentricitySquared(), coefficients);
    return NorthingOnMeridian(degrees * RADIANS_PER_DEGREE, figure.a, ComputeConformalSeries(figure),
                              coefficients);
}

// The northings of a latitude of origin, indexed by the codes of the ellipsoids.
using OriginNorthings = std::array<double, ELLIPSOIDS.size()>;

consteval OriginNorthings ComputeOriginNorthings(double degrees) {
    OriginNorthings northings{};
    for (std::size_t i = 0; i < northings.size(); ++i) {
        if (ELLIPSOIDS[i].IsDefined()) northings[i] = ComputeOriginNorthing(ELLIPSOIDS[i], degrees);
    }
    return northings;
}

}  // namespace tessara

#include "tessara/kernel/transverse_mercator.h"

#include <cmath>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

// Row i gives coefficient i as a polynomial in the eccentricity squared. Row 0, the rectifying factor, is the
// same in all three. The forward rows are the Krueger coefficients multiplied by that factor, the inverse
// rows are the plain ones.
using CoefficientMatrix = double[5][5];

constexpr CoefficientMatrix ARC_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, -3.0 / 8.0, -3.0 / 32.0, -45.0 / 1024.0, -105.0 / 4096.0},
    {0.0, 0.0, 15.0 / 256.0, 45.0 / 1024.0, 525.0 / 16384.0},
    {0.0, 0.0, 0.0, -35.0 / 3072.0, -175.0 / 12288.0},
    {0.0, 0.0, 0.0, 0.0, 315.0 / 131072.0},
};

constexpr CoefficientMatrix FORWARD_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, 1.0 / 8.0, -1.0 / 96.0, -9.0 / 1024.0, -901.0 / 184320.0},
    {0.0, 0.0, 13.0 / 768.0, 17.0 / 5120.0, -311.0 / 737280.0},
    {0.0, 0.0, 0.0, 61.0 / 15360.0, 899.0 / 430080.0},
    {0.0, 0.0, 0.0, 0.0, 49561.0 / 41287680.0},
};

constexpr CoefficientMatrix INVERSE_MATRIX = {
    {1.0, -1.0 / 4.0, -3.0 / 64.0, -5.0 / 256.0, -175.0 / 16384.0},
    {0.0, 1.0 / 8.0, 1.0 / 48.0, 7.0 / 2048.0, 1.0 / 61440.0},
    {0.0, 0.0, 1.0 / 768.0, 3.0 / 1280.0, 559.0 / 368640.0},
    {0.0, 0.0, 0.0, 17.0 / 30720.0, 283.0 / 430080.0},
    {0.0, 0.0, 0.0, 0.0, 4397.0 / 41287680.0},
};

// The literal has one digit less than the double nearest to pi/2.
constexpr double HALF_PI_SHORT = 1.570796326794897;

// Real ellipsoids need about five iterations; the bound ends a tolerance that can't be reached.
constexpr int LATITUDE_ITERATIONS = 100;

void Evaluate(const CoefficientMatrix& matrix, double e2, double coefficients[5]) {
    for (int i = 0; i < 5; ++i) {
        const auto& row = matrix[i];
        coefficients[i] = row[0] + e2 * (row[1] + e2 * (row[2] + e2 * (row[3] + e2 * row[4])));
    }
}

// What both directions have in common.
KoordStatus LoadConstants(std::int32_t datum, const CoefficientMatrix& series, TmConstants* c) {
    const DatumRow* row = Datum_Row(datum);
    if (!row) return KOORD_ERR_DATUM;
    const double b = row->a - row->a * row->f;
    c->polarRadius = row->a * row->a / b;
    c->secondEcc2 = row->a * row->a / (b * b) - 1.0;
    const double d = c->secondEcc2;
    c->arcPerDegree =
        c->polarRadius * RADIANS_PER_DEGREE *
        (1.0 - d * (3.0 / 4.0 - d * (45.0 / 64.0 - d * (175.0 / 256.0 - d * 11025.0 / 16384.0))));
    c->datum = datum;
    Evaluate(ARC_MATRIX, row->e2, c->arcCoef);
    Evaluate(series, row->e2, c->seriesCoef);
    return KOORD_OK;
}

// A point of the complex plane in which the projection is computed: northward and eastward, on a unit sphere
// or ellipsoid.
struct Plane {
    double north;
    double east;
};

// The sum of c[j] * sin(2j z) over j = 1..4 for the complex z.
Plane SineSeries(const double c[5], Plane z) {
    Plane sum{0.0, 0.0};
    for (int j = 1; j <= 4; ++j) {
        const double u = 2.0 * j * z.north;
        const double v = 2.0 * j * z.east;
        sum.north += c[j] * std::sin(u) * std::cosh(v);
        sum.east += c[j] * std::cos(u) * std::sinh(v);
    }
    return sum;
}

double Eccentricity(std::int32_t datum) {
    return std::sqrt(Datum_EccentricitySquared(datum));
}

}  // namespace

KoordStatus TM_LoadForwardConstants(std::int32_t datum, TmConstants* c) {
    const KoordStatus status = LoadConstants(datum, FORWARD_MATRIX, c);
    if (status != KOORD_OK) return status;
    const double d = c->secondEcc2;
    const double d2 = d * d;
    const double d3 = d2 * d;
    const double d4 = d2 * d2;
    c->arcTerm[0] =
        c->polarRadius * (-3.0 * d / 8.0 + 15.0 * d2 / 32.0 - 525.0 * d3 / 1024.0 + 2205.0 * d4 / 4096.0);
    c->arcTerm[1] = c->polarRadius * (15.0 * d2 / 256.0 - 105.0 * d3 / 1024.0 + 2205.0 * d4 / 16384.0);
    c->arcTerm[2] = c->polarRadius * (-35.0 * d3 / 3072.0 + 315.0 * d4 / 12288.0);
    return KOORD_OK;
}

KoordStatus TM_LoadInverseConstants(std::int32_t datum, TmConstants* c) {
    const KoordStatus status = LoadConstants(datum, INVERSE_MATRIX, c);
    if (status != KOORD_OK) return status;
    const double d = c->secondEcc2;
    const double d2 = d * d;
    const double d3 = d2 * d;
    c->arcTerm[0] = DEGREES_PER_RADIAN * (3.0 * d / 8.0 - 3.0 * d2 / 16.0 + 213.0 * d3 / 2048.0);
    c->arcTerm[1] = DEGREES_PER_RADIAN * (21.0 * d2 / 256.0 - 21.0 * d3 / 256.0);
    c->arcTerm[2] = DEGREES_PER_RADIAN * (151.0 * d3 / 6144.0);
    return KOORD_OK;
}

// The conformal sphere is met with Gudermann's function in the form asinh(tan): tan(chi) of the conformal
// latitude chi is sinh(psi), and that of the transverse latitude is sin(dLon) / hypot(sinh(psi), cos(dLon)).
// So nothing is lost near the poles and a point on the central meridian has easting 0 to the last bit.
void TM_Forward(double dLon, double lat, double k, double falseEasting, double falseNorthing, double* easting,
                double* northing, const TmConstants* c) {
    double psi;
    IsometricLatitude_Tm(lat, Eccentricity(c->datum), &psi);
    const double sinhPsi = std::sinh(psi);
    const double cosLon = std::cos(dLon);
    const Plane sphere{std::atan(sinhPsi / cosLon),
                       std::asinh(std::sin(dLon) / std::sqrt(sinhPsi * sinhPsi + cosLon * cosLon))};
    const Plane series = SineSeries(c->seriesCoef, sphere);

    const double ka = k * Datum_SemiMajorAxis(c->datum);
    *easting = ka * (c->seriesCoef[0] * sphere.east + series.east) + falseEasting;
    *northing = ka * (c->seriesCoef[0] * sphere.north + series.north) + falseNorthing;
}

void TM_Inverse(double easting, double northing, double k, double falseEasting, double falseNorthing,
                double centralMeridian, double* lon, double* lat, const TmConstants* c) {
    const double unit = k * Datum_SemiMajorAxis(c->datum) * c->seriesCoef[0];
    const Plane ellipsoid{(northing - falseNorthing) / unit, (easting - falseEasting) / unit};
    const Plane series = SineSeries(c->seriesCoef, ellipsoid);
    const Plane sphere{ellipsoid.north - series.north, ellipsoid.east - series.east};

    const double sinhEast = std::sinh(sphere.east);
    const double cosNorth = std::cos(sphere.north);
    const double psi =
        std::asinh(std::sin(sphere.north) / std::sqrt(sinhEast * sinhEast + cosNorth * cosNorth));
    double phi;
    LatitudeFromIsometric(psi, Eccentricity(c->datum), 1e-11, &phi);
    const double lambda = std::atan(sinhEast / cosNorth) + centralMeridian * RADIANS_PER_DEGREE;
    *lon = lambda * DEGREES_PER_RADIAN;
    *lat = phi * DEGREES_PER_RADIAN;
}

KoordStatus TM_ForwardParam(const double latLon[2], const TmParams* p, double* easting, double* northing,
                            const TmConstants* forward) {
    double east, north, ignored, originNorth;
    TM_Forward((latLon[1] - p->originLongitude) * RADIANS_PER_DEGREE, latLon[0] * RADIANS_PER_DEGREE, 1.0,
               0.0, 0.0, &east, &north, forward);
    TM_Forward(0.0, p->originLatitude * RADIANS_PER_DEGREE, 1.0, 0.0, 0.0, &ignored, &originNorth, forward);
    *northing = (north - originNorth) * p->scale + p->falseNorthing;
    *easting = east * p->scale + p->falseEasting;
    return KOORD_OK;
}

KoordStatus TM_InverseParam(double easting, double northing, const TmParams* p, double latLon[2],
                            const TmConstants* forward, const TmConstants* inverse) {
    double ignored, originNorth;
    TM_Forward(0.0, p->originLatitude * RADIANS_PER_DEGREE, 1.0, 0.0, 0.0, &ignored, &originNorth, forward);
    const double north = (northing - p->falseNorthing) / p->scale + originNorth;
    const double east = (easting - p->falseEasting) / p->scale;
    TM_Inverse(east, north, 1.0, 0.0, 0.0, 0.0, &latLon[1], &latLon[0], inverse);
    latLon[1] += p->originLongitude;
    return KOORD_OK;
}

void TM_Arc(double lat, const double arcCoef[5], double* result) {
    double arc = arcCoef[0] * lat;
    for (int j = 1; j <= 4; ++j)
        arc += arcCoef[j] * std::sin(2.0 * j * lat);
    *result = arc;
}

void IsometricLatitude_Tm(double lat, double e, double* psi) {
    const double eSin = e * std::sin(lat);
    *psi = std::log(std::tan(lat / 2.0 + QUARTER_PI) * std::pow((1.0 - eSin) / (1.0 + eSin), e / 2.0));
}

void LatitudeFromIsometric(double psi, double e, double tolerance, double* lat) {
    const double t = std::exp(psi);
    double phi = 2.0 * std::atan(t) - HALF_PI_SHORT;
    double step = 0.0;
    int i = 0;
    do {
        const double eSin = e * std::sin(phi);
        const double next =
            2.0 * std::atan(t * std::pow((1.0 + eSin) / (1.0 - eSin), e / 2.0)) - HALF_PI_SHORT;
        step = std::fabs(phi - next);
        phi = next;
    } while (step > tolerance && ++i < LATITUDE_ITERATIONS);
    *lat = phi;
}

}  // namespace tessara

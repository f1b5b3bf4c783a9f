#include "tessara/kernel/transverse_mercator.h"

#include <cmath>

#include "kernel/conformal_latitude.h"
#include "kernel/datum_rows.h"
#include "kernel/grid_factors.h"
#include "kernel/transverse_mercator_constants.h"
#include "kernel/transverse_mercator_core.h"
#include "numerics/arcs.h"
#include "numerics/called.h"
#include "numerics/circular.h"
#include "numerics/exponential.h"
#include "numerics/hypotenuse.h"
#include "numerics/logarithm.h"
#include "numerics/rounding.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

using tm::Figure;
using tm::FigureOf;

// Of a latitude beyond half a turn the tangent sees the direction.
double LatitudeAsSeen(double lat) {
    if (std::fabs(lat) <= PI) return tm::LatitudeAsSeen(lat);
    const auto [sine, cosine] = called::SinCosOf(lat);
    return called::Atan2(sine, cosine);
}

// The position in degrees of a point on the plane.
void InverseOnUnit(const Plane& ellipsoid, const Figure& figure, double centralMeridian, double* lon,
                   double* lat, const TmConstants& c) {
    const LatitudeSeries& series = LATITUDE_SERIES[figure.ellipsoid];
    tm::Position position = tm::Inverse<Reach::Near>(ellipsoid, series, figure.e2, c.seriesCoef);
    if (!position.isInReach)
        position = tm::Inverse<Reach::Everywhere>(ellipsoid, series, figure.e2, c.seriesCoef);
    *lon = (position.lambda + centralMeridian * RADIANS_PER_DEGREE) * DEGREES_PER_RADIAN;
    *lat = position.phi * DEGREES_PER_RADIAN;
}

}  // namespace

void TM_Forward(double dLon, double lat, double k, double falseEasting, double falseNorthing, double* easting,
                double* northing, const TmConstants* c) {
    const Figure figure = FigureOf(*c);
    const double phi = LatitudeAsSeen(lat);
    const LatitudeSeries& series = CONFORMAL_SERIES[figure.ellipsoid];
    const Plane plane = tm::IsInStrip(dLon, phi)
                            ? tm::Forward<Reach::Near>(dLon, phi, series, c->seriesCoef)
                            : tm::Forward<Reach::Everywhere>(dLon, phi, series, c->seriesCoef);
    const double ka = k * figure.a;
    *easting = ka * plane.east + falseEasting;
    *northing = ka * plane.north + falseNorthing;
}

void TM_Inverse(double easting, double northing, double k, double falseEasting, double falseNorthing,
                double centralMeridian, double* lon, double* lat, const TmConstants* c) {
    const Figure figure = FigureOf(*c);
    const double perUnit = 1.0 / (k * figure.a * c->seriesCoef[0]);
    InverseOnUnit({(northing - falseNorthing) * perUnit, (easting - falseEasting) * perUnit}, figure,
                  centralMeridian, lon, lat, *c);
}

double TmOriginNorthing(double degrees, const TmConstants& forward) {
    const Figure figure = FigureOf(forward);
    return NorthingOnMeridian(LatitudeAsSeen(degrees * RADIANS_PER_DEGREE), figure.a,
                              CONFORMAL_SERIES[figure.ellipsoid], forward.seriesCoef);
}

void TmForwardFromOrigin(const double latLon[2], const TmParams& p, double originNorth, double* easting,
                         double* northing, const TmConstants& forward) {
    Plane metres;
    TM_Forward((latLon[1] - p.originLongitude) * RADIANS_PER_DEGREE, latLon[0] * RADIANS_PER_DEGREE, 1.0, 0.0,
               0.0, &metres.east, &metres.north, &forward);
    const Plane grid = tm::FromOrigin(metres, p, originNorth);
    *easting = grid.east;
    *northing = grid.north;
}

void TmInverseFromOrigin(double easting, double northing, const TmParams& p, double originNorth,
                         double latLon[2], const TmConstants& inverse) {
    const Figure figure = FigureOf(inverse);
    const double radius = figure.a * inverse.seriesCoef[0];
    const double perUnit = 1.0 / (p.scale * radius);
    const Plane ellipsoid{(northing - p.falseNorthing) * perUnit + originNorth / radius,
                          (easting - p.falseEasting) * perUnit};
    InverseOnUnit(ellipsoid, figure, 0.0, &latLon[1], &latLon[0], inverse);
    latLon[1] += p.originLongitude;
}

// By Karney's names: on the sphere with the conformal latitude chi the grid turns by gamma' and stretches by
// k'; from there to the plane of the ellipsoid it turns and stretches by the derivative of the series.
void TM_Factors(const double* latLon, double centralMeridian, double k, const TmConstants& forward,
                GridFactors* factors) {
    const Figure figure = FigureOf(forward);
    const SinCos phi = SinCosOf(latLon[0] * RADIANS_PER_DEGREE);
    const double lambda = (latLon[1] - centralMeridian) * RADIANS_PER_DEGREE;
    const double sine = std::fabs(phi.sine);
    // The tangent of half the conformal colatitude, and the ratio of the cosines of both latitudes, which the
    // poles have as well.
    const double perSphere = Exp(EllipsoidShare(sine, figure.e2)) / (1.0 + sine);
    const double t = std::fabs(phi.cosine) * perSphere;
    const double cosineRatio = 2.0 * perSphere / (1.0 + t * t);
    const double up = std::copysign((1.0 - t * t) / (1.0 + t * t), phi.sine);
    const double along = 2.0 * t / (1.0 + t * t);
    const double aside = along * Sin(lambda);

    const double xi = Atan2(up, along * Cos(lambda));
    const double eta = Artanh(aside);
    double re = forward.seriesCoef[0];
    double im = 0.0;
    for (int j = 1; j <= 4; ++j) {
        const double growth = Exp(2 * j * eta);
        const double cosh = 0.5 * (growth + 1.0 / growth);
        re += 2 * j * forward.seriesCoef[j] * Cos(2 * j * xi) * cosh;
        im -= 2 * j * forward.seriesCoef[j] * Sin(2 * j * xi) * Sinh(2 * j * eta);
    }
    const double onSphere = Atan2(up * Sin(lambda), Cos(lambda));
    factors->convergence = Remainder((onSphere - Atan2(im, re)) * DEGREES_PER_RADIAN, DEGREES_PER_TURN);
    factors->scale = k * Hypot(re, im) * cosineRatio * std::sqrt(1.0 - figure.e2 * sine * sine) /
                     std::sqrt(1.0 - aside * aside);
}

KoordStatus TmOrigin_Factors(const TmParams& projection, const tagKOORD& record, const double* latLon,
                             GridFactors* factors) {
    TM_Factors(latLon, projection.originLongitude, projection.scale,
               *TmForwardConstants(static_cast<std::int32_t>(record.datum)), factors);
    return KOORD_OK;
}

}  // namespace tessara

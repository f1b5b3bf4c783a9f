#include "tessara/kernel/transverse_mercator.h"

#include <algorithm>
#include <cmath>

#include "kernel/conformal_latitude.h"
#include "kernel/datum_rows.h"
#include "kernel/transverse_mercator_constants.h"
#include "kernel/transverse_mercator_series.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

// The literal has one digit less than the double nearest to pi/2.
constexpr double HALF_PI_SHORT = 1.570796326794897;

constexpr double LATITUDE_TOLERANCE = 1e-11;  // radians

// The method's isometric latitude has the tangent of lat/2 + pi/4, and doubles near the sum are coarser than
// the latitude: what doesn't move it off pi/4 lies on the equator and, as the double is short of pi/4, just
// south of it; what doesn't move it beyond pi/2 isn't beyond the pole. Signs and limits are decided on this.
// Of a latitude beyond half a turn the tangent sees the direction.
double LatitudeAsSeen(double lat) {
    constexpr double justSouth = -6.123233995736766e-17;  // twice what the double is short by
    if (!(std::fabs(lat) <= PI)) return std::atan2(std::sin(lat), std::cos(lat));
    const double sum = lat / 2.0 + QUARTER_PI;
    if (sum == QUARTER_PI) return justSouth;
    return sum == HALF_PI ? HALF_PI : lat;
}

// What the formulas need of a datum. For constants that belong to no datum the results aren't numbers.
struct Figure {
    double a, e2;
    std::uint32_t ellipsoid;
};

Figure FigureOf(const TmConstants& c) {
    const DatumRow* row = RowOf(c.datum);
    if (!row) return {std::nan(""), std::nan(""), ELLIPSOID_UNKNOWN};
    return {row->a, row->e2, row->ellipsoid};
}

// Within a strip a latitude on the sphere and the transverse latitude of the same point differ by little, and
// one follows from the other without a call into the mathematics library.

// atan(up / ahead), the transverse latitude of a point at the conformal latitude.
double TransverseLatitude(const ConformalAngle& conformal, double dLon, double cosLambda) {
    const auto [up, along] = conformal.direction;
    const double ahead = along * cosLambda;
    if (!IsSmall(dLon * dLon)) return std::atan(up / ahead);
    const double tangent = up * along * (1.0 - cosLambda) / (up * up + along * ahead);
    return conformal.chi + tangent * ArcTerms(-(tangent * tangent));
}

// atan(xi.sine / meridian), the conformal latitude of a point whose transverse latitude is `angle`, with the
// direction xi, and whose distance from the meridian has the hyperbolic sine sinhEta.
double ConformalLatitudeOf(double angle, SinCos xi, double meridian, double sinhEta) {
    constexpr double offThePoles = 1.5;  // radians
    const double sinh2 = sinhEta * sinhEta;
    if (!IsSmall(sinh2) || !(std::fabs(angle) < offThePoles)) return std::atan(xi.sine / meridian);
    const double tangent =
        xi.sine * sinh2 / ((meridian + xi.cosine) * (xi.cosine * meridian + xi.sine * xi.sine));
    return angle - tangent * ArcTerms(-(tangent * tangent));
}

// sinh, bounded so that its square is a number: far off the globe the series swells until it isn't, and the
// position is still one a quarter turn off the meridian.
double BoundedSinh(double x) {
    constexpr double bound = 1e150;
    return IsSmall(x * x) ? SinhOfSmall(x) : std::clamp(std::sinh(x), -bound, bound);
}

// The position in degrees of a point on the plane of an ellipsoid with the rectifying radius 1.
void InverseOnUnit(const Plane& ellipsoid, const Figure& figure, double centralMeridian, double* lon,
                   double* lat, const TmConstants& c) {
    const SinCos north = SinCosByDoubling<1>(ellipsoid.north);
    const double sinhEast = SinhOfSmall(ellipsoid.east);
    const double coshEast = std::sqrt(1.0 + sinhEast * sinhEast);
    const DoubleAngles angles{2.0 * north.sine * north.cosine,
                              (north.cosine - north.sine) * (north.cosine + north.sine),
                              2.0 * sinhEast * coshEast, 1.0 + 2.0 * sinhEast * sinhEast};
    const Plane series = SineSeries(c.seriesCoef, angles);

    // On the sphere.
    const SinCos xi = Difference(north, SinCosOfSmall(series.north));
    const double sinhEta = BoundedSinh(ellipsoid.east - series.east);
    const double meridian2 = sinhEta * sinhEta + xi.cosine * xi.cosine;
    const double meridian = std::sqrt(meridian2);
    const double lambda = AtanOfSmall(sinhEta / xi.cosine) + centralMeridian * RADIANS_PER_DEGREE;
    const double chi = ConformalLatitudeOf(ellipsoid.north - series.north, xi, meridian, sinhEta);

    // Back to the ellipsoid.
    const double perRadius2 = 1.0 / (1.0 + sinhEta * sinhEta);
    const SinCos twice{2.0 * xi.sine * meridian * perRadius2, (meridian2 - xi.sine * xi.sine) * perRadius2};
    const double step = LatitudeStep(LATITUDE_SERIES[figure.ellipsoid], twice);
    const double rest = RestOfIteration(-step, step, twice, figure.e2, LATITUDE_TOLERANCE);
    *lon = lambda * DEGREES_PER_RADIAN;
    *lat = (chi + (step + rest) - (HALF_PI_SHORT - HALF_PI)) * DEGREES_PER_RADIAN;
}

}  // namespace

// Eastward a strip is narrow, and the functions of the longitude are short series.
//
// With (S, C) the direction of the conformal latitude, the point of the conformal sphere is (S, C cos dLon,
// C sin dLon). Its transverse latitude and longitude and all the functions of their doubles follow from these
// three by algebra, so that nothing is lost near the poles and a point on the central meridian has easting 0
// to the last bit.
void TM_Forward(double dLon, double lat, double k, double falseEasting, double falseNorthing, double* easting,
                double* northing, const TmConstants* c) {
    const Figure figure = FigureOf(*c);
    const double phi = LatitudeAsSeen(lat);
    // Far off the strip every digit of the latitude's cosine shows in the easting.
    const SinCos direction = IsSmall(dLon * dLon) ? SinCosByDoubling<1>(phi) : SinCosOf(phi);
    const ConformalAngle conformal = ConformalLatitude(phi, direction, CONFORMAL_SERIES[figure.ellipsoid]);
    const SinCos lambda = SinCosOfSmall(dLon);
    const double up = conformal.direction.sine;
    const double ahead = conformal.direction.cosine * lambda.cosine;
    const double aside = conformal.direction.cosine * lambda.sine;

    const Plane sphere{TransverseLatitude(conformal, dLon, lambda.cosine), AtanhOfSmall(aside)};
    const double twice = 2.0 / (up * up + ahead * ahead);
    const DoubleAngles angles{twice * up * ahead, 0.5 * twice * (ahead - up) * (ahead + up), twice * aside,
                              1.0 + twice * aside * aside};
    const Plane series = SineSeries(c->seriesCoef, angles);

    const double ka = k * figure.a;
    *easting = ka * (c->seriesCoef[0] * sphere.east + series.east) + falseEasting;
    *northing = ka * (c->seriesCoef[0] * sphere.north + series.north) + falseNorthing;
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
    double east, north;
    TM_Forward((latLon[1] - p.originLongitude) * RADIANS_PER_DEGREE, latLon[0] * RADIANS_PER_DEGREE, 1.0, 0.0,
               0.0, &east, &north, &forward);
    *northing = (north - originNorth) * p.scale + p.falseNorthing;
    *easting = east * p.scale + p.falseEasting;
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

}  // namespace tessara

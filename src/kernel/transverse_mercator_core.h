// The formulas of transverse Mercator on an ellipsoid with the rectifying radius 1. Within a strip, which is
// narrow, the functions of the longitude are short series, and nothing calls or branches: loops over many
// positions and single conversions share these.
#pragma once

#include <algorithm>
#include <cmath>

#include "kernel/conformal_latitude.h"
#include "kernel/datum_rows.h"
#include "kernel/transverse_mercator_series.h"
#include "numerics/called.h"
#include "numerics/conditions.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/transverse_mercator.h"

namespace tessara::tm {

// One digit shorter than the double nearest to pi/2. It stays because stored results have to agree to the
// last digit.
inline constexpr double HALF_PI_SHORT = 1.570796326794897;

inline constexpr double LATITUDE_TOLERANCE = 1e-11;  // radians

// The figures of a datum's ellipsoid that the projection needs. Constants without a datum give NaN.
struct Figure {
    double a, e2;
    std::uint32_t ellipsoid;
};

[[nodiscard]] inline Figure FigureOf(const TmConstants& c) {
    const DatumRow* row = RowOf(c.datum);
    if (!row) return {std::nan(""), std::nan(""), ELLIPSOID_UNKNOWN};
    return {row->a, row->e2, row->ellipsoid};
}

// The method's isometric latitude has the tangent of lat/2 + pi/4, and doubles near the sum are coarser than
// the latitude: what doesn't move it off pi/4 lies on the equator and, as the double is short of pi/4, just
// south of it; what doesn't move it beyond pi/2 isn't beyond the pole. Signs and limits are decided on this.
// Good for latitudes of up to half a turn.
[[nodiscard]] inline double LatitudeAsSeen(double lat) {
    constexpr double justSouth = -6.123233995736766e-17;  // twice what the double is short by
    const double sum = lat / 2.0 + QUARTER_PI;
    const double polar = sum == HALF_PI ? HALF_PI : lat;
    return sum == QUARTER_PI ? justSouth : polar;
}

// Whether the short series are good for a position, radians, the longitude from the central meridian.
[[nodiscard]] inline bool IsInStrip(double dLon, double phi) {
    return AllOf(IsSmall(dLon * dLon), std::fabs(phi) <= HALF_PI);
}

// Within a strip a latitude on the sphere and the transverse latitude of the same point differ by little, and
// one follows from the other by a series.

// atan(up / ahead), the transverse latitude of a point at the conformal latitude.
template <Reach reach>
[[nodiscard]] inline double TransverseLatitude(const ConformalAngle& conformal, double dLon,
                                               double cosLambda) {
    const auto [up, along] = conformal.direction;
    const double ahead = along * cosLambda;
    if (reach == Reach::Everywhere && !IsSmall(dLon * dLon)) return called::Atan(up / ahead);
    return conformal.chi + AtanBySeries(up * along * (1.0 - cosLambda) / (up * up + along * ahead));
}

// A strip is narrow in longitude, so the functions of the longitude are short series.
//
// With (S, C) as the direction of the conformal latitude, the point of the conformal sphere is (S, C cos
// dLon, C sin dLon). Its transverse latitude and longitude, and all functions of their doubles, follow from
// these three numbers by algebra. So nothing is lost near the poles, and a point on the central meridian has
// the easting 0 exactly.
template <Reach reach>
[[nodiscard]] inline Plane Forward(double dLon, double phi, const LatitudeSeries& conformalSeries,
                                   const double c[5]) {
    constexpr bool inStrip = reach == Reach::Near;
    // Far from the strip every digit of the latitude's cosine affects the easting.
    const SinCos direction = inStrip                ? DoublingBySeries<1>(phi)
                             : IsSmall(dLon * dLon) ? SinCosByDoubling<1>(phi)
                                                    : called::SinCosOf(phi);
    const ConformalAngle conformal = inStrip ? ConformalLatitudeWithinPoles(phi, direction, conformalSeries)
                                             : ConformalLatitude(phi, direction, conformalSeries);
    const SinCos lambda = SinCosOfSmall<reach>(dLon);
    const double up = conformal.direction.sine;
    const double ahead = conformal.direction.cosine * lambda.cosine;
    const double aside = conformal.direction.cosine * lambda.sine;

    const Plane sphere{TransverseLatitude<reach>(conformal, dLon, lambda.cosine), AtanhOfSmall<reach>(aside)};
    const double twice = 2.0 / (up * up + ahead * ahead);
    const DoubleAngles angles{twice * up * ahead, 0.5 * twice * (ahead - up) * (ahead + up), twice * aside,
                              1.0 + twice * aside * aside};
    const Plane series = SineSeries(c, angles);
    return {c[0] * sphere.north + series.north, c[0] * sphere.east + series.east};
}

// Metres on the plane to those of a grid with an origin.
[[nodiscard]] inline Plane FromOrigin(const Plane& metres, const TmParams& p, double originNorth) {
    return {(metres.north - originNorth) * p.scale + p.falseNorthing, metres.east * p.scale + p.falseEasting};
}

// A position in radians, the longitude from the central meridian.
struct Position {
    double lambda, phi;
    bool isInReach;  // else the formulas for a strip aren't good for it
};

// sinh, bounded so that its square is finite: far off the globe the series overflows, and the position is
// still one a quarter turn from the meridian.
[[nodiscard]] inline double BoundedSinh(double x) {
    constexpr double bound = 1e150;
    return IsSmall(x * x) ? SinhBySeries(x) : std::clamp(Sinh(x), -bound, bound);
}

// The position of a point on the plane. What of it is in reach of the short series isn't known before.
template <Reach reach>
[[nodiscard]] inline Position Inverse(const Plane& ellipsoid, const LatitudeSeries& latitudeSeries, double e2,
                                      const double c[5]) {
    constexpr bool inStrip = reach == Reach::Near;
    const SinCos north =
        inStrip ? DoublingBySeries<1>(ellipsoid.north) : SinCosByDoubling<1>(ellipsoid.north);
    const double sinhEast = SinhOfSmall<reach>(ellipsoid.east);
    const double coshEast = std::sqrt(1.0 + sinhEast * sinhEast);
    const DoubleAngles angles{2.0 * north.sine * north.cosine,
                              (north.cosine - north.sine) * (north.cosine + north.sine),
                              2.0 * sinhEast * coshEast, 1.0 + 2.0 * sinhEast * sinhEast};
    const Plane series = SineSeries(c, angles);

    // On the sphere.
    const SinCos xi = Difference(north, SinCosOfSmall<reach>(series.north));
    const Plane sphere{ellipsoid.north - series.north, ellipsoid.east - series.east};
    const double sinhEta = inStrip ? SinhBySeries(sphere.east) : BoundedSinh(sphere.east);
    const double sinh2 = sinhEta * sinhEta;
    const double meridian2 = sinh2 + xi.cosine * xi.cosine;
    const double meridian = std::sqrt(meridian2);
    const double tangent = sinhEta / xi.cosine;

    // atan(xi.sine / meridian), the conformal latitude of a point whose distance from the central meridian
    // has the hyperbolic sine sinhEta: from its transverse latitude, if it isn't near a pole.
    constexpr double offThePoles = 1.5;  // radians
    const bool isNear = AllOf(IsSmall(sinh2), std::fabs(sphere.north) < offThePoles);
    const double chi =
        reach == Reach::Everywhere && !isNear
            ? called::Atan(xi.sine / meridian)
            : sphere.north -
                  AtanBySeries(xi.sine * sinh2 /
                               ((meridian + xi.cosine) * (xi.cosine * meridian + xi.sine * xi.sine)));

    // Back to the ellipsoid.
    const double perRadius2 = 1.0 / (1.0 + sinh2);
    const SinCos twice{2.0 * xi.sine * meridian * perRadius2, (meridian2 - xi.sine * xi.sine) * perRadius2};
    const double step = LatitudeStep(latitudeSeries, twice);
    const double rest = RestOfIteration(-step, step, twice, e2, LATITUDE_TOLERANCE);
    const bool isInReach = AllOf(IsInReachOfDoubling<1>(ellipsoid.north),
                                 IsSmall(ellipsoid.east * ellipsoid.east), IsSmall(sphere.east * sphere.east),
                                 IsSmall(series.north * series.north), IsSmall(tangent * tangent), isNear);
    return {AtanOfSmall<reach>(tangent), chi + (step + rest) - (HALF_PI_SHORT - HALF_PI), isInReach};
}

}  // namespace tessara::tm

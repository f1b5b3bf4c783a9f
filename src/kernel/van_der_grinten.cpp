#include "tessara/kernel/van_der_grinten.h"

#include <algorithm>
#include <cmath>

#include "numerics/polynomial.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/formulas.h"

namespace tessara {
namespace {

constexpr double ON_AXIS = 1e-7;  // radians, or radii of the map's circle
constexpr double PI_SQUARED = 9.869604401089358;
constexpr double ONE_27TH = 0.037037037037037035;
// A cosine that exceeds 1 by more than this factor means that there is no root; a smaller excess is
// rounding.
constexpr double COSINE_SLACK = 0.999;

struct Plane {
    double x, y;
};

// The equator is true to length.
double EquatorX(double dLambda, double a) {
    return std::fabs(dLambda) < ON_AXIS ? 0.0 : a * dLambda;
}

double MeridianY(double dPhi, double a) {
    return (PI - std::sqrt(PI_SQUARED - 4.0 * dPhi * dPhi)) * PI * a / (2.0 * dPhi);
}

Plane Forward(double dPhi, double dLambda, double a) {
    if (std::fabs(dPhi) < ON_AXIS) return {EquatorX(dLambda, a), 0.0};
    const double y0 = MeridianY(dPhi, a);
    if (std::fabs(dLambda) < ON_AXIS) return {0.0, y0};

    const double A = (std::fabs(PI / dLambda) - std::fabs(dLambda / PI)) * 0.5;
    const double sine = std::fabs(2.0 * dPhi / PI);  // of the construction's angle
    const double cosine = std::sqrt((1.0 - sine) * (1.0 + sine));
    const double G = cosine / (sine + cosine - 1.0);
    const double P = G * (2.0 / sine - 1.0);
    const double W = G - P * P;
    const double V = P * P + A * A;
    const double x = a * SignOf(dLambda) * PI * (W * A + std::sqrt(A * A * W * W - V * (G * G - P * P))) / V;
    // (A^2 + 1) V - H^2 without its fourth powers of A, which cancel: near the central meridian they would
    // leave rounding errors of metres at a hundredth of a degree and of kilometres closer to it.
    const double H = A * A + G;
    const double radicand = A * A * (P * P + 1.0 - 2.0 * G) + P * P - G * G;
    const double y = a * SignOf(dPhi) * PI * std::fabs(P * H - A * std::sqrt(radicand)) / V;
    return {x, std::fabs(y0) > std::fabs(y) ? y0 : y};
}

// sin(asin(x) / 3), which is cos(acos(x) / 3 + pi/3), by Newton's steps; not a number for |x| above 1. For x
// from 0 on it is 1/2 - w, where w^2 (1 - 2w/3) = (1 - x) / 6 = r^2: so both ends keep all their digits. The
// start is a polynomial in r, right to 7e-6, of which two steps leave nothing.
double SineOfThird(double x) {
    constexpr double tiny = 1e-300;
    constexpr double starts[] = {1.0000066329, 0.3319147569,  0.3270598506, -0.3347043069,
                                 4.0654750615, -9.8921708018, 12.2561583966};
    const double r2 = (1.0 - std::fabs(x)) * (1.0 / 6.0);
    const double r = std::sqrt(r2);
    double w = r * Polynomial(starts, r);
    for (int i = 0; i < 2; ++i)
        w -= (w * w * (1.0 - w * (2.0 / 3.0)) - r2) / std::max(2.0 * w * (1.0 - w), tiny);
    return std::copysign(0.5 - w, x);
}

// The latitude in radians of a point (X, Y) in radii of the map's circle; y and a in metres. The
// meridian's own parabola decides between two roots of the cubic. False if there is no
// root.
bool InverseLatitude(double X, double Y, double y, double a, double* lat) {
    *lat = 0.0;
    if (std::fabs(Y) < ON_AXIS) return true;

    const double r2 = X * X + Y * Y;
    const double c1 = -std::fabs(Y) * (X * X + 1.0 + Y * Y);
    const double c2 = c1 - 2.0 * Y * Y + X * X;
    const double c3 = -2.0 * c1 + 1.0 + 2.0 * Y * Y + r2 * r2;
    const double d =
        Y * Y / c3 + (2.0 * (c2 * c2 * c2) / (c3 * c3 * c3) - 9.0 * c1 * c2 / (c3 * c3)) * ONE_27TH;
    const double a1 = (c1 - c2 * c2 / (3.0 * c3)) / c3;
    const double m1 = 2.0 * std::sqrt(-a1 / 3.0);
    const double x5 = 3.0 * d / (a1 * m1);
    double sine = SineOfThird(x5);
    if (!std::isfinite(sine)) {
        if (std::fabs(x5) * COSINE_SLACK > 1.0) return false;
        sine = -0.5;
    }

    // The other root of a cubic whose roots add up to 0.
    const auto root = [&](double s) { return SignOf(y) * PI * (-m1 * s - c2 / (3.0 * c3)); };
    *lat = root(sine);
    if (std::fabs(y) > std::fabs(PI * a * *lat / (PI - std::fabs(*lat))))
        *lat = root(-0.5 * (sine + std::sqrt(3.0 * (1.0 - sine * sine))));
    return true;
}

double InverseLongitude(double X, double Y) {
    if (std::fabs(X) < ON_AXIS) return 0.0;
    const double r2 = X * X + Y * Y;
    return (r2 - 1.0 + std::sqrt(2.0 * (X * X - Y * Y) + 1.0 + r2 * r2)) * PI / (2.0 * X);
}

}  // namespace

KoordStatus VDG_FromGeodetic(const double latLon[2], VdgPayload* payload, std::int32_t datum) {
    const DatumRow* row = Datum_Row(datum);
    if (!row) return KOORD_ERR_DATUM;
    const Plane plane = Forward((latLon[0] - payload->originLatitude) * RADIANS_PER_DEGREE,
                                (latLon[1] - payload->originLongitude) * RADIANS_PER_DEGREE, row->a);
    payload->x = plane.x;
    payload->y = plane.y;
    return KOORD_OK;
}

KoordStatus VDG_ToGeodetic(const VdgPayload* payload, std::int32_t datum, double latLon[2]) {
    const DatumRow* row = Datum_Row(datum);
    if (!row) return KOORD_ERR_DATUM;
    const double X = payload->x / row->a / PI;
    const double Y = payload->y / row->a / PI;
    double dPhi;
    if (!InverseLatitude(X, Y, payload->y, row->a, &dPhi)) return KOORD_ERR_GRID_RANGE;
    latLon[0] = dPhi * DEGREES_PER_RADIAN + payload->originLatitude;
    latLon[1] = InverseLongitude(X, Y) * DEGREES_PER_RADIAN + payload->originLongitude;
    return KOORD_OK;
}

}  // namespace tessara

#include "tessara/kernel/van_der_grinten.h"

#include <cmath>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/formulas.h"

namespace tessara {
namespace {

constexpr double ON_AXIS = 1e-7;  // radians, or radii of the map's circle
constexpr double PI_SQUARED = 9.869604401089358;
constexpr double THIRD_PI = 1.0471975511965976;
constexpr double ONE_27TH = 0.037037037037037035;
// Beyond a cosine of 1 by more than this factor there is no root; up to it, rounding is to blame.
constexpr double COSINE_SLACK = 0.999;

struct Plane {
    double x, y;
};

double EquatorX(double dLambda, double a) {
    if (std::fabs(dLambda) < ON_AXIS) return 0.0;
    const double h = 2.0 * std::atan2(dLambda, PI);
    return PI * a / std::sin(h) - PI * a / std::tan(h);
}

double MeridianY(double dPhi, double a) {
    return (PI - std::sqrt(PI_SQUARED - 4.0 * dPhi * dPhi)) * PI * a / (2.0 * dPhi);
}

Plane Forward(double dPhi, double dLambda, double a) {
    if (std::fabs(dPhi) < ON_AXIS) return {EquatorX(dLambda, a), 0.0};
    const double y0 = MeridianY(dPhi, a);
    if (std::fabs(dLambda) < ON_AXIS) return {0.0, y0};

    const double A = (std::fabs(PI / dLambda) - std::fabs(dLambda / PI)) * 0.5;
    const double theta = std::asin(std::fabs(2.0 * dPhi / PI));
    const double G = std::cos(theta) / (std::sin(theta) + std::cos(theta) - 1.0);
    const double P = G * (2.0 / std::sin(theta) - 1.0);
    const double W = G - P * P;
    const double V = P * P + A * A;
    const double x = a * SignOf(dLambda) * PI * (W * A + std::sqrt(A * A * W * W - V * (G * G - P * P))) / V;
    // (A^2 + 1) V - H^2 without its fourth powers of A, which cancel: near the central meridian they leave
    // nothing but rounding, metres at a hundredth of a degree and kilometres further in.
    const double H = A * A + G;
    const double radicand = A * A * (P * P + 1.0 - 2.0 * G) + P * P - G * G;
    const double y = a * SignOf(dPhi) * PI * std::fabs(P * H - A * std::sqrt(radicand)) / V;
    return {x, std::fabs(y0) > std::fabs(y) ? y0 : y};
}

// The latitude in radians of a point (X, Y) in radii of the map's circle; y and a in metres. The cubic is
// solved by cosines, and the meridian's own parabola decides between two of its roots. False if there is no
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
    double theta = std::acos(x5) / 3.0;
    if (!std::isfinite(theta)) {
        if (std::fabs(x5) * COSINE_SLACK > 1.0) return false;
        theta = THIRD_PI;
    }

    const auto root = [&](double angle) {
        return SignOf(y) * PI * (-m1 * std::cos(angle + THIRD_PI) - c2 / (3.0 * c3));
    };
    *lat = root(theta);
    if (std::fabs(y) > std::fabs(PI * a * *lat / (PI - std::fabs(*lat)))) {
        const double other = (TWO_PI - 3.0 * std::fabs(theta)) / 3.0;
        *lat = root(theta < 0.0 ? -other : other);
    }
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

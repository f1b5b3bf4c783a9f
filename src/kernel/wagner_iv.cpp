#include "tessara/kernel/wagner_iv.h"

#include <cmath>

#include "kernel/numeric.h"
#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara {
namespace {

constexpr int NEWTON_STEPS = 11;
constexpr double NEWTON_TOLERANCE = 1e-5;  // radians
// Slightly above pi/2, so that the pole passes.
constexpr double RIGHT_ANGLE = 1.570796326794897;

// The auxiliary angle 2h solves 2h + sin 2h = C/6 sin(lat). At the pole 2h is 120 degrees, so that the line
// of the pole is half as long as the equator.
constexpr double SQRT_3 = 1.7320508075688772;
constexpr double C = 3.0 * SQRT_3 + 12.566370614359172;

// y on the unit sphere for h = 90 degrees.
double HeightFactor() {
    return std::sqrt(2.0 * PI * SQRT_3 / C) * 2.0;
}

// x on the unit sphere for half the equator.
double WidthFactor() {
    return 2.0 * std::sqrt(3.0 * 2.0 * PI * SQRT_3 / C);
}

const DatumRow* RowOf(const tagKOORD& record) {
    return Datum_Row(static_cast<std::int32_t>(record.datum));
}

}  // namespace

KoordStatus WagnerIV_Forward(const tagKOORD* geodez, double lon0, double* y, double* x) {
    if (geodez->type != KOORD_GEODEZ) return KOORD_ERR_GENERAL;
    const DatumRow* row = RowOf(*geodez);
    if (!row) return KOORD_ERR_DATUM;
    const auto position = Load<GeodezPayload>(*geodez);
    const double dLambda = (position.longitude - lon0) * RADIANS_PER_DEGREE;
    const double v = Sin(position.latitude * RADIANS_PER_DEGREE) * C / 6.0;

    double theta = 0.0;
    double previous = 0.0;
    int count = 0;
    do {
        previous = theta;
        const auto [sine, cosine] = SinCosOf(theta);
        theta -= (v - theta - sine) / (-1.0 - cosine);
    } while (theta != previous && ++count < NEWTON_STEPS);
    if (std::fabs(theta - previous) > NEWTON_TOLERANCE) return KOORD_ERR_GENERAL;

    const SinCos h = SinCosOf(previous / 2.0);
    *y = h.sine * HeightFactor() * row->a;
    *x = h.cosine * (WidthFactor() / PI) * row->a * dLambda;
    return KOORD_OK;
}

KoordStatus WagnerIV_Inverse(double y, double x, double lon0, tagKOORD* geodez) {
    if (geodez->type != KOORD_GEODEZ) return KOORD_ERR_GENERAL;
    const DatumRow* row = RowOf(*geodez);
    if (!row) return KOORD_ERR_DATUM;

    const double B = HeightFactor() * row->a;
    y = WrapTurns(y, 4.0 * B);
    if (y > B) y = 2.0 * B - y;
    if (y < -B) y = -2.0 * B - y;
    const double h = Asin(y / B);
    if (!IsWithin(h, -RIGHT_ANGLE, RIGHT_ANGLE)) return KOORD_ERR_GENERAL;

    const double u = (Sin(2.0 * h) + 2.0 * h) * 6.0;
    double lat = h <= 0.0 ? -RIGHT_ANGLE : RIGHT_ANGLE;
    if (!(std::fabs(u) > C)) lat = Asin(u / C);
    if (!IsWithin(lat, -RIGHT_ANGLE, RIGHT_ANGLE)) return KOORD_ERR_GENERAL;

    auto position = Load<GeodezPayload>(*geodez);
    position.latitude = lat * DEGREES_PER_RADIAN;
    position.longitude = x * PI / (Cos(h) * WidthFactor() * row->a) * DEGREES_PER_RADIAN + lon0;
    Store(*geodez, position);
    return KOORD_OK;
}

}  // namespace tessara

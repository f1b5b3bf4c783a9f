#include "tessara/kernel/lambert.h"

#include <cmath>
#include <limits>

#include "kernel/conformal_latitude.h"
#include "kernel/datum_rows.h"
#include "kernel/grid_factors.h"
#include "kernel/lambert_cone.h"
#include "kernel/lambert_formulas.h"
#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "numerics/exponential.h"
#include "numerics/logarithm.h"
#include "numerics/rounding.h"
#include "numerics/sin_cos.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/formulas.h"

namespace tessara {
namespace {

using lambert::ConeOf;
using lambert::ExponentialOf;
using lambert::HasOneParallel;
using lambert::LogOfPower;
using lambert::RadiusOfFirst;

constexpr double LATITUDE_TOLERANCE = 1e-13;  // radians
// The iterations gain two digits per step; the bound stops them for ellipsoids that aren't in the table.
constexpr int CONE_ITERATIONS = 100;

constexpr double PARIS = 2.33722917;  // degrees east of Greenwich

struct FrenchZone {
    double lat0, radius0, x0, y0;
};

constexpr FrenchZone FRENCH_ZONES[] = {
    {49.5, 5457616.68, 600000.0, 1200000.0},
    {46.8, 5999695.77, 600000.0, 2200000.0},
    {44.1, 6591905.08, 600000.0, 3200000.0},
    {42.165, 7053300.18, 234.358, 4185861.369},
};
constexpr std::int32_t FRENCH_ZONE_COUNT = 4;

// The radius of a parallel on an ellipsoid with the semi-major axis 1.
double ParallelRadius(SinCos phi, double e2) {
    return phi.cosine / std::sqrt(1.0 - phi.sine * phi.sine * e2);
}

// log x - log y
double Difference(double x, double y) {
    return x < 0.0 ? std::numeric_limits<double>::quiet_NaN() : LogOfRatio(x, y);
}

// The direction of a latitude that often is near another.
SinCos SinCosBeside(double phi, double beside, SinCos direction) {
    const double away = phi - beside;
    return IsSmall(away * away) ? Sum(direction, SinCosOfSmall(away)) : SinCosOf(phi);
}

double LatitudeFromIsometricLatitude(double psi, double e) {
    double lat = psi;
    double step = 0.0;
    int count = 0;
    do {
        const double old = lat;
        lat = Atan(Sinh(Atanh(Sin(old) * e) * e + psi));
        step = std::fabs(old - lat);
    } while (step > LATITUDE_TOLERANCE && ++count < CONE_ITERATIONS);
    return lat;
}

double IsometricOrigin(const LambertFR& lambert) {
    return IsometricLatitude(lambert.e, lambert.lat0 * RADIANS_PER_DEGREE);
}

}  // namespace

KoordStatus PrepareCone(std::int32_t datum, double parallel1, double parallel2, double scale,
                        double falseEasting, double falseNorthing, double lat0, double lon0, LambertCC* lcc) {
    const DatumRow* row = RowOf(datum);
    if (!row) {
        *lcc = LambertCC{};
        return KOORD_ERR_DATUM;
    }
    lcc->datum = datum;
    lcc->parallel1Deg = parallel1;
    lcc->parallel2Deg = parallel2;
    lcc->lon0Deg = lon0;
    lcc->a = row->a;
    lcc->e = std::sqrt(row->e2);
    lcc->e2 = lcc->e * lcc->e;
    lcc->parallel1 = parallel1 * RADIANS_PER_DEGREE;
    lcc->parallel2 = parallel2 * RADIANS_PER_DEGREE;
    lcc->falseEasting = falseEasting;
    lcc->falseNorthing = falseNorthing;
    lcc->scale = scale;
    lcc->lat0 = lat0 * RADIANS_PER_DEGREE;
    lcc->lon0 = lon0 * RADIANS_PER_DEGREE;
    const SinCos phi1 = SinCosOf(lcc->parallel1);
    const SinCos phi2 = SinCosBeside(lcc->parallel2, lcc->parallel1, phi1);
    lcc->t0 = ExponentialOf(SinCosBeside(lcc->lat0, lcc->parallel1, phi1), lcc->e2);
    lcc->t1 = ExponentialOf(phi1, lcc->e2);
    lcc->t2 = ExponentialOf(phi2, lcc->e2);
    lcc->m1 = ParallelRadius(phi1, lcc->e2);
    lcc->m2 = ParallelRadius(phi2, lcc->e2);
    lcc->n = HasOneParallel(*lcc) ? phi1.sine : Difference(lcc->m1, lcc->m2) / Difference(lcc->t1, lcc->t2);
    lcc->rho0 = RadiusOfFirst(*lcc) * ExpOfSmall(LogOfPower(lcc->t0, lcc->t1, lcc->n));
    return KOORD_OK;
}

KoordStatus LambertCC_Init(std::int32_t datum, double parallel1, double parallel2, double scale,
                           double falseEasting, double falseNorthing, double lat0, double lon0,
                           LambertCC* lcc) {
    const KoordStatus status =
        PrepareCone(datum, parallel1, parallel2, scale, falseEasting, falseNorthing, lat0, lon0, lcc);
    if (status == KOORD_OK) lcc->F = lcc->m1 / (Pow(lcc->t1, lcc->n) * lcc->n);
    return status;
}

void LambertCC_Forward(const double latLon[2], double* easting, double* northing, const LambertCC* lcc) {
    const lambert::GridPoint point = lambert::Forward<Cases::Branch>(latLon[0], latLon[1], ConeOf(*lcc));
    *easting = point.easting;
    *northing = point.northing;
}

void LambertCC_Inverse(double easting, double northing, double latLon[2], const LambertCC* lcc) {
    const DatumRow* row = RowOf(lcc->datum);
    if (!row) {
        latLon[0] = latLon[1] = std::numeric_limits<double>::quiet_NaN();
        return;
    }
    const lambert::Position position =
        lambert::Inverse<Cases::Branch>(easting, northing, ConeOf(*lcc), LATITUDE_SERIES[row->ellipsoid]);
    latLon[0] = position.latitude;
    latLon[1] = position.longitude;
}

void LambertFR_Init(std::int32_t zone, std::int32_t datum, LambertFR* lambert) {
    lambert->zone = zone;
    lambert->datum = datum;
    lambert->lon0 = PARIS;
    lambert->e = std::sqrt(Datum_EccentricitySquared(datum));
    if (zone >= 1 && zone <= FRENCH_ZONE_COUNT) {
        const FrenchZone& row = FRENCH_ZONES[zone - 1];
        lambert->lat0 = row.lat0;
        lambert->radius0 = row.radius0;
        lambert->x0 = row.x0;
        lambert->y0 = row.y0;
    }
    lambert->n = Sin(lambert->lat0 * RADIANS_PER_DEGREE);
}

void LambertFR_Forward(const double latLon[2], double* x, double* y, const LambertFR* lambert) {
    const double n = lambert->n;
    const SinCos g = SinCosOf((latLon[1] - lambert->lon0) * RADIANS_PER_DEGREE * n);
    const double R = Exp(-n * IsometricLatitude(lambert->e, latLon[0] * RADIANS_PER_DEGREE)) *
                     Exp(n * IsometricOrigin(*lambert)) * lambert->radius0;
    *x = g.sine * R + lambert->x0;
    *y = (lambert->y0 + lambert->radius0) - g.cosine * R;
}

void LambertFR_Inverse(double x, double y, double latLon[2], const LambertFR* lambert) {
    const double n = lambert->n;
    const double dx = x - lambert->x0;
    const double dy = y - lambert->y0 - lambert->radius0;
    const double R = std::sqrt(dx * dx + dy * dy);
    const double gamma = Atan(dx / (lambert->y0 + lambert->radius0 - y));
    const double L = Log(std::fabs(R / (Exp(IsometricOrigin(*lambert) * n) * lambert->radius0))) * (-1.0 / n);
    latLon[0] = LatitudeFromIsometricLatitude(L, lambert->e) * DEGREES_PER_RADIAN;
    latLon[1] = gamma / n * DEGREES_PER_RADIAN + lambert->lon0;
}

void LambertCC_Factors(const double* latLon, const LambertCC& cone, GridFactors* factors) {
    const SinCos phi = SinCosOf(latLon[0] * RADIANS_PER_DEGREE);
    const double rho = cone.m1 / cone.n * Pow(ExponentialOf(phi, cone.e2) / cone.t1, cone.n);
    const double scale = HasOneParallel(cone) ? cone.scale : 1.0;
    const double away = Remainder(latLon[1] - cone.lon0 * DEGREES_PER_RADIAN, DEGREES_PER_TURN);
    factors->convergence = cone.n * away;
    factors->scale = scale * cone.n * rho / ParallelRadius(phi, cone.e2);
}

}  // namespace tessara

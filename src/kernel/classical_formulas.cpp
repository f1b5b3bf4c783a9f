#include "tessara/kernel/classical_formulas.h"

#include <cmath>

#include "kernel/datum_rows.h"
#include "kernel/swiss_sphere.h"
#include "kernel/transverse_mercator_constants.h"
#include "kernel/ups_constants.h"
#include "numerics/arcs.h"
#include "numerics/circular.h"
#include "numerics/exponential.h"
#include "numerics/logarithm.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/transverse_mercator.h"
#include "tessara/kernel/ups.h"

namespace tessara {
namespace {

// One digit shorter than the double nearest to pi/2. It stays because stored results have to agree to the
// last digit.
constexpr double HALF_PI_SHORT = 1.570796326794897;

// Real ellipsoids need about five iterations; the bound stops at a tolerance that can't be reached.
constexpr int LATITUDE_ITERATIONS = 100;

constexpr double GAUSS_TOLERANCE = 1e-14;  // radians
// Each step gains two digits or more. Only a latitude that alternates in its last bit reaches the bound.
constexpr int GAUSS_ITERATIONS = 50;

double LogTan(double lat) {
    return Log(Tan(lat / 2.0 + QUARTER_PI));
}

// ln((1 + e sin phi)/(1 - e sin phi)), by which the ellipsoid reduces the isometric latitude.
double LogRatio(double e, double lat) {
    const double eSin = e * Sin(lat);
    return Log((1.0 + eSin) / (1.0 - eSin));
}

}  // namespace

KoordStatus Datum_LoadToHub(std::int32_t datum, HubParams* p) {
    const DatumRow* row = RowOf(datum);
    if (!row) return KOORD_ERR_DATUM;
    *p = ToHubOf(*row);
    return KOORD_OK;
}

KoordStatus Datum_LoadFromHub(std::int32_t datum, HubParams* p) {
    const DatumRow* row = RowOf(datum);
    if (!row) return KOORD_ERR_DATUM;
    *p = FromHubOf(*row);
    return KOORD_OK;
}

KoordStatus Datum_Shift(const double in[2], double out[2], const HubParams* toHub, const HubParams* fromHub,
                        std::int32_t sourceDatum, std::int32_t targetDatum) {
    if (!RowOf(sourceDatum) || !RowOf(targetDatum)) return KOORD_ERR_DATUM;
    double position[2] = {in[0], in[1]};
    if (sourceDatum != DATUM_WGS84) Molodensky_ToHub(position, toHub);
    if (targetDatum != DATUM_WGS84) Molodensky_FromHub(position, fromHub, targetDatum);
    out[0] = position[0];
    out[1] = position[1];
    return KOORD_OK;
}

KoordStatus TM_ForwardParam(const double latLon[2], const TmParams* p, double* easting, double* northing,
                            const TmConstants* forward) {
    const double originNorth = TmOriginNorthing(p->originLatitude, *forward);
    TmForwardFromOrigin(latLon, *p, originNorth, easting, northing, *forward);
    return KOORD_OK;
}

KoordStatus TM_InverseParam(double easting, double northing, const TmParams* p, double latLon[2],
                            const TmConstants* forward, const TmConstants* inverse) {
    const double originNorth = TmOriginNorthing(p->originLatitude, *forward);
    TmInverseFromOrigin(easting, northing, *p, originNorth, latLon, *inverse);
    return KOORD_OK;
}

void TM_Arc(double lat, const double arcCoef[5], double* result) {
    double arc = arcCoef[0] * lat;
    for (int j = 1; j <= 4; ++j)
        arc += arcCoef[j] * Sin(2.0 * j * lat);
    *result = arc;
}

void IsometricLatitude_Tm(double lat, double e, double* psi) {
    const double eSin = e * Sin(lat);
    *psi = Log(Tan(lat / 2.0 + QUARTER_PI) * Pow((1.0 - eSin) / (1.0 + eSin), e / 2.0));
}

void LatitudeFromIsometric(double psi, double e, double tolerance, double* lat) {
    const double t = Exp(psi);
    double phi = 2.0 * Atan(t) - HALF_PI_SHORT;
    double step = 0.0;
    int i = 0;
    do {
        const double eSin = e * Sin(phi);
        const double next = 2.0 * Atan(t * Pow((1.0 + eSin) / (1.0 - eSin), e / 2.0)) - HALF_PI_SHORT;
        step = std::fabs(phi - next);
        phi = next;
    } while (step > tolerance && ++i < LATITUDE_ITERATIONS);
    *lat = phi;
}

KoordStatus UPS_LoadConstants(std::int32_t datum, UpsConstants* c) {
    const UpsConstants* constants = UpsConstantsOf(datum);
    if (!constants) return KOORD_ERR_DATUM;
    *c = *constants;
    return KOORD_OK;
}

void CH_LoadConstants(CHConstants* c) {
    c->degPerRad = 45.0 / Atan(1.0);
    c->lon0 = swiss::ORIGIN_LONGITUDE / c->degPerRad;
    c->lat0 = swiss::ORIGIN_LATITUDE / c->degPerRad;
    c->e = std::sqrt(swiss::E2);
    c->alpha = std::sqrt(1.0 + swiss::SECOND_E2 * Pow(Cos(c->lat0), 4.0));

    const double sinLat0 = Sin(c->lat0);
    const double sinB0 = sinLat0 / c->alpha;
    c->b0 = Atan(sinB0 / std::sqrt(1.0 - sinB0 * sinB0));
    c->radius = std::sqrt(swiss::ONE_MINUS_E2) * swiss::A / (1.0 - swiss::E2 * sinLat0 * sinLat0);
    c->k = LogTan(c->b0) - c->alpha * LogTan(c->lat0) + (c->alpha * c->e / 2.0) * LogRatio(c->e, c->lat0);
}

double RD_MeanRadius(double lat, double a, double e2) {
    const double sinLat = Sin(lat);
    const double w = 1.0 - e2 * sinLat * sinLat;
    const double meridian = (1.0 - e2) * a / Pow(w, 1.5);
    const double primeVertical = a / std::sqrt(w);
    return std::sqrt(meridian * primeVertical);
}

double RD_GaussLatitude(double lat, double e, double n, double m) {
    const double eSin = e * Sin(lat);
    const double onSphere = Exp(n * Log(Tan(lat / 2.0 + QUARTER_PI)));
    const double ofEllipsoid = Exp((n * e / 2.0) * Log((1.0 - eSin) / (1.0 + eSin)));
    return 2.0 * Atan(onSphere * ofEllipsoid / m) - HALF_PI;
}

double RD_LatitudeFromGauss(double b, double e, double n, double m) {
    double lat = b;
    double step = 1.0;
    for (int i = 0; i < GAUSS_ITERATIONS && std::fabs(step) > GAUSS_TOLERANCE; ++i) {
        step = RD_GaussLatitude(lat, e, n, m) - b;
        lat -= step;
    }
    return lat;
}

}  // namespace tessara

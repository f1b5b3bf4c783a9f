// Formulas in their classical form, for hosts that compute a grid or a shift step by step.
//
// The library's own conversions don't call them. They take the same values from tables computed at compile
// time, and from closed forms instead of iterations, several times as fast; both agree to within the
// roundings of the classical form. Angles are in radians and lengths in metres unless a comment says
// otherwise. The headers of the systems, whose structs the functions take, include this header.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord_status.h"

namespace tessara {

struct HubParams;     // datum.h
struct TmConstants;   // transverse_mercator.h
struct TmParams;      // transverse_mercator.h
struct UpsConstants;  // ups.h

// -- Datums

// The parameters of a shift from a datum to WGS84, or from WGS84 to a datum. KOORD_OK, or KOORD_ERR_DATUM,
// with *p unchanged, for an id outside 0..238.
KoordStatus Datum_LoadToHub(std::int32_t datum, HubParams* p);
KoordStatus Datum_LoadFromHub(std::int32_t datum, HubParams* p);

// Shifts a position in degrees; `in` and `out` may be one array. KOORD_OK, or KOORD_ERR_DATUM, with `out`
// unchanged, if either id is outside 0..238. The longitude isn't brought into -180..180.
KoordStatus Datum_Shift(const double in[2], double out[2], const HubParams* toHub, const HubParams* fromHub,
                        std::int32_t sourceDatum, std::int32_t targetDatum);

// -- Transverse Mercator

// Degrees to a grid with all five parameters, and back. Always KOORD_OK.
KoordStatus TM_ForwardParam(const double latLon[2], const TmParams* p, double* easting, double* northing,
                            const TmConstants* forward);
KoordStatus TM_InverseParam(double easting, double northing, const TmParams* p, double latLon[2],
                            const TmConstants* forward, const TmConstants* inverse);

// The rectifying arc of a latitude on a unit ellipsoid.
void TM_Arc(double lat, const double arcCoef[5], double* result);
// The isometric latitude of a latitude on an ellipsoid of eccentricity e (0.0: the sphere).
void IsometricLatitude_Tm(double lat, double e, double* psi);
// The latitude of an isometric latitude. The iteration ends at a step of at most `tolerance`, or with a NaN.
void LatitudeFromIsometric(double psi, double e, double tolerance, double* lat);

// -- Universal Polar Stereographic

// KOORD_OK, or KOORD_ERR_DATUM, with *c unchanged, for an id outside 0..238.
KoordStatus UPS_LoadConstants(std::int32_t datum, UpsConstants* c);

// -- CH, the Swiss national grid

struct CHConstants {
    double lon0, lat0;  // origin in Bern
    double degPerRad;
    double e;       // eccentricity of the ellipsoid
    double radius;  // of the sphere
    double b0;      // latitude of the origin on the sphere
    double alpha;   // longitude on the sphere per longitude on the ellipsoid
    double k;       // integration constant of the conformal sphere
};

void CH_LoadConstants(CHConstants* constants);

// -- RD, the Dutch national grid

// The geometric mean of the radii of curvature at a latitude.
[[nodiscard]] double RD_MeanRadius(double lat, double a, double e2);

// The latitude on the Gaussian sphere of a latitude on an ellipsoid of eccentricity e, and back. n and m are
// the exponent and the factor of the sphere.
[[nodiscard]] double RD_GaussLatitude(double lat, double e, double n, double m);
[[nodiscard]] double RD_LatitudeFromGauss(double b, double e, double n, double m);

}  // namespace tessara

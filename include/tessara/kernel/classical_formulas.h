// Formulas in their classical shape, for hosts that calculate a grid or a shift step by step.
//
// No conversion of the library calls them: it takes the same values from tables that are computed at compile
// time and from closed forms in place of iterations, which is several times faster. Both agree to the
// roundings of the classical form. Angles are radians, lengths metres, unless a comment says otherwise. The
// headers of the systems, whose structures the functions take, include this one.
#pragma once

#include <cstdint>

#include "tessara/kernel/koord_status.h"

namespace tessara {

struct HubParams;     // datum.h
struct TmConstants;   // transverse_mercator.h
struct TmParams;      // transverse_mercator.h
struct UpsConstants;  // ups.h

// -- Datums

// Parameters for the way from a datum to WGS84 and back. KOORD_ERR_DATUM for an id outside 0..238 (*p is then
// unchanged), else KOORD_OK.
KoordStatus Datum_LoadToHub(std::int32_t datum, HubParams* p);
KoordStatus Datum_LoadFromHub(std::int32_t datum, HubParams* p);

// Shifts a position in degrees, also in place. KOORD_ERR_DATUM if either id is
// outside 0..238 (`out` is then unchanged), else KOORD_OK. The longitude isn't brought into -180..180.
KoordStatus Datum_Shift(const double in[2], double out[2], const HubParams* toHub, const HubParams* fromHub,
                        std::int32_t sourceDatum, std::int32_t targetDatum);

// -- Transverse Mercator

// Degrees to a grid with all five parameters, and back. Always KOORD_OK.
KoordStatus TM_ForwardParam(const double latLon[2], const TmParams* p, double* easting, double* northing,
                            const TmConstants* forward);
KoordStatus TM_InverseParam(double easting, double northing, const TmParams* p, double latLon[2],
                            const TmConstants* forward, const TmConstants* inverse);

// Rectifying arc of a latitude on a unit ellipsoid.
void TM_Arc(double lat, const double arcCoef[5], double* result);
// Isometric latitude of a latitude on an ellipsoid of eccentricity e (0.0: the sphere).
void IsometricLatitude_Tm(double lat, double e, double* psi);
// The latitude of an isometric latitude, iterated until a step is at most `tolerance`. A NaN ends the
// iteration.
void LatitudeFromIsometric(double psi, double e, double tolerance, double* lat);

// -- Universal Polar Stereographic

// KOORD_ERR_DATUM for an id outside 0..238 (*c is then unchanged), else KOORD_OK.
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

// Geometric mean of the radii of curvature at a latitude.
[[nodiscard]] double RD_MeanRadius(double lat, double a, double e2);

// Latitude on the Gaussian sphere of a latitude on an ellipsoid of eccentricity e, and back. n and m are the
// sphere's exponent and factor.
[[nodiscard]] double RD_GaussLatitude(double lat, double e, double n, double m);
[[nodiscard]] double RD_LatitudeFromGauss(double b, double e, double n, double m);

}  // namespace tessara
